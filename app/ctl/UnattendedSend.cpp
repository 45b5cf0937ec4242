#include "UnattendedSend.h"

#include "CtlSession.h"
#include "publication/SendLock.h"
#include "publication/SendPendingPublications.h"
#include "publication/SendReport.h"
#include "shell/AppState.h"
#include "shell/Logger.h"
#include "stores/Seller.h"
#include "stores/ZorvantaMinistore.h"

namespace {

/// The two counters of the progress window as one line; on a terminal it is redrawn in place.
class ConsoleProgress : public PublicationProgress
{
public:
    ConsoleProgress(std::ostream &out, bool terminal, std::string store)
        : m_out(out), m_terminal(terminal), m_store(std::move(store))
    {
    }

    void setMaxProducts(std::int16_t total) override
    {
        m_total = total;
        draw();
    }
    std::int16_t products() const override { return m_products; }
    void setProducts(std::int16_t handled) override
    {
        m_products = handled;
        draw();
    }

private:
    void draw()
    {
        if (m_terminal)
            m_out << "\rMinitienda " << m_store << ": " << m_products << "/" << m_total
                  << std::flush;
    }

    std::ostream &m_out;
    bool m_terminal;
    std::string m_store;
    std::int16_t m_total = 0;
    std::int16_t m_products = 0;
};

void summarise(std::ostream &out, const SendReport::Store &store)
{
    out << "Minitienda " << store.id << " (" << store.name << "): " << store.sent << " enviadas, "
        << store.accepted << " aceptadas, " << store.refused << " rechazadas, " << store.retried
        << " reintentos, " << store.unanswered() << " sin respuesta, " << store.stillPending
        << " pendientes\n";
    for (const AnsweredOperation &answer : store.refusals)
        out << "  " << answer.word << " publicación " << answer.publicationId << ": código "
            << answer.code << ", " << answer.description << "\n";
}

} // namespace

SendStatus UnattendedSend::run(const std::string &only)
{
    CtlSession session;
    if (!session.openLinks())
        return SendStatus::LinkFailed;

    SendLock lock;
    std::string why;
    if (!lock.tryLock(SendLock::fileFor(gSeller->database()), why)) {
        m_errors << why << std::endl;
        try {
            gLogger.WriteLogEntry("(asistentectl) " + why);
        } catch (...) {
            // Already on the error stream.
        }
        return SendStatus::Fatal;
    }

    const auto stores = session.linkedMinistores(only);
    if (stores.empty() && !only.empty()) {
        m_errors << "La minitienda " << only << " no está asociada a ningún depósito virtual"
                 << std::endl;
        return SendStatus::RefusedOrPending;
    }
    SendReport report;
    for (const std::shared_ptr<ZorvantaMinistore> &store : stores) {
        ConsoleProgress progress(m_out, m_terminal, store->id());
        SendPendingPublications(*store, report.watch(*store, progress));
        report.storeFinished();
        if (m_terminal)
            m_out << "\r";
        summarise(m_out, report.stores().back());
        if (!gAppRunning)
            break;
    }
    const std::filesystem::path written = report.write(SendReport::folder(), why);
    if (written.empty())
        m_errors << why << std::endl;
    else
        m_out << "Informe: " << written.string() << "\n";

    if (!gAppRunning)
        return SendStatus::Fatal;
    return report.allAccepted() ? SendStatus::AllAccepted : SendStatus::RefusedOrPending;
}

#include "publication/SendReport.h"

#include "platform/db/Connection.h"
#include "publication/PendingPublications.h"
#include "shell/ErrorHandling.h"
#include "stores/Seller.h"
#include "stores/ZorvantaMinistore.h"

#include <ctime>
#include <fstream>

namespace {

std::string now()
{
    const std::time_t clock = std::time(nullptr);
    std::tm local{};
    localtime_r(&clock, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
    return text;
}

std::string jsonText(const std::string &value)
{
    std::string out = "\"";
    for (const char c : value) {
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                char escaped[8];
                std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
                out += escaped;
            } else {
                out += c;
            }
        }
    }
    return out + "\"";
}

std::string htmlText(const std::string &value)
{
    std::string out;
    for (const char c : value) {
        switch (c) {
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '&':
            out += "&amp;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += c;
        }
    }
    return out;
}

const char *outcomeWord(AnsweredOperation::Outcome outcome)
{
    switch (outcome) {
    case AnsweredOperation::Outcome::Accepted:
        return "aceptada";
    case AnsweredOperation::Outcome::Refused:
        return "rechazada";
    case AnsweredOperation::Outcome::Retried:
        return "reintento";
    case AnsweredOperation::Outcome::Unchanged:
        return "sin cambios";
    }
    return "";
}

} // namespace

class SendReport::Watcher : public PublicationProgress
{
public:
    Watcher(Store &store, PublicationProgress &window) : m_store(store), m_window(window) {}

    void setMaxProducts(std::int16_t total) override { m_window.setMaxProducts(total); }
    std::int16_t products() const override { return m_window.products(); }
    void setProducts(std::int16_t handled) override { m_window.setProducts(handled); }
    void requestSent(const std::string &wireText, int operations) override
    {
        m_store.sent += operations;
        m_window.requestSent(wireText, operations);
    }
    void operationAnswered(const AnsweredOperation &answer) override
    {
        ++m_store.answered;
        switch (answer.outcome) {
        case AnsweredOperation::Outcome::Accepted:
            ++m_store.accepted;
            break;
        case AnsweredOperation::Outcome::Refused:
            ++m_store.refused;
            break;
        case AnsweredOperation::Outcome::Retried:
            ++m_store.retried;
            break;
        case AnsweredOperation::Outcome::Unchanged:
            ++m_store.unchanged;
            break;
        }
        if (answer.outcome != AnsweredOperation::Outcome::Accepted)
            m_store.refusals.push_back(answer);
        m_window.operationAnswered(answer);
    }

private:
    Store &m_store;
    PublicationProgress &m_window;
};

SendReport::SendReport(std::string startedAt)
    : m_startedAt(startedAt.empty() ? now() : std::move(startedAt))
{
}

SendReport::~SendReport() = default;

PublicationProgress &SendReport::watch(const ZorvantaMinistore &store, PublicationProgress &window)
{
    // The watcher holds a reference into the list: it goes before the list grows.
    m_watcher.reset();
    Store part;
    part.id = store.id();
    part.name = store.name();
    m_stores.push_back(std::move(part));
    m_watcher = std::make_unique<Watcher>(m_stores.back(), window);
    return *m_watcher;
}

void SendReport::storeFinished()
{
    m_watcher.reset();
    if (m_stores.empty())
        return;
    Store &store = m_stores.back();
    store.stillPending = -1;
    withHandler("SendReport:storeFinished", [&] {
        Connection connection;
        connection.open(gSeller->connectionString(), 15);
        store.stillPending = PendingPublications::count(connection, store.id);
    });
}

bool SendReport::allAccepted() const
{
    for (const Store &store : m_stores) {
        if (store.accepted != store.sent || store.stillPending != 0)
            return false;
    }
    return true;
}

std::string SendReport::json() const
{
    std::string out = "{\n  \"fecha\": " + jsonText(m_startedAt) + ",\n  \"minitiendas\": [";
    for (std::size_t i = 0; i < m_stores.size(); ++i) {
        const Store &store = m_stores[i];
        out += std::string(i ? "," : "") + "\n    {\"id\": " + jsonText(store.id) +
               ", \"nombre\": " + jsonText(store.name) +
               ",\n     \"enviadas\": " + std::to_string(store.sent) +
               ", \"aceptadas\": " + std::to_string(store.accepted) +
               ", \"rechazadas\": " + std::to_string(store.refused) +
               ", \"reintentos\": " + std::to_string(store.retried) +
               ", \"sinCambios\": " + std::to_string(store.unchanged) +
               ", \"sinRespuesta\": " + std::to_string(store.unanswered()) +
               ", \"pendientes\": " + std::to_string(store.stillPending) +
               ",\n     \"respuestas\": [";
        for (std::size_t j = 0; j < store.refusals.size(); ++j) {
            const AnsweredOperation &answer = store.refusals[j];
            out += std::string(j ? "," : "") +
                   "\n       {\"publicacion\": " + jsonText(answer.publicationId) +
                   ", \"operacion\": " + jsonText(answer.word) +
                   ", \"resultado\": " + jsonText(outcomeWord(answer.outcome)) +
                   ", \"codigo\": " + jsonText(answer.code) +
                   ", \"descripcion\": " + jsonText(answer.description) +
                   ", \"intentos\": " + std::to_string(answer.tries) + "}";
        }
        out += "]}";
    }
    return out + "\n  ]\n}\n";
}

std::string SendReport::html() const
{
    std::string out = "<!DOCTYPE html>\n<html lang=\"es\"><head><meta charset=\"utf-8\">"
                      "<title>Envío del " +
                      htmlText(m_startedAt) + "</title></head><body>\n<h1>Envío del " +
                      htmlText(m_startedAt) + "</h1>\n";
    for (const Store &store : m_stores) {
        out += "<h2>Minitienda " + htmlText(store.id) + " " + htmlText(store.name) + "</h2>\n" +
               "<table><tr><th>Enviadas</th><th>Aceptadas</th><th>Rechazadas</th>"
               "<th>Reintentos</th><th>Sin cambios</th><th>Sin respuesta</th>"
               "<th>Pendientes</th></tr>\n<tr><td>" +
               std::to_string(store.sent) + "</td><td>" + std::to_string(store.accepted) +
               "</td><td>" + std::to_string(store.refused) + "</td><td>" +
               std::to_string(store.retried) + "</td><td>" + std::to_string(store.unchanged) +
               "</td><td>" + std::to_string(store.unanswered()) + "</td><td>" +
               std::to_string(store.stillPending) + "</td></tr></table>\n";
        if (store.refusals.empty())
            continue;
        out += "<table><tr><th>Publicación</th><th>Operación</th><th>Resultado</th>"
               "<th>Código</th><th>Descripción</th><th>Intentos</th></tr>\n";
        for (const AnsweredOperation &answer : store.refusals)
            out += "<tr><td>" + htmlText(answer.publicationId) + "</td><td>" +
                   htmlText(answer.word) + "</td><td>" + outcomeWord(answer.outcome) + "</td><td>" +
                   htmlText(answer.code) + "</td><td>" + htmlText(answer.description) +
                   "</td><td>" + std::to_string(answer.tries) + "</td></tr>\n";
        out += "</table>\n";
    }
    return out + "</body></html>\n";
}

std::filesystem::path SendReport::write(const std::filesystem::path &folder, std::string &why) const
{
    std::string stamp;
    for (const char c : m_startedAt) {
        if (c != '-' && c != ':')
            stamp += c == ' ' ? '-' : c;
    }
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    std::filesystem::path base = folder / ("envio-" + stamp);
    // Two sends in one second keep both reports.
    for (int again = 2; std::filesystem::exists(base.string() + ".json"); ++again)
        base = folder / ("envio-" + stamp + "-" + std::to_string(again));
    const std::filesystem::path jsonFile = base.string() + ".json";
    std::ofstream jsonOut(jsonFile);
    jsonOut << json();
    std::ofstream htmlOut(base.string() + ".html");
    htmlOut << html();
    if (!jsonOut.flush() || !htmlOut.flush()) {
        why = "No se pudo escribir el informe en " + folder.string();
        return {};
    }
    return jsonFile;
}

std::filesystem::path SendReport::folder()
{
    return "informes";
}

// 10,000 pending rows over three stores sent to feria-sim in batches of 50, and how the run's
// time splits between the database engine, the connector calls (the simulators' answers
// included) and the assistant's own code.
#include "FeriaSimProcess.h"
#include "gateways/BackOfficeSession.h"
#include "gateways/CommerceServer.h"
#include "gateways/QDX.h"
#include "platform/connectors/BackOfficeLibrary.h"
#include "platform/connectors/ErpLibrary.h"
#include "platform/connectors/LoadedBackOfficeLibrary.h"
#include "platform/connectors/LoadedErpLibrary.h"
#include "platform/db/Connection.h"
#include "platform/db/EmbeddedDatabase.h"
#include "publication/PublicationProgress.h"
#include "publication/SendPendingPublications.h"
#include "shell/AppState.h"
#include "stores/Seller.h"
#include "stores/ZorvantaMinistore.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sqlite3.h>
#include <sstream>
#include <sys/resource.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRows = 10000;
constexpr int kBatchLimit = 50;
const char *const kStores[] = {"100", "200", "300"};

double engineSeconds = 0;
double connectorSeconds = 0;

/// Adds the time of `call` to `total`.
template <class Call> auto timed(double &total, Call &&call)
{
    const auto start = Clock::now();
    auto result = call();
    total += std::chrono::duration<double>(Clock::now() - start).count();
    return result;
}

} // namespace

// The engine's own calls, reached through the linker's --wrap.
extern "C" {
int __real_sqlite3_prepare_v2(sqlite3 *, const char *, int, sqlite3_stmt **, const char **);
int __real_sqlite3_step(sqlite3_stmt *);
int __real_sqlite3_exec(sqlite3 *, const char *, int (*)(void *, int, char **, char **), void *,
                        char **);

int __wrap_sqlite3_prepare_v2(sqlite3 *db, const char *sql, int bytes, sqlite3_stmt **statement,
                              const char **tail)
{
    return timed(engineSeconds,
                 [&] { return __real_sqlite3_prepare_v2(db, sql, bytes, statement, tail); });
}
int __wrap_sqlite3_step(sqlite3_stmt *statement)
{
    return timed(engineSeconds, [&] { return __real_sqlite3_step(statement); });
}
int __wrap_sqlite3_exec(sqlite3 *db, const char *sql,
                        int (*callback)(void *, int, char **, char **), void *argument,
                        char **message)
{
    return timed(engineSeconds,
                 [&] { return __real_sqlite3_exec(db, sql, callback, argument, message); });
}
}

namespace {

class TimedBackOffice : public BackOfficeLibrary
{
public:
    std::int32_t IniciarSesionW(const char *key1, const char *key2, std::int32_t client,
                                std::int32_t *session) override
    {
        return m_real.IniciarSesionW(key1, key2, client, session);
    }
    std::int32_t CerrarSesionW(std::int32_t session) override
    {
        return m_real.CerrarSesionW(session);
    }
    std::int32_t EjecutarOperacionW(std::int32_t operation, std::int32_t session,
                                    const char *request, char *reply, std::int32_t size) override
    {
        return timed(connectorSeconds, [&] {
            return m_real.EjecutarOperacionW(operation, session, request, reply, size);
        });
    }

private:
    LoadedBackOfficeLibrary m_real;
};

class TimedErp : public ErpLibrary
{
public:
    std::int32_t ObtenerIDCliente(std::int32_t *number, char *license, char *key2,
                                  char *id) override
    {
        return m_real.ObtenerIDCliente(number, license, key2, id);
    }
    std::int32_t ObtenerDataBase(char *server, char *database, char *user, char *password) override
    {
        return m_real.ObtenerDataBase(server, database, user, password);
    }
    std::int32_t ListarDepositosVirtuales(std::int32_t size, char *position, std::int32_t direction,
                                          std::int32_t *count, char *reply) override
    {
        return m_real.ListarDepositosVirtuales(size, position, direction, count, reply);
    }
    std::int32_t ObtenerContenidoCategoria(std::int32_t type, char *category, std::int32_t size,
                                           char *position, std::int32_t direction,
                                           const char *store, std::int32_t *count,
                                           char *reply) override
    {
        return m_real.ObtenerContenidoCategoria(type, category, size, position, direction, store,
                                                count, reply);
    }
    std::int32_t BusquedaProductosIndividual(std::int32_t type, std::int32_t queryType, char *text,
                                             std::int32_t size, char *lastId,
                                             std::int32_t direction, const char *store,
                                             std::int32_t *count, char *reply) override
    {
        return m_real.BusquedaProductosIndividual(type, queryType, text, size, lastId, direction,
                                                  store, count, reply);
    }
    std::int32_t ObtenerDefinicionProducto(std::int32_t type, const char *key, const char *store,
                                           char *reply) override
    {
        return timed(connectorSeconds,
                     [&] { return m_real.ObtenerDefinicionProducto(type, key, store, reply); });
    }
    std::int32_t ObtenerImpuestos(char *reply) override
    {
        return timed(connectorSeconds, [&] { return m_real.ObtenerImpuestos(reply); });
    }

private:
    LoadedErpLibrary m_real;
};

class CountingProgress : public PublicationProgress
{
public:
    void setMaxProducts(std::int16_t) override {}
    std::int16_t products() const override { return m_products; }
    void setProducts(std::int16_t handled) override { m_products = handled; }

private:
    std::int16_t m_products = 0;
};

std::string readFile(const std::string &path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

void replaceAll(std::string &text, const std::string &from, const std::string &to)
{
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

/// The small marketplace with room for every row in each store, all active, batches of 50.
std::filesystem::path marketplaceData(const std::filesystem::path &dir)
{
    std::string text = readFile(SMALL_MARKETPLACE);
    replaceAll(text, "maxProducts=\"3\"", "maxProducts=\"20000\"");
    replaceAll(text, "maxProducts=\"10\"", "maxProducts=\"20000\"");
    replaceAll(text, "status=\"I\"", "status=\"A\"");
    replaceAll(text, "<MaxOperations>5<", "<MaxOperations>" + std::to_string(kBatchLimit) + "<");
    const std::filesystem::path data = dir / "feria";
    std::filesystem::create_directories(data);
    std::ofstream(data / "marketplace.xml") << text;
    return data;
}

/// 10,000 publications in state L, each with its I row, spread over the three stores and over
/// seven products of the demo ERP (with their taxes), one second apart.
void writePendingRows()
{
    Connection db;
    db.open("Driver={SQL Server};Server=localhost;Uid=vendedor;Pwd=demo;Database=AsistenteDemo",
            15);
    db.begin();
    db.execute(Sql("DELETE FROM WIPRODPEND"));
    db.execute(Sql("DELETE FROM WIPRODPUBL"));
    db.execute(Sql("DELETE FROM WIPRODASOC"));
    for (int a = 1; a <= 7; ++a)
        db.execute(Sql() << "INSERT INTO WIPRODASOC (IdPrdAsociado, IdPrdDovel, IdPrdZorvanta, "
                            "Atributos, FechaAsociado) VALUES ("
                         << sqlNumber(a) << ", 'ERP-000" << sqlNumber(a) << "', 'ZP-"
                         << sqlNumber(a)
                         << "', '<Properties/><VariantProperties/>', "
                            "'2026-01-01 09:00:00')");
    const std::string attributes =
        "<Properties><Field fieldID=\"Cy_List_Price\"><![CDATA[12990.50]]>"
        "</Field></Properties><VariantProperties/>";
    for (int n = 1; n <= kRows; ++n) {
        char date[32];
        std::snprintf(date, sizeof date, "2026-03-01 %02d:%02d:%02d", n / 3600, n / 60 % 60,
                      n % 60);
        const int association = n % 7 + 1;
        const char *store = kStores[n % 3];
        db.execute(Sql() << "INSERT INTO WIPRODPUBL (IdPrdPublicado, IdPrdAsociado, IdTienda, "
                            "Estado, Atributos, FechaPublicado) VALUES ("
                         << sqlNumber(n) << ", " << sqlNumber(association) << ", '"
                         << sqlText(store) << "', 'L', '" << sqlText(attributes) << "', '"
                         << sqlText(date) << "')");
        db.execute(Sql() << "INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, "
                            "Estado, Atributos, FechaPublicado, NumInt) VALUES ("
                         << sqlNumber(n) << ", " << sqlNumber(association) << ", '"
                         << sqlText(store) << "', 'I', '" << sqlText(attributes) << "', '"
                         << sqlText(date) << "', 0)");
    }
    db.commit();
}

void sendTenThousandRows(benchmark::State &state)
{
    const std::filesystem::path dir = std::filesystem::temp_directory_path() /
                                      ("asistente-send-bench-" + std::to_string(getpid()));
    std::filesystem::create_directories(dir);
    std::filesystem::current_path(dir); // bitacora.log lands here
    setenv("ASISTENTE_DATA_DIR", dir.c_str(), 1);
    setenv("ASISTENTE_ERP_LIBRARY", ZRVNDLL_PATH, 1);
    setenv("ASISTENTE_BACKOFFICE_LIBRARY", QDX_PATH, 1);
    createEmbeddedDatabase(embeddedDatabasePath("AsistenteDemo"));
    const std::filesystem::path data = marketplaceData(dir);
    setBackOfficeSession([]() -> BackOfficeSession & { return *gSeller; });

    double run = 0, engine = 0, connector = 0;
    for (auto _ : state) {
        state.PauseTiming();
        writePendingRows();
        FeriaSimProcess feria(data);
        setenv("ASISTENTE_MARKETPLACE_URL", feria.url().c_str(), 1);
        gSeller.reset();
        setBackOfficeLibrary(std::make_shared<TimedBackOffice>());
        setErpLibrary(std::make_shared<TimedErp>());
        gAppRunning = true;
        if (feria.url().empty() || !CommerceServerInit() || !QDXGetOperationConfiguration()) {
            state.SkipWithError("the sandbox did not start");
            break;
        }
        std::vector<std::shared_ptr<ZorvantaMinistore>> stores;
        for (const char *id : kStores)
            stores.push_back(gSeller->ministores()->item(id));
        engineSeconds = connectorSeconds = 0;
        state.ResumeTiming();

        const auto start = Clock::now();
        for (const auto &store : stores) {
            CountingProgress progress;
            SendPendingPublications(*store, progress);
        }
        run += std::chrono::duration<double>(Clock::now() - start).count();
        engine += engineSeconds;
        connector += connectorSeconds;

        state.PauseTiming();
        gSeller->closeSession();
        gSeller.reset();
        state.ResumeTiming();
    }
    state.counters["rows_per_s"] = kRows * state.iterations() / run;
    state.counters["engine_pct"] = 100 * engine / run;
    state.counters["connector_pct"] = 100 * connector / run;
    state.counters["own_pct"] = 100 * (run - engine - connector) / run;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["peak_rss_MB"] = usage.ru_maxrss / 1024.0;
    std::filesystem::current_path(std::filesystem::temp_directory_path());
    std::filesystem::remove_all(dir);
}
BENCHMARK(sendTenThousandRows)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(3);

} // namespace

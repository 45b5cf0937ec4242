// A thousand publications written as the confirmation page writes them, through
// CreatePublication on the embedded engine, against the same work through SQLite's own API:
// for each one a connection opened and set up as the program's is, a transaction with the two
// INSERTs and the identity read, the commit and the close. The raw run goes first; the
// program's run reports its time per publication as a ratio of the raw one.

#include "FakeConnectors.h"
#include "SellerDatabaseSandbox.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "platform/connectors/ErpLibrary.h"
#include "platform/db/ServerCollation.h"
#include "platform/xml/XmlDocument.h"
#include "publication/PublishedProduct.h"
#include "shell/AppState.h"
#include "stores/Seller.h"
#include "stores/ZorvantaMinistore.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <sqlite3.h>
#include <string>

namespace {

constexpr int kPublications = 1000;
const std::string kAttributes =
    "<Properties/><VariantProperties><Field fieldID=\"Cy_List_Price\"><![CDATA[34.99]]></Field>"
    "<Field fieldID=\"PromoPrice\"><![CDATA[31.5]]></Field><Field fieldID=\"Group1Quantity\">"
    "<![CDATA[1]]></Field></VariantProperties>";

double gRawSecondsPerPublication = 0;

double secondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void exec(benchmark::State &state, sqlite3 *db, const char *sql)
{
    if (sqlite3_exec(db, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        state.SkipWithError(sqlite3_errmsg(db));
}

void rawSqlitePublications(benchmark::State &state)
{
    SellerDatabaseSandbox data;
    const std::string file = embeddedDatabasePath("AsistenteDemo").string();
    double seconds = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        sqlite3 *db = nullptr;
        sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
        sqlite3_busy_timeout(db, 15000);
        registerServerCollation(db);
        exec(state, db, "PRAGMA journal_mode=WAL");
        exec(state, db, "BEGIN");
        const std::string published =
            "INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado, Atributos, FechaPublicado) "
            "values('7','100', 'L', '" +
            kAttributes + "', '2026-02-01 10:00:00' )";
        exec(state, db, published.c_str());
        sqlite3_stmt *identity = nullptr;
        sqlite3_prepare_v2(db, "SELECT last_insert_rowid()", -1, &identity, nullptr);
        sqlite3_step(identity);
        const std::string number = reinterpret_cast<const char *>(sqlite3_column_text(identity, 0));
        sqlite3_finalize(identity);
        const std::string pending =
            "INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, Estado, Atributos, "
            "FechaPublicado, NumInt) values(" +
            number + ",7,100, 'I', '" + kAttributes + "', '2026-02-01 10:00:00', 0)";
        exec(state, db, pending.c_str());
        exec(state, db, "COMMIT");
        sqlite3_close(db);
        seconds += secondsSince(start);
    }
    gRawSecondsPerPublication = seconds / static_cast<double>(state.iterations());
    state.counters["us_per_publication"] = gRawSecondsPerPublication * 1e6;
}

/// The demo seller with the shirt's association 7, its three values and store 100.
struct Publishing
{
    Publishing()
    {
        setErpLibrary(std::make_shared<FakeErp>());
        gSeller.reset();
        gAppRunning = true;
        XmlDocument document;
        document.loadXML(
            "<ProductDefinition><PropertiesDefinition>"
            "<Property name='Color' id='Color' dataType='String' required='yes' readOnly='no'/>"
            "<Property name='P' id='Cy_List_Price' dataType='Currency' required='yes' "
            "readOnly='no' type='NC'/><Property name='Q' id='PromoPrice' dataType='Currency' "
            "required='no' readOnly='no' type='NC'/><Property name='R' id='Group1Quantity' "
            "dataType='Integer' required='no' readOnly='no' type='NC'/></PropertiesDefinition>"
            "<Definition name='pdRopa'><Properties><Property id='Cy_List_Price'/><Property "
            "id='PromoPrice'/><Property id='Group1Quantity'/></Properties><VariantProperties>"
            "<Property id='Color'/></VariantProperties></Definition></ProductDefinition>");
        product->setIsDefinition(true);
        product->setXml(document.documentElement());
        document.loadXML("<Producto><CodigoDovel>ERP-0495</CodigoDovel><Descripcion>Camisa"
                         "</Descripcion><CodigoAsociacion>7</CodigoAsociacion><CodigoZorvanta>"
                         "ZP-00191</CodigoZorvanta></Producto>");
        association->setXml(document.documentElement());
        association->setZorvantaProd(product);
        document.loadXML("<Store><StoreID>100</StoreID><Name>T</Name><NumberOfProducts>0"
                         "</NumberOfProducts><MaxProducts>9</MaxProducts><ProductID>1</ProductID>"
                         "<Status>A</Status></Store>");
        store->setXml(document.documentElement(), document.documentElement());
        for (const auto &[id, text] :
             {std::pair{"Cy_List_Price", "34,99"}, std::pair{"PromoPrice", "31,5"},
              std::pair{"Group1Quantity", "1"}}) {
            auto value = std::make_shared<ZorvantaValue>();
            value->setDefinition(product->properties()->item(id));
            value->setValue(text);
            values->add(value, id);
        }
    }
    ~Publishing()
    {
        gSeller.reset();
        setErpLibrary(nullptr);
    }

    std::shared_ptr<ZorvantaProduct> product = std::make_shared<ZorvantaProduct>();
    std::shared_ptr<AssociatedProduct> association = std::make_shared<AssociatedProduct>();
    std::shared_ptr<ZorvantaMinistore> store = std::make_shared<ZorvantaMinistore>();
    std::shared_ptr<PublishedProduct::Values> values = std::make_shared<PublishedProduct::Values>();
};

void createPublication(benchmark::State &state)
{
    SellerDatabaseSandbox data;
    Publishing publishing;
    double seconds = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        PublishedProduct publication;
        publication.setAssociatedProd(publishing.association);
        publication.setMinistore(publishing.store);
        publication.setNonCharateristicAttributes(publishing.values);
        publication.CreatePublication();
        if (publication.publicationId().empty() || !gAppRunning)
            state.SkipWithError("the publication was not written");
        seconds += secondsSince(start);
    }
    const double perPublication = seconds / static_cast<double>(state.iterations());
    state.counters["us_per_publication"] = perPublication * 1e6;
    if (gRawSecondsPerPublication > 0)
        state.counters["ratio_to_raw"] = perPublication / gRawSecondsPerPublication;
}

} // namespace

BENCHMARK(rawSqlitePublications)->Iterations(kPublications)->Unit(benchmark::kMicrosecond);
BENCHMARK(createPublication)->Iterations(kPublications)->Unit(benchmark::kMicrosecond);

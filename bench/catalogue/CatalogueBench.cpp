// The catalogue's two costly paths: walking an ERP category page by page through the real ERP
// library, and reading a marketplace product of a hundred properties into its groups.
#include "FakeConnectors.h"
#include "catalogue/DovelCategory.h"
#include "catalogue/ProductBrowser.h"
#include "catalogue/ZorvantaProduct.h"
#include "gateways/CommerceServer.h"
#include "marketplace/ServiceContract.h"
#include "marketplace/SoapMessage.h"
#include "marketplace/WsdlDocument.h"
#include "platform/connectors/BackOfficeLibrary.h"
#include "platform/connectors/ErpLibrary.h"
#include "platform/soap/SoapClient.h"
#include "shell/AppState.h"
#include "stores/Seller.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <httplib.h>
#include <thread>

namespace {

constexpr int kErpProducts = 1000;
constexpr int kProperties = 100;

// A data set of the ERP library's own: one category of a thousand products.
std::filesystem::path writeErpData()
{
    const auto path = std::filesystem::temp_directory_path() / "bench-catalogue-erp.xml";
    std::ofstream out(path, std::ios::trunc);
    out << "<Erp><Cliente numero='1' licencia='L' clave2='K' id='V1'/>"
           "<BaseDeDatos servidor='s' nombre='BenchCatalogue' usuario='u' clave='c'/>"
           "<Impuestos/><Depositos/><Categorias nombre='Raíz'><Categoria id='C' nombre='Todo'>";
    for (int i = 1; i <= kErpProducts; ++i)
        out << "<Producto id='P-" << 10000 + i << "' descripcion='Artículo " << i
            << "' referencia='R" << i
            << "' precioLista='1' precioPromocion='1' precioMayorista='1'/>";
    out << "</Categoria></Categorias><Fallas/></Erp>";
    return path;
}

void walkThousandErpProducts(benchmark::State &state)
{
    const auto data = writeErpData();
    setenv("ASISTENTE_ERP_SIM_DATA", data.c_str(), 1);
    setenv("ASISTENTE_ERP_LIBRARY", ZRVNDLL_PATH, 1);
    gAppRunning = true;
    int products = 0;
    int pages = 0;
    for (auto _ : state) {
        products = 0;
        pages = 0;
        DovelCategory category;
        category.setId("C");
        category.StartQuery();
        for (;;) {
            products += category.products()->count();
            ++pages;
            if (category.allRead() == "True")
                break;
            category.GetMore();
        }
    }
    if (products != kErpProducts)
        state.SkipWithError("the walk did not read every product");
    state.counters["products"] = products;
    state.counters["erp_calls"] = pages;
    std::filesystem::remove(data);
}

void searchThousandErpProducts(benchmark::State &state)
{
    const auto data = writeErpData();
    setenv("ASISTENTE_ERP_SIM_DATA", data.c_str(), 1);
    setenv("ASISTENTE_ERP_LIBRARY", ZRVNDLL_PATH, 1);
    gAppRunning = true;
    int products = 0;
    for (auto _ : state) {
        products = 0;
        ProductBrowser browser;
        browser.setQueryType(2);
        browser.setSearchString("Artículo");
        browser.StartQuery();
        for (;;) {
            products += browser.products()->count();
            if (browser.allRead() != 0)
                break;
            browser.GetMore();
        }
    }
    if (products != kErpProducts)
        state.SkipWithError("the search did not read every product");
    state.counters["products"] = products;
    std::filesystem::remove(data);
}

std::string result(const std::string &operation, const std::string &content)
{
    return "<" + operation +
           "><RESULT><RETURNCODE>0</RETURNCODE><DESCRIPTION>Exito"
           "</DESCRIPTION></RESULT>" +
           content + "</" + operation + ">";
}

// A hundred properties of every kind: a third characteristic, a third variant, a third priced,
// every one with its value.
std::string productInformation()
{
    std::string definitions;
    std::string fixed;
    std::string variants = "<Field fieldID='VariantID'>ZP-1-V</Field>";
    for (int i = 1; i <= kProperties; ++i) {
        const std::string number = std::to_string(i);
        const std::string id = std::string("P").append(number);
        const int kind = i % 3;
        definitions += "<Property name='Propiedad " + number + "' id='" + id + "' dataType='" +
                       (kind == 2 ? "Currency" : "String") + "' required='no' readOnly='no'" +
                       (kind == 2 ? " type='NC'" : "") + "/>";
        const std::string field =
            "<Field fieldID='" + id + "'>" + (kind == 2 ? "1234.50" : "valor " + id) + "</Field>";
        (kind == 1 ? variants : fixed) += field;
    }
    definitions += "<Property name='Variante' id='VariantID' dataType='String' required='no' "
                   "readOnly='yes' type='NC'/>";
    return result("GetProductInformation",
                  "<PropertiesDefinition>" + definitions +
                      "</PropertiesDefinition><Product Definition='pdBench' id='ZP-1'>" + fixed +
                      "<VariantProperties>" + variants + "</VariantProperties></Product>");
}

// The marketplace's service on loopback, answering the seller's stores and the product.
class BenchMarketplace
{
public:
    BenchMarketplace() : m_information(productInformation())
    {
        m_server.set_tcp_nodelay(true);
        m_url = "http://127.0.0.1:" + std::to_string(m_server.bind_to_any_port("127.0.0.1"));
        m_server.Get(std::string(ServiceContract::kWsdlPath),
                     [this](const httplib::Request &, httplib::Response &response) {
                         response.set_content(WsdlDocument::text(m_url), "text/xml");
                     });
        for (std::string_view port : ServiceContract::ports()) {
            m_server.Post(ServiceContract::portPath(port), [this](const httplib::Request &request,
                                                                  httplib::Response &response) {
                const SoapMessage message =
                    SoapMessage::parse(request.body, request.get_header_value("SOAPAction"));
                const std::string reply =
                    message.operation() == "GetProductInformation"
                        ? m_information
                        : result("GetSellerInformation",
                                 "<Stores><Store><StoreID>100</StoreID><Name>Tienda</Name>"
                                 "<NumberOfProducts>0</NumberOfProducts></Store></Stores>");
                response.set_content(SoapMessage::response(message.operation(), reply),
                                     "text/xml; charset=utf-8");
            });
        }
        m_thread = std::thread([this] { m_server.listen_after_bind(); });
        while (!m_server.is_running())
            std::this_thread::yield();
    }
    ~BenchMarketplace()
    {
        m_server.stop();
        m_thread.join();
    }
    const std::string &url() const { return m_url; }
    std::size_t replySize() const { return m_information.size(); }

private:
    httplib::Server m_server;
    std::string m_url;
    std::string m_information;
    std::thread m_thread;
};

// Runs `body` with the seller and the service's clients bound to a marketplace on loopback.
template <class Body> void withMarketplace(benchmark::State &state, Body body)
{
    BenchMarketplace marketplace;
    setenv("ASISTENTE_MARKETPLACE_URL", marketplace.url().c_str(), 1);
    // The seller as the ERP and the back office describe it, in process.
    setErpLibrary(std::make_shared<FakeErp>());
    auto backOffice = std::make_shared<FakeBackOffice>();
    backOffice->queue(0, "<GetStoreInfo><Store StoreID='100'><MaxProducts>50</MaxProducts>"
                         "<ProductID>300</ProductID><Status>A</Status></Store></GetStoreInfo>");
    setBackOfficeLibrary(backOffice);
    gAppRunning = true;
    gSeller.reset();
    if (!CommerceServerInit() || !gSeller->ministores()) {
        state.SkipWithError("the marketplace on loopback did not answer");
        return;
    }
    body();
    state.counters["reply_bytes"] = static_cast<double>(marketplace.replySize());
    gSeller.reset();
    gStoreClient.reset();
    gCatalogOperationsClient.reset();
    gCatalogInfoClient.reset();
    setErpLibrary(nullptr);
    setBackOfficeLibrary(nullptr);
}

// A fresh product each time: the service call, the parse and the groups.
void productOfAHundredProperties(benchmark::State &state)
{
    withMarketplace(state, [&] {
        int properties = 0;
        for (auto _ : state) {
            ZorvantaProduct product;
            product.setId("ZP-1");
            properties = product.properties() ? product.properties()->count() : 0;
        }
        if (properties != kProperties)
            state.SkipWithError("the product did not read every property");
    });
}

// The same call and reply alone, to tell the reading of the reply from the round trip.
void productInformationRoundTripOnly(benchmark::State &state)
{
    withMarketplace(state, [&] {
        for (auto _ : state)
            benchmark::DoNotOptimize(
                gCatalogInfoClient->call("GetProductInformation", {"ZP-1", "100"}));
    });
}

} // namespace

BENCHMARK(walkThousandErpProducts)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(searchThousandErpProducts)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(productOfAHundredProperties)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime()
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(productInformationRoundTripOnly)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime()
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

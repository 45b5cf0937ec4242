// The association list on 1,000 associations: from entering the wizard to its first screen drawn
// with the detail of the first association; then the list scrolled to its end, which must read
// each page of the ERP's list once.

#include "FeriaSimProcess.h"
#include "editors/ProductListGrid.h"
#include "gateways/BackOfficeSession.h"
#include "gateways/CommerceServer.h"
#include "gateways/QDX.h"
#include "platform/connectors/LoadedErpLibrary.h"
#include "platform/db/Connection.h"
#include "platform/db/EmbeddedDatabase.h"
#include "publication/SellerLists.h"
#include "shell/AppState.h"
#include "stores/Seller.h"
#include "wizards/associations/AssociationWizard.h"

#include <QApplication>
#include <QRadioButton>
#include <QScrollBar>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

namespace {

constexpr int kAssociations = 1000;
constexpr int kPageSize = 50;

QApplication &application()
{
    static int argc = 1;
    static char name[] = "bench_associations";
    static char *argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(argc, argv);
    return app;
}

/// The real ERP library, counting the pages of the associated list it is asked for.
class CountingErp : public LoadedErpLibrary
{
public:
    std::int32_t BusquedaProductosIndividual(std::int32_t productType, std::int32_t queryType,
                                             char *searchText, std::int32_t querySize, char *lastId,
                                             std::int32_t direction, const char *ministoreId,
                                             std::int32_t *count, char *reply) override
    {
        if (productType == 1)
            ++associatedPages;
        return LoadedErpLibrary::BusquedaProductosIndividual(productType, queryType, searchText,
                                                             querySize, lastId, direction,
                                                             ministoreId, count, reply);
    }
    int associatedPages = 0;
};

class NoHost : public HostWindow
{
public:
    void ShowWizard(const std::string &) override {}
    void unload() override {}
};

/// 1,000 shirts of the demo bound to the marketplace's shirt, each with its colour and size.
void writeAssociations()
{
    Connection db;
    db.open("Driver={SQL Server};Server=localhost;Uid=vendedor;Pwd=demo;Database=AsistenteDemo",
            15);
    db.begin();
    const char *const products[] = {"ERP-0495", "ERP-0496", "ERP-0497", "ERP-0498"};
    const char *const colours[] = {"Negro", "Blanco", "Rojo", "Azul", "Verde"};
    for (int n = 0; n < kAssociations; ++n) {
        const std::string attributes =
            std::string("<Properties/><VariantProperties><Field fieldID=\"Color\"><![CDATA[") +
            colours[n % 5] + "]]></Field><Field fieldID=\"Talla\"><![CDATA[T" + std::to_string(n) +
            "]]></Field></VariantProperties>";
        db.execute(Sql() << "INSERT INTO WIPRODASOC (IdPrdDovel, IdPrdZorvanta, Atributos, "
                            "FechaAsociado) VALUES ('"
                         << sqlText(products[n % 4]) << "', 'ZP-00191', '" << sqlText(attributes)
                         << "', '2026-03-02 10:00:00')");
    }
    db.commit();
}

std::string demoMarketplace()
{
    std::ifstream file(std::string(DEMO_DATA_DIR) + "/marketplace.xml");
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

/// The sandbox with its 1,000 associations, the seller's session open.
struct Sandbox
{
    Sandbox()
    {
        dir = std::filesystem::temp_directory_path() /
              ("asistente-assoc-bench-" + std::to_string(getpid()));
        std::filesystem::create_directories(dir);
        std::filesystem::current_path(dir); // bitacora.log lands here
        setenv("ASISTENTE_DATA_DIR", dir.c_str(), 1);
        setenv("ASISTENTE_ERP_SIM_DATA", DEMO_DATA_DIR "/erp.xml", 1);
        setenv("ASISTENTE_ERP_LIBRARY", ZRVNDLL_PATH, 1);
        setenv("ASISTENTE_BACKOFFICE_LIBRARY", QDX_PATH, 1);
        createEmbeddedDatabase(embeddedDatabasePath("AsistenteDemo"));
        writeAssociations();
        feria = FeriaSimProcess::withData(demoMarketplace());
        setenv("ASISTENTE_MARKETPLACE_URL", feria->url().c_str(), 1);
        erp = std::make_shared<CountingErp>();
        setErpLibrary(erp);
        setBackOfficeSession([]() -> BackOfficeSession & { return *gSeller; });
        registerSellerListLines();
        gAppRunning = true;
        ready = !feria->url().empty() && CommerceServerInit() && QDXGetOperationConfiguration();
    }
    ~Sandbox()
    {
        if (gSeller.exists())
            gSeller->closeSession();
        gSeller.reset();
        setErpLibrary(nullptr);
        std::error_code ignored;
        std::filesystem::remove_all(dir, ignored);
    }

    std::filesystem::path dir;
    std::unique_ptr<FeriaSimProcess> feria;
    std::shared_ptr<CountingErp> erp;
    bool ready = false;
};

void openTheAssociationList(benchmark::State &state)
{
    application();
    Sandbox sandbox;
    if (!sandbox.ready) {
        state.SkipWithError("the sandbox did not start");
        return;
    }
    NoHost host;
    AssociationWizard wizard(host, "AssociationWizard1", nullptr);
    wizard.resize(1000, 700);
    wizard.show();
    auto *list = wizard.findChild<ProductListGrid *>("MSFlexGrid1");
    // Every association, by code, rather than those of the ERP's first category.
    wizard.Start();
    wizard.findChild<QWidget *>("ShowAssociations1")->findChild<QRadioButton *>("Code")->click();
    for (auto _ : state) {
        wizard.Start();
        wizard.repaint();
        QApplication::processEvents();
    }
    if (!gAppRunning || list->lineCount() == 0)
        state.SkipWithError("the list was not drawn");
    state.counters["lines"] = list->lineCount();

    // Scrolling to the end reads each of the 20 pages once, the first screen's included.
    sandbox.erp->associatedPages = 0;
    wizard.Start();
    for (int guard = 0; guard < 100 && list->lineCount() < kAssociations; ++guard) {
        list->verticalScrollBar()->setValue(list->verticalScrollBar()->maximum());
        QApplication::processEvents();
    }
    state.counters["pagesReadToTheEnd"] = sandbox.erp->associatedPages;
    state.counters["linesAtTheEnd"] = list->lineCount();
    if (list->lineCount() != kAssociations ||
        sandbox.erp->associatedPages != kAssociations / kPageSize)
        state.SkipWithError("scrolling to the end did not read each page once");
    wizard.hide();
}

} // namespace

BENCHMARK(openTheAssociationList)->Unit(benchmark::kMillisecond);

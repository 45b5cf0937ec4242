#include "ConnectorFaultTest.h"

#include "catalogue/DovelCategory.h"
#include "catalogue/ProductBrowser.h"
#include "catalogue/SellerCatalogue.h"
#include "catalogue/SellerProduct.h"
#include "shell/window/StartupClass.h"

#include <QTimer>
#include <fstream>
#include <sstream>

using namespace Cells;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

void ConnectorFaultTest::TearDown()
{
    unsetenv(kErpFault);
    unsetenv(kBackOfficeFault);
    m_program.reset();
    SendPipelineTest::TearDown();
}

std::string Cells::libraryWithout(const std::string &function)
{
    const bool backOffice = std::string(libraryVariable(function)) != "ASISTENTE_ERP_LIBRARY";
    return std::string(MISSING_DIR) +
           (backOffice ? "/libqdx_objects-sin-" : "/libzrvndll_objects-sin-") + function + ".so";
}

const char *Cells::libraryVariable(const std::string &function)
{
    return function == "IniciarSesionW" || function == "CerrarSesionW" ||
                   function == "EjecutarOperacionW"
               ? "ASISTENTE_BACKOFFICE_LIBRARY"
               : "ASISTENTE_ERP_LIBRARY";
}

std::string Cells::missingLog(const std::string &source, const std::string &function)
{
    return "Error: 453 (" + source + "): The library " + libraryWithout(function) +
           " has no function " + function + ": " + libraryWithout(function) +
           ": undefined symbol: " + function;
}

void ConnectorFaultTest::accentedTaxes()
{
    std::stringstream data;
    data << std::ifstream(erp->dataFile()).rdbuf();
    std::string text = data.str();
    const std::string plain = "descripcion='IVA general'";
    ASSERT_NE(text.find(plain), std::string::npos);
    text.replace(text.find(plain), plain.size(), "descripcion='IVA de importación'");
    erp->writeRawData(text);
}

void ConnectorFaultTest::sellerWithWorkWaiting()
{
    database->execute(Sql("INSERT INTO WITIENDAS (IdTienda, Descrip, IDDepoVDOVEL) VALUES "
                          "('100', 'Cocina', 'DV-01')"));
    waiting(1, "E-1", "ZP-1", "L", "I", price("10.00"), 1);
}

Texts ConnectorFaultTest::fourTables()
{
    const std::pair<const char *, Sql> tables[] = {
        {"WITIENDAS", Sql("SELECT * FROM WITIENDAS ORDER BY IdTienda")},
        {"WIPRODASOC", Sql("SELECT * FROM WIPRODASOC ORDER BY IdPrdAsociado")},
        {"WIPRODPUBL", Sql("SELECT * FROM WIPRODPUBL ORDER BY IdPrdPublicado")},
        {"WIPRODPEND", Sql("SELECT * FROM WIPRODPEND ORDER BY IdPrdPublicado, Estado")}};
    Texts all;
    for (const auto &[table, query] : tables) {
        for (const std::string &row : database->rows(query))
            all.push_back(std::string(table) + " " + row);
    }
    return all;
}

Texts ConnectorFaultTest::sendTables()
{
    Texts all = publications();
    for (const std::string &row : pendings())
        all.push_back("pend " + row);
    return all;
}

std::string ConnectorFaultTest::integrity()
{
    const Texts answer = database->rows(Sql("PRAGMA integrity_check"));
    return answer.empty() ? std::string() : answer.front();
}

bool ConnectorFaultTest::start()
{
    return QDXGetOperationConfiguration();
}

ProgramRun ConnectorFaultTest::runProgram()
{
    m_program = std::make_unique<AssistantProgram>();
    m_program->set("ASISTENTE_DATA_DIR", database->dir().string());
    return m_program->run({}, ASISTENTE_PATH);
}

bool ConnectorFaultTest::startWizardShowsWindow()
{
    bool shown = false;
    // The window's own event loop runs the timer: no window, no timeout.
    QTimer closer;
    closer.setSingleShot(true);
    QObject::connect(&closer, &QTimer::timeout, [&shown] {
        shown = gMainWindow != nullptr;
        if (gMainWindow)
            gMainWindow->unload();
    });
    closer.start(0);
    bool freePriceEntry = false;
    StartupClass().StartWizard(freePriceEntry);
    return shown;
}

Texts ConnectorFaultTest::programLog() const
{
    Texts texts;
    std::ifstream in(m_program->workDir / "bitacora.log");
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        // "dd/mm/yyyy hh:mm:ss text": the date is the platform's, the text the system's.
        texts.push_back(line.size() > 22 ? line.substr(21, line.size() - 22) : line);
    }
    return texts;
}

namespace {

const std::string kGeneric = "Error de la aplicación. Contacte al administrador del sistema";

} // namespace

std::string Cells::generic(std::int32_t number)
{
    return "Error: " + std::to_string(number) + ": " + kGeneric;
}

std::string Cells::fatal(std::int32_t number)
{
    return "Error Fatal: " + std::to_string(number) + ": " + kGeneric + ".";
}

void SellerFlows::listDeposits()
{
    gSeller->virtualDeposits();
}

void SellerFlows::browseRootCategory()
{
    sellerRootCategory()->StartQuery();
}

void SellerFlows::searchProducts()
{
    auto browser = sellerBrowser();
    browser->setSearchString("Sart");
    browser->StartQuery();
}

void SellerFlows::readProductDetail()
{
    auto product = std::make_shared<SellerProduct>();
    product->setDovelID("E-1");
    product->price1();
}

void SellerFlows::sendStore100()
{
    RecordedProgress progress;
    SendPendingPublications(*gSeller->ministores()->item("100"), progress);
}

TEST_P(FlowFaultTest, endsInTheSystemsMessageWithTheTablesWhole)
{
    const FlowCell &cell = GetParam();
    accentedTaxes();
    sellerWithWorkWaiting();
    const Texts before = fourTables();
    startMarketplace(cell.marketplaceFaults);
    setenv(cell.variable, cell.value.c_str(), 1);

    if (start() && cell.action)
        cell.action();

    EXPECT_EQ(boxes(), cell.boxes);
    if (cell.logged.empty())
        EXPECT_THAT(logged(), IsEmpty());
    else
        EXPECT_THAT(logged(), ElementsAre(StartsWith(cell.logged)));
    EXPECT_EQ(gAppRunning, cell.boxes.empty() || cell.boxes.back() != kClosing);
    EXPECT_EQ(sendTables(), cell.tables);
    if (cell.tables == kWaiting) {
        EXPECT_EQ(fourTables(), before);
        EXPECT_THAT(wire(), IsEmpty()) << "nothing reached the marketplace";
    }
    EXPECT_EQ(integrity(), "ok");
}

TEST_P(StartFaultTest, theProgramStartsOrEndsAsTheSellerIsTold)
{
    const StartCell &cell = GetParam();
    startMarketplace();
    setenv(cell.variable, cell.value.c_str(), 1);

    const ProgramRun run = runProgram();

    EXPECT_TRUE(run.exited);
    EXPECT_EQ(run.status, cell.status);
    EXPECT_EQ(run.boxes, cell.boxes);
    if (cell.logged.empty())
        EXPECT_THAT(programLog(), IsEmpty());
    else
        EXPECT_THAT(programLog(), ElementsAre(StartsWith(cell.logged)));
}

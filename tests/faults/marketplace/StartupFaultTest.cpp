// The real program starting against a failing marketplace: the service description read and
// the first call to the service, each under every fault the proxy can script.

#include "AssistantProgram.h"
#include "FaultProxy.h"
#include "NetworkFaults.h"
#include "SellerTables.h"

#include <gmock/gmock.h>
#include <map>

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;

namespace {

using Texts = std::vector<std::string>;

const char *const kCannotStart =
    "[] Ocurrió un error grave de conexión. Contacte al administrador o reintente más tarde";

/// A step of the start that talks to the marketplace.
struct StartupStep
{
    const char *name;
    const char *path;
    const char *action;
    std::vector<std::pair<std::string, std::string>> renames;
    /// The handler that reports a failure of the step.
    const char *source;
    /// What the seller sees when the reply's names are wrong, and what the log says.
    Texts wrongBoxes;
    const char *wrongLogged;
    /// Faults whose log line says something of its own at this step, by the fault's name.
    std::map<std::string, std::string> loggedInstead;
};

const Texts kPlatformBoxes = {std::string("[Error Fatal] ") + kPlatformErrorBox,
                              "[] La aplicación será cerrada", kCannotStart};

std::vector<StartupStep> steps()
{
    return {
        {"serviceDescription",
         "zvtsorvek.wsdl",
         "",
         {{"<port ", "<puerto "}, {"</port>", "</puerto>"}},
         "CommerceServer::CommerceServerInit",
         kPlatformBoxes,
         "no port StoreSoapPort",
         // A description is no SOAP reply: its reader quotes the page or says what is wrong.
         {{"http500WithASoapFault",
           "<faultstring>Servicio detenido por mantenimiento</faultstring>"},
          {"aReplyThatIsNotXml", "does not parse"}}},
        {"linkCheck",
         "",
         "GetSellerInformation",
         {{"StoreID", "IdTienda"}},
         "Seller:Ministores ",
         {"[] Error: -10503: Error de la aplicación. Contacte al administrador del sistema",
          kCannotStart},
         "no tiene etiqueta StoreID",
         {}},
    };
}

struct Cell
{
    StartupStep step;
    NetworkFaultCase fault;
};

void PrintTo(const Cell &cell, std::ostream *out)
{
    *out << cell.step.name << " " << cell.fault.name;
}

std::vector<Cell> cells()
{
    std::vector<Cell> all;
    for (const StartupStep &step : steps()) {
        for (const NetworkFaultCase &fault : networkFaults(step.path, step.action, step.renames))
            all.push_back({step, fault});
    }
    return all;
}

class StartupFaultTest : public testing::TestWithParam<Cell>
{
};

} // namespace

TEST_P(StartupFaultTest, theSellerIsToldTheStartFailedAndTheProgramEndsWithItsStatus)
{
    const Cell &cell = GetParam();
    SellerDatabaseSandbox database; // before the program takes the environment
    SellerTables tables(database);
    tables.fill();
    const auto rowsBefore = tables.rows();
    AssistantProgram program;
    FaultProxy proxy(program.environment.value("ASISTENTE_MARKETPLACE_URL").toStdString());
    program.set("ASISTENTE_MARKETPLACE_URL", proxy.url());
    program.set("ASISTENTE_MARKETPLACE_TIMEOUT", "1");
    if (cell.fault.rule) {
        proxy.add(*cell.fault.rule);
    } else if (std::string(cell.step.name) == "serviceDescription") {
        proxy.refuseConnections();
    } else {
        // The description sends the calls to a port where nothing listens.
        FaultRule deadPorts{NetworkFault::Rename,
                            "zvtsorvek.wsdl",
                            "",
                            0,
                            {{proxy.url() + "/zvtservices", "http://127.0.0.1:9/zvtservices"}},
                            std::chrono::milliseconds(0)};
        proxy.add(deadPorts);
    }

    const ProgramRun run = program.run();

    ASSERT_TRUE(run.exited) << run.standardError;
    std::ifstream logFile(program.workDir / "bitacora.log");
    Texts log;
    for (std::string line; std::getline(logFile, line);)
        log.push_back(line);
    switch (cell.fault.end) {
    case FaultEnd::Delivered:
        EXPECT_EQ(run.status, 0) << run.standardError;
        EXPECT_THAT(run.boxes, ElementsAre());
        EXPECT_THAT(log, ElementsAre());
        break;
    case FaultEnd::PlatformError: {
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT(run.boxes, ElementsAreArray(kPlatformBoxes));
        EXPECT_THAT(log,
                    ElementsAre(HasSubstr(std::string("Error: 440 (") + cell.step.source + "): ")));
        const auto instead = cell.step.loggedInstead.find(cell.fault.name);
        EXPECT_THAT(log, ElementsAre(HasSubstr(instead == cell.step.loggedInstead.end()
                                                   ? cell.fault.logged
                                                   : instead->second)));
        break;
    }
    case FaultEnd::WrongDocument:
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT(run.boxes, ElementsAreArray(cell.step.wrongBoxes));
        EXPECT_THAT(log, ElementsAre(HasSubstr(cell.step.wrongLogged)));
        break;
    }
    EXPECT_EQ(tables.rows(), rowsBefore);
    EXPECT_EQ(tables.integrity(), "ok");
    for (const std::string &rule : proxy.unusedRules())
        ADD_FAILURE() << "a scripted fault was never injected: " << rule;
}

INSTANTIATE_TEST_SUITE_P(Marketplace, StartupFaultTest, testing::ValuesIn(cells()),
                         [](const testing::TestParamInfo<Cell> &info) {
                             return std::string(info.param.step.name) + "_" + info.param.fault.name;
                         });

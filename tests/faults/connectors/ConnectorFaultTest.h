#pragma once

#include "AssistantProgram.h"
#include "SendPipelineTest.h"

#include <functional>
#include <ostream>
#include <string>

/// What the seller's flows ask of the ERP once the assistant has started, one call each.
namespace SellerFlows {
void listDeposits();
void browseRootCategory();
void searchProducts();
void readProductDetail();
/// The send of store 100, as the progress window runs it.
void sendStore100();
} // namespace SellerFlows

/// What the failure path shows and the send leaves, as the cells expect them.
namespace Cells {
inline constexpr const char *kErpFault = "ASISTENTE_ERP_SIM_FAULT";
inline constexpr const char *kBackOfficeFault = "ASISTENTE_BACKOFFICE_SIM_FAULT";
inline constexpr const char *kFatalConnection =
    "Ocurrió un error grave de conexión. Contacte al administrador o reintente más tarde";
inline constexpr const char *kClosing = "La aplicación será cerrada";
/// "Error: N: " and the generic text, as the connector band and the application type show it.
std::string generic(std::int32_t number);
/// The box of the fatal type, with its closing full stop.
std::string fatal(std::int32_t number);
/// The library of this build without `function` (one of the ten connector functions).
std::string libraryWithout(const std::string &function);
/// The variable that names a library: ASISTENTE_ERP_LIBRARY for the ERP's functions.
const char *libraryVariable(const std::string &function);
/// How the log tells a missing function, up to the loader's own words.
std::string missingLog(const std::string &source, const std::string &function);

/// WIPRODPUBL then WIPRODPEND, for the seller with work waiting: as it was, sent, or with the
/// publication in progress and its operation still pending.
inline const Texts kWaiting = {"1|L", "pend 1|I|0|0|"};
inline const Texts kSent = {"1|K"};
inline const Texts kInProgress = {"1|P", "pend 1|I|0|0|"};
} // namespace Cells

/// A fault met by a flow of the seller: set before the assistant starts, then `action` (none
/// when the start itself meets it). The log holds one line starting with `logged`, or none.
struct FlowCell
{
    const char *name;
    const char *variable;
    std::string value;
    std::function<void()> action;
    Texts boxes;
    std::string logged;
    Texts tables; // WIPRODPUBL then WIPRODPEND afterwards, as Cells::kWaiting
    std::string marketplaceFaults = {};
};

/// A fault met by the real program as the seller starts it. Boxes as it echoes them,
/// "[title] text".
struct StartCell
{
    const char *name;
    const char *variable;
    std::string value;
    int status;
    Texts boxes;
    std::string logged;
};

inline void PrintTo(const FlowCell &cell, std::ostream *out)
{
    *out << cell.name;
}
inline void PrintTo(const StartCell &cell, std::ostream *out)
{
    *out << cell.name;
}
/// The cell's name as the test's.
struct CellName
{
    template <typename Cell> std::string operator()(const testing::TestParamInfo<Cell> &info) const
    {
        return info.param.name;
    }
};

/// The send tests' seller, marketplace and real connector libraries, with the libraries told
/// to misbehave. A seller "with work waiting" has store 100 linked to deposit DV-01, E-1
/// associated with ZP-1 and published (state L) with its Publicar row pending.
class ConnectorFaultTest : public SendPipelineTest
{
protected:
    void TearDown() override;

    void sellerWithWorkWaiting();
    /// The ERP's IVA described with an accent, for an ERP that writes it in Latin-1.
    void accentedTaxes();
    /// Every row of WITIENDAS, WIPRODASOC, WIPRODPUBL and WIPRODPEND, every column, each row
    /// prefixed by its table.
    Texts fourTables();
    /// WIPRODPUBL as "number|state", then WIPRODPEND as "pend number|letter|tries|error|message".
    Texts sendTables();
    /// What PRAGMA integrity_check says of the seller's database.
    std::string integrity();

    /// The start that every flow needs (limits, session); false when it failed.
    bool start();

    /// The real `asistente` started as a seller starts it, with this test's environment and
    /// marketplace; its log is `programLog` afterwards.
    ProgramRun runProgram();
    /// StartWizard in this process; true when the main window came on show (it is then closed
    /// at once, as a seller would).
    bool startWizardShowsWindow();
    Texts programLog() const;

private:
    std::unique_ptr<AssistantProgram> m_program;
};

class FlowFaultTest : public ConnectorFaultTest, public testing::WithParamInterface<FlowCell>
{
};

class StartFaultTest : public ConnectorFaultTest, public testing::WithParamInterface<StartCell>
{
};

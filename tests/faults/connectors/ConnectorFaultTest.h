#pragma once

#include "AssistantProgram.h"
#include "SendPipelineTest.h"

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

/// The send tests' seller, marketplace and real connector libraries, with the libraries told
/// to misbehave. A seller "with work waiting" has store 100 linked to deposit DV-01, E-1
/// associated with ZP-1 and published (state L) with its Publicar row pending.
class ConnectorFaultTest : public SendPipelineTest
{
public:
    /// The library of this build without `function` (one of the ten connector functions).
    static std::string libraryWithout(const std::string &function);
    /// Texts with the generic endings the failure path gives.
    static std::string generic(std::int32_t number);
    static std::string fatal(std::int32_t number);

protected:
    static constexpr const char *kErpFault = "ASISTENTE_ERP_SIM_FAULT";
    static constexpr const char *kBackOfficeFault = "ASISTENTE_BACKOFFICE_SIM_FAULT";
    static constexpr const char *kFatalConnection =
        "Ocurrió un error grave de conexión. Contacte al administrador o reintente más tarde";
    static constexpr const char *kClosing = "La aplicación será cerrada";

    void TearDown() override;

    static void fault(const char *variable, const std::string &value);

    /// The variable that names a library: ASISTENTE_ERP_LIBRARY for the ERP's functions.
    static const char *libraryVariable(const std::string &function);

    void sellerWithWorkWaiting();
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

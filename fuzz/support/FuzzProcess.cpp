#include "FuzzProcess.h"

#include "gateways/BackOfficeSession.h"
#include "platform/connectors/BackOfficeLibrary.h"
#include "platform/connectors/ErpLibrary.h"
#include "platform/xml/XmlDocument.h"
#include "shell/AppState.h"
#include "stores/Seller.h"
#include "stores/ZorvantaMinistore.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace {

std::filesystem::path gScratch;

void removeScratch()
{
    std::error_code ignored;
    std::filesystem::remove_all(gScratch, ignored);
}

} // namespace

FuzzProcess &FuzzProcess::get()
{
    static FuzzProcess process;
    return process;
}

FuzzProcess::FuzzProcess()
    : m_erp(std::make_shared<FuzzErp>()), m_backOffice(std::make_shared<FakeBackOffice>())
{
    // Inputs that write the seller's tables wait for the disk at every commit: memory-backed
    // files keep a run to milliseconds an input.
    std::error_code error;
    if (!std::getenv("TMPDIR") && std::filesystem::is_directory("/dev/shm", error) &&
        access("/dev/shm", W_OK) == 0)
        setenv("TMPDIR", "/dev/shm", 1);
    // Every refused document writes a log line; millions of them go nowhere, through the same
    // file the program opens.
    std::string pattern =
        (std::filesystem::temp_directory_path() / "asistente-fuzz-XXXXXX").string();
    gScratch = mkdtemp(pattern.data());
    std::atexit(removeScratch);
    std::filesystem::current_path(gScratch);
    std::filesystem::create_symlink("/dev/null", gScratch / "bitacora.log");

    m_erp->taxesReply = "<ObtenerImpuestos><Impuesto CodigoImpuesto='IVA'><DescripcionImpuesto>"
                        "IVA</DescripcionImpuesto><TipoImpuesto>G</TipoImpuesto><Cantidad>16"
                        "</Cantidad><TipoMonto>0</TipoMonto></Impuesto></ObtenerImpuestos>";
    setErpLibrary(m_erp);
    setBackOfficeLibrary(m_backOffice);
    setBackOfficeSession([]() -> BackOfficeSession & { return *gSeller; });
}

void FuzzProcess::beginRun()
{
    gAppRunning = true;
    m_backOffice->answers.clear();
    m_backOffice->calls.clear();
    m_backOffice->openedWith.clear();
    m_backOffice->closed.clear();
    m_erp->code = 0;
    gSeller.reset();
}

std::shared_ptr<ZorvantaMinistore> FuzzProcess::demoStore()
{
    XmlDocument store;
    store.loadXML("<Store><StoreID>100</StoreID><Name>Andina Hogar</Name><Description/>"
                  "<NumberOfProducts>2</NumberOfProducts></Store>");
    XmlDocument backOffice;
    backOffice.loadXML("<Store StoreID='100'><ProductID>300</ProductID><MaxProducts>150"
                       "</MaxProducts><Status>A</Status></Store>");
    auto ministore = std::make_shared<ZorvantaMinistore>();
    ministore->setXml(store.documentElement(), backOffice.documentElement());
    return ministore;
}

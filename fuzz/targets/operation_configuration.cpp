// The back office's operation limits, read at start-up through the back-office connector.
#include "FuzzProcess.h"
#include "gateways/QDX.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzProcess &process = FuzzProcess::get();
    process.beginRun();
    process.backOffice().queue(0, fuzzText(data, size));
    QDXGetOperationConfiguration();
    return 0;
}

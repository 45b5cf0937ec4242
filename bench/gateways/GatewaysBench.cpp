// The marketplace's service as the assistant meets it: a SOAP round trip to feria-sim on
// loopback, and the start-up binding of the three clients (three WSDL reads and parses).
#include "FeriaSimProcess.h"

#include "gateways/CommerceServer.h"
#include "platform/soap/SoapClient.h"

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

FeriaSimProcess &marketplace()
{
    static FeriaSimProcess process(FERIA_SIM_DEMO_DATA);
    ::setenv("ASISTENTE_MARKETPLACE_URL", process.url().c_str(), 1);
    return process;
}

void soapRoundTrip(benchmark::State &state)
{
    if (marketplace().url().empty()) {
        state.SkipWithError(marketplace().error().c_str());
        return;
    }
    SoapClient client;
    client.init(marketplace().url() + kServiceWsdlPath, "zvtsorvek", "CatalogInfoSoapPort");
    for (auto _ : state)
        benchmark::DoNotOptimize(client.call("GetProductDefinition", {"ZC-110"}));
}
BENCHMARK(soapRoundTrip)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();

void commerceServerInit(benchmark::State &state)
{
    if (marketplace().url().empty()) {
        state.SkipWithError(marketplace().error().c_str());
        return;
    }
    for (auto _ : state) {
        if (!CommerceServerInit())
            state.SkipWithError("CommerceServerInit failed");
    }
}
BENCHMARK(commerceServerInit)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();

} // namespace

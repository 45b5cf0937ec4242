// A product request carrying a 1 MB picture: the document built and sent to feria-sim on
// loopback, and the cost of building the document against a plain base64 encode of the same
// bytes, measured in the same run.
#include "FeriaSimProcess.h"

#include "catalogue/ZorvantaCategory.h"
#include "catalogue/ZorvantaProduct.h"
#include "gateways/BackOfficeSession.h"
#include "gateways/CommerceServer.h"
#include "gateways/QDX.h"
#include "platform/xml/Base64.h"
#include "stores/Seller.h"
#include "wizards/requests/ProductRequest.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

namespace {

constexpr std::size_t kPictureSize = 1 << 20;

std::vector<std::uint8_t> pictureBytes()
{
    std::vector<std::uint8_t> bytes(kPictureSize);
    std::mt19937 random(7);
    for (std::uint8_t &byte : bytes)
        byte = static_cast<std::uint8_t>(random());
    return bytes;
}

/// The picture on disk, written once.
const std::string &picturePath()
{
    static const std::string path = [] {
        const auto file = std::filesystem::temp_directory_path() / "asistente-bench-foto.jpg";
        const std::vector<std::uint8_t> bytes = pictureBytes();
        std::ofstream(file, std::ios::binary)
            .write(reinterpret_cast<const char *>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
        return file.string();
    }();
    return path;
}

/// The demo seller, its stores read, against a feria-sim of the benchmark's own; empty when
/// the sandbox could not be set up.
std::string sandboxError()
{
    static FeriaSimProcess process(FERIA_SIM_DEMO_DATA);
    static const std::string error = [] {
        if (process.url().empty())
            return process.error();
        ::setenv("ASISTENTE_MARKETPLACE_URL", process.url().c_str(), 1);
        ::setenv("ASISTENTE_ERP_LIBRARY", ZRVNDLL_PATH, 1);
        ::setenv("ASISTENTE_BACKOFFICE_LIBRARY", QDX_PATH, 1);
        setBackOfficeSession([]() -> BackOfficeSession & { return *gSeller; });
        if (!CommerceServerInit() || !QDXGetOperationConfiguration() || !gSeller->ministores())
            return std::string("the demo seller could not be set up");
        return std::string();
    }();
    return error;
}

std::unique_ptr<ProductRequest> bookRequest()
{
    auto request = std::make_unique<ProductRequest>();
    auto category = std::make_shared<ZorvantaCategory>();
    category->setId("ZC-510");
    request->setCategory(category);
    auto definition = std::make_shared<ZorvantaProduct>();
    definition->setIsDefinition(true);
    definition->setId("pdLibro");
    request->setDefinition(definition);
    request->fields()->add(
        std::make_shared<RequestField>(RequestField{"Autor", "Autor", "Gabriela Mistral"}),
        "Autor");
    request->setImage(picturePath());
    return request;
}

void sendRequestWithPicture(benchmark::State &state)
{
    if (const std::string error = sandboxError(); !error.empty()) {
        state.SkipWithError(error.c_str());
        return;
    }
    const auto request = bookRequest();
    for (auto _ : state)
        request->Perform();
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kPictureSize));
}
BENCHMARK(sendRequestWithPicture)->Unit(benchmark::kMillisecond)->Repetitions(5)
    ->ReportAggregatesOnly();

// The processor time of this thread, so that the other programs of the machine weigh on
// neither side of the ratio.
std::chrono::nanoseconds threadTime()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

// Each iteration builds the request document (the file read, the base64 and the serialising
// included) and then encodes the same bytes plainly; the counter is the first over the second.
void documentAgainstPlainBase64(benchmark::State &state)
{
    const auto request = bookRequest();
    const std::vector<std::uint8_t> bytes = pictureBytes();
    std::chrono::nanoseconds document{};
    std::chrono::nanoseconds plain{};
    for (auto _ : state) {
        const auto start = threadTime();
        benchmark::DoNotOptimize(request->requestDocument());
        const auto middle = threadTime();
        benchmark::DoNotOptimize(encodeBase64(bytes, 0));
        plain += threadTime() - middle;
        document += middle - start;
    }
    state.counters["document_ms"] =
        std::chrono::duration<double, std::milli>(document).count() / state.iterations();
    state.counters["plain_base64_ms"] =
        std::chrono::duration<double, std::milli>(plain).count() / state.iterations();
    state.counters["ratio"] = static_cast<double>(document.count()) / plain.count();
}
BENCHMARK(documentAgainstPlainBase64)->Unit(benchmark::kMillisecond)->Repetitions(5)
    ->ReportAggregatesOnly();

} // namespace

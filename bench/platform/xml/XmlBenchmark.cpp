#include "platform/xml/XmlDocument.h"

#include <benchmark/benchmark.h>
#include <string>

namespace {

// A product listing as the ERP connector writes it, grown to about size bytes.
std::string productListing(std::size_t size)
{
    std::string xml = "<Productos NumeroProductos='0'>";
    for (int i = 0; xml.size() < size; ++i) {
        const std::string n = std::to_string(i);
        xml += "<Producto id='P" + n + "' StoreID='12' Estado='K'>" + "<CodigoDovel>DV-" + n +
               "</CodigoDovel>" + "<Descripcion>Mesa de roble macizo " + n + "</Descripcion>" +
               "<Referencia>REF/" + n + "</Referencia>" +
               "<Precio1>1250.50</Precio1><Precio2>1190.00</Precio2><Precio3>1100.75</Precio3>" +
               "<CodigoAsociacion>" + n + "</CodigoAsociacion>" + "<CodigoPublicacion>" + n +
               "</CodigoPublicacion>" + "<CodigoZorvanta>Z" + n + "</CodigoZorvanta>" +
               "<StoreID>12</StoreID>" + "<Field fieldID='Name'><![CDATA[Mesa " + n +
               "]]></Field>" + "<Field fieldID='Description'>Mesa &amp; silla " + n + "</Field>" +
               "</Producto>";
    }
    return xml + "</Productos>";
}

const std::string &listing()
{
    static const std::string text = productListing(60 * 1024);
    return text;
}

// Ten selections of the kinds the model classes run on one reply.
std::int64_t selectTen(const XmlDocument &reply)
{
    const XmlNode root = reply.documentElement();
    const XmlNode first = root.selectSingleNode("Producto");
    std::int64_t found = 0;
    found += reply.selectNodes("//Producto").length();
    found += root.selectNodes("RESULT").length();
    found += root.selectNodes("descendant::RETURNCODE").length();
    found += first.selectNodes("descendant:: CodigoDovel").length();
    found += first.selectNodes("descendant:: Descripcion").length();
    found += root.selectNodes("descendant:: Field [@fieldID='Name']").length();
    found += root.selectNodes("descendant::Producto[@id='P100']").length();
    found += reply.selectNodes("//Producto[CodigoZorvanta='Z42']").length();
    found += reply.selectNodes("descendant-or-self::Impuesto").length();
    found += first.selectNodes("descendant::Field[@fieldID='Description']").length();
    return found;
}

void BM_LoadListing(benchmark::State &state)
{
    for (auto _ : state) {
        XmlDocument reply;
        benchmark::DoNotOptimize(reply.loadXML(listing()));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(listing().size()));
}
BENCHMARK(BM_LoadListing)->Unit(benchmark::kMicrosecond);

void BM_SelectTenOnListing(benchmark::State &state)
{
    XmlDocument reply;
    reply.loadXML(listing());
    std::int64_t found = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(found = selectTen(reply));
    state.counters["nodes"] = static_cast<double>(found);
}
BENCHMARK(BM_SelectTenOnListing)->Unit(benchmark::kMicrosecond);

// The whole of reading one reply: under a millisecond is the target.
void BM_LoadListingAndSelectTen(benchmark::State &state)
{
    for (auto _ : state) {
        XmlDocument reply;
        reply.loadXML(listing());
        benchmark::DoNotOptimize(selectTen(reply));
    }
    state.counters["bytes"] = static_cast<double>(listing().size());
}
BENCHMARK(BM_LoadListingAndSelectTen)->Unit(benchmark::kMicrosecond);

} // namespace

// Laying out the property grid of a large product: two hundred properties in the three groups,
// sorted by name, with their values and the whole price block.
#include "MarketplaceProps.h"
#include "editors/ZorvantaPropertiesGrid.h"

#include <QApplication>
#include <benchmark/benchmark.h>
#include <string>

namespace {

constexpr int kProperties = 200;
constexpr const char *kTypes[] = {"String", "Integer", "Float", "Currency", "Boolean", "Datetime"};

QApplication &application()
{
    static int argc = 1;
    static char name[] = "bench_editors";
    static char *argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(argc, argv);
    return app;
}

std::string sample(int n, const std::string &type)
{
    if (type == "Boolean")
        return std::to_string(n % 2);
    if (type == "Datetime")
        return "2024/03/" + std::to_string(1 + n % 28) + "T10:30:00";
    if (type == "Float" || type == "Currency")
        return std::to_string(n) + ".5";
    return type == "Integer" ? std::to_string(n * 7) : "Valor " + std::to_string(n);
}

void fillGridWithTwoHundredPropertiesAndPrices(benchmark::State &state)
{
    application();
    std::vector<Prop> props = priceBlock();
    WireValues wire{{"Cy_List_Price", "200.00"}, {"PromoPrice", "180.00"}};
    for (int n = 0; n < kProperties; ++n) {
        const std::string id = "P" + std::to_string(n);
        const std::string type = kTypes[n % 6];
        // Names arrive in no order, some of them twice.
        const std::string name = "Propiedad " + std::to_string((kProperties - n) * 37 % 181);
        const auto kind = n % 3 == 0 ? Prop::Fixed : n % 10 == 1 ? Prop::Variant : Prop::Plain;
        props.emplace_back(id, name, type, "", n % 4 == 0, false, kind);
        if (n % 5 != 0)
            wire.emplace_back(id, sample(n, type));
    }
    const auto definition = readDefinition(props);
    const auto properties = definition->properties();
    const auto values = readValues(*properties, wire);

    ZorvantaPropertiesGrid grid;
    grid.resize(900, 600);
    grid.show();
    grid.showCharacteristic = true;
    grid.showVariants = true;
    grid.showNonCharacteristic = true;
    grid.showPrices = true;
    grid.sellerProduct = erpProduct("200.00", "190.00", "150.00");
    grid.setCanEdit(true);
    for (auto _ : state) {
        grid.setZorvantaProperties(properties);
        grid.setValues(values);
        QApplication::processEvents();
    }
}
BENCHMARK(fillGridWithTwoHundredPropertiesAndPrices)->Unit(benchmark::kMillisecond);

} // namespace

// The detail of an ERP product as each list's line reads it when it is first asked for: the
// first byte of the input chooses the list (its two low bits: all products, associated,
// published, pending) and whether the ERP refuses (the next bit); the rest is the reply. The
// line's marketplace product is the demo's ZP-00001, its properties read beforehand as a page
// would have read them, so that the values in the detail are checked against them.
#include "FuzzProcess.h"
#include "catalogue/ProductLine.h"
#include "catalogue/SellerProduct.h"
#include "catalogue/ZorvantaProduct.h"
#include "platform/xml/XmlDocument.h"
#include "publication/AssociatedProduct.h"
#include "publication/PublishedProduct.h"
#include "publication/SellerLists.h"
#include "stores/ZorvantaMinistore.h"

#include <fstream>
#include <sstream>

namespace {

// A line of every list, as the ERP's demo data gives it: the detail is asked by its keys.
const char *const kListLine =
    "<Producto><CodigoDovel>ERP-0495</CodigoDovel><Descripcion>Camisa de algodón</Descripcion>"
    "<CodigoAsociacion>7</CodigoAsociacion><CodigoPublicacion>12</CodigoPublicacion>"
    "<CodigoZorvanta>ZP-00001</CodigoZorvanta><StoreID>100</StoreID><Estado>K</Estado>"
    "<FechaPublicacion>2026-02-01 10:00:00</FechaPublicacion></Producto>";

std::shared_ptr<ZorvantaProduct> marketplaceProduct()
{
    static const std::string reply = [] {
        std::ifstream file(ASISTENTE_FUZZ_PRODUCT_INFORMATION);
        std::stringstream text;
        text << file.rdbuf();
        return text.str();
    }();
    auto product = std::make_shared<ZorvantaProduct>();
    product->setId("ZP-00001");
    product->readProperties(reply);
    return product;
}

void readDetail(const std::shared_ptr<ProductLine> &line)
{
    if (auto product = std::dynamic_pointer_cast<SellerProduct>(line)) {
        product->taxes();
        product->price3();
    } else if (auto association = std::dynamic_pointer_cast<AssociatedProduct>(line)) {
        association->setZorvantaProd(marketplaceProduct());
        association->associationDate();
        association->variantattributes();
    } else if (auto publication = std::dynamic_pointer_cast<PublishedProduct>(line)) {
        publication->associatedProd()->setZorvantaProd(marketplaceProduct());
        publication->errorMsg();
        publication->nonCharateristicAttributes();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const bool registered = (registerSellerListLines(), true);
    (void)registered;
    if (size == 0)
        return 0;
    FuzzProcess &process = FuzzProcess::get();
    process.beginRun();
    XmlDocument list;
    list.loadXML(kListLine);
    const auto type = static_cast<std::int16_t>(data[0] & 3);
    static const std::shared_ptr<ZorvantaMinistore> store = FuzzProcess::demoStore();
    const std::shared_ptr<ProductLine> line =
        ProductLine::make(type, list.documentElement(), store);
    process.erp().code = (data[0] & 4) != 0 ? 6001 : 0;
    process.erp().reply = fuzzText(data + 1, size - 1);
    readDetail(line);
    return 0;
}

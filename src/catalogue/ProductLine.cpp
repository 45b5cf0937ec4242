#include "catalogue/ProductLine.h"

#include "catalogue/SellerProduct.h"
#include "gateways/DovelAPI.h"
#include "platform/connectors/ErpLibrary.h"

#include <map>

namespace {

std::map<std::int16_t, ProductLine::Factory> &factories()
{
    static std::map<std::int16_t, ProductLine::Factory> registered{
        {0, [](const XmlNode &node, std::int16_t, const std::shared_ptr<ZorvantaMinistore> &) {
             auto product = std::make_shared<SellerProduct>();
             product->setXml(node);
             return std::shared_ptr<ProductLine>(product);
         }}};
    return registered;
}

} // namespace

void ProductLine::registerFactory(std::int16_t productType, Factory factory)
{
    factories()[productType] = std::move(factory);
}

std::shared_ptr<ProductLine> ProductLine::make(std::int16_t productType, const XmlNode &node,
                                               const std::shared_ptr<ZorvantaMinistore> &ministore)
{
    const auto found = factories().find(productType);
    if (found == factories().end() || !found->second)
        return nullptr;
    return found->second(node, productType, ministore);
}

ProductLine::Definition ProductLine::readDefinition(std::int32_t productType,
                                                    const std::string &key,
                                                    const std::string &ministoreId)
{
    ConnectorBuffer reply(DovelAPI::kReplySize);
    Definition definition;
    definition.code = erpLibrary().ObtenerDefinicionProducto(productType, key.c_str(),
                                                             ministoreId.c_str(), reply.data());
    definition.reply = reply.text();
    return definition;
}

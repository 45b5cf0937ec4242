#include "catalogue/ZorvantaCategory.h"

#include "catalogue/MarketplaceCalls.h"
#include "catalogue/ZorvantaProduct.h"
#include "gateways/CommerceServer.h"
#include "platform/ui/Ui.h"
#include "platform/xml/XmlDocument.h"
#include "shell/ClassDebugId.h"
#include "shell/ErrorHandling.h"

#include <limits>

namespace {

constexpr const char *kLetXml = "ZorvantaCategory:Let xml";
constexpr const char *kStartQuery = "ZorvantaCategory:startQuery";
constexpr const char *kGetDefinitions = "ZorvantaCategory:Get productDefinitions";
// Every request checks the seller's stores under this one source, whichever it sends.
constexpr const char *kStoresSource = "ZorvantaProduct:Get properties";
constexpr const char *kRequestTitle = "Envío de solicitud";
constexpr const char *kStoreApi = "El XML retornado por CommerceServerStoreAPI.";
constexpr const char *kCategoryContent =
    "El XML retornado por CommerceServerCatalogInfoAPI.GetCategoryContent ";

template <class T> T &existing(const std::shared_ptr<T> &collection)
{
    if (!collection)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    return *collection;
}

void showRequestFailed(const char *what)
{
    ui().msgBox(std::string("Solicitud de ") + what + " falló, por favor intente más tarde",
                MessageStyle::Plain, MessageButtons::Ok, kRequestTitle);
}

} // namespace

ZorvantaCategory::ZorvantaCategory() : m_classDebugId(GetNextClassDebugID()) {}

void ZorvantaCategory::setXml(const XmlNode &node)
{
    withHandler("ZorvantaCategory:xml Property Set", [&] {
        // The texts name this call whichever call produced the node.
        const auto fail = [&](const std::string &what) {
            raiseError(-10503,
                       std::string(kStoreApi) + "ObtenerContenidoCategoria " + what + node.xml(),
                       kLetXml);
        };
        if (!node.attributes())
            fail("no tiene atributos para la categoría: ");
        const std::optional<std::string> name = node.getAttribute("name");
        if (!name)
            fail("no tiene el atributo name para la categoría: ");
        m_name = *name;
        const std::optional<std::string> id = node.getAttribute("id");
        if (!id)
            fail("no tiene el atributo id para la categoría: ");
        m_id = *id;
        const XmlNodeList fields = node.selectNodes("descendant:: Field [@fieldID='Description']");
        if (fields.length() == 0)
            fail("no tiene etiqueta Field FieldID=Description: ");
        // A category may have an empty description, unlike a product.
        if (const XmlNode text = fields.item(0).firstChild())
            m_description = text.nodeValue();
    });
}

void ZorvantaCategory::StartQuery()
{
    withHandler("ZorvantaCategory:StartQuery Method", [&] {
        m_pagesRead = 0;
        m_products = std::make_shared<Products>();
        m_children = std::make_shared<Categories>();
        m_allRead = false;
        GetMore();
    });
}

void ZorvantaCategory::GetMore()
{
    withHandler("ZorvantaCategory:GetMore Method", [&] { readPage(); });
}

void ZorvantaCategory::readPage()
{
    if (m_pagesRead == std::numeric_limits<std::int16_t>::max())
        raiseRuntimeError(RuntimeErrorNumber::Overflow);
    // No guard on allRead: the service is asked even when everything has been read.
    readContentPage(
        callMarketplace(gCatalogInfoClient, "GetCategoryContent",
                        {m_id, static_cast<std::int16_t>(m_pagesRead + 1), kQuerySize}));
}

void ZorvantaCategory::readContentPage(const std::string &reply)
{
    XmlDocument document;
    document.setProperty("SelectionLanguage", "XPath");
    loadMarketplaceReply(document, reply, "CommerceServerCatalogInfoAPI.GetCategoryContent",
                         kStartQuery, "ZorvantaCategory:StartQuery");

    const XmlNode current = document.selectSingleNode("//CurrentCategory");
    if (!current)
        raiseError(-10503,
                   std::string(kCategoryContent) + "no tiene el nodo CurrentCategory: " + reply,
                   kStartQuery);
    setXml(current);

    if (existing(m_children).empty()) {
        for (const XmlNode &node : document.selectNodes("//Category")) {
            auto child = std::make_shared<ZorvantaCategory>();
            child->setXml(node);
            child->setParent(shared_from_this());
            m_children->add(child, child->id());
        }
    }

    const XmlNodeList nodes = document.selectNodes("//Product");
    m_products = std::make_shared<Products>();
    if (m_allRead)
        return;
    // A full page leaves the query open, so the next one may come back empty.
    if (nodes.length() < kQuerySize)
        m_allRead = true;
    for (const XmlNode &node : nodes) {
        auto product = std::make_shared<ZorvantaProduct>();
        product->setXml(node);
        product->setIsDefinition(false);
        m_products->add(product, product->id());
    }
    ++m_pagesRead;
}

std::shared_ptr<ZorvantaCategory::Products> ZorvantaCategory::productDefinitions()
{
    return withHandler("ZorvantaCategory:productDefinitions Property Get", [&] {
        if (m_productDefinitions)
            return m_productDefinitions;
        // Made before the call, so that after a failure the next read gives what there is.
        m_productDefinitions = std::make_shared<Products>();
        readProductDefinitions(callMarketplace(gCatalogInfoClient, "GetProductDefinition", {m_id}),
                               *m_productDefinitions);
        return m_productDefinitions;
    });
}

void ZorvantaCategory::readProductDefinitions(const std::string &reply, Products &definitions)
{
    XmlDocument document;
    document.setProperty("SelectionLanguage", "XPath");
    loadMarketplaceReply(document, reply, "CommerceServerCatalogInfoAPI.GetProductDefinitions",
                         kGetDefinitions, kGetDefinitions);
    const XmlNode propertiesDefinition = document.selectSingleNode("//PropertiesDefinition");
    if (!propertiesDefinition)
        raiseError(-10503,
                   "El XML retornado por CommerceServerCatalogInfoAPI.GetProductDefinitions "
                   "no tiene el nodo PropertiesDefinition: " +
                       reply,
                   kGetDefinitions);
    for (const XmlNode &definition : document.selectNodes("//Definition")) {
        // The one PropertiesDefinition moves from each wrapper to the next: a template is
        // read whole as soon as it is wrapped.
        XmlNode wrapper = document.createElement("ProductDefinition");
        wrapper.appendChild(propertiesDefinition);
        wrapper.appendChild(definition);
        auto product = std::make_shared<ZorvantaProduct>();
        product->setIsDefinition(true);
        product->setXml(wrapper);
        definitions.add(product);
    }
}

void ZorvantaCategory::RequestNewProduct(std::string &xml)
{
    withHandler("ZorvantaProduct:RequestNewProduct Method",
                [&] { sendProductRequest(xml, false); });
}

void ZorvantaCategory::RequestNewProductDefinition(std::string &xml)
{
    withHandler("ZorvantaCategory:RequestNewProductDefinition Method",
                [&] { sendProductRequest(xml, true); });
}

void ZorvantaCategory::sendProductRequest(std::string &xml, bool definition)
{
    const std::string operation = definition ? "RequestNewProductDef" : "RequestNewProduct";
    XmlDocument document;
    document.setProperty("SelectionLanguage", "XPath");
    const std::string storeId = firstMinistoreId(kStoresSource);
    xml = "<?xml version='1.0' encoding='ISO-8859-1'?>" + xml;
    const std::string reply = callMarketplace(gStoreClient, operation, {storeId, m_id, xml});
    loadMarketplaceReply(document, reply, "CommerceServerStoreAPI." + operation,
                         definition ? "ZorvantaCategory:RequestNewProductDefinition"
                                    : "ZorvantaProduct:RequestNewProduct",
                         definition ? "ZorvantaCategory:RequestNewProductDefinition"
                                    : "ZorvantaProduct:RequestNewProduct",
                         [] { showRequestFailed("producto"); });
    ui().msgBox("Solicitud enviada exitosamente", MessageStyle::Plain, MessageButtons::Ok,
                kRequestTitle);
}

std::shared_ptr<ZorvantaCategory> ZorvantaCategory::RequestNewSubcategory(const std::string &name)
{
    return withHandler("ZorvantaCategory:RequestNewSubcategory Method", [&] {
        constexpr const char *kSource = "ZorvantaCategory:RequestNewSubcategory";
        XmlDocument reply;
        reply.setProperty("SelectionLanguage", "XPath");
        const std::string storeId = firstMinistoreId(kStoresSource);
        const std::string text =
            callMarketplace(gStoreClient, "RequestNewCategory", {storeId, m_id, name});
        loadMarketplaceReply(reply, text, "CommerceServerStoreAPI.RequestNewCategory", kSource,
                             kSource, [] { showRequestFailed("categoría"); });
        // Nothing escapes the name: an apostrophe or an angle bracket breaks this document.
        XmlDocument document;
        document.loadXML("<CurrentCategory name='" + name +
                         "' id=''><Field fieldID='Description'/></CurrentCategory>");
        auto category = std::make_shared<ZorvantaCategory>();
        category->setXml(document.documentElement());
        return category;
    });
}

#include "catalogue/ProductBrowser.h"

#include "catalogue/ErpLists.h"
#include "catalogue/ProductLine.h"
#include "platform/connectors/ErpLibrary.h"
#include "platform/xml/XmlDocument.h"
#include "shell/ClassDebugId.h"
#include "shell/ErrorHandling.h"

namespace {

constexpr const char *kGetMore = "ProductBrowser:getMore";

} // namespace

ProductBrowser::ProductBrowser() : m_classDebugId(GetNextClassDebugID()) {}

void ProductBrowser::StartQuery()
{
    withHandler("ProductBrowser:StartQuery Method", [&] {
        m_lastId = ConnectorBuffer(DovelAPI::kLastIdSize);
        m_products = std::make_shared<Products>();
        m_allRead = false;
        GetMore();
    });
}

void ProductBrowser::GetMore()
{
    withHandler("ProductBrowser:GetMore Method", [&] { readPage(); });
}

void ProductBrowser::readPage()
{
    // Unlike a category, a finished search does not ask the ERP again.
    if (m_allRead) {
        m_products = std::make_shared<Products>();
        return;
    }
    const std::int32_t direction = erpDirection(m_forward);
    ConnectorBuffer search = connectorText(m_searchString);
    ConnectorBuffer reply(DovelAPI::kReplySize);
    std::int32_t count = 0;
    const std::int32_t code = erpLibrary().BusquedaProductosIndividual(
        m_productType, m_queryType, search.data(), m_querySize, m_lastId.data(), direction,
        storeIdOf(m_ministore).c_str(), &count, reply.data());
    m_searchString = search.text();
    const std::string text = reply.text();

    // 8002: nothing found; 8007: more than the ERP lists for one search.
    if (code == 8007 || code == 8002 || endsList(code, direction))
        m_allRead = true;
    else if (code != 0 && code != 101 && code != 102)
        raiseError(-11001,
                   "La función APIDovel.BusquedaProductosIndividual retornó con error " +
                       std::to_string(code),
                   kGetMore);

    XmlDocument document;
    document.setProperty("SelectionLanguage", "XPath");
    if (!document.loadXML(text))
        raiseError(-10500,
                   "El XML retornado por APIDovel.BusquedaProductosIndividual está mal "
                   "construido " +
                       text,
                   kGetMore);
    const XmlNodeList nodes = document.selectNodes("//Producto");
    m_products = std::make_shared<Products>();
    // The last page has products too.
    addLines(*m_products, nodes, m_productType, m_ministore);
}

#include "catalogue/DovelCategory.h"

#include "catalogue/ErpLists.h"
#include "catalogue/ProductLine.h"
#include "platform/connectors/ErpLibrary.h"
#include "platform/xml/XmlDocument.h"
#include "shell/ClassDebugId.h"
#include "shell/ErrorHandling.h"

namespace {

constexpr const char *kGetMore = "DovelCategory:getMore";
constexpr const char *kApi = "El XML retornado por APIDovel.ObtenerContenidoCategoria ";

} // namespace

DovelCategory::DovelCategory() : m_classDebugId(GetNextClassDebugID()) {}

void DovelCategory::setXml(const XmlNode &node)
{
    withHandler("DovelCategory:xml Property Set", [&] {
        const auto fail = [&](const std::string &what) {
            raiseError(-10500, kApi + what + node.xml(), "DovelCategory:Let xml");
        };
        if (!node.attributes())
            fail("no tiene atributos para la categoría: ");
        const std::optional<std::string> name = node.getAttribute("nombre");
        if (!name)
            fail("no tiene el atributo nombre para la categoría: ");
        m_name = *name;
        const std::optional<std::string> id = node.getAttribute("id");
        if (!id)
            fail("no tiene el atributo id para la categoría actual : ");
        m_id = *id;
    });
}

void DovelCategory::StartQuery()
{
    withHandler("DovelCategory:StartQuery Method", [&] {
        m_lastId = ConnectorBuffer(DovelAPI::kCategoryPositionSize);
        m_products = std::make_shared<Products>();
        m_children = std::make_shared<Categories>();
        m_allRead = false;
        GetMore();
    });
}

void DovelCategory::GetMore()
{
    withHandler("DovelCategory:GetMore Method", [&] { readPage(); });
}

void DovelCategory::readPage()
{
    const std::int32_t direction = erpDirection(m_forward);
    ConnectorBuffer id = connectorText(m_id);
    ConnectorBuffer reply(DovelAPI::kReplySize);
    std::int32_t count = 0;
    const std::int32_t code = erpLibrary().ObtenerContenidoCategoria(
        m_productType, id.data(), m_querySize, m_lastId.data(), direction,
        storeIdOf(m_ministore).c_str(), &count, reply.data());
    // The ERP may rewrite what it was given.
    m_id = id.text();
    const std::string text = reply.text();

    if (code == 6007)
        m_allRead = true;
    else if (code != 0 && code != 101 && code != 102 && code != 103)
        raiseError(-11001,
                   "La función APIDovel.ObtenerContenidoCategoria retornó con error " +
                       std::to_string(code),
                   kGetMore);

    XmlDocument document;
    document.setProperty("SelectionLanguage", "XPath");
    if (!document.loadXML(text))
        raiseError(-10500, kApi + std::string("está mal construido: ") + text, kGetMore);
    const XmlNode current = document.selectSingleNode("//CategoriaActual");
    if (!current)
        raiseError(-10500, kApi + std::string("no tiene el nodo CategoriaActual: ") + text,
                   kGetMore);
    setXml(current);

    if (m_children == nullptr)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    if (m_children->empty()) {
        for (const XmlNode &node : document.selectNodes("//Categoria")) {
            auto child = std::make_shared<DovelCategory>();
            child->setXml(node);
            m_children->add(child);
        }
    }

    const XmlNodeList nodes = document.selectNodes("//Producto");
    m_products = std::make_shared<Products>();
    // 6007: the category has no products left, only its subcategories.
    if (m_allRead)
        return;
    addLines(*m_products, nodes, m_productType, m_ministore);
    if (endsList(code, direction))
        m_allRead = true;
}

#include "marketplace/CatalogService.h"

#include "marketplace/MarketplaceCode.h"
#include "marketplace/ReplyDocument.h"
#include "platform/core/RaisedError.h"

#include <algorithm>
#include <charconv>
#include <set>

namespace {

constexpr const char *kSuccess = "Exito";

std::string str(std::string_view view)
{
    return std::string(view);
}

std::string trim(const std::string &text)
{
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

int positiveNumber(const std::string &text, const char *what)
{
    const std::string value = trim(text);
    int number = 0;
    const auto [end, ec] = std::from_chars(value.data(), value.data() + value.size(), number);
    if (ec != std::errc() || end != value.data() + value.size() || number < 1) {
        raiseError(MarketplaceCode::MalformedRequest,
                   std::string("Solicitud mal formada: ") + what +
                       " debe ser un número entero mayor que cero: " + text);
    }
    return number;
}

void appendField(pugi::xml_node parent, const std::string &id, const std::string &value)
{
    pugi::xml_node field = parent.append_child("Field");
    field.append_attribute("fieldID") = id.c_str();
    if (!value.empty()) {
        field.text() = value.c_str();
    }
}

// CurrentCategory and Category share one shape: name and id, and the description as a Field.
void appendCategory(pugi::xml_node parent, const char *element, pugi::xml_node category)
{
    pugi::xml_node node = parent.append_child(element);
    node.append_attribute("name") = category.attribute("name").value();
    node.append_attribute("id") = MarketplaceData::categoryId(category).c_str();
    appendField(node, "Description", category.child("Description").text().get());
}

pugi::xml_node requireCategory(const MarketplaceData &data, const std::string &id)
{
    pugi::xml_node category = data.category(id);
    if (!category) {
        raiseError(MarketplaceCode::UnknownCategory, "Categoría inexistente: " + id);
    }
    return category;
}

void requireStore(const MarketplaceData &data, const std::string &id)
{
    if (!data.store(id)) {
        raiseError(MarketplaceCode::UnknownStore, "Minitienda inexistente: " + id);
    }
}

std::vector<std::string> propertyIds(pugi::xml_node list)
{
    std::vector<std::string> ids;
    for (pugi::xml_node property : list.children("Property")) {
        ids.emplace_back(property.attribute("id").value());
    }
    return ids;
}

// The definitions of the given ids, in the order the marketplace lists its properties.
void appendPropertiesDefinition(const MarketplaceData &data, pugi::xml_node parent,
                                const std::set<std::string> &ids)
{
    pugi::xml_node list = parent.append_child("PropertiesDefinition");
    std::set<std::string> written;
    for (pugi::xml_node property : data.propertiesDefinition().children("Property")) {
        const std::string id = property.attribute("id").value();
        if (ids.count(id) > 0 && written.insert(id).second) {
            list.append_copy(property);
        }
    }
}

const Publication *publicationOf(MarketplaceState &state, const std::string &storeId,
                                 const std::string &productId)
{
    if (storeId.empty()) {
        return nullptr;
    }
    for (const auto &[number, publication] : state.publications(storeId)) {
        if (publication.zorvantaId == productId) {
            return &publication;
        }
    }
    return nullptr;
}

// A field's value: the catalogue's own, else what the store published, else empty.
std::string valueFor(pugi::xml_node fields, const Publication *published, const std::string &id)
{
    if (pugi::xml_node field = fields.find_child_by_attribute("Field", "fieldID", id.c_str())) {
        return field.text().get();
    }
    if (published != nullptr) {
        const auto it = published->fields.find(id);
        if (it != published->fields.end()) {
            return it->second;
        }
    }
    return {};
}

// Fields of the catalogue entry that the template does not name still go out, as they stand.
void appendExtraFields(pugi::xml_node target, pugi::xml_node fields,
                       const std::vector<std::string> &named, std::set<std::string> &ids)
{
    for (pugi::xml_node field : fields.children("Field")) {
        const std::string id = field.attribute("fieldID").value();
        if (std::find(named.begin(), named.end(), id) == named.end()) {
            appendField(target, id, field.text().get());
            ids.insert(id);
        }
    }
}

pugi::xml_document parseRequestDocument(const std::string &text)
{
    pugi::xml_document doc;
    // The text is already Unicode, whatever encoding its declaration names.
    if (!doc.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8)) {
        raiseError(MarketplaceCode::MalformedRequest,
                   "El documento de la solicitud está mal construido");
    }
    return doc;
}

} // namespace

CatalogService::CatalogService(const MarketplaceData &data, MarketplaceState &state)
    : m_data(data), m_state(state)
{
}

std::string CatalogService::replyName(const SoapMessage &message)
{
    return ServiceContract::find(message.operation()) != nullptr ? message.operation()
                                                                 : std::string("Error");
}

FaultPlan::Context CatalogService::faultContext(const SoapMessage &message)
{
    FaultPlan::Context context;
    const OperationContract *operation = ServiceContract::find(message.operation());
    if (operation == nullptr) {
        return context;
    }
    for (size_t i = 0; i < operation->parts.size(); ++i) {
        const std::string_view part = operation->parts[i].name;
        const auto value = message.argument(part, i);
        if (!value) {
            continue;
        }
        if (part == "CategoryID") {
            context["category"] = *value;
        } else if (part == "ProductID") {
            context["product"] = *value;
        } else if (part == "StoreID") {
            context["store"] = *value;
        } else if (part == "SellerID") {
            context["seller"] = *value;
        }
    }
    return context;
}

std::string CatalogService::answer(std::string_view port, const SoapMessage &message)
{
    const std::string name = replyName(message);
    try {
        if (!message.problem().empty()) {
            raiseError(ServiceContract::find(message.operation()) == nullptr &&
                               !message.operation().empty()
                           ? MarketplaceCode::UnknownOperation
                           : MarketplaceCode::MalformedRequest,
                       message.problem());
        }
        const OperationContract *operation = ServiceContract::find(message.operation());
        if (operation == nullptr) {
            raiseError(MarketplaceCode::UnknownOperation,
                       "Operación desconocida: " + message.operation());
        }
        if (operation->port != port) {
            raiseError(MarketplaceCode::UnknownOperation, "La operación " + message.operation() +
                                                              " no se ofrece en el puerto " +
                                                              str(port));
        }
        Arguments args;
        for (size_t i = 0; i < operation->parts.size(); ++i) {
            const auto value = message.argument(operation->parts[i].name, i);
            if (!value) {
                raiseError(MarketplaceCode::MalformedRequest,
                           "Solicitud mal formada: falta el argumento " +
                               str(operation->parts[i].name));
            }
            args.push_back(*value);
        }
        if (name == "GetSellerInformation") {
            return sellerInformation(args);
        }
        if (name == "GetCategoryContent") {
            return categoryContent(args);
        }
        if (name == "GetProductDefinition") {
            return productDefinition(args);
        }
        if (name == "GetProductInformation") {
            return productInformation(args);
        }
        if (name == "RequestNewCategory") {
            return newCategory(args);
        }
        return newProduct(name, args);
    } catch (const RaisedError &error) {
        return ReplyDocument::status(name, error.number(), error.description(), true);
    }
}

std::string CatalogService::sellerInformation(const Arguments &args) const
{
    pugi::xml_node seller = m_data.seller(args[0]);
    if (!seller) {
        raiseError(MarketplaceCode::UnknownSeller, "Vendedor inexistente: " + args[0]);
    }
    ReplyDocument reply("GetSellerInformation");
    reply.setResult(MarketplaceCode::Success, kSuccess);
    reply.root().append_child("SellerID").text() = args[0].c_str();
    pugi::xml_node stores = reply.root().append_child("Stores");
    for (pugi::xml_node store : seller.children("Store")) {
        const std::string id = store.attribute("id").value();
        pugi::xml_node node = stores.append_child("Store");
        node.append_child("StoreID").text() = id.c_str();
        node.append_child("Name").text() = store.child("Name").text().get();
        // A store without a description in the data has no Description element at all.
        if (pugi::xml_node description = store.child("Description")) {
            pugi::xml_node element = node.append_child("Description");
            if (*description.text().get() != '\0') {
                element.text() = description.text().get();
            }
        }
        node.append_child("NumberOfProducts").text() =
            static_cast<unsigned long long>(m_state.publications(id).size());
    }
    return reply.text(true);
}

std::string CatalogService::categoryContent(const Arguments &args) const
{
    pugi::xml_node category = requireCategory(m_data, args[0]);
    const int page = positiveNumber(args[1], "el número de página");
    const int pageSize = positiveNumber(args[2], "el tamaño de página");

    ReplyDocument reply("GetCategoryContent");
    reply.setResult(MarketplaceCode::Success, kSuccess);
    appendCategory(reply.root(), "CurrentCategory", category);
    pugi::xml_node categories = reply.root().append_child("Categories");
    for (pugi::xml_node child : category.children("Category")) {
        appendCategory(categories, "Category", child);
    }
    pugi::xml_node products = reply.root().append_child("Products");
    const long first = static_cast<long>(page - 1) * pageSize;
    long index = 0;
    for (pugi::xml_node product : category.children("Product")) {
        if (index >= first + pageSize) {
            break;
        }
        if (index++ < first) {
            continue;
        }
        pugi::xml_node node = products.append_child("Product");
        node.append_attribute("id") = product.attribute("id").value();
        appendField(node, "Name", MarketplaceData::fieldValue(product, "Name"));
        appendField(node, "Description", MarketplaceData::fieldValue(product, "Description"));
    }
    return reply.text(true);
}

std::string CatalogService::productDefinition(const Arguments &args) const
{
    pugi::xml_node category = requireCategory(m_data, args[0]);
    const std::vector<pugi::xml_node> definitions = m_data.definitionsFor(category);
    std::set<std::string> ids;
    for (pugi::xml_node definition : definitions) {
        for (const char *list : {"Properties", "VariantProperties"}) {
            for (const std::string &id : propertyIds(definition.child(list))) {
                ids.insert(id);
            }
        }
    }
    ReplyDocument reply("GetProductDefinition");
    reply.setResult(MarketplaceCode::Success, kSuccess);
    appendPropertiesDefinition(m_data, reply.root(), ids);
    for (pugi::xml_node definition : definitions) {
        reply.root().append_copy(definition);
    }
    return reply.text(true);
}

std::string CatalogService::productInformation(const Arguments &args) const
{
    const std::string &productId = args[0];
    const std::string storeId = args[1];
    pugi::xml_node product = m_data.product(productId);
    if (!product) {
        raiseError(MarketplaceCode::UnknownProduct, "Producto inexistente: " + productId);
    }
    if (!storeId.empty()) {
        requireStore(m_data, storeId);
    }
    const Publication *published = publicationOf(m_state, storeId, productId);
    pugi::xml_node definition = m_data.definition(product.attribute("definition").value());
    const std::vector<std::string> named = propertyIds(definition.child("Properties"));
    const std::vector<std::string> variants = propertyIds(definition.child("VariantProperties"));

    ReplyDocument reply("GetProductInformation");
    reply.setResult(MarketplaceCode::Success, kSuccess);
    pugi::xml_node productNode = reply.root().append_child("Product");
    productNode.append_attribute("Definition") = product.attribute("definition").value();
    productNode.append_attribute("id") = productId.c_str();
    std::set<std::string> ids;
    for (const std::string &id : named) {
        appendField(productNode, id, valueFor(product, published, id));
        ids.insert(id);
    }
    appendExtraFields(productNode, product, named, ids);

    pugi::xml_node variantData = product.child("VariantProperties");
    if (!variants.empty() || variantData) {
        pugi::xml_node variantNode = productNode.append_child("VariantProperties");
        // The variant group opens with the variant's own id, which is not a property to edit.
        appendField(variantNode, "VariantID", productId + "-V");
        ids.insert("VariantID");
        for (const std::string &id : variants) {
            appendField(variantNode, id, valueFor(variantData, published, id));
            ids.insert(id);
        }
        appendExtraFields(variantNode, variantData, variants, ids);
    }
    pugi::xml_document definitions;
    appendPropertiesDefinition(m_data, definitions, ids);
    reply.root().insert_copy_after(definitions.first_child(), reply.root().child("RESULT"));
    return reply.text(true);
}

std::string CatalogService::newCategory(const Arguments &args)
{
    requireStore(m_data, args[0]);
    requireCategory(m_data, args[1]);
    if (trim(args[2]).empty()) {
        raiseError(MarketplaceCode::MalformedRequest,
                   "Solicitud mal formada: el nombre de la categoría está vacío");
    }
    m_state.recordRequest({"RequestNewCategory", args[0], args[1], args[2]});
    ReplyDocument reply("RequestNewCategory");
    reply.setResult(MarketplaceCode::Success, "Solicitud de categoría recibida");
    reply.root().append_child("RequestID").text() =
        static_cast<unsigned long long>(m_state.requests().size());
    return reply.text(true);
}

std::string CatalogService::newProduct(const std::string &operation, const Arguments &args)
{
    requireStore(m_data, args[0]);
    requireCategory(m_data, args[1]);
    pugi::xml_document request = parseRequestDocument(args[2]);
    pugi::xml_node root = request.document_element();
    if (operation != root.name()) {
        raiseError(MarketplaceCode::MalformedRequest,
                   "Solicitud mal formada: se esperaba el elemento " + operation);
    }
    if (operation == "RequestNewProduct") {
        const std::string definition = root.child("Product").attribute("Definition").value();
        if (!m_data.definition(definition)) {
            raiseError(MarketplaceCode::UnknownDefinition,
                       "Definición de producto desconocida: " + definition);
        }
    } else if (trim(root.child("Name").text().get()).empty()) {
        raiseError(MarketplaceCode::MalformedRequest,
                   "Solicitud mal formada: falta el nombre del producto");
    }
    m_state.recordRequest({operation, args[0], args[1], args[2]});
    ReplyDocument reply(operation);
    reply.setResult(MarketplaceCode::Success, "Solicitud de producto recibida");
    reply.root().append_child("RequestID").text() =
        static_cast<unsigned long long>(m_state.requests().size());
    return reply.text(true);
}

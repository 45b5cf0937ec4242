#include "marketplace/BackOfficeService.h"

#include "backoffice/BackOfficeProtocol.h"
#include "marketplace/MarketplaceCode.h"
#include "marketplace/ReplyDocument.h"
#include "platform/core/RaisedError.h"

#include <cctype>
#include <map>

namespace {

constexpr const char *kSuccess = "Exito";

std::string textOf(pugi::xml_node node)
{
    return node.text().get();
}

bool blank(const std::string &text)
{
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

pugi::xml_node requireOwnStore(const MarketplaceData &data, pugi::xml_node seller,
                               const std::string &storeId)
{
    pugi::xml_node store = data.store(storeId);
    if (!store || store.parent() != seller) {
        raiseError(MarketplaceCode::StoreNotOfSeller, "La minitienda " + storeId +
                                                          " no pertenece al vendedor " +
                                                          seller.attribute("id").value());
    }
    return store;
}

void requireSeller(pugi::xml_node request, pugi::xml_node seller)
{
    const std::string sellerId = textOf(request.child("SellerID"));
    if (sellerId != seller.attribute("id").value()) {
        raiseError(MarketplaceCode::SellerMismatch,
                   "El vendedor " + sellerId + " no corresponde a la sesión");
    }
}

void requireLicense(pugi::xml_node request, pugi::xml_node seller)
{
    if (textOf(request.child("ProductLicense")) != seller.attribute("license").value()) {
        raiseError(MarketplaceCode::LicenseMismatch, "La licencia no corresponde al vendedor");
    }
}

pugi::xml_node requireRoot(const pugi::xml_document &doc, const std::string &name)
{
    pugi::xml_node root = doc.document_element();
    if (name != root.name()) {
        raiseError(MarketplaceCode::MalformedRequest,
                   "Solicitud mal formada: se esperaba el elemento " + name);
    }
    return root;
}

// Numbers travel with "." as decimal separator; Double may also come in scientific notation.
bool isNumber(const std::string &text, bool decimals, bool exponent)
{
    size_t i = 0;
    size_t digits = 0;
    while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) {
        ++i;
        ++digits;
    }
    if (decimals && i < text.size() && text[i] == '.') {
        ++i;
        while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) {
            ++i;
            ++digits;
        }
    }
    if (digits == 0) {
        return false;
    }
    if (exponent && i < text.size() && (text[i] == 'E' || text[i] == 'e')) {
        ++i;
        if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
            ++i;
        }
        const size_t start = i;
        while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) {
            ++i;
        }
        if (i == start) {
            return false;
        }
    }
    return i == text.size();
}

void checkValues(const MarketplaceData &data, const std::map<std::string, std::string> &fields)
{
    for (const auto &[id, value] : fields) {
        if (value.empty()) {
            continue;
        }
        const std::string type = data.property(id).attribute("dataType").value();
        const bool integral = type == "Integer" || type == "Biginteger";
        const bool decimal = type == "Currency" || type == "Float" || type == "Double";
        if ((integral && !isNumber(value, false, false)) ||
            (decimal && !isNumber(value, true, type != "Currency"))) {
            raiseError(MarketplaceCode::InvalidValue,
                       "Valor inválido para el atributo " + id + ": " + value);
        }
    }
}

std::map<std::string, std::string> fieldsOf(pugi::xml_node operation)
{
    std::map<std::string, std::string> fields;
    for (pugi::xpath_node found : operation.select_nodes(".//Field")) {
        fields[found.node().attribute("fieldID").value()] = textOf(found.node());
    }
    return fields;
}

struct Outcome
{
    std::int32_t code = MarketplaceCode::Success;
    std::string description;
};

Outcome apply(const MarketplaceData &data, MarketplaceState &state, pugi::xml_node store,
              pugi::xml_node operation)
{
    const std::string storeId = store.attribute("id").value();
    const std::string number = operation.attribute("PublicationID").value();
    const std::string word = textOf(operation.child("Operation"));
    const std::string productId = textOf(operation.child("ZorvantaID"));
    auto &published = state.publications(storeId);
    const bool active = std::string(store.attribute("status").value()) == "A";
    try {
        if (word == "Publicar" || word == "Actualizar") {
            if (!active) {
                raiseError(MarketplaceCode::StoreInactive,
                           "La minitienda " + storeId + " no está activa");
            }
            if (!data.product(productId)) {
                raiseError(MarketplaceCode::ProductNotInCatalog,
                           "El producto " + productId + " no existe en el catálogo");
            }
            Publication publication{productId, fieldsOf(operation)};
            checkValues(data, publication.fields);
            const bool exists = published.count(number) > 0;
            if (word == "Publicar") {
                if (exists) {
                    raiseError(MarketplaceCode::PublicationExists,
                               "La publicación " + number + " ya existe en la minitienda");
                }
                if (published.size() >= store.attribute("maxProducts").as_ullong()) {
                    raiseError(MarketplaceCode::StoreFull,
                               "La minitienda alcanzó su máximo de productos publicados");
                }
                published.emplace(number, std::move(publication));
                return {MarketplaceCode::Success, "Publicación realizada"};
            }
            if (!exists) {
                raiseError(MarketplaceCode::PublicationMissing,
                           "La publicación " + number + " no existe en la minitienda");
            }
            published[number] = std::move(publication);
            return {MarketplaceCode::Success, "Publicación actualizada"};
        }
        if (word == "Despublicar") {
            if (published.erase(number) == 0) {
                raiseError(MarketplaceCode::PublicationMissing,
                           "La publicación " + number + " no existe en la minitienda");
            }
            return {MarketplaceCode::Success, "Publicación retirada"};
        }
        raiseError(MarketplaceCode::UnknownOperation, "Operación desconocida: " + word);
    } catch (const RaisedError &error) {
        return {error.number(), error.description()};
    }
}

} // namespace

BackOfficeService::BackOfficeService(const MarketplaceData &data, MarketplaceState &state,
                                     const FaultPlan &faults)
    : m_data(data), m_state(state), m_faults(faults)
{
}

std::string BackOfficeService::replyName(std::int32_t operationId)
{
    switch (operationId) {
    case 8:
        return "ValidateUser";
    case 9:
        return "CatalogOperation";
    case 13:
        return "GetStoreInfo";
    case 14:
        return "OperationConfiguration";
    case 16:
        return "SetTaxes";
    default:
        return "Error";
    }
}

BackOfficeReply BackOfficeService::openSession(const std::string &clientKey1,
                                               const std::string &clientKey2,
                                               const std::string &clientNumber)
{
    pugi::xml_node seller = m_data.sellerByClient(clientKey1, clientKey2, clientNumber);
    if (!seller) {
        return {QdxCode::SessionOpenFailed, {}};
    }
    return {QdxCode::Success, std::to_string(m_state.openSession(seller.attribute("id").value()))};
}

std::int32_t BackOfficeService::closeSession(std::int32_t sessionId)
{
    return m_state.closeSession(sessionId) ? QdxCode::Success : QdxCode::SessionCloseFailed;
}

BackOfficeReply BackOfficeService::execute(std::int32_t operationId, std::int32_t sessionId,
                                           const std::string &request)
{
    const std::string sellerId = m_state.sellerOfSession(sessionId);
    if (sellerId.empty()) {
        return {QdxCode::SessionOpenFailed, {}};
    }
    const std::string name = replyName(operationId);
    if (name == "Error") {
        return {QdxCode::BadParameters, {}};
    }
    if (operationId == 14) {
        return {QdxCode::Success, operationConfiguration()};
    }
    if (blank(request)) {
        return {QdxCode::EmptyInput, {}};
    }
    pugi::xml_node seller = m_data.seller(sellerId);
    try {
        pugi::xml_document doc;
        const pugi::xml_parse_result parsed = doc.load_buffer(
            request.data(), request.size(), pugi::parse_default, pugi::encoding_utf8);
        if (!parsed) {
            raiseError(MarketplaceCode::MalformedRequest,
                       std::string("Solicitud mal formada: ") + parsed.description());
        }
        pugi::xml_node root = requireRoot(doc, name);
        switch (operationId) {
        case 8:
            return {QdxCode::Success, validateUser(root, seller)};
        case 9:
            return {QdxCode::Success, catalogOperation(root, seller)};
        case 13:
            return {QdxCode::Success, storeInfo(root, seller)};
        default:
            return {QdxCode::Success, setTaxes(root, seller)};
        }
    } catch (const RaisedError &error) {
        return {QdxCode::Success,
                ReplyDocument::status(name, error.number(), error.description(), false)};
    }
}

std::string BackOfficeService::validateUser(pugi::xml_node request, pugi::xml_node seller) const
{
    pugi::xml_node store =
        requireOwnStore(m_data, seller, request.child("Store").attribute("StoreID").value());
    const std::string user = textOf(request.child("UserName"));
    const std::string password = textOf(request.child("Password"));
    for (pugi::xml_node known : store.children("User")) {
        if (user == known.attribute("name").value() &&
            password == known.attribute("password").value()) {
            return ReplyDocument::status("ValidateUser", MarketplaceCode::Success,
                                         "Usuario válido", false);
        }
    }
    return ReplyDocument::status("ValidateUser", MarketplaceCode::WrongCredentials,
                                 "Usuario o contraseña incorrectos", false);
}

std::string BackOfficeService::catalogOperation(pugi::xml_node request, pugi::xml_node seller)
{
    requireSeller(request, seller);
    requireLicense(request, seller);
    pugi::xml_node store = requireOwnStore(m_data, seller, textOf(request.child("StoreID")));
    pugi::xml_node operations = request.child("Operations");
    if (!operations) {
        raiseError(MarketplaceCode::MalformedRequest,
                   "Solicitud mal formada: falta el elemento Operations");
    }
    ReplyDocument reply("CatalogOperation");
    reply.setResult(MarketplaceCode::Success, kSuccess);
    pugi::xml_node answers = reply.root().append_child("Operations");
    for (pugi::xml_node operation : operations.children("Operation")) {
        const std::string productId = textOf(operation.child("ZorvantaID"));
        const std::string word = textOf(operation.child("Operation"));
        const auto fault = m_faults.forItem(
            "9", {{"product", productId},
                  {"publication", operation.attribute("PublicationID").value()},
                  {"word", word}});
        const FaultEffect effect = fault ? fault->effect : FaultEffect::None;
        if (effect == FaultEffect::Omit) {
            continue;
        }
        Outcome outcome;
        if (fault && fault->code) {
            outcome = {*fault->code, fault->description};
        } else {
            outcome = apply(m_data, m_state, store, operation);
        }
        pugi::xml_node answer = answers.append_child("Operation");
        answer.append_attribute("PublicationID") = operation.attribute("PublicationID").value();
        answer.append_child("Operation").text() = word.c_str();
        answer.append_child("ZorvantaID").text() = productId.c_str();
        answer.append_child("RETURNCODE").text() = outcome.code;
        pugi::xml_node description = answer.append_child("DESCRIPTION");
        if (effect != FaultEffect::EmptyDescription) {
            description.text() = outcome.description.c_str();
        }
    }
    return reply.text(false);
}

std::string BackOfficeService::storeInfo(pugi::xml_node request, pugi::xml_node seller) const
{
    requireSeller(request, seller);
    requireLicense(request, seller);
    ReplyDocument reply("GetStoreInfo");
    reply.setResult(MarketplaceCode::Success, kSuccess);
    pugi::xml_node stores = reply.root().append_child("Stores");
    for (pugi::xml_node store : seller.children("Store")) {
        pugi::xml_node node = stores.append_child("Store");
        node.append_attribute("StoreID") = store.attribute("id").value();
        node.append_child("ProductID").text() = store.attribute("plan").value();
        node.append_child("MaxProducts").text() = store.attribute("maxProducts").value();
        node.append_child("Status").text() = store.attribute("status").value();
    }
    return reply.text(false);
}

std::string BackOfficeService::operationConfiguration() const
{
    ReplyDocument reply("OperationConfiguration");
    reply.setResult(MarketplaceCode::Success, kSuccess);
    for (pugi::xml_node product : m_data.operationLimits().children()) {
        reply.root().append_copy(product);
    }
    return reply.text(false);
}

std::string BackOfficeService::setTaxes(pugi::xml_node request, pugi::xml_node seller)
{
    requireSeller(request, seller);
    const std::string storeId = textOf(request.child("StoreID"));
    requireOwnStore(m_data, seller, storeId);
    pugi::xml_node taxes = request.child("Taxes");
    if (!taxes) {
        raiseError(MarketplaceCode::MalformedRequest,
                   "Solicitud mal formada: falta el elemento Taxes");
    }
    ReplyDocument reply("SetTaxes");
    reply.setResult(MarketplaceCode::Success, kSuccess);
    pugi::xml_node answers = reply.root().append_child("Taxes");
    std::vector<StoreTax> accepted;
    for (pugi::xml_node tax : taxes.children("Tax")) {
        StoreTax entry{textOf(tax.child("TaxID")), textOf(tax.child("AmountType")),
                       textOf(tax.child("Amount"))};
        Outcome outcome{MarketplaceCode::Success, "Impuesto registrado"};
        if (const auto fault = m_faults.forItem("16", {{"tax", entry.id}}); fault && fault->code) {
            outcome = {*fault->code, fault->description};
        } else if (blank(entry.id)) {
            outcome = {MarketplaceCode::InvalidTax, "El impuesto no tiene identificador"};
        } else if (entry.amountType != "1" && entry.amountType != "2") {
            outcome = {MarketplaceCode::InvalidTax,
                       "Tipo de monto inválido para el impuesto " + entry.id};
        } else if (!isNumber(entry.amount, true, false)) {
            outcome = {MarketplaceCode::InvalidTax, "Monto inválido para el impuesto " + entry.id};
        } else {
            accepted.push_back(entry);
        }
        pugi::xml_node answer = answers.append_child("Tax");
        answer.append_child("TaxID").text() = entry.id.c_str();
        answer.append_child("RETURNCODE").text() = outcome.code;
        answer.append_child("DESCRIPTION").text() = outcome.description.c_str();
    }
    m_state.setTaxes(storeId, std::move(accepted));
    return reply.text(false);
}

#include "sim/erp/ErpDataSet.h"

#include "platform/core/RaisedError.h"
#include "sim/erp/ErpReturnCode.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <sstream>

namespace {

std::string text(const pugi::xml_node &node, const char *attribute)
{
    return node.attribute(attribute).as_string();
}

std::optional<std::string> optionalText(const pugi::xml_node &node, const char *attribute)
{
    const pugi::xml_attribute found = node.attribute(attribute);
    if (!found) {
        return std::nullopt;
    }
    return std::string(found.value());
}

[[noreturn]] void unreadable(const std::string &path, const std::string &why)
{
    raiseError(ErpReturnCode::DataSetUnreadable,
               "Datos del ERP ilegibles en " + path + ": " + why);
}

template <typename Number>
Number number(const std::string &path, const pugi::xml_node &node, const char *attribute)
{
    const std::string value = text(node, attribute);
    Number result{};
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), result);
    if (error != std::errc() || end != value.data() + value.size()) {
        unreadable(path, std::string("el atributo ") + attribute + " de " + node.name() +
                             " no es un número: '" + value + "'");
    }
    return result;
}

std::vector<std::string> words(const std::string &list)
{
    std::vector<std::string> result;
    std::istringstream stream(list);
    for (std::string word; stream >> word;) {
        result.push_back(word);
    }
    return result;
}

} // namespace

std::shared_ptr<const ErpDataSet> ErpDataSet::current()
{
    // The file is read again only when it changes, so that a test can write a data set of its
    // own between calls while the demo pays for one parse.
    struct Cached
    {
        std::string path;
        std::filesystem::file_time_type stamp;
        std::uintmax_t size = 0;
        std::shared_ptr<const ErpDataSet> data;
    };
    static std::mutex mutex;
    static Cached cached;

    const char *variable = std::getenv("ASISTENTE_ERP_SIM_DATA");
    const std::string path =
        variable != nullptr && *variable != '\0' ? variable : ASISTENTE_ERP_SIM_DEFAULT_DATA;
    std::error_code error;
    const auto stamp = std::filesystem::last_write_time(path, error);
    const auto size = std::filesystem::file_size(path, error);
    if (error) {
        unreadable(path, error.message());
    }
    const std::lock_guard lock(mutex);
    if (cached.data == nullptr || cached.path != path || cached.stamp != stamp ||
        cached.size != size) {
        cached = Cached{path, stamp, size, load(path)};
    }
    return cached.data;
}

std::shared_ptr<const ErpDataSet> ErpDataSet::load(const std::string &path)
{
    pugi::xml_document document;
    const pugi::xml_parse_result parsed = document.load_file(path.c_str());
    if (!parsed) {
        unreadable(path, std::string(parsed.description()) + " en la posición " +
                             std::to_string(parsed.offset));
    }
    const pugi::xml_node root = document.child("Erp");
    if (!root) {
        unreadable(path, "falta el elemento Erp");
    }
    auto data = std::make_shared<ErpDataSet>();
    if (root.attribute("limiteBusqueda")) {
        data->m_searchLimit = number<std::size_t>(path, root, "limiteBusqueda");
    }

    const pugi::xml_node client = root.child("Cliente");
    data->m_client = {number<std::int32_t>(path, client, "numero"), text(client, "licencia"),
                      text(client, "clave2"), text(client, "id")};
    const pugi::xml_node database = root.child("BaseDeDatos");
    data->m_database = {text(database, "servidor"), text(database, "nombre"),
                        text(database, "usuario"), text(database, "clave")};

    for (const pugi::xml_node tax : root.child("Impuestos").children("Impuesto")) {
        data->m_taxes.push_back({text(tax, "codigo"), text(tax, "tipo"), text(tax, "cantidad"),
                                 text(tax, "tipoMonto"), text(tax, "descripcion")});
    }
    for (const pugi::xml_node deposit : root.child("Depositos").children("Deposito")) {
        data->m_deposits.push_back(
            {text(deposit, "codigo"), text(deposit, "descripcion"), text(deposit, "direccion")});
    }

    const pugi::xml_node tree = root.child("Categorias");
    data->readCategory(tree, "", text(tree, "nombre"));
    std::sort(data->m_products.begin(), data->m_products.end(),
              [](const Product &a, const Product &b) { return a.id < b.id; });
    for (std::size_t i = 0; i < data->m_products.size(); ++i) {
        if (!data->m_productIndex.emplace(data->m_products[i].id, i).second) {
            unreadable(path, "el producto " + data->m_products[i].id + " está repetido");
        }
    }

    for (const pugi::xml_node node : root.child("Fallas").children("Falla")) {
        Fault fault;
        fault.function = text(node, "funcion");
        fault.categoryId = optionalText(node, "categoria");
        fault.searchText = optionalText(node, "texto");
        fault.key = optionalText(node, "clave");
        fault.reply = optionalText(node, "respuesta");
        if (node.attribute("tipo")) {
            fault.productType = number<std::int32_t>(path, node, "tipo");
        }
        if (node.attribute("codigo")) {
            fault.code = number<std::int32_t>(path, node, "codigo");
        }
        if (node.attribute("relleno")) {
            fault.padding = number<std::size_t>(path, node, "relleno");
        }
        data->m_faults.push_back(std::move(fault));
    }
    return data;
}

void ErpDataSet::readCategory(const pugi::xml_node &node, const std::string &id,
                              const std::string &name)
{
    Category category{id, name, {}};
    for (const pugi::xml_node child : node.children()) {
        if (std::string_view(child.name()) == "Categoria") {
            const std::string childId = text(child, "id");
            category.childIds.push_back(childId);
            readCategory(child, childId, text(child, "nombre"));
        } else if (std::string_view(child.name()) == "Producto") {
            m_products.push_back({text(child, "id"), text(child, "descripcion"),
                                  text(child, "referencia"), id, text(child, "precioLista"),
                                  text(child, "precioPromocion"), text(child, "precioMayorista"),
                                  words(text(child, "impuestos"))});
        }
    }
    m_categories[id] = std::move(category);
}

const ErpDataSet::Category *ErpDataSet::category(const std::string &id) const
{
    const auto found = m_categories.find(id);
    return found == m_categories.end() ? nullptr : &found->second;
}

const ErpDataSet::Product *ErpDataSet::product(const std::string &id) const
{
    const auto found = m_productIndex.find(id);
    return found == m_productIndex.end() ? nullptr : &m_products[found->second];
}

const ErpDataSet::Tax *ErpDataSet::tax(const std::string &id) const
{
    const auto found = std::find_if(m_taxes.begin(), m_taxes.end(),
                                    [&id](const Tax &tax) { return tax.id == id; });
    return found == m_taxes.end() ? nullptr : &*found;
}

const ErpDataSet::Fault *ErpDataSet::fault(const Call &call) const
{
    const auto applies = [&call](const Fault &fault) {
        return fault.function == call.function &&
               (!fault.categoryId || *fault.categoryId == call.categoryId) &&
               (!fault.searchText || *fault.searchText == call.searchText) &&
               (!fault.key || *fault.key == call.key) &&
               (!fault.productType || *fault.productType == call.productType);
    };
    const auto found = std::find_if(m_faults.begin(), m_faults.end(), applies);
    return found == m_faults.end() ? nullptr : &*found;
}

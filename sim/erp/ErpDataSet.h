#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <vector>

/// What the ERP holds, read from an XML data file: the seller as a client, the coordinates of the
/// seller's database, the taxes, the virtual deposits, the category tree with its products, and
/// the faults the file asks the connector to show.
///
/// File shape (root `Erp`, optional attribute `limiteBusqueda`: the most products one search
/// may find before it answers 8007):
///   <Cliente numero="" licencia="" clave2="" id=""/>
///   <BaseDeDatos servidor="" nombre="" usuario="" clave=""/>
///   <Impuestos><Impuesto codigo="" tipo="G|L" cantidad="" tipoMonto="0|1" descripcion=""/>
///   <Depositos><Deposito codigo="" descripcion="" direccion=""/>
///   <Categorias nombre="root name"> nested <Categoria id="" nombre=""> holding <Producto id=""
///       descripcion="" referencia="" precioLista="" precioPromocion="" precioMayorista=""
///       impuestos="space-separated tax codes"/>; products directly under Categorias belong to
///       the root category, whose id is empty.
///   <Fallas><Falla funcion="" [categoria=""] [texto=""] [clave=""] [tipo=""]
///       [codigo=""] [respuesta=""] [relleno=""]/>
class ErpDataSet
{
public:
    struct Client
    {
        std::int32_t number = 0;
        std::string license;
        std::string secondKey;
        std::string id;
    };

    struct Database
    {
        std::string server;
        std::string name;
        std::string user;
        std::string password;
    };

    struct Tax
    {
        std::string id;
        std::string type;
        std::string quantity;
        std::string amountType;
        std::string description;
    };

    struct Deposit
    {
        std::string id;
        std::string description;
        std::string address;
    };

    struct Category
    {
        std::string id;
        std::string name;
        std::vector<std::string> childIds;
    };

    /// The three prices go out as Precio1, Precio2 and Precio3: list, promotional, wholesale.
    struct Product
    {
        std::string id;
        std::string description;
        std::string reference;
        std::string categoryId;
        std::string listPrice;
        std::string promotionalPrice;
        std::string wholesalePrice;
        std::vector<std::string> taxIds;
    };

    /// A call the file makes misbehave. It applies to the calls of `function` whose arguments
    /// equal every selector given. `reply` replaces the reply text; otherwise the usual reply
    /// is padded inside its root element with `padding` characters.
    struct Fault
    {
        std::string function;
        std::optional<std::string> categoryId;
        std::optional<std::string> searchText;
        std::optional<std::string> key;
        std::optional<std::int32_t> productType;
        std::optional<std::int32_t> code;
        std::optional<std::string> reply;
        std::size_t padding = 0;
    };

    /// The arguments of one call, as fault selectors see them.
    struct Call
    {
        std::string function;
        std::string categoryId;
        std::string searchText;
        std::string key;
        std::int32_t productType = 0;
    };

    /// The data set of ASISTENTE_ERP_SIM_DATA (a file path), or of the demo file when it is
    /// unset. Kept between calls while the file stays the same. Raises DataSetUnreadable.
    static std::shared_ptr<const ErpDataSet> current();

    /// Reads one data file. Raises DataSetUnreadable with the parser's message.
    static std::shared_ptr<const ErpDataSet> load(const std::string &path);

    const Client &client() const { return m_client; }
    const Database &database() const { return m_database; }
    const std::vector<Tax> &taxes() const { return m_taxes; }
    const std::vector<Deposit> &deposits() const { return m_deposits; }
    /// Every product, ordered by id.
    const std::vector<Product> &products() const { return m_products; }
    /// The most products a search may find; none when the file sets no limit.
    std::optional<std::size_t> searchLimit() const { return m_searchLimit; }

    /// nullptr when no category, product or tax has that id. The root category's id is empty.
    const Category *category(const std::string &id) const;
    const Product *product(const std::string &id) const;
    const Tax *tax(const std::string &id) const;

    /// The first fault that applies to the call, or nullptr.
    const Fault *fault(const Call &call) const;

private:
    void readCategory(const pugi::xml_node &node, const std::string &id, const std::string &name);

    Client m_client;
    Database m_database;
    std::vector<Tax> m_taxes;
    std::vector<Deposit> m_deposits;
    std::map<std::string, Category> m_categories;
    std::vector<Product> m_products;
    std::map<std::string, std::size_t> m_productIndex;
    std::optional<std::size_t> m_searchLimit;
    std::vector<Fault> m_faults;
};

#include "sim/erp/ErpService.h"

#include "platform/core/RaisedError.h"
#include "sim/erp/ErpReturnCode.h"
#include "sim/erp/PageCursor.h"
#include "sim/erp/ReplyWriter.h"
#include "sim/erp/SearchMatcher.h"

#include <algorithm>

namespace {

enum ProductType : std::int32_t { All = 0, Associated = 1, Published = 2, Pending = 3 };

void requireValid(bool valid, const std::string &what)
{
    if (!valid) {
        raiseError(ErpReturnCode::InvalidArgument, "Argumento inválido: " + what);
    }
}

void requirePaging(std::int32_t productType, std::int32_t querySize, std::int32_t direction)
{
    requireValid(productType >= All && productType <= Pending,
                 "tipo de producto " + std::to_string(productType));
    requireValid(querySize > 0, "tamaño de consulta " + std::to_string(querySize));
    requireValid(direction == 0 || direction == 1, "dirección " + std::to_string(direction));
}

// Row numbers sort as numbers when they have the same width.
std::string numericKey(const std::string &id)
{
    const bool digits =
        !id.empty() && id.size() < 12 &&
        std::all_of(id.begin(), id.end(), [](char c) { return c >= '0' && c <= '9'; });
    return digits ? std::string(12 - id.size(), '0') + id : id;
}

template <typename Item, typename Key>
std::vector<std::string> keysOf(const std::vector<Item> &items, Key key)
{
    std::vector<std::string> keys;
    keys.reserve(items.size());
    for (const Item &item : items) {
        keys.push_back(key(item));
    }
    return keys;
}

void writeTax(ReplyWriter &writer, const ErpDataSet::Tax &tax)
{
    writer.open("Impuesto", {{"CodigoImpuesto", tax.id}});
    writer.leaf("DescripcionImpuesto", tax.description);
    writer.leaf("TipoImpuesto", tax.type);
    writer.leaf("Cantidad", tax.quantity);
    writer.leaf("TipoMonto", tax.amountType);
    writer.close();
}

void writeSummary(ReplyWriter &writer, const ErpDataSet::Product &product)
{
    writer.leaf("CodigoDovel", product.id);
    writer.leaf("Descripcion", product.description);
    // A product without a reference has no element at all, as the ERP leaves it out.
    if (!product.reference.empty()) {
        writer.leaf("Referencia", product.reference);
    }
}

void writeSellerSummary(ReplyWriter &writer, std::int32_t productType,
                        const SellerDatabase::Record &record)
{
    writer.leaf("CodigoAsociacion", record.associationId);
    if (productType != Associated) {
        writer.leaf("CodigoPublicacion", record.publicationId);
    }
    writer.leaf("CodigoZorvanta", record.marketplaceId);
    if (productType != Associated) {
        writer.leaf("StoreID", record.storeId);
        writer.leaf("Estado", record.state);
        writer.leaf("FechaPublicacion", record.date);
    }
}

void writeAttributes(ReplyWriter &writer, const char *element, const std::string &xml)
{
    writer.open(element);
    writer.raw(xml);
    writer.close();
}

void writeProductList(ReplyWriter &writer, std::int32_t productType, std::size_t begin,
                      std::size_t end, const auto &lines)
{
    writer.open("Productos", {{"NumeroProductos", std::to_string(end - begin)}});
    for (std::size_t i = begin; i < end; ++i) {
        writer.open("Producto");
        writeSummary(writer, *lines[i].product);
        if (lines[i].record) {
            writeSellerSummary(writer, productType, *lines[i].record);
        }
        writer.close();
    }
    writer.close();
}

void pad(std::string &reply, std::size_t padding)
{
    if (padding == 0) {
        return;
    }
    const std::size_t closing = reply.rfind("</");
    const std::string filler = "<Relleno>" + std::string(padding, 'x') + "</Relleno>";
    reply.insert(closing == std::string::npos ? reply.size() : closing, filler);
}

} // namespace

ErpService::ErpService(std::shared_ptr<const ErpDataSet> data) : m_data(std::move(data)) {}

ErpFields ErpService::clientIdentity() const
{
    const ErpDataSet::Client &client = m_data->client();
    return fieldsWithFaults("ObtenerIDCliente",
                            {0, client.number, {client.license, client.secondKey, client.id}});
}

ErpFields ErpService::databaseCoordinates() const
{
    const ErpDataSet::Database &database = m_data->database();
    return fieldsWithFaults(
        "ObtenerDataBase",
        {0, 0, {database.server, database.name, database.user, database.password}});
}

ErpAnswer ErpService::virtualDeposits(std::int32_t querySize, std::string_view position,
                                      std::int32_t direction) const
{
    return withFaults({"ListarDepositosVirtuales", "", "", "", 0}, [&] {
        requirePaging(All, querySize, direction);
        std::vector<ErpDataSet::Deposit> deposits = m_data->deposits();
        std::sort(deposits.begin(), deposits.end(),
                  [](const auto &a, const auto &b) { return a.id < b.id; });
        const PageCursor page(keysOf(deposits, [](const auto &deposit) { return deposit.id; }),
                              position, direction == 0, querySize);
        const std::unique_ptr<SellerDatabase> database = sellerDatabase();

        ReplyWriter writer("ListarDepositosVirtuales");
        for (std::size_t i = page.begin(); i < page.end(); ++i) {
            writer.open("DepositoVirtual", {{"Codigo", deposits[i].id}});
            writer.leaf("Descripcion", deposits[i].description);
            if (!deposits[i].address.empty()) {
                writer.leaf("DireccionFisica", deposits[i].address);
            }
            const std::string store =
                database == nullptr ? std::string() : database->storeLinkedTo(deposits[i].id);
            if (!store.empty()) {
                writer.leaf("Minitienda", store);
            }
            writer.close();
        }
        return ErpAnswer{0, writer.finish(), page.position(),
                         static_cast<std::int32_t>(page.size())};
    });
}

ErpAnswer ErpService::categoryContents(std::int32_t productType, const std::string &categoryId,
                                       std::int32_t querySize, std::string_view position,
                                       std::int32_t direction,
                                       const std::string &ministoreId) const
{
    return withFaults({"ObtenerContenidoCategoria", categoryId, "", "", productType}, [&] {
        requirePaging(productType, querySize, direction);
        const ErpDataSet::Category *category = m_data->category(categoryId);
        if (category == nullptr) {
            raiseError(ErpReturnCode::CategoryNotFound, "No existe la categoría " + categoryId);
        }
        const auto found = lines(productType, ministoreId, [&](const auto &product) {
            return product.categoryId == categoryId;
        });
        const auto keys = keysOf(found, [](const Line &line) { return line.key; });
        const PageCursor page(keys, position, direction == 0, querySize);

        ReplyWriter writer("ObtenerContenidoCategoria");
        writer.empty("CategoriaActual", {{"nombre", category->name}, {"id", category->id}});
        writer.open("Categorias");
        for (const std::string &childId : category->childIds) {
            writer.empty("Categoria",
                         {{"nombre", m_data->category(childId)->name}, {"id", childId}});
        }
        writer.close();
        writeProductList(writer, productType, page.begin(), page.end(), found);
        // Running out of products is told by 6007 alone, whatever the direction.
        return ErpAnswer{page.empty() ? ErpReturnCode::CategoryExhausted : ErpReturnCode::Success,
                         writer.finish(), page.position(), static_cast<std::int32_t>(page.size())};
    });
}

ErpAnswer ErpService::productSearch(std::int32_t productType, std::int32_t queryType,
                                    const std::string &searchText, std::int32_t querySize,
                                    std::string_view lastId, std::int32_t direction,
                                    const std::string &ministoreId) const
{
    return withFaults({"BusquedaProductosIndividual", "", searchText, "", productType}, [&] {
        requirePaging(productType, querySize, direction);
        requireValid(queryType >= 1 && queryType <= 3,
                     "tipo de búsqueda " + std::to_string(queryType));
        const SearchMatcher matcher(static_cast<SearchMatcher::Field>(queryType), searchText);
        const auto found = lines(productType, ministoreId,
                                 [&](const auto &product) { return matcher.matches(product); });
        const auto keys = keysOf(found, [](const Line &line) { return line.key; });
        const bool forward = direction == 0;
        const PageCursor page(keys, lastId, forward, querySize);

        std::int32_t code = ErpReturnCode::Success;
        if (found.empty()) {
            code = ErpReturnCode::NothingFound;
        } else if (m_data->searchLimit() && found.size() > *m_data->searchLimit()) {
            code = ErpReturnCode::SearchTooBroad;
        } else if (page.atStart() && page.atEnd() && !page.empty()) {
            code = ErpReturnCode::WholeList;
        } else if (forward && page.atEnd()) {
            code = ErpReturnCode::EndOfList;
        } else if (!forward && page.atStart()) {
            code = ErpReturnCode::StartOfList;
        }
        ReplyWriter writer("BusquedaProductosIndividual");
        writeProductList(writer, productType, page.begin(), page.end(), found);
        return ErpAnswer{code, writer.finish(), page.position(),
                         static_cast<std::int32_t>(page.size())};
    });
}

ErpAnswer ErpService::productDefinition(std::int32_t productType, const std::string &key,
                                        const std::string &ministoreId) const
{
    return withFaults({"ObtenerDefinicionProducto", "", "", key, productType}, [&] {
        requireValid(productType >= All && productType <= Pending,
                     "tipo de producto " + std::to_string(productType));
        std::optional<SellerDatabase::Record> record;
        std::string productId = key;
        if (productType != All) {
            const std::unique_ptr<SellerDatabase> database = sellerDatabase();
            if (database == nullptr) {
                raiseError(ErpReturnCode::SellerDatabaseMissing,
                           "No existe la base de datos del vendedor " +
                               SellerDatabase::pathFor(m_data->database().name));
            }
            const std::size_t bar = key.rfind('|');
            if (productType == Associated) {
                record = database->association(key);
            } else if (productType == Published) {
                record = database->publication(key, ministoreId);
            } else if (bar != std::string::npos) {
                record = database->pendingOperation(key.substr(0, bar), key.substr(bar + 1),
                                                    ministoreId);
            }
            if (!record) {
                raiseError(ErpReturnCode::SellerRecordNotFound,
                           "No existe el registro " + key + " del tipo " +
                               std::to_string(productType) + " en la minitienda '" + ministoreId +
                               "'");
            }
            productId = record->erpProductId;
        }
        const ErpDataSet::Product *product = m_data->product(productId);
        if (product == nullptr) {
            raiseError(ErpReturnCode::ProductNotFound, "No existe el producto " + productId);
        }

        ReplyWriter writer("ObtenerDefinicionProducto");
        writeSummary(writer, *product);
        writer.leaf("Precio1", product->listPrice);
        writer.leaf("Precio2", product->promotionalPrice);
        writer.leaf("Precio3", product->wholesalePrice);
        writer.open("Impuestos");
        for (const std::string &taxId : product->taxIds) {
            if (const ErpDataSet::Tax *tax = m_data->tax(taxId)) {
                writeTax(writer, *tax);
            }
        }
        writer.close();
        if (record) {
            writeSellerSummary(writer, productType, *record);
            writer.leaf("FechaAsociacion", record->associationDate);
            writeAttributes(writer, "AtributosCaracteristicos", record->associationAttributes);
        }
        if (record && productType == Pending) {
            writer.leaf("NumeroError", record->errorNumber.value_or("0"));
            writer.leaf("MensajeError", record->errorMessage);
        }
        if (record && productType != Associated) {
            writeAttributes(writer, "AtributosNoCaracteristicos", record->attributes);
        }
        return ErpAnswer{0, writer.finish(), std::nullopt, 1};
    });
}

ErpAnswer ErpService::taxes() const
{
    return withFaults({"ObtenerImpuestos", "", "", "", 0}, [&] {
        ReplyWriter writer("ObtenerImpuestos");
        for (const ErpDataSet::Tax &tax : m_data->taxes()) {
            writeTax(writer, tax);
        }
        return ErpAnswer{0, writer.finish(), std::nullopt,
                         static_cast<std::int32_t>(m_data->taxes().size())};
    });
}

ErpAnswer ErpService::withFaults(const ErpDataSet::Call &call,
                                 const std::function<ErpAnswer()> &usual) const
{
    const ErpDataSet::Fault *fault = m_data->fault(call);
    if (fault != nullptr && fault->reply) {
        return ErpAnswer{fault->code.value_or(0), *fault->reply, std::nullopt, 0};
    }
    ErpAnswer answer = usual();
    if (fault != nullptr) {
        answer.code = fault->code.value_or(answer.code);
        pad(answer.reply, fault->padding);
    }
    return answer;
}

ErpFields ErpService::fieldsWithFaults(const std::string &function, ErpFields fields) const
{
    if (const ErpDataSet::Fault *fault = m_data->fault({function, "", "", "", 0})) {
        fields.code = fault->code.value_or(fields.code);
        for (std::string &text : fields.strings) {
            text.append(fault->padding, 'x');
        }
    }
    return fields;
}

std::vector<ErpService::Line> ErpService::lines(std::int32_t productType,
                                                const std::string &ministoreId,
                                                const ProductFilter &wanted) const
{
    std::vector<Line> result;
    if (productType == All) {
        for (const ErpDataSet::Product &product : m_data->products()) {
            if (wanted(product)) {
                result.push_back({product.id, &product, std::nullopt});
            }
        }
        return result;
    }
    const std::unique_ptr<SellerDatabase> database = sellerDatabase();
    if (database == nullptr) {
        return result;
    }
    // Associated products are never narrowed to a ministore; the other two lists are.
    const auto records = productType == Associated  ? database->associations()
                         : productType == Published ? database->publications(ministoreId)
                                                    : database->pendingOperations(ministoreId);
    for (const SellerDatabase::Record &record : records) {
        const ErpDataSet::Product *product = m_data->product(record.erpProductId);
        if (product == nullptr || !wanted(*product)) {
            continue;
        }
        std::string key =
            productType == Associated ? numericKey(record.associationId)
            : productType == Published
                ? numericKey(record.publicationId)
                : record.date + "/" + numericKey(record.publicationId) + "/" + record.state;
        result.push_back({std::move(key), product, record});
    }
    std::sort(result.begin(), result.end(),
              [](const Line &a, const Line &b) { return a.key < b.key; });
    return result;
}

std::unique_ptr<SellerDatabase> ErpService::sellerDatabase() const
{
    return SellerDatabase::open(m_data->database().name);
}

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

class SellerProduct;
class XmlNode;
class ZorvantaMinistore;

/// One line of an ERP product list, as DovelCategory and ProductBrowser hold them: a
/// SellerProduct for the list of all products, or a line of a layer above (an association, a
/// publication) for the seller's own lists. Which kind a list holds is told by its
/// `productType`, and each kind is made by the factory registered for that type.
class ProductLine
{
public:
    /// Makes the line of `productType` for a `Producto` node: creates it, gives it the node,
    /// and sets what that kind takes from the list (a publication: its type and the list's
    /// ministore, which may be nullptr).
    using Factory = std::function<std::shared_ptr<ProductLine>(
        const XmlNode &node, std::int16_t productType,
        const std::shared_ptr<ZorvantaMinistore> &ministore)>;

    virtual ~ProductLine() = default;

    /// Fills the line from a `Producto` node of a list, or from the document element of an
    /// `ObtenerDefinicionProducto` reply. Failures are reported by the line itself.
    virtual void setXml(const XmlNode &node) = 0;
    /// The ERP product the line stands for: the line itself, or the product it holds. Never
    /// nullptr.
    virtual std::shared_ptr<SellerProduct> sellerProduct() = 0;
    virtual std::int32_t ClassDebugID() const = 0;

    /// Makes `productType` lines with `factory` from now on. Type 0 makes SellerProduct lines
    /// from the start.
    static void registerFactory(std::int16_t productType, Factory factory);
    /// The line of `productType` for `node`; nullptr when no factory makes that type, and the
    /// list then adds nothing.
    static std::shared_ptr<ProductLine> make(std::int16_t productType, const XmlNode &node,
                                             const std::shared_ptr<ZorvantaMinistore> &ministore);

protected:
    /// What the ERP answered to one ObtenerDefinicionProducto call.
    struct Definition
    {
        std::int32_t code = 0;
        std::string reply;
    };
    /// Asks the ERP for the detail behind `key` with a fresh reply buffer; every kind of line
    /// reads its detail this way, with its own type, key and ministore.
    static Definition readDefinition(std::int32_t productType, const std::string &key,
                                     const std::string &ministoreId);
};

#pragma once

#include "catalogue/ProductLine.h"
#include "catalogue/SellerProduct.h"
#include "catalogue/ZorvantaProduct.h"

#include <QDateTime>
#include <cstdint>
#include <memory>
#include <string>

class XmlNode;

/// An ERP product bound to a marketplace product, with the values the seller chose for the
/// marketplace product's characteristic properties: one row of WIPRODASOC. A list of
/// associated products gives its id, its ERP product's summary and the marketplace product's
/// id; the date and the values are read from the ERP on first need. It also stands for its ERP
/// product wherever a SellerProduct is shown (the SellerProduct_ members and sellerProduct()).
class AssociatedProduct : public ProductLine
{
public:
    using Values = ZorvantaProduct::Values;

    AssociatedProduct();

    /// IdPrdAsociado as text: from a list or a detail, or after CreateAssociation; empty before.
    const std::string &associationId() const { return m_associationId; }
    /// When the association was made; reads the detail from the ERP first when it is not read.
    QDateTime associationDate();
    /// The ERP product; an empty one is made on first use, so never nullptr.
    std::shared_ptr<SellerProduct> theSellerProduct();
    /// The marketplace product; nullptr until a list line or a page gives one.
    const std::shared_ptr<ZorvantaProduct> &theZorvantaProduct() const { return m_zorvantaProduct; }
    void setSellerProd(std::shared_ptr<SellerProduct> product);
    void setZorvantaProd(std::shared_ptr<ZorvantaProduct> product);
    /// Every characteristic value of the association, fixed and variant, keyed by property id
    /// when read from the ERP. While none are held, reading asks the ERP for the detail; values
    /// set here are never overwritten by it. nullptr when the detail could not be read.
    std::shared_ptr<Values> variantattributes();
    /// Pages give values whose definition says whether each is variant.
    void setVariantattributes(std::shared_ptr<Values> values);

    /// Takes a `Producto` line of a list (id, marketplace product, and the ERP side), the
    /// `ObtenerDefinicionProducto` element of a detail (date and values too), or an
    /// `AtributosCaracteristicos` element alone (values only). The line's part is read once,
    /// the detail once. A missing element is reported (-10500); a value of a property the
    /// marketplace product does not have is fatal.
    void setXml(const XmlNode &node) override;
    std::shared_ptr<SellerProduct> sellerProduct() override { return theSellerProduct(); }
    std::int32_t ClassDebugID() const override { return m_classDebugId; }

    /// Writes the association as a new row of WIPRODASOC and keeps its id and date. Needs the
    /// ERP product, the marketplace product and the values. A row of the same two products
    /// whose values are all found, equal, among these refuses it (-10000, shown); a stored row
    /// that is not well-formed XML refuses it too (-10501). A database failure, an apostrophe
    /// in a value included, is fatal (-11000). Whatever happened, the caller is not told, and
    /// no row is written unless all went well.
    void CreateAssociation();
    /// Deletes this association's row. Refused (-10001, shown) while any publication of it
    /// exists, whatever its state; a database failure is fatal (-11000).
    void RemoveAssociation();
    /// Whether `other`, a stored association, is the same as this new one: the same ERP and
    /// marketplace products, and each value of `other` found under its property in this one
    /// with the same display text (case and decimal separator count). Two associations
    /// without values are the same; a stored one without values is not the same as a new one
    /// with some. False, after reporting, on a failure.
    bool isContained(AssociatedProduct &other);

    /// The members of the ERP product, each handed on to theSellerProduct().
    const std::string &SellerProduct_dovelID() { return theSellerProduct()->dovelID(); }
    void setSellerProduct_dovelID(std::string dovelID)
    {
        theSellerProduct()->setDovelID(std::move(dovelID));
    }
    const std::string &SellerProduct_Description() { return theSellerProduct()->Description(); }
    const std::string &SellerProduct_Reference() { return theSellerProduct()->Reference(); }
    const std::string &SellerProduct_price1() { return theSellerProduct()->price1(); }
    const std::string &SellerProduct_price2() { return theSellerProduct()->price2(); }
    const std::string &SellerProduct_price3() { return theSellerProduct()->price3(); }
    std::shared_ptr<SellerProduct::Taxes> SellerProduct_taxes()
    {
        return theSellerProduct()->taxes();
    }
    void setSellerProduct_xml(const XmlNode &node) { theSellerProduct()->setXml(node); }
    std::int32_t SellerProduct_ClassDebugID() { return theSellerProduct()->ClassDebugID(); }

private:
    void readSummary(const XmlNode &node);
    void readAssociationDate(const XmlNode &node);
    void readValues(const XmlNode &node);
    void getDetailInformation();
    /// The attribute text as the table keeps it: the fixed values, then the variant ones.
    std::string attributeText();
    /// Whether a row of WIPRODASOC, given by its attribute text, is this same association.
    bool isStored(const std::string &attributes);
    const std::string &marketplaceId() const;

    std::int32_t m_classDebugId;
    std::string m_associationId;
    QDateTime m_associationDate;
    std::shared_ptr<SellerProduct> m_sellerProduct;
    std::shared_ptr<ZorvantaProduct> m_zorvantaProduct;
    std::shared_ptr<Values> m_values;
    bool m_summaryRead = false;
    bool m_detailRead = false;
};

#pragma once

#include "catalogue/ProductLine.h"
#include "catalogue/ZorvantaProduct.h"
#include "publication/AssociatedProduct.h"

#include <QDateTime>
#include <cstdint>
#include <memory>
#include <string>

class Connection;
class XmlNode;
class ZorvantaMinistore;

/// One publication: an association offered in one ministore, with the values of its
/// non-characteristic properties. It lives in WIPRODPUBL (what exists, state L, P or K) and
/// WIPRODPEND (what the send run still has to do: I publish, A modify, E withdraw). Publishing,
/// modifying and withdrawing only change these two tables; the send run takes them further.
///
/// A line of the published (type 2) or pending (type 3) list gives the number, state and date;
/// the values, the last error and the association's detail are read from the ERP on first
/// need. Every member reports its own failures and then returns its type's default.
class PublishedProduct : public ProductLine
{
public:
    using Values = ZorvantaProduct::Values;

    PublishedProduct();

    /// IdPrdPublicado as text; empty until a list line or CreatePublication gives it.
    const std::string &publicationId() const { return m_publicationId; }
    /// The moment of the last local act: set by CreatePublication, or read from the ERP.
    const QDateTime &publicationDate() const { return m_publicationDate; }
    /// The letter the list line carried: L, P or K for a publication, I, A or E for a pending
    /// operation; empty when the line had none.
    const std::string &state() const { return m_state; }
    /// The text of the pending operation's last failure; reads the detail first.
    std::string errorMsg();
    /// The code of the pending operation's last failure, read once from WIPRODPEND by number and
    /// date unless the detail already gave it. 0, after reporting, when the row is gone, its
    /// code is Null or it does not fit 16 bits.
    std::int16_t ErrorNumber();
    /// Which detail the ERP is asked for: 2 (the publication, the initial value) or 3 (the
    /// pending operation at publicationDate); any other reads no detail.
    std::int16_t publicationType() const { return m_publicationType; }
    void setPublicationType(std::int16_t type) { m_publicationType = type; }
    /// The association published; an empty one is made on first use, so never nullptr.
    std::shared_ptr<AssociatedProduct> associatedProd();
    void setAssociatedProd(std::shared_ptr<AssociatedProduct> association);
    /// The store of the publication; the ERP's detail is asked for in this store.
    const std::shared_ptr<ZorvantaMinistore> &ministore() const { return m_ministore; }
    void setMinistore(std::shared_ptr<ZorvantaMinistore> ministore);
    /// The values of the non-characteristic properties, keyed by property id. While none are
    /// held, reading asks the ERP for the detail first. nullptr after a failed reading.
    std::shared_ptr<Values> nonCharateristicAttributes();
    void setNonCharateristicAttributes(std::shared_ptr<Values> values);

    /// Takes a `Producto` line of a list or the `ObtenerDefinicionProducto` element of a detail.
    /// The line's part (number, state, date) is read once, the detail (date for type 2, last
    /// error, values) once; the node then goes to the association as well. A missing element
    /// is reported (-10500); a value of a property the marketplace product no longer has is
    /// fatal.
    void setXml(const XmlNode &node) override;
    /// The attribute text the tables keep: `<Properties>` then `<VariantProperties>`, every
    /// value in the second when the marketplace product has any variant property and in the
    /// first otherwise; decimals with a point. Empty, after reporting, on a failure.
    std::string xml();
    std::shared_ptr<SellerProduct> sellerProduct() override;
    std::int32_t ClassDebugID() const override { return m_classDebugId; }

    /// Writes a new publication in state L with its pending I row, in one transaction, and
    /// keeps its number and date. Needs the association (with its id), the ministore and the
    /// values. A database failure (an apostrophe in a value included) is fatal (-11000) and
    /// leaves neither row.
    void CreatePublication();
    /// Asks for the values to be sent again. A publication still local (L) is withdrawn and
    /// published anew, so it gets a new number, date and I row; otherwise the pending A or E row
    /// is replaced by an A row with these values. Refused (-10006, shown) while a withdrawal is
    /// pending; a database failure is fatal (-11000).
    void UpdatePublication();
    /// Withdraws the publication: a local one (L) disappears from both tables; otherwise the
    /// pending A or E row is replaced by an E row. A database failure is fatal (-11000).
    void RemovePublication();

    /// The members of the association, each handed on to associatedProd().
    void setAssociatedProduct_zorvantaProd(std::shared_ptr<ZorvantaProduct> product)
    {
        associatedProd()->setZorvantaProd(std::move(product));
    }
    void setAssociatedProduct_sellerProd(std::shared_ptr<SellerProduct> product)
    {
        associatedProd()->setSellerProd(std::move(product));
    }
    std::shared_ptr<SellerProduct> AssociatedProduct_theSellerProduct()
    {
        return associatedProd()->theSellerProduct();
    }
    std::shared_ptr<Values> AssociatedProduct_variantattributes()
    {
        return associatedProd()->variantattributes();
    }
    void setAssociatedProduct_variantattributes(std::shared_ptr<Values> values)
    {
        associatedProd()->setVariantattributes(std::move(values));
    }
    void setAssociatedProduct_xml(const XmlNode &node) { associatedProd()->setXml(node); }
    std::int32_t AssociatedProduct_ClassDebugID() { return associatedProd()->ClassDebugID(); }
    std::shared_ptr<ZorvantaProduct> AssociatedProduct_theZorvantaProduct()
    {
        return associatedProd()->theZorvantaProduct();
    }
    QDateTime AssociatedProduct_associationDate() { return associatedProd()->associationDate(); }
    std::string AssociatedProduct_associationId() { return associatedProd()->associationId(); }
    bool AssociatedProduct_isContained(AssociatedProduct &other)
    {
        return associatedProd()->isContained(other);
    }
    void AssociatedProduct_RemoveAssociation() { associatedProd()->RemoveAssociation(); }
    void AssociatedProduct_CreateAssociation() { associatedProd()->CreateAssociation(); }

private:
    void readHeader(const XmlNode &node);
    void readDetail(const XmlNode &node);
    void readValues(const XmlNode &attributes, const XmlNode &node);
    void getDetailInformation();
    /// The state in WIPRODPUBL, or empty when the publication has no row.
    std::string storedState(Connection &connection);
    /// Deletes the pending A or E row of a publication sent before, ahead of its replacement.
    void deletePendingChange(Connection &connection);
    const std::string &storeId() const;

    std::int32_t m_classDebugId;
    std::string m_publicationId;
    QDateTime m_publicationDate;
    std::string m_state;
    std::string m_errorMsg;
    std::int16_t m_errorNumber = -1;
    std::int16_t m_publicationType = 2;
    std::shared_ptr<AssociatedProduct> m_associatedProd;
    std::shared_ptr<ZorvantaMinistore> m_ministore;
    std::shared_ptr<Values> m_values;
    bool m_headerRead = false;
    bool m_detailRead = false;
};

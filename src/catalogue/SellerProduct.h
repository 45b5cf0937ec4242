#pragma once

#include "catalogue/ProductLine.h"
#include "shell/Collection.h"

#include <cstdint>
#include <memory>
#include <string>

class SellerTax;

/// One product of the seller's ERP. A list gives its code, description and reference; its
/// prices and taxes are read from the ERP the first time one of them is asked for, so that a
/// list costs no call per product. Made with std::make_shared, as every line of a list is.
class SellerProduct : public ProductLine, public std::enable_shared_from_this<SellerProduct>
{
public:
    using Taxes = Collection<std::shared_ptr<SellerTax>>;

    SellerProduct();

    /// The product's code in the ERP.
    const std::string &dovelID() const { return m_dovelID; }
    void setDovelID(std::string dovelID) { m_dovelID = std::move(dovelID); }
    /// May be empty.
    const std::string &Description() const { return m_description; }
    /// Empty when the ERP gives none.
    const std::string &Reference() const { return m_reference; }
    /// The three prices exactly as the ERP wrote them. A failed read of the detail is reported
    /// and gives what was there (empty texts); the next read asks the ERP again.
    const std::string &price1();
    const std::string &price2();
    const std::string &price3();
    /// Not keyed; nullptr when the detail could not be read.
    std::shared_ptr<Taxes> taxes();

    /// Reads the summary (CodigoDovel, Descripcion, Referencia) from a `Producto` node or a
    /// detail reply, and the detail (prices, taxes) from an `ObtenerDefinicionProducto`
    /// element; each part once only. A failure is reported (-10500) and leaves the rest.
    void setXml(const XmlNode &node) override;
    std::shared_ptr<SellerProduct> sellerProduct() override { return shared_from_this(); }
    std::int32_t ClassDebugID() const override { return m_classDebugId; }

private:
    void readSummary(const XmlNode &node);
    void readDetail(const XmlNode &node);
    void getDetailInformation();

    std::int32_t m_classDebugId;
    std::string m_dovelID;
    std::string m_description;
    std::string m_reference;
    std::string m_price1;
    std::string m_price2;
    std::string m_price3;
    std::shared_ptr<Taxes> m_taxes;
    bool m_summaryRead = false;
    bool m_detailRead = false;
};

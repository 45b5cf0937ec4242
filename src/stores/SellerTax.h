#pragma once

#include <cstdint>
#include <string>

class XmlNode;

/// One of the seller's taxes, as the ERP describes it.
class SellerTax
{
public:
    SellerTax();

    /// Fills the tax from one Impuesto node of the ERP's reply. A node without its code or its
    /// amount is reported (-10500) and leaves the tax with what was read before the gap.
    void setXml(const XmlNode &node);
    /// The tax as a product's request names it: a general tax by its id alone, a local one with
    /// its amount, fixed (AmountType 1) or a percentage (2). Empty for an unknown type.
    std::string xml() const;

    std::int32_t ClassDebugID() const { return m_classDebugId; }
    const std::string &id() const { return m_id; }
    /// "G" (general) or "L" (local).
    const std::string &taxType() const { return m_taxType; }
    /// The amount, kept as the ERP wrote it.
    const std::string &quantity() const { return m_quantity; }
    /// 0 or 1.
    std::int16_t amountType() const { return m_amountType; }
    const std::string &Description() const { return m_description; }

private:
    std::int32_t m_classDebugId;
    std::string m_id;
    std::string m_taxType;
    std::string m_quantity;
    std::int16_t m_amountType = 0;
    std::string m_description;
};

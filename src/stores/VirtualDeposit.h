#pragma once

#include <cstdint>
#include <memory>
#include <string>

class XmlNode;
class ZorvantaMinistore;

/// A warehouse of the ERP. A ministore publishes from exactly one deposit and a deposit feeds at
/// most one ministore; the link is a row of WITIENDAS in the seller's database.
class VirtualDeposit
{
public:
    VirtualDeposit();

    /// Fills the deposit from its node of the ERP's list. A node without its code or its
    /// description is reported (-10500); a linked ministore the marketplace did not report is
    /// fatal (-11004).
    void setXml(const XmlNode &node);

    /// Links the deposit with `ministore` in WITIENDAS. Reports -10002 when the ministore is
    /// linked already, -10003 when the deposit is, and a database failure as -11000.
    void CreateAssociation();
    /// Removes the link and forgets the ministore. Reports -10004, removing nothing, while the
    /// ministore has publications, and a database failure as -11000.
    void RemoveAssociation();

    std::int32_t ClassDebugID() const { return m_classDebugId; }
    /// The linked ministore, or the one to link; null when there is none.
    const std::shared_ptr<ZorvantaMinistore> &ministore() const { return m_ministore; }
    void setMinistore(std::shared_ptr<ZorvantaMinistore> ministore)
    {
        m_ministore = std::move(ministore);
    }
    const std::string &Description() const { return m_description; }
    /// The deposit's code in the ERP.
    const std::string &id() const { return m_id; }
    /// Possibly empty.
    const std::string &address() const { return m_address; }

private:
    const ZorvantaMinistore &linkedMinistore() const;

    std::int32_t m_classDebugId;
    std::shared_ptr<ZorvantaMinistore> m_ministore;
    std::string m_description;
    std::string m_id;
    std::string m_address;
};

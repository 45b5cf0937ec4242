#pragma once

#include "gateways/BackOfficeSession.h"
#include "shell/Collection.h"

#include <cstdint>
#include <memory>
#include <string>

class VirtualDeposit;
class ZorvantaMinistore;

/// The seller's ministores and virtual deposits, each keyed by its id.
using Ministores = Collection<std::shared_ptr<ZorvantaMinistore>>;
using VirtualDeposits = Collection<std::shared_ptr<VirtualDeposit>>;

/// The seller running the assistant: the ERP's customer, with the coordinates of its database
/// and its session with the back office. One instance, gSeller, made at its first use.
class Seller : public BackOfficeSession
{
public:
    /// Reads the client data and the database coordinates from the ERP.
    Seller();
    /// Forgets the session without closing it: the main window closes it when it goes.
    ~Seller() override;

    std::int32_t ClassDebugID() const { return m_classDebugId; }
    // The seven texts the ERP gives. After a failed read they keep the ERP's buffers as they
    // stood: 256 NUL characters, or the first call's values followed by NUL.

    /// First client key given by the ERP.
    const std::string &license() const { return m_license; }
    /// The seller's id in the marketplace.
    const std::string &id() const { return m_id; }
    const std::string &server() const { return m_server; }
    const std::string &database() const { return m_database; }
    const std::string &user() const { return m_user; }
    const std::string &password() const { return m_password; }

    /// The text every database operation opens its connection with.
    std::string connectionString() const;

    /// The open session's id; opens one when none is open. 0, after reporting, when opening
    /// fails.
    std::int32_t sessionId() override;
    /// Closes the session if one is open.
    void closeSession() override;
    bool isSessionStarted() const { return m_sessionStarted; }

    /// The seller's ministores: the stores the catalogue service names, each completed by its
    /// node of the back office's reply. Read once and kept; an empty list is read again at the
    /// next call. Null, after reporting, on a failure; the stores read before it stay, and a
    /// later call gives them back.
    std::shared_ptr<Ministores> ministores();
    /// The reading half of ministores: takes the stores of the catalogue service's
    /// GetSellerInformation reply, completing each from the back office. Raises what ministores
    /// reports.
    void readMinistores(const std::string &storeText);
    /// The first page (50) of the ERP's virtual deposits, each with the ministore it feeds.
    /// Read once and kept like ministores; null, after reporting, on a failure.
    std::shared_ptr<VirtualDeposits> virtualDeposits();

private:
    void GetClientInfo();

    std::int32_t m_classDebugId;
    std::shared_ptr<Ministores> m_ministores;
    std::shared_ptr<VirtualDeposits> m_virtualDeposits;
    std::string m_license;
    std::string m_clientKey2;
    std::int32_t m_clientNumber = 0;
    std::string m_id;
    std::string m_server;
    std::string m_database;
    std::string m_user;
    std::string m_password;
    std::int32_t m_sessionId = 0;
    bool m_sessionStarted = false;
};

/// gSeller: made at its first use, then the same object for the whole run.
class SellerInstance
{
public:
    Seller *operator->() { return &get(); }
    Seller &operator*() { return get(); }
    /// Whether it has been made yet (closing the session on unload must not make it).
    bool exists() const { return m_seller != nullptr; }
    /// Drops the instance, so the next use makes a new one.
    void reset() { m_seller.reset(); }

private:
    Seller &get();
    std::unique_ptr<Seller> m_seller;
};

extern SellerInstance gSeller;

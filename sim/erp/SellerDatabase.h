#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

struct sqlite3;

/// The seller's tables as the ERP reads them: the store linked to each deposit (WITIENDAS),
/// and the associations, publications and pending operations (WIPRODASOC, WIPRODPUBL,
/// WIPRODPEND), each joined with its association. The file is opened read-only for one call.
class SellerDatabase
{
public:
    /// One association, publication or pending operation; the publication's fields stay empty
    /// for an association. Dates come as "yyyy-MM-dd hh:mm:ss".
    struct Record
    {
        std::string associationId;
        std::string erpProductId;
        std::string marketplaceId;
        std::string associationAttributes;
        std::string associationDate;
        std::string publicationId;
        std::string storeId;
        std::string state;
        std::string attributes;
        std::string date;
        std::optional<std::string> errorNumber;
        std::string errorMessage;
    };

    /// The embedded file of a database name, as the program's database layer places it; empty
    /// for a name that cannot be a file.
    static std::string pathFor(const std::string &databaseName);

    /// Opens the file of the database name, with the server's text collation. nullptr when the
    /// file does not exist; raises
    /// SellerDatabaseFailed with SQLite's message when it cannot be opened.
    static std::unique_ptr<SellerDatabase> open(const std::string &databaseName);

    ~SellerDatabase();
    SellerDatabase(const SellerDatabase &) = delete;
    SellerDatabase &operator=(const SellerDatabase &) = delete;

    /// Every read below raises SellerDatabaseFailed with SQLite's message on failure.
    /// The ministore linked to a deposit, or an empty text.
    std::string storeLinkedTo(const std::string &depositId);
    std::vector<Record> associations();
    /// Publications or pending operations of one store, or of all when storeId is empty.
    std::vector<Record> publications(const std::string &storeId);
    std::vector<Record> pendingOperations(const std::string &storeId);

    std::optional<Record> association(const std::string &associationId);
    std::optional<Record> publication(const std::string &publicationId,
                                      const std::string &storeId);
    /// The pending operation of a publication made at the given date, in any written form.
    std::optional<Record> pendingOperation(const std::string &publicationId,
                                           const std::string &date, const std::string &storeId);

    /// "y-M-d h:m:s" with or without padding as "yyyy-MM-dd hh:mm:ss"; any other text as it is.
    static std::string normalisedDate(const std::string &date);

private:
    explicit SellerDatabase(sqlite3 *db) : m_db(db) {}
    std::vector<Record> records(const std::string &sql, const std::vector<std::string> &values);

    sqlite3 *m_db;
};

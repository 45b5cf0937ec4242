#include "sim/erp/SellerDatabase.h"

#include "platform/core/RaisedError.h"
#include "platform/db/EmbeddedDatabase.h"
#include "platform/db/ServerCollation.h"
#include "sim/erp/ErpReturnCode.h"

#include <cstdio>
#include <filesystem>
#include <sqlite3.h>

namespace {

// The association's columns come last in every query, so that one reader serves all three.
constexpr const char *kAssociationColumns =
    "a.IdPrdAsociado, a.IdPrdDovel, a.IdPrdZorvanta, a.Atributos, a.FechaAsociado";
constexpr const char *kPublicationColumns =
    "p.IdPrdPublicado, p.IdTienda, p.Estado, p.Atributos, p.FechaPublicado, ";

std::string publicationQuery(const char *table, const char *errorColumns)
{
    return std::string("SELECT ") + kPublicationColumns + errorColumns + kAssociationColumns +
           " FROM " + table + " p JOIN WIPRODASOC a ON a.IdPrdAsociado = p.IdPrdAsociado";
}

const std::string kAssociations = std::string("SELECT '', '', '', '', '', NULL, '', ") +
                                  kAssociationColumns + " FROM WIPRODASOC a";
const std::string kPublications = publicationQuery("WIPRODPUBL", "NULL, '', ");
const std::string kPendingOperations = publicationQuery("WIPRODPEND", "p.Error, p.MsgErr, ");

[[noreturn]] void failed(sqlite3 *db, const std::string &what)
{
    raiseError(ErpReturnCode::SellerDatabaseFailed,
               "Error en la base de datos del vendedor al " + what + ": " + sqlite3_errmsg(db));
}

class Statement
{
public:
    Statement(sqlite3 *db, const std::string &sql, const std::vector<std::string> &values)
        : m_db(db)
    {
        if (sqlite3_prepare_v2(db, sql.c_str(), -1, &m_statement, nullptr) != SQLITE_OK) {
            failed(db, "preparar '" + sql + "'");
        }
        for (std::size_t i = 0; i < values.size(); ++i) {
            sqlite3_bind_text(m_statement, static_cast<int>(i + 1), values[i].c_str(), -1,
                              SQLITE_TRANSIENT);
        }
    }
    ~Statement() { sqlite3_finalize(m_statement); }
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    bool next()
    {
        const int step = sqlite3_step(m_statement);
        if (step != SQLITE_ROW && step != SQLITE_DONE) {
            failed(m_db, "leer");
        }
        return step == SQLITE_ROW;
    }
    bool isNull(int column) const
    {
        return sqlite3_column_type(m_statement, column) == SQLITE_NULL;
    }
    std::string text(int column) const
    {
        const unsigned char *value = sqlite3_column_text(m_statement, column);
        return value == nullptr ? std::string() : reinterpret_cast<const char *>(value);
    }

private:
    sqlite3 *m_db;
    sqlite3_stmt *m_statement = nullptr;
};

} // namespace

std::string SellerDatabase::pathFor(const std::string &databaseName)
{
    return embeddedDatabasePath(databaseName).string();
}

std::unique_ptr<SellerDatabase> SellerDatabase::open(const std::string &databaseName)
{
    const std::string path = pathFor(databaseName);
    std::error_code error;
    if (path.empty() || !std::filesystem::exists(path, error)) {
        return nullptr;
    }
    sqlite3 *db = nullptr;
    const int opened = openEmbeddedDatabase(path, true, &db);
    std::unique_ptr<SellerDatabase> database(new SellerDatabase(db));
    if (opened != SQLITE_OK) {
        failed(db, "abrir " + path);
    }
    // The text columns are declared in the server's collation: without it no query runs.
    if (registerServerCollation(db) != SQLITE_OK) {
        failed(db, "registrar la intercalación de " + path);
    }
    // The program may be writing at the same moment; wait for it as a reader would.
    sqlite3_busy_timeout(db, 5000);
    return database;
}

SellerDatabase::~SellerDatabase()
{
    sqlite3_close(m_db);
}

std::string SellerDatabase::storeLinkedTo(const std::string &depositId)
{
    Statement statement(m_db, "SELECT IdTienda FROM WITIENDAS WHERE IDDepoVDOVEL = ?1",
                        {depositId});
    return statement.next() ? statement.text(0) : std::string();
}

std::vector<SellerDatabase::Record> SellerDatabase::associations()
{
    return records(kAssociations, {});
}

std::vector<SellerDatabase::Record> SellerDatabase::publications(const std::string &storeId)
{
    if (storeId.empty()) {
        return records(kPublications, {});
    }
    return records(kPublications + " WHERE p.IdTienda = ?1", {storeId});
}

std::vector<SellerDatabase::Record> SellerDatabase::pendingOperations(const std::string &storeId)
{
    if (storeId.empty()) {
        return records(kPendingOperations, {});
    }
    return records(kPendingOperations + " WHERE p.IdTienda = ?1", {storeId});
}

std::optional<SellerDatabase::Record> SellerDatabase::association(const std::string &associationId)
{
    auto found = records(kAssociations + " WHERE a.IdPrdAsociado = ?1", {associationId});
    return found.empty() ? std::nullopt : std::optional(std::move(found.front()));
}

std::optional<SellerDatabase::Record> SellerDatabase::publication(const std::string &publicationId,
                                                                  const std::string &storeId)
{
    const std::string sql = kPublications + " WHERE p.IdPrdPublicado = ?1";
    auto found = storeId.empty() ? records(sql, {publicationId})
                                 : records(sql + " AND p.IdTienda = ?2", {publicationId, storeId});
    return found.empty() ? std::nullopt : std::optional(std::move(found.front()));
}

std::optional<SellerDatabase::Record>
SellerDatabase::pendingOperation(const std::string &publicationId, const std::string &date,
                                 const std::string &storeId)
{
    const std::string sql = kPendingOperations + " WHERE p.IdPrdPublicado = ?1";
    const auto candidates = storeId.empty()
                                ? records(sql, {publicationId})
                                : records(sql + " AND p.IdTienda = ?2", {publicationId, storeId});
    const std::string wanted = normalisedDate(date);
    for (const Record &record : candidates) {
        if (record.date == wanted) {
            return record;
        }
    }
    return std::nullopt;
}

std::string SellerDatabase::normalisedDate(const std::string &date)
{
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, used = 0;
    if (std::sscanf(date.c_str(), "%d-%d-%d %d:%d:%d%n", &year, &month, &day, &hour, &minute,
                    &second, &used) != 6 ||
        static_cast<std::size_t>(used) != date.size()) {
        return date;
    }
    char text[80];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", year, month, day, hour,
                  minute, second);
    return text;
}

std::vector<SellerDatabase::Record> SellerDatabase::records(const std::string &sql,
                                                            const std::vector<std::string> &values)
{
    std::vector<Record> result;
    Statement statement(m_db, sql, values);
    while (statement.next()) {
        Record record;
        record.publicationId = statement.text(0);
        record.storeId = statement.text(1);
        record.state = statement.text(2);
        record.attributes = statement.text(3);
        record.date = normalisedDate(statement.text(4));
        if (!statement.isNull(5)) {
            record.errorNumber = statement.text(5);
        }
        record.errorMessage = statement.text(6);
        record.associationId = statement.text(7);
        record.erpProductId = statement.text(8);
        record.marketplaceId = statement.text(9);
        record.associationAttributes = statement.text(10);
        record.associationDate = normalisedDate(statement.text(11));
        result.push_back(std::move(record));
    }
    return result;
}

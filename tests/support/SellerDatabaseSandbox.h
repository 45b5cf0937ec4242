#pragma once

#include "platform/db/Connection.h"
#include "platform/db/EmbeddedDatabase.h"
#include "platform/db/ServerCollation.h"

#include <cstdlib>
#include <filesystem>
#include <sqlite3.h>
#include <string>
#include <unistd.h>
#include <vector>

/// The demo seller's embedded database "AsistenteDemo" in a data directory of its own, made by
/// the same code as asistente-db and removed with the directory when the sandbox goes. The
/// test arranges and reads its rows through the program's own database layer.
class SellerDatabaseSandbox
{
public:
    SellerDatabaseSandbox()
    {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "asistente-seller-XXXXXX").string();
        m_dir = mkdtemp(pattern.data());
        setenv("ASISTENTE_DATA_DIR", m_dir.c_str(), 1);
        unsetenv("ASISTENTE_SQL_DRIVER");
        createEmbeddedDatabase(embeddedDatabasePath("AsistenteDemo"));
    }
    ~SellerDatabaseSandbox()
    {
        unsetenv("ASISTENTE_DATA_DIR");
        std::error_code ignored;
        std::filesystem::remove_all(m_dir, ignored);
    }
    SellerDatabaseSandbox(const SellerDatabaseSandbox &) = delete;
    SellerDatabaseSandbox &operator=(const SellerDatabaseSandbox &) = delete;

    /// Runs one statement written by the test.
    void execute(const Sql &statement)
    {
        Connection connection;
        connection.open(kConnectionString, 15);
        connection.execute(statement);
    }
    /// The rows of a query, each as its fields joined with '|'.
    std::vector<std::string> rows(const Sql &query)
    {
        Connection connection;
        connection.open(kConnectionString, 15);
        Recordset found = connection.execute(query);
        std::vector<std::string> rows;
        for (; !found.eof(); found.moveNext()) {
            std::string row;
            for (int field = 0; field < found.fieldCount(); ++field)
                row += (field == 0 ? "" : "|") + found.fieldText(field);
            rows.push_back(row);
        }
        return rows;
    }

    /// Every row of the four tables, each as "TABLE|field|field...", in key order: what a fault
    /// must leave unchanged or changed as a whole.
    std::vector<std::string> allRows()
    {
        const std::pair<const char *, Sql> tables[] = {
            {"WITIENDAS", Sql("SELECT * FROM WITIENDAS ORDER BY IdTienda")},
            {"WIPRODASOC", Sql("SELECT * FROM WIPRODASOC ORDER BY IdPrdAsociado")},
            {"WIPRODPUBL", Sql("SELECT * FROM WIPRODPUBL ORDER BY IdPrdPublicado")},
            {"WIPRODPEND", Sql("SELECT * FROM WIPRODPEND ORDER BY IdPrdPublicado, Estado")}};
        std::vector<std::string> all;
        for (const auto &[table, query] : tables) {
            for (const std::string &row : rows(query))
                all.push_back(std::string(table) + "|" + row);
        }
        return all;
    }

    /// What PRAGMA integrity_check answers, read through a connection of its own: "ok" for a
    /// sound file, else the engine's findings or the reason it could not look.
    std::string integrity() const
    {
        sqlite3 *db = nullptr;
        std::string answer;
        // The indexes are ordered by the server's collation: the check needs it to read them.
        const std::string file = (m_dir / "AsistenteDemo.sqlite3").string();
        if (sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK &&
            registerServerCollation(db) == SQLITE_OK) {
            sqlite3_exec(
                db, "PRAGMA integrity_check",
                [](void *out, int, char **values, char **) {
                    *static_cast<std::string *>(out) += values[0] ? values[0] : "NULL";
                    return 0;
                },
                &answer, nullptr);
        }
        if (answer.empty())
            answer = sqlite3_errmsg(db);
        sqlite3_close(db);
        return answer;
    }

    const std::filesystem::path &dir() const { return m_dir; }

    /// How the program reaches this database.
    static constexpr const char *kConnectionString =
        "Driver={SQL Server};Server=localhost;Uid=vendedor;Pwd=demo;Database=AsistenteDemo";

private:
    std::filesystem::path m_dir;
};

#pragma once

#include "platform/db/Connection.h"
#include "platform/db/EmbeddedDatabase.h"

#include <cstdlib>
#include <filesystem>
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

    const std::filesystem::path &dir() const { return m_dir; }

    /// How the program reaches this database.
    static constexpr const char *kConnectionString =
        "Driver={SQL Server};Server=localhost;Uid=vendedor;Pwd=demo;Database=AsistenteDemo";

private:
    std::filesystem::path m_dir;
};

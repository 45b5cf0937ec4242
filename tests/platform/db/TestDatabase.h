#pragma once

#include "platform/db/EmbeddedDatabase.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

/// A data directory of its own holding the seller's embedded database "Vendedor", made by
/// the same code as asistente-db; removed with everything in it when it goes.
class TestDatabase
{
public:
    TestDatabase()
    {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "asistente-db-XXXXXX").string();
        m_dir = mkdtemp(pattern.data());
        setenv("ASISTENTE_DATA_DIR", m_dir.c_str(), 1);
        unsetenv("ASISTENTE_SQL_DRIVER");
        createEmbeddedDatabase(embeddedDatabasePath("Vendedor"));
    }
    ~TestDatabase()
    {
        unsetenv("ASISTENTE_DATA_DIR");
        std::filesystem::remove_all(m_dir);
    }

    const std::filesystem::path &dir() const { return m_dir; }

    /// The connection string as the program builds it.
    static std::string connectionString(const std::string &database = "Vendedor")
    {
        return "Driver={SQL Server};Server=servidor;Uid=usuario;Pwd=clave;Database=" + database;
    }

private:
    std::filesystem::path m_dir;
};

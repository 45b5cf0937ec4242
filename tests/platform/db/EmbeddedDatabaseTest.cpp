#include "SellerDatabaseSandbox.h"

#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>

namespace {

// Runs asistente-db with the data dir given; its exit status and what it printed.
std::pair<int, std::string> runTool(const std::filesystem::path &dataDir, const std::string &args)
{
    const std::string command = "ASISTENTE_DATA_DIR='" + dataDir.string() + "' '" +
                                ASISTENTE_DB_TOOL + "' " + args + " 2>&1";
    FILE *pipe = popen(command.c_str(), "r");
    std::string output;
    char buffer[256];
    while (fgets(buffer, sizeof buffer, pipe))
        output += buffer;
    return {WEXITSTATUS(pclose(pipe)), output};
}

// "TABLE.Column;" for every column of the server's script, in its order.
std::string serverColumns()
{
    std::ifstream file(std::string(DB_SCHEMA_DIR) + "/schema-sqlserver.sql");
    std::stringstream text;
    text << file.rdbuf();
    const std::string script = text.str();
    const std::regex line(R"(CREATE TABLE (\w+)|\n    (\w+) +[A-Z])");
    std::string columns, table;
    for (std::sregex_iterator it(script.begin(), script.end(), line), end; it != end; ++it) {
        if ((*it)[1].matched)
            table = (*it)[1];
        else if ((*it)[2] != "PRIMARY")
            columns += table + "." + (*it)[2].str() + ";";
    }
    return columns;
}

} // namespace

TEST(EmbeddedDatabaseTest, theEmbeddedTablesHaveTheServersColumns)
{
    SellerDatabaseSandbox data;
    const auto rows = data.rows(Sql("SELECT group_concat(m.name || '.' || p.name || ';', '') FROM "
                                     "sqlite_master m, pragma_table_info(m.name) p WHERE m.name "
                                     "IN ('WITIENDAS', 'WIPRODASOC', 'WIPRODPUBL', 'WIPRODPEND')"));
    EXPECT_EQ(rows, std::vector{serverColumns()});
}

TEST(EmbeddedDatabaseTest, initMakesTheDatabaseOnceOrExplainsWhyItCannot)
{
    SellerDatabaseSandbox data;
    const auto file = data.dir() / "sandbox" / "Tienda.sqlite3";
    EXPECT_EQ(runTool(data.dir() / "sandbox", "init Tienda"),
              std::pair(0, "Base de datos creada: " + file.string() + "\n"));
    EXPECT_EQ(runTool(data.dir() / "sandbox", "init Tienda"),
              std::pair(0, "Base de datos al día: " + file.string() + "\n"));

    std::ofstream(data.dir() / "fichero") << "no es un directorio";
    std::ofstream(data.dir() / "Roto.sqlite3") << "esto no es una base de datos, aunque lo parezca";
    EXPECT_EQ(runTool(data.dir() / "fichero", "init Tienda").first, 1);
    EXPECT_EQ(runTool(data.dir(), "").first, 2);
    const auto [status, says] = runTool(data.dir(), "init Roto");
    EXPECT_EQ(status, 1);
    EXPECT_NE(says.find("no se pudo preparar la base de datos: file is not a database"),
              std::string::npos)
        << says;
}

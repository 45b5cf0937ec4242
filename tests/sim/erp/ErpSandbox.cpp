#include "ErpSandbox.h"

#include "platform/db/EmbeddedDatabase.h"
#include "platform/db/ServerCollation.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sstream>

ErpSandbox::ErpSandbox()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "erp-sim-XXXXXX").string();
    m_directory = mkdtemp(pattern.data());
    setenv("ASISTENTE_ERP_SIM_DATA", dataFile().c_str(), 1);
    setenv("ASISTENTE_DATA_DIR", m_directory.c_str(), 1);
}

ErpSandbox::~ErpSandbox()
{
    unsetenv("ASISTENTE_ERP_SIM_DATA");
    unsetenv("ASISTENTE_DATA_DIR");
    std::filesystem::remove_all(m_directory);
}

void ErpSandbox::writeData(const std::string &catalogue, const std::string &faults,
                           const std::string &rootAttributes)
{
    std::ostringstream read;
    read << std::ifstream(ERP_SANDBOX_DATA).rdbuf();
    std::string text = read.str();
    const auto replace = [&text](const std::string &from, const std::string &to) {
        text.replace(text.find(from), from.size(), to);
    };
    replace("<Erp>", "<Erp " + rootAttributes + ">");
    replace("<Categorias nombre='Catálogo general'/>",
            "<Categorias nombre='Catálogo general'>" + catalogue + "</Categorias>");
    replace("<Fallas/>", "<Fallas>" + faults + "</Fallas>");
    writeRawData(text);
}

void ErpSandbox::writeRawData(const std::string &text)
{
    std::ofstream(dataFile(), std::ios::trunc) << text;
}

void ErpSandbox::createSellerTables()
{
    createEmbeddedDatabase(embeddedDatabasePath("AsistenteDemo"));
}

void ErpSandbox::execute(const std::string &sql)
{
    sqlite3 *db = nullptr;
    const std::string path = m_directory + "/AsistenteDemo.sqlite3";
    ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
    ASSERT_EQ(registerServerCollation(db), SQLITE_OK);
    char *message = nullptr;
    const int result = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &message);
    const std::string why = message == nullptr ? "" : message;
    sqlite3_free(message);
    sqlite3_close(db);
    ASSERT_EQ(result, SQLITE_OK) << why;
}

std::string ErpSandbox::products(int count, const std::string &prefix,
                                 const std::string &description)
{
    std::string xml;
    for (int i = 1; i <= count; ++i) {
        const std::string number = std::to_string(i);
        const std::string id =
            prefix + std::string(4 - std::min<std::size_t>(4, number.size()), '0') + number;
        xml += "<Producto id='" + id + "' descripcion='" + description + " " + std::to_string(i) +
               "' referencia='R" + std::to_string(i) +
               "' precioLista='10.00' precioPromocion='9.00' precioMayorista='8.00' "
               "impuestos='IVA'/>";
    }
    return xml;
}

#include "ErpSandbox.h"

#include "platform/db/EmbeddedDatabase.h"
#include "platform/db/ServerCollation.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sqlite3.h>

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
    writeRawData(
        "<?xml version='1.0' encoding='UTF-8'?>\n<Erp " + rootAttributes +
        ">\n"
        "<Cliente numero='4711' licencia='NUB-LIC-2026-0042' clave2='QK-7F3A9C' id='V1042'/>\n"
        "<BaseDeDatos servidor='localhost' nombre='AsistenteDemo' usuario='vendedor' "
        "clave='demo'/>\n"
        "<Impuestos>"
        "<Impuesto codigo='IVA' tipo='G' cantidad='16' tipoMonto='0' descripcion='IVA general'/>"
        "<Impuesto codigo='ISE' tipo='L' cantidad='5' tipoMonto='0' descripcion='Selectivo'/>"
        "<Impuesto codigo='ECO' tipo='L' cantidad='1.50' tipoMonto='1' descripcion='Reciclaje'/>"
        "</Impuestos>\n"
        "<Depositos>"
        "<Deposito codigo='DV-01' descripcion='Depósito central' direccion='Valencia'/>"
        "<Deposito codigo='DV-02' descripcion='Almacén principal' direccion='Caracas'/>"
        "<Deposito codigo='DV-03' descripcion='En tránsito' direccion='Puerto Cabello'/>"
        "<Deposito codigo='DV-04' descripcion='Devoluciones'/>"
        "</Depositos>\n"
        "<Categorias nombre='Catálogo general'>" +
        catalogue + "</Categorias>\n<Fallas>" + faults + "</Fallas>\n</Erp>\n");
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

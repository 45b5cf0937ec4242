// asistente-db init <Database>: makes <data dir>/<Database>.sqlite3 with the four tables of
// the seller's database, where they are missing.

#include "platform/core/RaisedError.h"
#include "platform/db/EmbeddedDatabase.h"

#include <filesystem>
#include <iostream>
#include <string>

namespace {

int usage()
{
    std::cerr << "uso: asistente-db init <base de datos>\n"
                 "Crea <directorio de datos>/<base de datos>.sqlite3 con sus cuatro tablas; el\n"
                 "directorio de datos es ASISTENTE_DATA_DIR o, sin ella, el directorio actual.\n";
    return 2;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3 || std::string(argv[1]) != "init")
        return usage();
    const std::string database = argv[2];
    const auto file = embeddedDatabasePath(database);
    if (file.empty()) {
        std::cerr << "asistente-db: el nombre de base de datos «" << database << "» no es válido\n";
        return 1;
    }
    const bool existed = std::filesystem::exists(file);
    try {
        createEmbeddedDatabase(file);
    } catch (const RaisedError &error) {
        std::cerr << "asistente-db: no se pudo preparar la base de datos: " << error.description()
                  << '\n';
        return 1;
    }
    std::cout << (existed ? "Base de datos al día: " : "Base de datos creada: ") << file.string()
              << '\n';
    return 0;
}

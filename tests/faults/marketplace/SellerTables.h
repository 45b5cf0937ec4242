#pragma once

#include "SellerDatabaseSandbox.h"
#include "platform/db/EmbeddedDatabase.h"
#include "platform/db/ServerCollation.h"

#include <sqlite3.h>
#include <string>
#include <vector>

/// The seller's four tables in a sandbox database: a few rows in each, for a fault to put at
/// risk, and everything they hold afterwards.
class SellerTables
{
public:
    explicit SellerTables(SellerDatabaseSandbox &database) : m_database(database) {}

    /// Two linked ministores, an association published in both, one publication waiting.
    void fill()
    {
        m_database.execute(Sql("INSERT INTO WITIENDAS (IdTienda, Descrip, IDDepoVDOVEL) VALUES "
                               "('100', 'Tienda principal', 'DV-01')"));
        m_database.execute(Sql("INSERT INTO WITIENDAS (IdTienda, Descrip, IDDepoVDOVEL) VALUES "
                               "('200', 'Liquidación', 'DV-02')"));
        m_database.execute(Sql("INSERT INTO WIPRODASOC (IdPrdDovel, IdPrdZorvanta, Atributos) "
                               "VALUES ('P-0001', 'ZP-3101', '<Attributes/>')"));
        m_database.execute(Sql("INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado, "
                               "Atributos) VALUES (1, '100', 'K', '<Attributes/>')"));
        m_database.execute(Sql("INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado, "
                               "Atributos) VALUES (1, '200', 'L', '<Attributes/>')"));
        m_database.execute(Sql("INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, "
                               "Estado, Atributos) VALUES (2, 1, '200', 'I', '<Attributes/>')"));
    }

    /// Every row of the four tables, each as "TABLE|field|field...", in key order.
    std::vector<std::string> rows() const
    {
        std::vector<std::string> all;
        const auto add = [&](const char *table, const std::vector<std::string> &rows) {
            for (const std::string &row : rows)
                all.push_back(std::string(table) + "|" + row);
        };
        add("WITIENDAS", m_database.rows(Sql("SELECT * FROM WITIENDAS ORDER BY IdTienda")));
        add("WIPRODASOC", m_database.rows(Sql("SELECT * FROM WIPRODASOC ORDER BY IdPrdAsociado")));
        add("WIPRODPUBL", m_database.rows(Sql("SELECT * FROM WIPRODPUBL ORDER BY IdPrdPublicado")));
        add("WIPRODPEND",
            m_database.rows(Sql("SELECT * FROM WIPRODPEND ORDER BY IdPrdPublicado, Estado")));
        return all;
    }

    /// What the engine says of the file: "ok" when it is whole.
    std::string integrity() const
    {
        sqlite3 *handle = nullptr;
        std::string verdict = "cannot open";
        // The tables' keys use the program's collation: the check must know it.
        if (openEmbeddedDatabase(embeddedDatabasePath("AsistenteDemo"), true, &handle) ==
                SQLITE_OK &&
            registerServerCollation(handle) == SQLITE_OK) {
            verdict.clear();
            sqlite3_exec(
                handle, "PRAGMA integrity_check",
                [](void *text, int, char **values, char **) {
                    *static_cast<std::string *>(text) += values[0] ? values[0] : "";
                    return 0;
                },
                &verdict, nullptr);
        }
        sqlite3_close(handle);
        return verdict;
    }

private:
    SellerDatabaseSandbox &m_database;
};

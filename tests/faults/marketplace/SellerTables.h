#pragma once

#include "SellerDatabaseSandbox.h"

/// A few rows in each of the seller's four tables, for a fault to put at risk: two linked
/// ministores, an association published in both, one publication waiting.
inline void fillSellerTables(SellerDatabaseSandbox &database)
{
    database.execute(Sql("INSERT INTO WITIENDAS (IdTienda, Descrip, IDDepoVDOVEL) VALUES "
                         "('100', 'Tienda principal', 'DV-01')"));
    database.execute(Sql("INSERT INTO WITIENDAS (IdTienda, Descrip, IDDepoVDOVEL) VALUES "
                         "('200', 'Liquidación', 'DV-02')"));
    database.execute(Sql("INSERT INTO WIPRODASOC (IdPrdDovel, IdPrdZorvanta, Atributos) "
                         "VALUES ('P-0001', 'ZP-3101', '<Attributes/>')"));
    database.execute(Sql("INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado, "
                         "Atributos) VALUES (1, '100', 'K', '<Attributes/>')"));
    database.execute(Sql("INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado, "
                         "Atributos) VALUES (1, '200', 'L', '<Attributes/>')"));
    database.execute(Sql("INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, "
                         "Estado, Atributos) VALUES (2, 1, '200', 'I', '<Attributes/>')"));
}

#include "publication/PendingPublications.h"

#include "platform/db/Connection.h"
#include "stores/NumberText.h"

std::int16_t PendingPublications::count(Connection &connection, const std::string &storeId)
{
    Recordset counted = connection.execute(
        Sql() << "SELECT COUNT(P.IdPrdPublicado) FROM WIPRODPEND P, WIPRODASOC A WHERE "
                 "P.IdTienda = '"
              << sqlText(storeId) << "' AND P.IdPrdAsociado =  A.IdPrdAsociado");
    const std::int16_t total = toInt16(counted.fieldNumber(0));
    counted.close();
    return total;
}

std::vector<dbPublication> PendingPublications::read(Connection &connection,
                                                     const std::string &storeId)
{
    Recordset found = connection.execute(
        Sql() << "SELECT P.IdPrdPublicado, P.FechaPublicado,  A.IdPrdDovel, P.Estado, "
                 "P.Atributos, A.Atributos, A.IdPrdZorvanta FROM WIPRODPEND P, WIPRODASOC A "
                 "WHERE P.IdTienda = '"
              << sqlText(storeId)
              << "' AND P.IdPrdAsociado =  A.IdPrdAsociado ORDER BY FechaPublicado");
    std::vector<dbPublication> rows;
    for (; !found.eof(); found.moveNext()) {
        dbPublication row;
        row.publicationId = toInt16(found.fieldNumber(0));
        row.publicationDate = found.fieldText(1);
        row.dovelID = found.fieldText(2);
        row.status = found.fieldText(3);
        if (row.status != "E")
            row.nonCharacteristicAttributes = found.fieldText(4);
        row.characteristicAttributes = found.fieldText(5);
        row.zorvantaId = found.fieldText(6);
        rows.push_back(std::move(row));
    }
    found.close();
    return rows;
}

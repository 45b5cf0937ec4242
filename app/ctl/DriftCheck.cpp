#include "DriftCheck.h"

#include "platform/db/Connection.h"
#include "platform/db/Sql.h"
#include "shell/Constants.h"
#include "shell/ErrorHandling.h"
#include "stores/DatabaseFailure.h"
#include "stores/Seller.h"

#include <QDateTime>
#include <algorithm>
#include <charconv>
#include <map>
#include <vector>

namespace {

const char *wordOf(const std::string &letter)
{
    if (letter == "I")
        return "Publicar";
    if (letter == "A")
        return "Actualizar";
    return "Despublicar";
}

/// Each query gives the store in field 0 and the publication in field 1; `describe` writes the
/// line of one row.
struct Anomaly
{
    SqlFragment query;
    std::string (*describe)(const Recordset &row);
};

const Anomaly kAnomalies[] = {
    {"SELECT P.IdTienda, P.IdPrdPublicado FROM WIPRODPUBL P WHERE P.Estado = 'P' AND NOT EXISTS "
     "(SELECT 1 FROM WIPRODPEND D WHERE D.IdPrdPublicado = P.IdPrdPublicado) "
     "ORDER BY P.IdTienda, P.IdPrdPublicado",
     [](const Recordset &row) {
         const std::string number = row.fieldText(1);
         return "Publicación " + number +
                " en proceso (P) sin nada pendiente: la feria la rechazó o agotó sus reintentos "
                "y ningún envío volverá a mandarla. Para reintentarla: asistentectl deriva "
                "--reencolar " +
                number;
     }},
    {"SELECT D.IdTienda, D.IdPrdPublicado, D.Estado, D.IdPrdAsociado FROM WIPRODPEND D WHERE "
     "NOT EXISTS (SELECT 1 FROM WIPRODASOC A WHERE A.IdPrdAsociado = D.IdPrdAsociado) "
     "ORDER BY D.IdTienda, D.IdPrdPublicado, D.Estado",
     [](const Recordset &row) {
         return std::string(wordOf(row.fieldText(2))) + " de la publicación " + row.fieldText(1) +
                " pendiente sin su asociación " + row.fieldText(3) +
                ", que fue eliminada: el envío no la manda ni la cuenta, y quedará pendiente "
                "para siempre. Despublique la publicación o vuelva a asociar el producto.";
     }},
    {"SELECT D.IdTienda, D.IdPrdPublicado, D.Estado FROM WIPRODPEND D WHERE NOT EXISTS "
     "(SELECT 1 FROM WITIENDAS T WHERE T.IdTienda = D.IdTienda) "
     "ORDER BY D.IdTienda, D.IdPrdPublicado, D.Estado",
     [](const Recordset &row) {
         return std::string(wordOf(row.fieldText(2))) + " de la publicación " + row.fieldText(1) +
                " pendiente en una minitienda que ya no está asociada a ningún depósito "
                "virtual: ningún envío pasa por ella. Vuelva a asociarla a un depósito para "
                "enviarla.";
     }},
    {"SELECT E.IdTienda, E.IdPrdPublicado FROM WIPRODPEND E, WIPRODPEND A WHERE "
     "E.IdPrdPublicado = A.IdPrdPublicado AND E.Estado = 'E' AND A.Estado = 'A' "
     "ORDER BY E.IdTienda, E.IdPrdPublicado",
     [](const Recordset &row) {
         return "Publicación " + row.fieldText(1) +
                " con una modificación y una despublicación pendientes a la vez: el envío "
                "manda las dos en orden de fecha, y si la despublicación va primero la "
                "modificación fallará. Despublíquela otra vez para dejar sólo la "
                "despublicación.";
     }},
};

} // namespace

int DriftCheck::show()
{
    // Lines by store, in the order of the anomalies above.
    std::map<std::string, std::vector<std::string>> found;
    Connection connection;
    const bool read = withHandler(
        "DriftCheck:show",
        [&] {
            connection.open(gSeller->connectionString(), 15);
            for (const Anomaly &anomaly : kAnomalies) {
                Recordset rows = connection.execute(Sql(anomaly.query));
                for (; !rows.eof(); rows.moveNext())
                    found[rows.fieldText(0)].push_back(anomaly.describe(rows));
                rows.close();
            }
            connection.close();
            return true;
        },
        [&] { applyDatabaseFailureRule(connection, "DriftCheck:show:"); });
    if (!read)
        return 3;
    if (found.empty()) {
        m_out << "Sin desvíos: las tablas y lo que enviará el próximo envío coinciden\n";
        return 0;
    }
    for (const auto &[store, lines] : found) {
        m_out << "Minitienda " << store << ":\n";
        for (const std::string &line : lines)
            m_out << "  " << line << "\n";
    }
    return 1;
}

int DriftCheck::requeue(const std::string &publication)
{
    int number = 0;
    const char *end = publication.data() + publication.size();
    if (publication.empty() || std::from_chars(publication.data(), end, number).ptr != end ||
        number <= 0) {
        m_errors << "El número de publicación no es válido: " << publication << std::endl;
        return 1;
    }
    std::string refusal;
    std::string store;
    Connection connection;
    const bool written = withHandler(
        "DriftCheck:requeue",
        [&] {
            connection.open(gSeller->connectionString(), 15);
            Recordset published = connection.execute(
                Sql() << "SELECT P.Estado, P.IdPrdAsociado, P.IdTienda, P.Atributos, "
                         "(SELECT COUNT(*) FROM WIPRODPEND D WHERE D.IdPrdPublicado = "
                         "P.IdPrdPublicado), (SELECT COUNT(*) FROM WIPRODASOC A WHERE "
                         "A.IdPrdAsociado = P.IdPrdAsociado) FROM WIPRODPUBL P WHERE "
                         "P.IdPrdPublicado = "
                      << sqlNumber(number));
            if (published.eof())
                refusal = "No existe la publicación " + publication;
            else if (published.fieldText(0) != "P")
                refusal = "La publicación " + publication + " está en estado " +
                          published.fieldText(0) + ": sólo se reencola una publicación en P";
            else if (published.fieldNumber(4) > 0)
                refusal = "La publicación " + publication +
                          " ya tiene operaciones pendientes: el próximo envío la tomará";
            else if (published.fieldNumber(5) == 0)
                refusal = "La asociación de la publicación " + publication +
                          " fue eliminada: el envío no la tomaría. Vuelva a publicar el producto";
            if (!refusal.empty())
                return false;
            const std::string association = published.fieldText(1);
            store = published.fieldText(2);
            const std::string attributes = published.isNull(3) ? "" : published.fieldText(3);
            published.close();
            const std::string date = convertToString(QDateTime::currentDateTime());
            connection.begin();
            connection.execute(Sql() << "INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, "
                                        "IdTienda, Estado, Atributos, FechaPublicado, NumInt) "
                                        "values ("
                                     << sqlNumber(number) << "," << sqlNumber(association) << ",'"
                                     << sqlText(store) << "', 'I', '" << sqlText(attributes)
                                     << "', CONVERT(datetime, '" << sqlText(date) << "', 120), 0)");
            connection.commit();
            connection.close();
            return true;
        },
        [&] { applyDatabaseFailureRule(connection, "DriftCheck:requeue:"); });
    if (!written) {
        if (!refusal.empty())
            m_errors << refusal << std::endl;
        return 1;
    }
    m_out << "Publicación " << publication << " reencolada: el próximo envío de la minitienda "
          << store << " la publicará\n";
    return 0;
}

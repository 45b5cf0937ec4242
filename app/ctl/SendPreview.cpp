#include "SendPreview.h"

#include "platform/db/Connection.h"
#include "platform/xml/XmlDocument.h"
#include "publication/CatalogBatchPlanner.h"
#include "publication/PendingPublications.h"
#include "shell/ErrorHandling.h"
#include "stores/Seller.h"
#include "stores/ZorvantaMinistore.h"

#include <string>
#include <utility>
#include <vector>

namespace {

using Fields = std::vector<std::pair<std::string, std::string>>;

/// The fields of an attribute text, by fieldID, in their order; none when it does not parse.
Fields fieldsOf(const std::string &attributes)
{
    Fields fields;
    XmlDocument document;
    if (!document.loadXML("<Atributos>" + attributes + "</Atributos>"))
        return fields;
    for (const XmlNode &field : document.documentElement().selectNodes("descendant::Field"))
        fields.emplace_back(field.getAttribute("fieldID").value_or(""), field.text());
    return fields;
}

const std::string *find(const Fields &fields, const std::string &id)
{
    for (const auto &[key, value] : fields) {
        if (key == id)
            return &value;
    }
    return nullptr;
}

const char *wordOf(const std::string &status)
{
    if (status == "I")
        return "Publicar";
    if (status == "A")
        return "Actualizar";
    return "Despublicar";
}

} // namespace

bool SendPreview::show(const ZorvantaMinistore &store)
{
    bool planned = false;
    withHandler("SendPreview:show", [&] {
        Connection connection;
        connection.open(gSeller->connectionString(), 15);
        const std::vector<dbPublication> rows = PendingPublications::read(connection, store.id());
        m_out << "Minitienda " << store.id() << " (" << store.name() << "): " << rows.size()
              << " operaciones pendientes\n";
        CatalogBatchPlanner planner(store, rows, CatalogBatchPlanner::backOfficeLimit());
        std::size_t row = 0;
        for (int number = 1; !planner.atEnd(); ++number) {
            const CatalogBatch batch = planner.next();
            m_out << "Lote " << number << ": " << batch.operations << " operaciones\n";
            for (int i = 0; i < batch.operations; ++i, ++row) {
                const dbPublication &pending = rows[row];
                m_out << "  " << wordOf(pending.status) << " publicación " << pending.publicationId
                      << ", producto ERP " << pending.dovelID << ", producto " << pending.zorvantaId
                      << "\n";
                if (pending.status == "A")
                    showDifferences(pending.publicationId, pending.nonCharacteristicAttributes);
            }
            m_out << "  Texto: " << batch.wireText() << "\n";
        }
        planned = true;
    });
    return planned;
}

void SendPreview::showDifferences(int publication, const std::string &pendingAttributes)
{
    Connection connection;
    connection.open(gSeller->connectionString(), 15);
    Recordset published =
        connection.execute(Sql() << "SELECT Atributos FROM WIPRODPUBL WHERE IdPrdPublicado = "
                                 << sqlNumber(publication));
    const std::string accepted =
        published.eof() || published.isNull(0) ? std::string() : published.fieldText(0);
    published.close();

    const Fields before = fieldsOf(accepted);
    const Fields after = fieldsOf(pendingAttributes);
    bool changed = false;
    for (const auto &[id, value] : after) {
        const std::string *old = find(before, id);
        if (old && *old == value)
            continue;
        m_out << "    " << id << ": " << (old ? *old : "(nuevo)") << " -> " << value << "\n";
        changed = true;
    }
    for (const auto &[id, value] : before) {
        if (!find(after, id)) {
            m_out << "    " << id << ": " << value << " -> (quitado)\n";
            changed = true;
        }
    }
    if (!changed)
        m_out << "    sin diferencias con lo último aceptado\n";
}

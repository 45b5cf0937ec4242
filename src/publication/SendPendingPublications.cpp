#include "publication/SendPendingPublications.h"

#include "gateways/QDX.h"
#include "platform/db/Connection.h"
#include "platform/xml/XmlDocument.h"
#include "publication/CatalogBatchPlanner.h"
#include "publication/PendingPublications.h"
#include "publication/PublicationProgress.h"
#include "shell/AppState.h"
#include "shell/ErrorHandling.h"
#include "shell/Logger.h"
#include "stores/DatabaseFailure.h"
#include "stores/NumberText.h"
#include "stores/ReplyReader.h"
#include "stores/Seller.h"
#include "stores/ZorvantaMinistore.h"

namespace {

const std::string kSource = "ZorvantaMinistore:SendPendingPublications";
const std::string kLogPrefix = "(ZorvantaMinistore:SendPendingPublications) ";
const std::string kReplyText =
    "El XML retornado por QDX.dll en EjecutarOperacion QDX_Operaciones_Catalogo ";
// Another class's name, as the seller's support has always read it in the log.
const std::string kHandlerLabel = "Seller:SendPendingPublications Method";
constexpr std::int16_t kMaximumRetries = 100;

/// One reply operation as the marketplace answered it.
struct Answer
{
    std::string publicationId;
    std::string word;
    std::string code;
    std::string description;
};

/// One run of the send for one store: its two connections and what the reply operations
/// share (the letter of the last known word).
class SendRun
{
public:
    SendRun(ZorvantaMinistore &ministore, PublicationProgress &progress)
        : m_ministore(ministore), m_progress(progress)
    {
    }

    void run();
    /// The database rule of the handler, reading connection first.
    void applyDatabaseFailure();

private:
    void markProcessing(const CatalogBatch &batch);
    int send(const std::string &request);
    Answer read(const XmlNode &operation, const ReplyReader &reader) const;
    void apply(const Answer &answer, const std::string &request, const std::string &replyXml);
    void removePending(const Answer &answer);
    AnsweredOperation::Outcome applyRefusal(const Answer &answer, std::int16_t &tries);

    ZorvantaMinistore &m_ministore;
    PublicationProgress &m_progress;
    Connection m_reading;
    Connection m_writing;
    std::string m_letter;
};

void SendRun::run()
{
    if (!m_ministore.setTaxesInZorvanta() || !gAppRunning)
        return;
    for (Connection *connection : {&m_reading, &m_writing}) {
        connection->open(gSeller->connectionString(), 15);
        connection->clearErrors();
    }
    const std::int16_t limit = CatalogBatchPlanner::backOfficeLimit();
    const std::int16_t total = PendingPublications::count(m_reading, m_ministore.id());
    m_progress.setMaxProducts(total);
    if (total == 0) {
        m_progress.setProducts(0);
        return;
    }
    CatalogBatchPlanner planner(m_ministore, PendingPublications::read(m_reading, m_ministore.id()),
                                limit);
    while (!planner.atEnd()) {
        const CatalogBatch batch = planner.next();
        markProcessing(batch);
        m_progress.requestSent(batch.wireText(), batch.operations);
        const int answered = send(batch.wireText());
        m_progress.setProducts(toInt16(static_cast<double>(m_progress.products()) + answered));
    }
}

void SendRun::markProcessing(const CatalogBatch &batch)
{
    if (batch.publishRows.empty())
        return;
    m_writing.begin();
    for (const std::int16_t publication : batch.publishRows)
        m_writing.execute(Sql() << "UPDATE WIPRODPUBL SET Estado = 'P' WHERE IdPrdPublicado = "
                                << sqlNumber(publication));
    m_writing.commit();
}

int SendRun::send(const std::string &request)
{
    const std::string reply = callQdxOperation(QdxOperation::OperacionesCatalogo,
                                               gSeller->sessionId(), request,
                                               "QDX_Operaciones_Catalogo: ", kSource);
    XmlDocument answer;
    if (!answer.loadXML(reply))
        raiseError(-10502,
                   "XML de retorno de QDX.dll en EjecutarOperacion QDX_Operaciones_Catalogo está "
                   "mal construído " +
                       reply,
                   kSource + " ");
    if (isError(answer))
        raiseError(ErrorNumber(answer), errorDescription(answer), kSource);
    answer.setProperty("SelectionLanguage", "XPath");
    // A reply without Operations fails on the next line, as an object that is not set.
    const XmlNodeList operations = answer.selectNodes("//Operations").item(0).childNodes();
    const std::string replyXml = answer.xml();
    const ReplyReader reader(-10502, kSource, replyXml);
    for (const XmlNode &operation : operations)
        apply(read(operation, reader), request, replyXml);
    return operations.length();
}

Answer SendRun::read(const XmlNode &operation, const ReplyReader &reader) const
{
    const auto value = [&](const std::string &element) {
        return reader.required(operation, "descendant::" + element,
                               kReplyText + "no tiene etiqueta " + element + " : ",
                               kReplyText + "no tiene valor para " + element + " : ");
    };
    if (!operation.attributes())
        reader.raise(kReplyText + "no tiene atributos para un operation: ");
    Answer answer;
    const std::optional<std::string> number = operation.getAttribute("PublicationID");
    if (!number)
        reader.raise(kReplyText + "no tiene etiqueta PublicationID : ");
    answer.publicationId = *number;
    answer.word = value("Operation");
    value("ZorvantaID");
    answer.code = value("RETURNCODE");
    answer.description = value("DESCRIPTION");
    return answer;
}

void SendRun::apply(const Answer &given, const std::string &request, const std::string &replyXml)
{
    Answer answer = given;
    if (answer.word == "Publicar")
        m_letter = "I";
    else if (answer.word == "Despublicar")
        m_letter = "E";
    else if (answer.word == "Actualizar")
        m_letter = "A";

    if (answer.code == "-8005" && answer.word == "Publicar") {
        gLogger.WriteLogEntry(kLogPrefix + "Error -8005: publicación existente. " + replyXml);
        answer.code = "0";
    }
    if (answer.code == "-8004" && answer.word == "Despublicar") {
        gLogger.WriteLogEntry(kLogPrefix + "Error -8004: publicación no existe. " + replyXml);
        answer.code = "0";
    }
    if (answer.code != "0")
        gLogger.WriteLogEntry(kLogPrefix + "Error en publicationID: " + answer.publicationId +
                              ". Código Error: " + answer.code +
                              ". Descripción: " + answer.description + ". XML Entrada: " + request +
                              ". XML Salida: " + replyXml);

    const SqlNumber number = sqlNumber(answer.publicationId);
    AnsweredOperation answered{given.publicationId, given.word, given.code, given.description};
    m_writing.begin();
    if (answer.code == "0") {
        answered.outcome = AnsweredOperation::Outcome::Accepted;
        if (answer.word == "Publicar")
            m_writing.execute(Sql() << "UPDATE WIPRODPUBL SET Estado = 'K' WHERE IdPrdPublicado = "
                                    << number);
        if (answer.word == "Actualizar") {
            Recordset attributes =
                m_writing.execute(Sql() << "SELECT Atributos FROM WIPRODPEND where IdPrdPublicado ="
                                        << number << " AND estado = 'A'");
            if (attributes.fieldCount() > 0) {
                const std::string value = attributes.fieldText(0);
                attributes.close();
                m_writing.execute(Sql() << "UPDATE WIPRODPUBL SET Atributos = '" << sqlText(value)
                                        << "' WHERE IdPrdPublicado = " << number);
            } else {
                attributes.close();
            }
        }
        m_writing.execute(Sql() << "DELETE FROM WIPRODPEND WHERE IdPrdPublicado = " << number
                                << " AND estado = '" << sqlText(m_letter) << "'");
        if (answer.word == "Despublicar")
            m_writing.execute(Sql() << "DELETE FROM WIPRODPUBL WHERE IdPrdPublicado = " << number);
    } else {
        answered.outcome = applyRefusal(answer, answered.tries);
    }
    m_writing.commit();
    m_progress.operationAnswered(answered);
}

AnsweredOperation::Outcome SendRun::applyRefusal(const Answer &answer, std::int16_t &tries)
{
    const SqlNumber number = sqlNumber(answer.publicationId);
    const int type = gLogger.getTypeError(toInt16(answer.code));
    if (type == gLogger.errorTypeApplication) {
        removePending(answer);
        return AnsweredOperation::Outcome::Refused;
    }
    if (type != gLogger.errorTypeUser && type != gLogger.errorTypeFatal)
        return AnsweredOperation::Outcome::Unchanged;
    m_writing.execute(Sql() << "UPDATE WIPRODPEND SET MsgErr = '" << sqlText(answer.description)
                            << "', Error = " << sqlNumber(answer.code)
                            << ", NumInt = NumInt + 1 WHERE IdPrdPublicado = " << number
                            << " AND estado = '" << sqlText(m_letter) << "'");
    Recordset counted =
        m_writing.execute(Sql() << "SELECT NumInt FROM WIPRODPEND WHERE IdPrdPublicado = " << number
                                << " AND estado = '" << sqlText(m_letter) << "'");
    tries = counted.eof() ? 0 : toInt16(counted.fieldNumber(0));
    counted.close();
    if (tries < kMaximumRetries)
        return AnsweredOperation::Outcome::Retried;
    removePending(answer);
    gLogger.WriteLogEntry(
        kLogPrefix + "La operación para el publicationID: " + answer.publicationId + " de tipo " +
        answer.word + " alcanzó el máximo de reintentos: " + std::to_string(kMaximumRetries) +
        " y será borrada de la base de datos");
    return AnsweredOperation::Outcome::Refused;
}

void SendRun::removePending(const Answer &answer)
{
    const SqlNumber number = sqlNumber(answer.publicationId);
    m_writing.execute(Sql() << "DELETE FROM WIPRODPEND WHERE IdPrdPublicado = " << number
                            << " AND estado = '" << sqlText(m_letter) << "'");
    // A refused publication loses every pending row. Both deletes name WIPRODPEND: the
    // publication itself stays P in WIPRODPUBL.
    if (answer.word == "Publicar")
        m_writing.execute(Sql() << "DELETE FROM WIPRODPEND WHERE IdPrdPublicado = " << number);
}

void SendRun::applyDatabaseFailure()
{
    const std::string source = kSource + ":";
    applyDatabaseFailureRule(m_reading, source);
    applyDatabaseFailureRule(m_writing, source);
}

} // namespace

void SendPendingPublications(ZorvantaMinistore &ministore, PublicationProgress &progress)
{
    SendRun run(ministore, progress);
    withHandler(
        kHandlerLabel, [&] { run.run(); }, [&] { run.applyDatabaseFailure(); });
}

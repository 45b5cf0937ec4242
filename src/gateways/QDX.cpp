#include "gateways/QDX.h"

#include "gateways/BackOfficeSession.h"
#include "gateways/ReplyConvention.h"
#include "platform/connectors/BackOfficeLibrary.h"
#include "platform/xml/XmlDocument.h"
#include "shell/ErrorHandling.h"
#include "shell/Constants.h"
#include "shell/Logger.h"

#include <vector>

Collection<Collection<std::int32_t>> gOperationLimits;

namespace {

const ReplyConvention &qdxReplies()
{
    static const ReplyConvention convention(
        {"QDX:isResult", "QDX:ErrorNumber", "QDX:errorDescription", "QDX:isError"});
    return convention;
}

const char *const kConfigurationReply =
    "El XML retornado por el QDX en EjecutarOperacion.QDX_Obtener_Informacion_Configuracion ";

[[noreturn]] void raiseBadConfiguration(const std::string &problem, const std::string &reply)
{
    raiseError(-10502, kConfigurationReply + problem + ": " + reply);
}

} // namespace

std::int32_t EjecutarOperacion(std::int32_t operationId, std::int32_t sessionId,
                               const std::string &request, std::string &reply,
                               std::int32_t size)
{
    return withHandler("QDX:EjecutarOperacion", [&] {
        // The library writes a NUL-terminated text within `size`; one more NUL guards the end.
        std::vector<char> buffer(static_cast<std::size_t>(size) + 1, '\0');
        reply.copy(buffer.data(), std::min<std::size_t>(reply.size(), buffer.size() - 1));
        BackOfficeLibrary &library = backOfficeLibrary();
        std::int32_t code =
            library.EjecutarOperacionW(operationId, sessionId, request.c_str(), buffer.data(), size);
        if (gLogger.getSourceError(code) == gLogger.errorSourceConnector) {
            BackOfficeSession &session = backOfficeSession();
            session.closeSession();
            const std::int32_t newSession = session.sessionId();
            code = library.EjecutarOperacionW(operationId, newSession, request.c_str(),
                                              buffer.data(), size);
        }
        buffer.back() = '\0';
        reply = buffer.data();
        return code;
    });
}

std::string callQdxOperation(std::int32_t operationId, std::int32_t sessionId,
                             const std::string &request, const std::string &operation,
                             const std::string &source)
{
    std::string reply(static_cast<std::size_t>(kQdxReplySize), '\0');
    const std::int32_t code =
        EjecutarOperacion(operationId, sessionId, request, reply, kQdxReplySize);
    if (code != 0) {
        // The number as the back office's messages write it: " 5", "-2048".
        const std::string number = (code < 0 ? "" : " ") + std::to_string(code);
        raiseError(code,
                   "Error llamando a QDX.dll en EjecutarOperacion " + operation + number + ":" +
                       QDXGetErrorMsg(code),
                   source);
    }
    return reply;
}

bool QDXGetOperationConfiguration()
{
    return withHandler("QDX:QDXGetOperationConfiguration", [] {
        std::string reply(static_cast<std::size_t>(kQdxReplySize), '\0');
        const std::int32_t sessionId = backOfficeSession().sessionId();
        const std::int32_t code = EjecutarOperacion(QdxOperation::ObtenerInformacionConfiguracion,
                                                    sessionId, "", reply, kQdxReplySize);
        if (code != 0)
            raiseError(code,
                       "Error en QDX_Obtener_Informacion_Configuracion: EjecutarOperacion ("
                           + std::to_string(code) + ") " + QDXGetErrorMsg(code),
                       "QDX:QDXGetOperationConfiguration");
        XmlDocument document;
        if (!document.loadXML(reply))
            raiseBadConfiguration("está mal construido", reply);

        gOperationLimits = Collection<Collection<std::int32_t>>();
        for (const XmlNode &product : document.selectNodes("descendant::Product")) {
            if (!product.attributes())
                raiseBadConfiguration("no tiene atributos para Product", reply);
            const auto productId = product.getAttribute("ProductID");
            if (!productId)
                raiseBadConfiguration("no tiene el atributo ProductID", reply);
            Collection<std::int32_t> operations;
            for (const XmlNode &operation : product.childNodes()) {
                if (!operation.attributes())
                    raiseBadConfiguration("no tiene atributos para Operation", reply);
                const auto operationId = operation.getAttribute("OperationID");
                if (!operationId)
                    raiseBadConfiguration("no tiene el atributo OperationID", reply);
                const XmlNodeList limits = operation.selectNodes("descendant::MaxOperations");
                if (limits.length() == 0)
                    raiseBadConfiguration("no tiene la etiqueta MaxOperations", reply);
                operations.add(wholeNumber(limits.item(0).text()), *operationId);
            }
            gOperationLimits.add(std::move(operations), *productId);
        }
        return true;
    });
}

std::string QDXGetErrorMsg(std::int32_t code)
{
    switch (code) {
    case 0: return "Ningun Error";
    case -2050: return "Error al tratar de generar el mensaje XML";
    case -2049: return "Error al tratar de generar el mensaje TCP";
    case -2048: return "Error conectándose a través del socket";
    case -2047: return "Error al enviar el mensaje a través del socket";
    case -2046: return "Error al aceptar la conexión con otro socket";
    case -2045: return "Error al recibir el mensaje a través del socket";
    case -2044: return "Tamaño del mensaje de entrada igual a 0";
    case -2043:
        return "El número de la operación del mensaje de retorno no concuerda con la operación "
               "solicitada";
    case -2042: return "Error en los parámetros de entrada de la función";
    case -2041: return "Error al hacer append del buffer extraído al archivo";
    case -2040: return "Error al escribir el buffer del objeto File a un archivo";
    case -2039: return "No se recibió el mensaje con la secuencia debida";
    case -2038: return "Error al encriptar el mensaje";
    case -2037: return "Error al desencriptar el mensaje";
    case -2036: return "Error manipulando archivos";
    case -2035: return "Dirección de máquina invalida";
    case -2010: return "Error leyendo el archivo";
    case -2009: return "Error en el número de parámetros de la función";
    case -2008: return "Error al tratar de conectarse como cliente Tuxedo";
    case -2007: return "Error generando mensaje TCP de entrada";
    case -2006: return "Error archivo no encontrado";
    case -2005: return "Error al tratar de abrir la sesión";
    case -2004: return "Error al tratar de cerrar la sesión";
    case -2003:
        return "Error al tratar de almacenar el id sesión el en arreglo de identificadores de "
               "sesión";
    default: return "Error desconocido";
    }
}

bool isResult(XmlDocument &document)
{
    return qdxReplies().isResult(document);
}

bool isError(XmlDocument &document)
{
    return qdxReplies().isError(document);
}

std::int32_t ErrorNumber(XmlDocument &document)
{
    return qdxReplies().errorNumber(document);
}

std::string errorDescription(XmlDocument &document)
{
    return qdxReplies().errorDescription(document);
}

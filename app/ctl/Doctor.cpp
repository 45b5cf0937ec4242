#include "Doctor.h"

#include "gateways/CommerceServer.h"
#include "platform/connectors/SharedLibrary.h"
#include "platform/core/RaisedError.h"
#include "platform/db/Connection.h"
#include "platform/db/Sql.h"
#include "platform/soap/HttpTransport.h"
#include "platform/soap/MarketplaceUrl.h"
#include "platform/soap/WsdlReader.h"
#include "shell/Constants.h"
#include "stores/Seller.h"

#include <QLocale>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>
#include <vector>

namespace {

struct Library
{
    const char *what;
    const char *variable;
    const char *defaultName;
    std::vector<const char *> symbols;
    bool givesTheSeller; // the ERP's: the seller's client data and database come from it
};

const Library kLibraries[] = {
    {"Biblioteca del ERP",
     "ASISTENTE_ERP_LIBRARY",
     "libzrvndll.so",
     {"ObtenerIDCliente", "ObtenerDataBase", "ListarDepositosVirtuales",
      "ObtenerContenidoCategoria", "BusquedaProductosIndividual", "ObtenerDefinicionProducto",
      "ObtenerImpuestos"},
     true},
    {"Biblioteca de la trastienda",
     "ASISTENTE_BACKOFFICE_LIBRARY",
     "libqdx.so",
     {"IniciarSesionW", "CerrarSesionW", "EjecutarOperacionW"},
     false},
};

struct Table
{
    SqlFragment name;
    SqlFragment columns;
};

const Table kTables[] = {
    {"WITIENDAS", "IdTienda, Descrip, IDDepoVDOVEL"},
    {"WIPRODASOC", "IdPrdAsociado, IdPrdDovel, IdPrdZorvanta, Atributos, FechaAsociado"},
    {"WIPRODPUBL", "IdPrdPublicado, IdPrdAsociado, IdTienda, Estado, Atributos, FechaPublicado"},
    {"WIPRODPEND", "IdPrdPublicado, IdPrdAsociado, IdTienda, Estado, Atributos, FechaPublicado, "
                   "NumInt, MsgErr, Error"},
};

const char *kPorts[] = {"StoreSoapPort", "CatalogOperationsSoapPort", "CatalogInfoSoapPort"};

std::string where(const char *variable, const char *fallback)
{
    const char *set = std::getenv(variable);
    return set && *set ? set : fallback;
}

} // namespace

int Doctor::run()
{
    marketplace();
    libraries();
    erp();
    database();
    logFolder();
    decimalSeparator();
    return m_allHold ? 0 : 2;
}

void Doctor::line(bool holds, const std::string &what, const std::string &problem)
{
    m_out << (holds ? "[ok] " : "[falla] ") << what;
    if (!holds)
        m_out << ": " << problem;
    m_out << "\n";
    m_allHold = m_allHold && holds;
}

void Doctor::marketplace()
{
    const std::string wsdl = marketplaceUrl() + kServiceWsdlPath;
    const std::string what = "Descripción del servicio de la feria " + wsdl;
    std::string text;
    try {
        HttpTransport http;
        const HttpReply reply = http.get(wsdl);
        if (reply.status != 200) {
            line(false, what,
                 "la feria respondió " + std::to_string(reply.status) +
                     ". Verifique la dirección en ASISTENTE_MARKETPLACE_URL");
            return;
        }
        text = reply.body;
    } catch (const RaisedError &error) {
        line(false, what,
             "no responde (" + error.description() +
                 "). Verifique que la feria esté en línea y la dirección en "
                 "ASISTENTE_MARKETPLACE_URL");
        return;
    }
    line(true, what);
    for (const char *port : kPorts) {
        const std::string portWhat = std::string("Puerto ") + port;
        try {
            const SoapPort found = WsdlReader(text, wsdl).port("zvtsorvek", port);
            HttpTransport http;
            // Any HTTP answer will do: the port's address is reached, whatever it says to a GET.
            http.get(found.address);
            line(true, portWhat + " en " + found.address);
        } catch (const RaisedError &error) {
            line(false, portWhat,
                 error.description() +
                     ". Verifique que la feria publique este puerto y que su dirección responda");
        }
    }
}

void Doctor::libraries()
{
    for (const Library &library : kLibraries) {
        const std::string what =
            std::string(library.what) + " " + where(library.variable, library.defaultName);
        std::string missing;
        try {
            SharedLibrary loaded(library.variable, library.defaultName);
            for (const char *symbol : library.symbols) {
                try {
                    loaded.function<void()>(symbol);
                } catch (const RaisedError &error) {
                    if (error.number() != 453)
                        throw;
                    missing += (missing.empty() ? "" : ", ") + std::string(symbol);
                }
            }
        } catch (const RaisedError &error) {
            line(false, what,
                 error.description() + ". Instale la biblioteca o indique su ruta completa en " +
                     library.variable);
            if (library.givesTheSeller)
                m_erpLoads = false;
            continue;
        }
        if (library.givesTheSeller)
            m_erpLoads = missing.empty();
        if (missing.empty())
            line(true, what + " con sus " + std::to_string(library.symbols.size()) + " funciones");
        else
            line(false, what,
                 "le faltan " + missing + ". Instale la versión de la biblioteca que las exporte");
    }
}

void Doctor::erp()
{
    // The seller reads both from the ERP when it is made; a refusal has been reported on the
    // error stream and leaves the texts empty or NUL-filled.
    const auto given = [](const std::string &text) { return !text.empty() && text[0] != '\0'; };
    if (!m_erpLoads) {
        // Asking would only end in the fatal box of a library or function that is not there.
        line(false, "Datos del cliente en el ERP", "sin la biblioteca del ERP no se pueden leer");
        line(false, "Coordenadas de la base de datos en el ERP",
             "sin la biblioteca del ERP no se pueden leer");
        return;
    }
    const Seller &seller = *gSeller;
    if (given(seller.id()) && given(seller.license()))
        line(true, "Datos del cliente en el ERP: vendedor " + seller.id());
    else
        line(false, "Datos del cliente en el ERP",
             "el ERP no los dio. Revise la licencia del cliente en el ERP y su biblioteca");
    m_coordinates = given(seller.server()) && given(seller.database());
    if (m_coordinates)
        line(true, "Coordenadas de la base de datos en el ERP: base " + seller.database() +
                       " en el servidor " + seller.server());
    else
        line(false, "Coordenadas de la base de datos en el ERP",
             "el ERP no dio servidor y base. Configúrelos en el ERP");
}

void Doctor::database()
{
    if (!m_coordinates) {
        line(false, "Base de datos del vendedor", "sin coordenadas del ERP no se puede abrir");
        return;
    }
    const std::string what = "Base de datos " + gSeller->database();
    Connection connection;
    try {
        connection.open(gSeller->connectionString(), 15);
    } catch (const RaisedError &error) {
        line(false, what,
             error.description() + ". Cree la base con \"asistente-db init\" o revise el "
                                   "servidor y el usuario");
        return;
    }
    line(true, what);
    for (const Table &table : kTables) {
        try {
            connection
                .execute(Sql() << "SELECT " << table.columns << " FROM " << table.name
                               << " WHERE 1 = 0")
                .close();
            line(true, "Tabla " + std::string(table.name.text()) + " con " +
                           std::string(table.columns.text()));
        } catch (const RaisedError &error) {
            line(false, "Tabla " + std::string(table.name.text()),
                 error.description() + ". Créela o complete sus columnas (" +
                     std::string(table.columns.text()) + ") con el esquema de la base");
        }
    }
    numIntDefault(connection);
}

void Doctor::numIntDefault(Connection &connection)
{
    const std::string what = "Valor inicial de WIPRODPEND.NumInt";
    // A row that omits NumInt, as modifications and withdrawals write it, read back and undone.
    try {
        connection.begin();
        connection.execute(Sql("INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, "
                               "Estado, FechaPublicado) values (-1, -1, '-', 'E', "
                               "CONVERT(datetime, '2000-1-1 0:0:0', 120))"));
        Recordset read = connection.execute(
            Sql("SELECT NumInt FROM WIPRODPEND WHERE IdPrdPublicado = -1 AND Estado = 'E'"));
        const bool zero = !read.eof() && !read.isNull(0) && read.fieldNumber(0) == 0;
        read.close();
        connection.rollback();
        if (zero)
            line(true, what + " 0");
        else
            line(false, what,
                 "no es 0, y los reintentos no se contarían. Defina DEFAULT 0 para la columna");
    } catch (const RaisedError &error) {
        connection.rollback();
        line(false, what, error.description() + ". Defina la columna NumInt NOT NULL DEFAULT 0");
    }
}

void Doctor::logFolder()
{
    const std::filesystem::path folder = std::filesystem::current_path();
    const std::filesystem::path log = folder / "bitacora.log";
    const bool writable = std::filesystem::exists(log) ? access(log.c_str(), W_OK) == 0
                                                       : access(folder.c_str(), W_OK) == 0;
    if (writable)
        line(true, "Bitácora " + log.string());
    else
        line(false, "Bitácora " + log.string(),
             "no se puede escribir. Dé permiso de escritura o ejecute desde otra carpeta");
}

void Doctor::decimalSeparator()
{
    const QLocale locale = QLocale::system();
    const std::string group = locale.groupSeparator().toStdString();
    const std::string what = "Separador decimal de la configuración regional " +
                             locale.name().toStdString() + ": \"" + gDecimalSeparator + "\"";
    if ((gDecimalSeparator == "," || gDecimalSeparator == ".") && gDecimalSeparator != group)
        line(true, what);
    else
        line(false, what,
             "los precios no se podrán escribir. Use una configuración regional con \",\" o "
             "\".\" como separador decimal");
}

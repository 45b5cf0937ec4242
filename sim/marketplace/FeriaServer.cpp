#include "marketplace/FeriaServer.h"

#include "backoffice/BackOfficeProtocol.h"
#include "marketplace/ReplyDocument.h"
#include "marketplace/ServiceContract.h"
#include "marketplace/SoapMessage.h"
#include "marketplace/WsdlDocument.h"
#include "platform/core/RaisedError.h"

#include <charconv>
#include <chrono>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <thread>

namespace {

constexpr const char *kXml = "text/xml; charset=utf-8";
constexpr const char *kPlain = "text/plain; charset=utf-8";

// A 1x1 grey GIF: every product picture of the sandbox looks the same.
constexpr unsigned char kPicture[] = {
    0x47, 0x49, 0x46, 0x38, 0x39, 0x61, 0x01, 0x00, 0x01, 0x00, 0x80, 0x00, 0x00, 0x80, 0x80,
    0x80, 0xff, 0xff, 0xff, 0x21, 0xf9, 0x04, 0x01, 0x00, 0x00, 0x00, 0x00, 0x2c, 0x00, 0x00,
    0x00, 0x00, 0x01, 0x00, 0x01, 0x00, 0x00, 0x02, 0x02, 0x44, 0x01, 0x00, 0x3b};

std::int32_t numberParam(const httplib::Request &request, const char *name, bool &valid)
{
    const std::string text = request.get_param_value(name);
    std::int32_t value = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    valid = valid && ec == std::errc() && end == text.data() + text.size() && !text.empty();
    return value;
}

// Malformed and over-long replies are faults of the document, whatever carries it.
std::string shapeDocument(std::string document, const std::optional<Fault> &fault)
{
    if (!fault) {
        return document;
    }
    if (fault->effect == FaultEffect::Malformed) {
        document.resize(document.size() / 2);
    } else if (fault->effect == FaultEffect::Overlong && document.size() + 7 < fault->size) {
        document += "<!--" + std::string(fault->size - document.size() - 7, 'x') + "-->";
    }
    return document;
}

std::string baseUrl(const httplib::Request &request, int port)
{
    const std::string host = request.get_header_value("Host");
    return "http://" + (host.empty() ? "127.0.0.1:" + std::to_string(port) : host);
}

void setCode(httplib::Response &response, std::int32_t code)
{
    response.set_header(BackOfficeProtocol::kCodeHeader, std::to_string(code));
}

} // namespace

FeriaServer::FeriaServer(std::unique_ptr<MarketplaceData> data, std::filesystem::path stateFile)
    : m_data(std::move(data)), m_state(*m_data), m_faults(m_data->faults()),
      m_catalog(*m_data, m_state), m_backOffice(*m_data, m_state, m_faults),
      m_stateFile(std::move(stateFile))
{
    if (!m_stateFile.empty() && std::filesystem::exists(m_stateFile)) {
        std::ifstream in(m_stateFile, std::ios::binary);
        const std::string saved((std::istreambuf_iterator<char>(in)),
                                std::istreambuf_iterator<char>());
        if (!m_state.restore(saved)) {
            raiseError(RuntimeErrorNumber::TypeMismatch,
                       m_stateFile.string() + " no es un estado de la feria");
        }
    }
    using Member = void (FeriaServer::*)(const httplib::Request &, httplib::Response &);
    const auto handler = [this](Member member) -> httplib::Server::Handler {
        return [this, member](const httplib::Request &request, httplib::Response &response) {
            (this->*member)(request, response);
        };
    };
    m_server.Get(std::string(ServiceContract::kWsdlPath), handler(&FeriaServer::onWsdl));
    for (std::string_view port : ServiceContract::ports()) {
        m_server.Post(ServiceContract::portPath(port),
                      [this, port](const httplib::Request &request, httplib::Response &response) {
                          onSoap(port, request, response);
                      });
    }
    m_server.Post(BackOfficeProtocol::kOpenPath, handler(&FeriaServer::onOpenSession));
    m_server.Post(BackOfficeProtocol::kClosePath, handler(&FeriaServer::onCloseSession));
    m_server.Post(BackOfficeProtocol::kExecutePath, handler(&FeriaServer::onExecute));
    m_server.Get("/sim/state", handler(&FeriaServer::onState));
    m_server.Get("/sim/catalog-operations", handler(&FeriaServer::onCatalogOperations));
    m_server.Get("/imagenes/.*", handler(&FeriaServer::onImage));
    m_server.set_exception_handler(
        [](const httplib::Request &, httplib::Response &response, std::exception_ptr) {
            response.status = 500;
            response.set_content("Error interno del servidor", kPlain);
        });
    // Small replies must not wait for the client's delayed acknowledgement.
    m_server.set_tcp_nodelay(true);
}

int FeriaServer::bind(int port)
{
    if (port == 0) {
        m_port = m_server.bind_to_any_port("127.0.0.1");
    } else {
        m_port = m_server.bind_to_port("127.0.0.1", port) ? port : -1;
    }
    return m_port;
}

bool FeriaServer::run()
{
    return m_server.listen_after_bind();
}

void FeriaServer::stop()
{
    m_server.stop();
}

void FeriaServer::onWsdl(const httplib::Request &request, httplib::Response &response)
{
    response.set_content(WsdlDocument::text(baseUrl(request, m_port)), kXml);
}

void FeriaServer::onSoap(std::string_view port, const httplib::Request &request,
                         httplib::Response &response)
{
    const SoapMessage message =
        SoapMessage::parse(request.body, request.get_header_value("SOAPAction"));
    std::optional<Fault> fault;
    std::string document;
    {
        std::lock_guard lock(m_mutex);
        fault = m_faults.onCall(message.operation(), CatalogService::faultContext(message));
        if (fault && fault->code) {
            document = ReplyDocument::status(CatalogService::replyName(message), *fault->code,
                                             fault->description, true);
        } else {
            const std::size_t before = m_state.requests().size();
            document = m_catalog.answer(port, message);
            if (m_state.requests().size() > before) {
                reportRequest(m_state.requests().back());
                saveState();
            }
        }
    }
    send(response,
         SoapMessage::response(CatalogService::replyName(message), shapeDocument(document, fault)),
         kXml, fault);
}

void FeriaServer::onOpenSession(const httplib::Request &request, httplib::Response &response)
{
    std::optional<Fault> fault;
    BackOfficeReply reply;
    {
        std::lock_guard lock(m_mutex);
        fault = m_faults.onCall("IniciarSesion", {});
        if (fault && fault->code) {
            reply.code = *fault->code;
        } else {
            reply = m_backOffice.openSession(request.get_param_value("clave1"),
                                             request.get_param_value("clave2"),
                                             request.get_param_value("cliente"));
        }
    }
    setCode(response, reply.code);
    send(response, reply.text, kPlain, fault);
}

void FeriaServer::onCloseSession(const httplib::Request &request, httplib::Response &response)
{
    bool valid = true;
    const std::int32_t session = numberParam(request, "sesion", valid);
    std::optional<Fault> fault;
    std::int32_t code = QdxCode::SessionCloseFailed;
    {
        std::lock_guard lock(m_mutex);
        fault = m_faults.onCall("CerrarSesion", {});
        if (fault && fault->code) {
            code = *fault->code;
        } else if (valid) {
            code = m_backOffice.closeSession(session);
        }
    }
    setCode(response, code);
    send(response, {}, kPlain, fault);
}

void FeriaServer::onExecute(const httplib::Request &request, httplib::Response &response)
{
    bool valid = true;
    const std::int32_t operation = numberParam(request, "operacion", valid);
    const std::int32_t session = numberParam(request, "sesion", valid);
    std::optional<Fault> fault;
    BackOfficeReply reply{QdxCode::BadParameters, {}};
    {
        std::lock_guard lock(m_mutex);
        if (valid && operation == 9) {
            m_catalogOperations.push_back(request.body);
        }
        const std::string seller = m_state.sellerOfSession(session);
        fault = m_faults.onCall(std::to_string(operation), {{"seller", seller}});
        if (fault && fault->effect == FaultEffect::LoseSession) {
            m_state.loseSession(session);
        }
        if (!valid) {
            reply = {QdxCode::BadParameters, {}};
        } else if (fault && fault->code && QdxCode::isConnectorCode(*fault->code)) {
            reply = {*fault->code, {}};
        } else if (fault && fault->code && !m_state.sellerOfSession(session).empty()) {
            reply = {QdxCode::Success,
                     ReplyDocument::status(BackOfficeService::replyName(operation), *fault->code,
                                           fault->description, false)};
        } else if (fault && fault->effect == FaultEffect::NoOperations) {
            reply = {QdxCode::Success,
                     ReplyDocument::status(BackOfficeService::replyName(operation),
                                           QdxCode::Success, "Exito", false)};
        } else {
            reply = m_backOffice.execute(operation, session, request.body);
            if (operation == 9 || operation == 16) {
                saveState();
            }
        }
    }
    setCode(response, reply.code);
    const bool mislabel = fault && fault->effect == FaultEffect::WrongOperation;
    response.set_header(BackOfficeProtocol::kOperationHeader,
                        std::to_string(mislabel ? operation + 1 : operation));
    send(response, shapeDocument(reply.text, fault), kXml, fault);
}

void FeriaServer::onState(const httplib::Request &, httplib::Response &response)
{
    std::lock_guard lock(m_mutex);
    response.set_content(m_state.toXml(), kXml);
}

void FeriaServer::onCatalogOperations(const httplib::Request &, httplib::Response &response)
{
    pugi::xml_document doc;
    pugi::xml_node root = doc.append_child("CatalogOperations");
    std::lock_guard lock(m_mutex);
    for (const std::string &received : m_catalogOperations) {
        root.append_child("Request").text() = received.c_str();
    }
    std::ostringstream out;
    doc.save(out, "", pugi::format_raw, pugi::encoding_utf8);
    response.set_content(out.str(), kXml);
}

void FeriaServer::onImage(const httplib::Request &, httplib::Response &response)
{
    response.set_content(reinterpret_cast<const char *>(kPicture), sizeof kPicture, "image/gif");
}

void FeriaServer::send(httplib::Response &response, std::string body, const char *contentType,
                       const std::optional<Fault> &fault)
{
    if (fault && fault->delayMs > 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(fault->delayMs));
    }
    if (!fault || fault->effect != FaultEffect::Cut) {
        response.set_content(body, contentType);
        return;
    }
    // Announce the whole length, write half, then fail: the peer sees the connection drop.
    const size_t length = body.size();
    response.set_content_provider(
        length, contentType,
        [body = std::move(body)](size_t offset, size_t, httplib::DataSink &sink) {
            if (offset == 0 && body.size() > 1) {
                sink.write(body.data(), body.size() / 2);
                return true;
            }
            return false;
        });
}

void FeriaServer::reportRequest(const ReceivedRequest &request)
{
    // Whoever runs the sandbox sees each request arrive; the whole text is in the state.
    std::cout << "solicitud recibida: " << request.operation << " tienda=" << request.storeId
              << " categoría=" << request.categoryId << " (" << request.text.size()
              << " bytes)" << std::endl;
}

void FeriaServer::saveState() const
{
    if (m_stateFile.empty()) {
        return;
    }
    // Written aside and renamed, so that a crash never leaves half a file behind.
    std::filesystem::path written = m_stateFile;
    written += ".new";
    std::ofstream(written, std::ios::binary | std::ios::trunc) << m_state.toXml();
    std::error_code ignored;
    std::filesystem::rename(written, m_stateFile, ignored);
}

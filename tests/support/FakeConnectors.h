#pragma once

#include "platform/connectors/BackOfficeLibrary.h"
#include "platform/connectors/ErpLibrary.h"

#include <cstring>
#include <deque>
#include <string>
#include <vector>

/// An in-process back office: answers each call with the next scripted code and reply, and
/// records what it was asked.
class FakeBackOffice : public BackOfficeLibrary
{
public:
    struct Answer
    {
        std::int32_t code = 0;
        std::string reply;
    };
    struct Call
    {
        std::int32_t operationId;
        std::int32_t sessionId;
        std::string request;
    };

    void queue(std::int32_t code, std::string reply = {}) { answers.push_back({code, std::move(reply)}); }

    std::int32_t IniciarSesionW(const char *key1, const char *key2, std::int32_t clientNumber,
                                std::int32_t *sessionId) override
    {
        openedWith.push_back(std::string(key1) + "|" + key2 + "|" + std::to_string(clientNumber));
        if (openCode == 0)
            *sessionId = ++lastSession;
        return openCode;
    }
    std::int32_t CerrarSesionW(std::int32_t sessionId) override
    {
        closed.push_back(sessionId);
        return closeCode;
    }
    std::int32_t EjecutarOperacionW(std::int32_t operationId, std::int32_t sessionId,
                                    const char *request, char *reply,
                                    std::int32_t replySize) override
    {
        calls.push_back({operationId, sessionId, request});
        Answer answer = answers.empty() ? Answer{} : answers.front();
        if (!answers.empty())
            answers.pop_front();
        const std::size_t length =
            std::min<std::size_t>(answer.reply.size(), static_cast<std::size_t>(replySize) - 1);
        std::memcpy(reply, answer.reply.data(), length);
        reply[length] = '\0';
        return answer.code;
    }

    std::deque<Answer> answers;
    std::vector<Call> calls;
    std::vector<std::string> openedWith;
    std::vector<std::int32_t> closed;
    std::int32_t openCode = 0;
    std::int32_t closeCode = 0;
    std::int32_t lastSession = 100;
};

/// An in-process ERP with the demo seller's client data; each function answers `code`.
class FakeErp : public ErpLibrary
{
public:
    std::int32_t ObtenerIDCliente(std::int32_t *clientNumber, char *license, char *clientKey2,
                                  char *id) override
    {
        *clientNumber = 4711;
        std::strcpy(license, "NUB-LIC-2026-0042");
        std::strcpy(clientKey2, "QK-7F3A9C");
        std::strcpy(id, "V1042");
        return clientCode;
    }
    std::int32_t ObtenerDataBase(char *server, char *database, char *user, char *password) override
    {
        std::strcpy(server, "localhost");
        std::strcpy(database, "AsistenteDemo");
        std::strcpy(user, "vendedor");
        std::strcpy(password, "demo");
        return databaseCode;
    }
    std::int32_t ListarDepositosVirtuales(std::int32_t, char *, std::int32_t, std::int32_t *,
                                          char *reply) override
    {
        std::strcpy(reply, depositsReply.c_str());
        return 0;
    }
    std::int32_t ObtenerContenidoCategoria(std::int32_t, char *, std::int32_t, char *,
                                           std::int32_t, const char *, std::int32_t *,
                                           char *) override
    {
        return 0;
    }
    std::int32_t BusquedaProductosIndividual(std::int32_t, std::int32_t, char *, std::int32_t,
                                             char *, std::int32_t, const char *, std::int32_t *,
                                             char *) override
    {
        return 0;
    }
    std::int32_t ObtenerDefinicionProducto(std::int32_t, const char *, const char *,
                                           char *) override
    {
        return 0;
    }
    std::int32_t ObtenerImpuestos(char *reply) override
    {
        std::strcpy(reply, taxesReply.c_str());
        return 0;
    }

    std::int32_t clientCode = 0;
    std::int32_t databaseCode = 0;
    std::string depositsReply;
    std::string taxesReply;
};

#include "backoffice/ConnectorFault.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

std::optional<std::int32_t> number(std::string_view text)
{
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::optional<ConnectorFault> readFault(std::string_view text)
{
    using Kind = ConnectorFault::Kind;
    const std::size_t equals = text.find('=');
    const std::string_view name = text.substr(0, equals);
    if (equals != std::string_view::npos) {
        const std::optional<std::int32_t> value = number(text.substr(equals + 1));
        if (!value)
            return std::nullopt;
        if (name == "codigo")
            return ConnectorFault{Kind::Code, *value};
        if (name == "bytes" && *value >= 0)
            return ConnectorFault{Kind::Bytes, *value};
        return std::nullopt;
    }
    if (name == "sin-nul")
        return ConnectorFault{Kind::NoNul, 0};
    if (name == "xml-roto")
        return ConnectorFault{Kind::Malformed, 0};
    if (name == "no-utf8")
        return ConnectorFault{Kind::NotUtf8, 0};
    if (name == "sesion-perdida")
        return ConnectorFault{Kind::LostSession, 0};
    if (name == "sesion-perdida-siempre")
        return ConnectorFault{Kind::LostForGood, 0};
    return std::nullopt;
}

// Filler inside the root element keeps the reply well-formed at any length it can hold.
std::string padded(std::string reply, std::size_t length)
{
    const std::string open = "<Relleno>", close = "</Relleno>";
    const std::size_t closing = reply.rfind("</");
    const std::size_t at = closing == std::string::npos ? reply.size() : closing;
    if (reply.size() + open.size() + close.size() <= length) {
        const std::size_t fill = length - reply.size() - open.size() - close.size();
        reply.insert(at, open + std::string(fill, 'x') + close);
    } else if (reply.size() < length) {
        reply.insert(at, std::string(length - reply.size(), ' '));
    }
    return reply;
}

// What an ERP on a Latin-1 machine writes: é as the one byte 0xE9.
std::string latin1(const std::string &utf8)
{
    std::string out;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        if ((lead == 0xC2 || lead == 0xC3) && i + 1 < utf8.size()) {
            const auto next = static_cast<unsigned char>(utf8[++i]);
            out += static_cast<char>(((lead & 0x03) << 6) | (next & 0x3F));
        } else {
            out += utf8[i];
        }
    }
    return out;
}

} // namespace

std::optional<ConnectorFault> ConnectorFault::named(const char *variable, std::string_view function,
                                                    std::optional<std::int32_t> operation)
{
    const char *value = std::getenv(variable);
    if (value == nullptr)
        return std::nullopt;
    std::string_view rest = value;
    while (!rest.empty()) {
        const std::size_t semicolon = rest.find(';');
        const std::string_view entry = rest.substr(0, semicolon);
        rest =
            semicolon == std::string_view::npos ? std::string_view() : rest.substr(semicolon + 1);

        const std::size_t colon = entry.find(':');
        const std::size_t last = entry.rfind(':');
        if (colon == std::string_view::npos || entry.substr(0, colon) != function)
            continue;
        std::optional<std::int32_t> selected;
        if (last != colon) {
            selected = number(entry.substr(colon + 1, last - colon - 1));
            if (!selected) {
                std::fprintf(stderr, "%s: operación ilegible en '%.*s'\n", variable,
                             static_cast<int>(entry.size()), entry.data());
                continue;
            }
        }
        if (selected && selected != operation)
            continue;
        if (const std::optional<ConnectorFault> fault = readFault(entry.substr(last + 1)))
            return fault;
        std::fprintf(stderr, "%s: falla desconocida en '%.*s'\n", variable,
                     static_cast<int>(entry.size()), entry.data());
    }
    return std::nullopt;
}

void ConnectorFault::deliver(std::string reply, const ConnectorFault *fault, char *buffer,
                             std::size_t size)
{
    if (buffer == nullptr || size == 0)
        return;
    bool terminated = true;
    if (fault != nullptr) {
        switch (fault->kind) {
        case Kind::Bytes:
            reply = padded(std::move(reply), static_cast<std::size_t>(fault->value));
            break;
        case Kind::NoNul:
            reply = padded(std::move(reply), size);
            terminated = false;
            break;
        case Kind::Malformed:
            reply.erase(std::min(reply.size(), reply.rfind("</")));
            break;
        case Kind::NotUtf8:
            reply = latin1(reply);
            break;
        default:
            break;
        }
    }
    const std::size_t length = std::min(reply.size(), terminated ? size - 1 : size);
    std::memcpy(buffer, reply.data(), length);
    if (length < size)
        buffer[length] = '\0';
}

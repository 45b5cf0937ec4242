#pragma once

#include <cstdint>
#include <optional>
#include <string>

class XmlNode;

/// Reads the values of one piece of XML that an outside party sent. A value is the text of the
/// first child of the first node a path selects. Every gap raises `number` from `source`, its
/// message followed by `context` (the XML the message quotes).
class ReplyReader
{
public:
    ReplyReader(std::int32_t number, std::string source, std::string context);

    /// The value under `path`; raises with `noTag` when nothing is selected and with `noValue`
    /// when the node found has no child.
    std::string required(const XmlNode &node, const std::string &path, const std::string &noTag,
                         const std::string &noValue) const;
    /// The same for an element that may be missing: nothing when `path` selects nothing.
    std::optional<std::string> optional(const XmlNode &node, const std::string &path,
                                        const std::string &noValue) const;

    [[noreturn]] void raise(const std::string &message) const;

private:
    std::string valueOf(const XmlNode &found, const std::string &noValue) const;

    std::int32_t m_number;
    std::string m_source;
    std::string m_context;
};

#include "stores/ReplyReader.h"

#include "platform/core/RaisedError.h"
#include "platform/xml/XmlNode.h"

ReplyReader::ReplyReader(std::int32_t number, std::string source, std::string context)
    : m_number(number), m_source(std::move(source)), m_context(std::move(context))
{
}

std::string ReplyReader::required(const XmlNode &node, const std::string &path,
                                  const std::string &noTag, const std::string &noValue) const
{
    const XmlNodeList found = node.selectNodes(path);
    if (found.length() == 0)
        raise(noTag);
    return valueOf(found.item(0), noValue);
}

std::optional<std::string> ReplyReader::optional(const XmlNode &node, const std::string &path,
                                                 const std::string &noValue) const
{
    const XmlNodeList found = node.selectNodes(path);
    if (found.length() == 0)
        return std::nullopt;
    return valueOf(found.item(0), noValue);
}

void ReplyReader::raise(const std::string &message) const
{
    raiseError(m_number, message + m_context, m_source);
}

std::string ReplyReader::valueOf(const XmlNode &found, const std::string &noValue) const
{
    const XmlNode child = found.firstChild();
    if (child.isNull())
        raise(noValue);
    return child.nodeValue();
}

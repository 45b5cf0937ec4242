#include "marketplace/ReplyDocument.h"

#include <sstream>

ReplyDocument::ReplyDocument(const std::string &rootName)
    : m_root(m_doc.append_child(rootName.c_str()))
{
}

void ReplyDocument::setResult(std::int32_t code, const std::string &description)
{
    m_root.remove_child("RESULT");
    pugi::xml_node result = m_root.prepend_child("RESULT");
    result.append_child("RETURNCODE").text() = code;
    result.append_child("DESCRIPTION").text() = description.c_str();
}

std::string ReplyDocument::text(bool withDeclaration) const
{
    std::ostringstream out;
    if (withDeclaration) {
        out << "<?xml version=\"1.0\"?>";
    }
    m_doc.save(out, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
    return out.str();
}

std::string ReplyDocument::status(const std::string &rootName, std::int32_t code,
                                  const std::string &description, bool withDeclaration)
{
    ReplyDocument reply(rootName);
    reply.setResult(code, description);
    return reply.text(withDeclaration);
}

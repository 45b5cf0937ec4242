#include "sim/erp/ReplyWriter.h"

namespace {

void appendEscaped(std::string &out, std::string_view text)
{
    for (const char c : text) {
        const char *entity = c == '&'    ? "&amp;"
                             : c == '<'  ? "&lt;"
                             : c == '>'  ? "&gt;"
                             : c == '\'' ? "&apos;"
                                         : nullptr;
        if (entity != nullptr) {
            out += entity;
        } else {
            out += c;
        }
    }
}

} // namespace

ReplyWriter::ReplyWriter(std::string_view root)
{
    open(root);
}

void ReplyWriter::open(std::string_view name, const Attributes &attributes)
{
    startTag(name, attributes);
    m_text += '>';
    m_open.emplace_back(name);
}

void ReplyWriter::close()
{
    m_text += "</" + m_open.back() + ">";
    m_open.pop_back();
}

void ReplyWriter::leaf(std::string_view name, std::string_view text)
{
    if (text.empty()) {
        empty(name, {});
        return;
    }
    startTag(name, {});
    m_text += '>';
    appendEscaped(m_text, text);
    m_text += "</";
    m_text += name;
    m_text += '>';
}

void ReplyWriter::empty(std::string_view name, const Attributes &attributes)
{
    startTag(name, attributes);
    m_text += "/>";
}

void ReplyWriter::raw(std::string_view xml)
{
    m_text += xml;
}

std::string ReplyWriter::finish()
{
    while (!m_open.empty()) {
        close();
    }
    return std::move(m_text);
}

void ReplyWriter::startTag(std::string_view name, const Attributes &attributes)
{
    m_text += '<';
    m_text += name;
    for (const auto &[attribute, value] : attributes) {
        m_text += ' ';
        m_text += attribute;
        m_text += "='";
        appendEscaped(m_text, value);
        m_text += '\'';
    }
}

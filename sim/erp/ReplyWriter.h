#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Builds the text of an XML reply the way the connector writes it: no declaration, no
/// whitespace between elements, attributes in single quotes.
class ReplyWriter
{
public:
    using Attributes = std::vector<std::pair<std::string_view, std::string_view>>;

    /// Starts the reply with its document element open.
    explicit ReplyWriter(std::string_view root);

    void open(std::string_view name, const Attributes &attributes = {});
    void close();
    /// <name>text</name>, or <name/> when the text is empty.
    void leaf(std::string_view name, std::string_view text);
    void empty(std::string_view name, const Attributes &attributes);
    /// Text that is XML already, such as attributes kept in a table, copied as it stands.
    void raw(std::string_view xml);
    /// Closes what is open and gives the reply.
    std::string finish();

private:
    void startTag(std::string_view name, const Attributes &attributes);

    std::string m_text;
    std::vector<std::string> m_open;
};

#pragma once

#include <cstdint>
#include <pugixml.hpp>
#include <string>

/// A reply of the marketplace: a document element named after the operation, optionally
/// opened by the status block RESULT (RETURNCODE, DESCRIPTION). The status block always comes
/// first, so that a reader looking for the first RETURNCODE in the document finds it.
class ReplyDocument
{
public:
    explicit ReplyDocument(const std::string &rootName);

    pugi::xml_node root() const { return m_root; }
    /// Puts the status block in front of everything else, replacing any earlier one.
    void setResult(std::int32_t code, const std::string &description);
    /// The document as one line; with an XML declaration in front when asked for.
    std::string text(bool withDeclaration) const;

    /// A reply that only carries a status.
    static std::string status(const std::string &rootName, std::int32_t code,
                              const std::string &description, bool withDeclaration);

private:
    pugi::xml_document m_doc;
    pugi::xml_node m_root;
};

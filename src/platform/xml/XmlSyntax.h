#pragma once

#include <string_view>

// The XML parser underneath is lenient where the documents we exchange must not be: a bare
// "&", a "<" inside an attribute value or a repeated attribute would load without complaint,
// and a reply built by concatenation with such a value has to fail as malformed instead.

/// True when text breaks none of the lexical rules the parser does not check itself: bytes
/// that are not UTF-8, control characters, references that are not "&amp;" "&lt;" "&gt;"
/// "&quot;" "&apos;" or a valid character reference, "<" in an attribute value, "]]>" in
/// character data, an attribute repeated in one tag, a declaration anywhere but at the start.
bool passesStrictMarkupRules(std::string_view text);

/// True when name is usable as an element or attribute name (a prefix with a colon allowed).
bool isXmlName(std::string_view name);

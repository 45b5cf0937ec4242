#include "sim/erp/SearchMatcher.h"

#include <array>
#include <cctype>
#include <utility>

namespace {

// The two-byte UTF-8 letters of Spanish, with what they fold to.
constexpr std::array<std::pair<std::string_view, char>, 16> kAccented{{
    {"á", 'a'},
    {"é", 'e'},
    {"í", 'i'},
    {"ó", 'o'},
    {"ú", 'u'},
    {"ü", 'u'},
    {"ñ", 'n'},
    {"Á", 'a'},
    {"É", 'e'},
    {"Í", 'i'},
    {"Ó", 'o'},
    {"Ú", 'u'},
    {"Ü", 'u'},
    {"Ñ", 'n'},
    {"ç", 'c'},
    {"Ç", 'c'},
}};

std::string_view trimmed(std::string_view text)
{
    const auto blank = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
    while (!text.empty() && blank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && blank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

} // namespace

SearchMatcher::SearchMatcher(Field field, std::string_view text)
    : m_field(field), m_text(folded(trimmed(text)))
{
}

bool SearchMatcher::matches(const ErpDataSet::Product &product) const
{
    switch (m_field) {
    case Field::Code:
        return folded(product.id).starts_with(m_text);
    case Field::Description:
        return folded(product.description).find(m_text) != std::string::npos;
    case Field::Reference:
        return folded(product.reference).find(m_text) != std::string::npos;
    }
    return false;
}

std::string SearchMatcher::folded(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool replaced = false;
        for (const auto &[letter, plain] : kAccented) {
            if (text.substr(i, letter.size()) == letter) {
                result += plain;
                i += letter.size() - 1;
                replaced = true;
                break;
            }
        }
        if (!replaced) {
            result += static_cast<char>(std::tolower(static_cast<unsigned char>(text[i])));
        }
    }
    return result;
}

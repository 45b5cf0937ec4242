#pragma once

#include "sim/erp/ErpDataSet.h"

#include <string>
#include <string_view>

/// Which products a search text finds. A code search finds the codes that begin with the text,
/// a description or reference search the ones that contain it; case and the accents of Spanish
/// do not count, blanks around the text are dropped, and an empty text finds everything.
class SearchMatcher
{
public:
    enum class Field { Code = 1, Description = 2, Reference = 3 };

    SearchMatcher(Field field, std::string_view text);

    bool matches(const ErpDataSet::Product &product) const;

    /// Lower case without accents, for comparing UTF-8 Spanish texts.
    static std::string folded(std::string_view text);

private:
    Field m_field;
    std::string m_text;
};

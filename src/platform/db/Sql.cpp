#include "platform/db/Sql.h"

#include <algorithm>

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Digits with an optional sign and an optional decimal part: what both engines read as a
// numeric literal and nothing that could end the literal early.
bool isNumber(std::string_view text)
{
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text.remove_prefix(1);
    const auto point = text.find('.');
    const auto whole = text.substr(0, point);
    const auto fraction =
        point == std::string_view::npos ? std::string_view() : text.substr(point + 1);
    if (whole.empty() && fraction.empty())
        return false;
    return std::all_of(whole.begin(), whole.end(), isDigit) &&
           std::all_of(fraction.begin(), fraction.end(), isDigit);
}

} // namespace

// Room for a usual statement at once, rather than a reallocation for each piece.
constexpr std::size_t kUsualLength = 256;

Sql::Sql()
{
    m_text.reserve(kUsualLength);
}

Sql::Sql(SqlFragment constant) : Sql()
{
    m_text = constant.text();
}

Sql &Sql::operator<<(SqlFragment piece)
{
    m_text += piece.text();
    return *this;
}

Sql &Sql::operator<<(const SqlText &value)
{
    if (value.value.find('\'') != std::string::npos)
        refuse("El valor de texto «" + value.value + "» contiene un apóstrofo");
    else if (value.value.find('\0') != std::string::npos)
        refuse("Un valor de texto contiene un carácter nulo");
    m_text += value.value;
    return *this;
}

Sql &Sql::operator<<(const SqlNumber &value)
{
    if (!isNumber(value.value))
        refuse("El valor «" + value.value + "» no es un número");
    m_text += value.value;
    return *this;
}

Sql &Sql::operator<<(const Sql &other)
{
    if (!other.isValid())
        refuse(other.problem());
    m_text += other.text();
    return *this;
}

void Sql::refuse(std::string problem)
{
    if (m_problem.empty())
        m_problem = std::move(problem);
}

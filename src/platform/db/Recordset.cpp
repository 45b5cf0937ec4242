#include "platform/db/Recordset.h"

#include "platform/core/RaisedError.h"
#include "platform/db/RecordsetCursor.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

Recordset::Recordset(std::shared_ptr<RecordsetCursor> cursor) : m_cursor(std::move(cursor)) {}

bool Recordset::isOpen() const
{
    return m_cursor && m_cursor->isOpen();
}

bool Recordset::eof() const
{
    return !isOpen() || m_cursor->eof();
}

void Recordset::moveNext()
{
    if (!isOpen())
        raiseError(RuntimeErrorNumber::InvalidCall, "El recordset está cerrado");
    if (m_cursor->eof())
        raiseError(RuntimeErrorNumber::InvalidCall, "El recordset no tiene más filas");
    m_cursor->moveNext();
}

int Recordset::fieldCount() const
{
    return isOpen() ? m_cursor->fieldCount() : 0;
}

bool Recordset::isNull(int index) const
{
    return !currentRow(index).field(index).has_value();
}

std::string Recordset::fieldText(int index) const
{
    return currentRow(index).field(index).value_or(std::string());
}

double Recordset::fieldNumber(int index) const
{
    const auto value = currentRow(index).field(index);
    if (!value)
        raiseError(RuntimeErrorNumber::TypeMismatch,
                   "El campo " + std::to_string(index) + " es Null y no un número");
    std::string_view digits = *value;
    digits.remove_prefix(std::min(digits.find_first_not_of(' '), digits.size()));
    digits.remove_suffix(digits.size() - std::min(digits.find_last_not_of(' ') + 1, digits.size()));
    if (digits.starts_with('+'))
        digits.remove_prefix(1);
    // from_chars rather than strtod: the process may run under a locale whose decimal
    // separator is a comma, and the engines always write a point.
    double number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (digits.empty() || error != std::errc() || end != digits.data() + digits.size() ||
        !std::isfinite(number))
        raiseError(RuntimeErrorNumber::TypeMismatch,
                   "El campo " + std::to_string(index) + " no es un número: «" + *value + "»");
    return number;
}

void Recordset::close()
{
    if (m_cursor)
        m_cursor->close();
}

const RecordsetCursor &Recordset::currentRow(int index) const
{
    if (!isOpen())
        raiseError(RuntimeErrorNumber::InvalidCall, "El recordset está cerrado");
    if (m_cursor->eof())
        raiseError(RuntimeErrorNumber::InvalidCall, "El recordset no tiene una fila actual");
    if (index < 0 || index >= m_cursor->fieldCount())
        raiseError(RuntimeErrorNumber::SubscriptOutOfRange,
                   "El recordset no tiene el campo " + std::to_string(index));
    return *m_cursor;
}

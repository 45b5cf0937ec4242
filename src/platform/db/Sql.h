#pragma once

#include <concepts>
#include <string>
#include <string_view>

/// A piece of SQL written in the program's source. Only string constants convert to it, so
/// text that comes from outside enters a statement only as a checked value.
class SqlFragment
{
public:
    consteval SqlFragment(const char *text) : m_text(text) {}

    std::string_view text() const { return m_text; }

private:
    std::string_view m_text;
};

/// A value written inside the quotes of a statement.
struct SqlText
{
    std::string value;
};

/// A value written as a bare number.
struct SqlNumber
{
    std::string value;
};

inline SqlText sqlText(std::string value)
{
    return {std::move(value)};
}

inline SqlNumber sqlNumber(std::string value)
{
    return {std::move(value)};
}

template <std::integral T> SqlNumber sqlNumber(T value)
{
    return {std::to_string(value)};
}

/// A statement built by concatenation, as the program has always written its SQL:
///
///     Sql s;
///     s << "SELECT count(*) FROM WITIENDAS where IdTienda ='" << sqlText(id) << "'";
///
/// The text is exactly the pieces joined. The builder also checks each value as it goes in:
/// a text value holding an apostrophe (or a NUL), or a number slot holding anything but an
/// optionally signed decimal number, makes the statement invalid. Connection::execute refuses
/// an invalid statement before it reaches the engine, so a value can never change what the
/// statement says.
class Sql
{
public:
    Sql();
    /// A statement that is a constant, such as Sql("SELECT @@IDENTITY").
    explicit Sql(SqlFragment constant);

    Sql &operator<<(SqlFragment piece);
    Sql &operator<<(const SqlText &value);
    Sql &operator<<(const SqlNumber &value);
    /// Appends another statement's text; its problem, if any, comes along.
    Sql &operator<<(const Sql &other);

    const std::string &text() const { return m_text; }
    bool isValid() const { return m_problem.empty(); }
    /// Why the first refused value was refused, naming the value; empty when valid.
    const std::string &problem() const { return m_problem; }

private:
    void refuse(std::string problem);

    std::string m_text;
    std::string m_problem;
};

#pragma once

#include <string>
#include <vector>

/// An ODBC-style connection string, "Key=value;Key={value; with braces}", read into its
/// pairs. Keys compare without regard to case; values keep their text, without the braces.
class ConnectionString
{
public:
    explicit ConnectionString(const std::string &text);

    /// The value of the key, or the empty text when the key is absent.
    std::string value(const std::string &key) const;
    /// True when the driver is the program's own, "SQL Server", in any case.
    bool hasServerDriver() const;
    /// Replaces the value of the key, or adds the pair at the end.
    void set(const std::string &key, const std::string &value);
    /// The pairs again as text. The driver, and any value holding ';' or a brace, are
    /// written in braces, with "}" doubled inside them.
    std::string text() const;

private:
    struct Pair
    {
        std::string key;
        std::string value;
    };
    std::size_t indexOf(const std::string &key) const;

    std::vector<Pair> m_pairs;
};

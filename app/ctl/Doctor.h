#pragma once

#include <ostream>
#include <string>

class Connection;

/// The links the assistant needs, each checked on its own and told in one line: what holds, or
/// what is wrong and what to do. Nothing is written anywhere; no box is shown.
class Doctor
{
public:
    explicit Doctor(std::ostream &out) : m_out(out) {}

    /// Checks every link in turn, the later ones even when an earlier one fails. 0 when all
    /// hold, 2 when any fails.
    int run();

private:
    void marketplace();
    void libraries();
    void erp();
    void database();
    void numIntDefault(Connection &connection);
    void logFolder();
    void decimalSeparator();

    /// Writes the line of one link: "[ok] what" or "[falla] what: problem. remedy".
    void line(bool holds, const std::string &what, const std::string &problem = {});

    std::ostream &m_out;
    bool m_erpLoads = true;
    bool m_coordinates = false;
    bool m_allHold = true;
};

#pragma once

#include <QDateTime>
#include <string>

// A Datetime property travels as year/month/dayThour:minute:second and shows as the machine
// writes dates.

/// The form in which a Datetime value is stored and sent: 2024/03/14T09:05:00.
std::string DateToISO8601(const QDateTime &date);

/// Reads year/month/dayThour:minute:second, each field at least one character long and the
/// seconds reaching to the end; fields are counted from 1 January 1900, so a month of 13 is
/// January of the next year. A text without the five separators raises -10503.
QDateTime ISO8601ToDate(const std::string &text);

/// A date as the machine writes it: the locale's short date with a four-digit year, and the
/// time unless it is midnight.
std::string machineDateText(const QDateTime &date);

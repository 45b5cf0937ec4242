#include "editors/GridDates.h"

#include "platform/core/RaisedError.h"
#include "shell/Constants.h"

#include <QLocale>
#include <array>

std::string DateToISO8601(const QDateTime &date)
{
    return date.toString("yyyy/MM/dd'T'HH:mm:ss").toStdString();
}

QDateTime ISO8601ToDate(const std::string &text)
{
    constexpr std::array<char, 5> separators{'/', '/', 'T', ':', ':'};
    std::array<std::size_t, 5> at{};
    // Each search starts two characters behind the previous separator, so that no field is
    // empty.
    std::size_t from = 1;
    for (std::size_t i = 0; i < separators.size(); ++i) {
        at[i] = text.find(separators[i], from);
        if (at[i] == std::string::npos)
            raiseError(-10503, "La fecha " + text + " no tiene la forma año/mes/díaThh:mm:ss");
        from = at[i] + 2;
    }
    const auto field = [&](std::size_t begin, std::size_t end) {
        return leadingNumber(text.substr(begin, end - begin));
    };
    const int year = field(0, at[0]);
    const int month = field(at[0] + 1, at[1]);
    const int day = field(at[1] + 1, at[2]);
    const int hour = field(at[2] + 1, at[3]);
    const int minute = field(at[3] + 1, at[4]);
    const int second = field(at[4] + 1, text.size());
    // Calendar arithmetic on the date and the clock apart, so that no daylight-saving change
    // moves the hours.
    const qint64 seconds =
        static_cast<qint64>(hour) * 3600 + static_cast<qint64>(minute) * 60 + second;
    const qint64 days = seconds >= 0 ? seconds / 86400 : -((-seconds + 86399) / 86400);
    const QDate date =
        QDate(1900, 1, 1).addYears(year - 1900).addMonths(month - 1).addDays(day - 1 + days);
    return QDateTime(date, QTime(0, 0).addSecs(static_cast<int>(seconds - days * 86400)));
}

std::string machineDateText(const QDateTime &date)
{
    const QLocale locale = QLocale::system();
    QString format = locale.dateFormat(QLocale::ShortFormat);
    if (!format.contains("yyyy"))
        format.replace("yy", "yyyy");
    QString text = locale.toString(date.date(), format);
    if (date.time() != QTime(0, 0))
        text += " " + locale.toString(date.time(), "H:mm:ss");
    return text.toStdString();
}

#include "shell/Constants.h"

#include "shell/ErrorHandling.h"

#include <QLocale>

std::string decimalSeparatorOf(const QLocale &locale)
{
    return locale.toString(1.1).mid(1, 1).toStdString();
}

std::string gDecimalSeparator = decimalSeparatorOf(QLocale::system());

double MaxOf(double a, double b)
{
    return a > b ? a : b;
}

double MinOf(double a, double b)
{
    return a < b ? a : b;
}

QDateTime convertToDate(const std::string &text)
{
    const QDateTime zeroDate(QDate(1899, 12, 30), QTime(0, 0));
    const QString value = QString::fromStdString(text).trimmed();
    const QLocale locale = QLocale::system();
    const auto parse = [&]() -> QDateTime {
        for (const auto format : {QLocale::ShortFormat, QLocale::LongFormat}) {
            const QDateTime dateTime = locale.toDateTime(value, format);
            if (dateTime.isValid())
                return dateTime;
            const QDate date = locale.toDate(value, format);
            if (date.isValid())
                return QDateTime(date, QTime(0, 0));
        }
        for (const char *format : {"yyyy-M-d H:m:s", "yyyy-M-d H:m", "yyyy-M-d", "d/M/yyyy H:m:s",
                                   "d/M/yyyy"}) {
            const QDateTime dateTime = QDateTime::fromString(value, format);
            if (dateTime.isValid())
                return dateTime;
        }
        raiseRuntimeError(RuntimeErrorNumber::TypeMismatch);
    };
    const QDateTime result = withHandler("Constants:convertToDate", parse);
    return result.isValid() ? result : zeroDate;
}

std::string convertToString(const QDateTime &value)
{
    return withHandler("Constants:convertToString", [&] {
        const QDate date = value.date();
        const QTime time = value.time();
        return std::to_string(date.year()) + "-" + std::to_string(date.month()) + "-"
               + std::to_string(date.day()) + " " + std::to_string(time.hour()) + ":"
               + std::to_string(time.minute()) + ":" + std::to_string(time.second());
    });
}

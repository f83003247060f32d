#include "Dates.h"

namespace ordwell::Dates {

QString toStored(const QDate& date) {
    return date.toString(Qt::ISODate);
}

QString toStored(const QDateTime& dateTime) {
    return dateTime.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss"));
}

QDate dateFromStored(const QString& text) {
    return QDate::fromString(text.left(10), Qt::ISODate);
}

QDateTime dateTimeFromStored(const QString& text) {
    if (text.size() <= 10)
        return QDateTime(dateFromStored(text), QTime(0, 0));
    QString t = text;
    t.replace(10, 1, QLatin1Char('T'));
    return QDateTime::fromString(t.left(19), Qt::ISODate);
}

QString shortDate(const QDate& date, const QLocale& locale) {
    return locale.toString(date, QLocale::ShortFormat);
}

QString longDate(const QDate& date, const QLocale& locale) {
    return locale.toString(date, QLocale::LongFormat);
}

QDate parseShortDate(const QString& text, const QLocale& locale) {
    const QString trimmed = text.trimmed();
    const QString format = locale.dateFormat(QLocale::ShortFormat);
    QDate date = locale.toDate(trimmed, format);
    if (!date.isValid() && format.contains(QLatin1String("yy")) && !format.contains(QLatin1String("yyyy"))) {
        QString longYear = format;
        longYear.replace(QLatin1String("yy"), QLatin1String("yyyy"));
        date = locale.toDate(trimmed, longYear);
    }
    if (date.isValid() && !format.contains(QLatin1String("yyyy")) && date.year() < 1930)
        date = date.addYears(100); // two-digit years: 00..29 mean this century
    return date;
}

} // namespace ordwell::Dates

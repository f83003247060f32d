#pragma once

#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QString>

namespace ordwell {

// Dates are stored as ISO-8601 text and shown in the user's regional formats.
namespace Dates {

QString toStored(const QDate& date);         // "2020-03-11"
QString toStored(const QDateTime& dateTime); // "2020-03-11T14:05:00"
QDate dateFromStored(const QString& text);   // accepts either stored form
QDateTime dateTimeFromStored(const QString& text);

QString shortDate(const QDate& date, const QLocale& locale = QLocale());
QString longDate(const QDate& date, const QLocale& locale = QLocale());

// Reads a date typed in the regional short form ("11/03/2020" in en_GB), also with a
// four-digit year where the short form has two.
QDate parseShortDate(const QString& text, const QLocale& locale = QLocale());

} // namespace Dates
} // namespace ordwell

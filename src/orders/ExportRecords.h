#pragma once

#include "common/Money.h"

#include <QByteArray>
#include <QList>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <optional>

namespace ordwell {

// The texts an exported order is made of, already formatted the way they are written.
struct ExportLineTexts {
    QString line;
    QString code;
    std::optional<QString> description; // nothing when the item is no longer in the catalogue
    QString quantity;
    QString price;
    QString value;
};

struct ExportTexts {
    QStringList from; // the organisation: name, department, three address lines, county,
                      // postcode, contact, telephone, e-mail
    QStringList to;   // customer ID, vendor name, three address lines, county, postcode,
                      // representative's name, telephone, e-mail, contact's name, telephone,
                      // fax, e-mail
    QString orderId;
    QString orderDate;
    QString name;
    QString reference;
    QString total;
    QString note1;
    QString note2;
    QList<ExportLineTexts> lines;
};

// The export file's records, written without quoting or escaping: a comma inside a value is
// written as it is, as the receiving systems expect. Pure functions, no database, no files.
namespace ExportRecords {

inline constexpr int FromFieldCount = 10;
inline constexpr int ToFieldCount = 14;
inline const QString NoItemFound = QStringLiteral("No Item Found!");

// The text after each record's prefix. The organisation and vendor always give their full
// field count, missing ones empty.
QString ExportFromText(const ExportTexts& texts);
QString ExportToText(const ExportTexts& texts);
QString ExportOrderText(const ExportTexts& texts);
// The first note line drops a note of exactly one space; the second is written as it is.
QString ExportNoteText(const QString& note, bool firstLine);
QString ExportLineText(const ExportLineTexts& line);

// Every record in file order: FROM, TO, ORDER, two NOTES, then one LINE per order line.
// A line break inside a value becomes a space, so each record is exactly one line.
QStringList Records(const ExportTexts& texts);

// The file's contents: each record ended by CR LF, in the system's text encoding.
QByteArray FileContents(const ExportTexts& texts);

// A unit price as the plain conversion of a currency amount: no grouping, no fixed decimals,
// the regional decimal point ("1.5", "700", "0.1234").
QString PlainPrice(Money price, const QLocale& locale = QLocale());

} // namespace ExportRecords
} // namespace ordwell

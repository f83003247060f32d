#pragma once

#include "common/Money.h"
#include "common/Status.h"

#include <QDate>
#include <QLocale>
#include <QString>

namespace ordwell {

// One catalogue entry as a price-list line gives it.
struct ImportedItem {
    QString code; // upper-cased
    QString descr;
    int packqty = 0;
    int defqty = 0;
    Money price;
    QDate expiry;
    QString gtin; // 14 digits from an optional seventh field; empty leaves the item's own
};

// Reads one line of a price list: six fields split at the first five commas (the sixth is the
// rest of the line), not trimmed, checked in field order: code (upper-cased, 1-25 capitals and
// digits), description (1-55 characters), pack and default quantities (1-5 characters, a whole
// number), price (1-8 characters, a number of the locale, not below zero) and expiry (a date:
// the locale's short form or yyyy-MM-dd). Numbers may have blanks around them, within their
// length. An optional seventh field after the expiry is the item's GTIN (8, 12, 13 or 14
// digits with a right check digit, given as 14). The failure names the first field that is wrong. A line ending in a
// carriage return is read without it.
Result<ImportedItem> parseImportLine(QStringView line, const QLocale& locale = QLocale());

// Reads the lines of one price list as parseImportLine does. It remembers the last expiry it
// read: most lines of a price list share their expiry, and reading a date in the locale's format
// costs more than all the rest of a line.
class ImportLineParser {
public:
    explicit ImportLineParser(QLocale locale = QLocale());
    Result<ImportedItem> parse(QStringView line);

private:
    QLocale m_locale;
    QString m_lastExpiryText;
    QDate m_lastExpiry;
};

} // namespace ordwell

#include "ImportLine.h"

#include "catalogue/ScanReading.h"
#include "common/Dates.h"
#include "common/TextChecks.h"

namespace ordwell {

namespace {

constexpr int FieldCount = 6;

// A whole number of 1 to 5 characters. Blanks around it are allowed, as the numeric test of the
// platform the price lists come from allows them (spreadsheets pad columns so), but they count
// towards the length, since fields are not trimmed; blanks inside the number are not allowed.
std::optional<int> quantity(QStringView text) {
    if (text.isEmpty() || text.size() > 5)
        return std::nullopt;
    const QStringView digits = text.trimmed();
    if (digits.isEmpty())
        return std::nullopt;
    for (QChar c : digits) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return std::nullopt;
    }
    return digits.toInt();
}

QDate expiryDate(const QString& text, const QLocale& locale) {
    const QDate date = Dates::parseShortDate(text, locale);
    if (date.isValid())
        return date;
    return QDate::fromString(text.trimmed(), Qt::ISODate);
}

Status wrong(const QString& field) {
    return Status::fail(QStringLiteral("the %1 is not valid").arg(field));
}

} // namespace

ImportLineParser::ImportLineParser(QLocale locale) : m_locale(std::move(locale)) {}

Result<ImportedItem> ImportLineParser::parse(QStringView line) {
    if (line.endsWith(QLatin1Char('\r')))
        line.chop(1);

    QStringView fields[FieldCount];
    qsizetype start = 0;
    for (int i = 0; i < FieldCount - 1; ++i) {
        const qsizetype comma = line.indexOf(QLatin1Char(','), start);
        if (comma < 0)
            return Status::fail(QStringLiteral("it has fewer than five commas"));
        fields[i] = line.mid(start, comma - start);
        start = comma + 1;
    }
    fields[FieldCount - 1] = line.mid(start);
    // Six-field lists read as they always did; a seventh field, after one more comma, is a GTIN.
    QStringView gtinField;
    if (const qsizetype comma = fields[FieldCount - 1].indexOf(QLatin1Char(',')); comma >= 0) {
        gtinField = fields[FieldCount - 1].mid(comma + 1);
        fields[FieldCount - 1] = fields[FieldCount - 1].left(comma);
    }

    ImportedItem item;
    item.code = UpperCaseCode(fields[0].toString());
    if (item.code.isEmpty() || item.code.size() > 25 || !IsValidCode(item.code, false))
        return wrong(QStringLiteral("code"));

    if (fields[1].isEmpty() || fields[1].size() > 55)
        return wrong(QStringLiteral("description"));
    item.descr = fields[1].toString();

    const auto pack = quantity(fields[2]);
    if (!pack)
        return wrong(QStringLiteral("pack quantity"));
    item.packqty = *pack;
    const auto def = quantity(fields[3]);
    if (!def)
        return wrong(QStringLiteral("default quantity"));
    item.defqty = *def;

    // Blanks around the price are allowed and counted as for the quantities (the parse trims).
    const QString priceText = fields[4].toString();
    const auto price = priceText.size() > 8 ? std::nullopt : Money::parse(priceText, m_locale);
    if (!price || *price < Money())
        return wrong(QStringLiteral("price"));
    item.price = *price;

    if (fields[5] != m_lastExpiryText) {
        m_lastExpiryText = fields[5].toString();
        m_lastExpiry = m_lastExpiryText.isEmpty() ? QDate() : expiryDate(m_lastExpiryText, m_locale);
    }
    item.expiry = m_lastExpiry;
    if (!item.expiry.isValid())
        return wrong(QStringLiteral("expiry date"));

    const QString gtin = gtinField.trimmed().toString();
    if (!gtin.isEmpty()) {
        if (!Gtin::hasGtinLength(gtin) || !Gtin::checkDigitIsRight(gtin))
            return wrong(QStringLiteral("GTIN"));
        item.gtin = Gtin::to14(gtin);
    }
    return item;
}

Result<ImportedItem> parseImportLine(QStringView line, const QLocale& locale) {
    return ImportLineParser(locale).parse(line);
}

} // namespace ordwell

#include "ExportRecords.h"

#include <QStringEncoder>

namespace ordwell::ExportRecords {

namespace {

QString oneLine(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String(" "));
    text.replace(QLatin1Char('\r'), QLatin1Char(' '));
    text.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return text;
}

QString exactly(QStringList fields, int count) {
    while (fields.size() < count)
        fields << QString();
    return fields.mid(0, count).join(QLatin1Char(','));
}

} // namespace

QString ExportFromText(const ExportTexts& texts) {
    return exactly(texts.from, FromFieldCount);
}

QString ExportToText(const ExportTexts& texts) {
    return exactly(texts.to, ToFieldCount);
}

QString ExportOrderText(const ExportTexts& texts) {
    return QStringList{texts.orderId, texts.orderDate, texts.name, texts.reference, texts.total}.join(QLatin1Char(','));
}

QString ExportNoteText(const QString& note, bool firstLine) {
    if (firstLine && note == QLatin1String(" "))
        return {};
    return note;
}

QString ExportLineText(const ExportLineTexts& line) {
    return QStringList{line.line,     line.code,  line.description.value_or(NoItemFound),
                       line.quantity, line.price, line.value}
        .join(QLatin1Char(','));
}

QStringList Records(const ExportTexts& texts) {
    QStringList records;
    records << QStringLiteral("FROM:,") + ExportFromText(texts);
    records << QStringLiteral("TO:,") + ExportToText(texts);
    records << QStringLiteral("ORDER:,") + ExportOrderText(texts);
    records << QStringLiteral("NOTES:,") + ExportNoteText(texts.note1, true);
    records << QStringLiteral("NOTES:,") + ExportNoteText(texts.note2, false);
    for (const ExportLineTexts& line : texts.lines)
        records << QStringLiteral("LINE:") + ExportLineText(line);
    for (QString& record : records)
        record = oneLine(record);
    return records;
}

QByteArray FileContents(const ExportTexts& texts) {
    QString text;
    for (const QString& record : Records(texts))
        text += record + QLatin1String("\r\n");
    QStringEncoder encoder(QStringConverter::System);
    return encoder.encode(text);
}

QString PlainPrice(Money price, const QLocale& locale) {
    const qint64 units = price.tenThousandths();
    const qint64 magnitude = units < 0 ? -units : units;
    QString text = QString::number(magnitude / Money::Scale);
    QString fraction = QStringLiteral("%1").arg(magnitude % Money::Scale, 4, 10, QLatin1Char('0'));
    while (fraction.endsWith(QLatin1Char('0')))
        fraction.chop(1);
    if (!fraction.isEmpty())
        text += locale.decimalPoint() + fraction;
    return units < 0 ? locale.negativeSign() + text : text;
}

} // namespace ordwell::ExportRecords

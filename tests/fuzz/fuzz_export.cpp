// An order's export texts as bytes: the first two bytes say how many organisation, vendor and
// line fields there are, the rest is split at NUL bytes into the texts in their order. The
// records written must keep their count, prefixes and fields, one record a line.
#include "FuzzSupport.h"

#include "orders/ExportRecords.h"

#include <QStringDecoder>

using namespace ordwell;

namespace {

// The texts handed out in order; an empty one once they run out.
class Texts {
public:
    explicit Texts(const QByteArray& bytes) : m_parts(bytes.split('\0')) {}
    QString next() { return m_next < m_parts.size() ? QString::fromUtf8(m_parts.at(m_next++)) : QString(); }

private:
    QList<QByteArray> m_parts;
    qsizetype m_next = 0;
};

QString oneLine(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String(" "));
    text.replace(QLatin1Char('\r'), QLatin1Char(' '));
    text.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return text;
}

void checkRecord(const QString& record, const QString& prefix, const QStringList& fields, qsizetype index) {
    const QString expected = prefix + oneLine(fields.join(QLatin1Char(',')));
    fuzz::check(record == expected, "a record does not hold its fields",
                QString::number(index) + QStringLiteral(": ") + record + QStringLiteral(" / ") + expected);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::fixLocale();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2)
        return 0;
    const int fromCount = data[0] % 13;      // fewer or more than the ten written
    const int toCount = (data[0] / 13) % 17; // fewer or more than the fourteen written
    const int lineCount = data[1] % 8;
    const int missingDescriptions = data[1] >> 3; // a bit a line: the item is gone
    Texts texts(QByteArray(reinterpret_cast<const char*>(data) + 2, qsizetype(size) - 2));

    ExportTexts order;
    for (int i = 0; i < fromCount; ++i)
        order.from << texts.next();
    for (int i = 0; i < toCount; ++i)
        order.to << texts.next();
    order.orderId = texts.next();
    order.orderDate = texts.next();
    order.name = texts.next();
    order.reference = texts.next();
    order.total = texts.next();
    order.note1 = texts.next();
    order.note2 = texts.next();
    for (int i = 0; i < lineCount; ++i) {
        ExportLineTexts line;
        line.line = texts.next();
        line.code = texts.next();
        if (!(missingDescriptions & (1 << i)))
            line.description = texts.next();
        line.quantity = texts.next();
        line.price = texts.next();
        line.value = texts.next();
        order.lines << line;
    }

    const QStringList records = ExportRecords::Records(order);
    fuzz::check(records.size() == 5 + lineCount, "the record count is wrong");
    for (const QString& record : records)
        fuzz::check(!record.contains(QLatin1Char('\n')) && !record.contains(QLatin1Char('\r')), "a record spans lines",
                    record);

    QStringList from = order.from.mid(0, ExportRecords::FromFieldCount);
    while (from.size() < ExportRecords::FromFieldCount)
        from << QString();
    QStringList to = order.to.mid(0, ExportRecords::ToFieldCount);
    while (to.size() < ExportRecords::ToFieldCount)
        to << QString();
    checkRecord(records.at(0), QStringLiteral("FROM:,"), from, 0);
    checkRecord(records.at(1), QStringLiteral("TO:,"), to, 1);
    checkRecord(records.at(2), QStringLiteral("ORDER:,"),
                {order.orderId, order.orderDate, order.name, order.reference, order.total}, 2);
    checkRecord(records.at(3), QStringLiteral("NOTES:,"), {order.note1 == QLatin1String(" ") ? QString() : order.note1},
                3);
    checkRecord(records.at(4), QStringLiteral("NOTES:,"), {order.note2}, 4);
    for (int i = 0; i < lineCount; ++i) {
        const ExportLineTexts& line = order.lines.at(i);
        checkRecord(records.at(5 + i), QStringLiteral("LINE:"),
                    {line.line, line.code, line.description.value_or(ExportRecords::NoItemFound), line.quantity,
                     line.price, line.value},
                    5 + i);
    }

    // The file: every record once, each ended by CR LF, and nothing else.
    const QByteArray file = ExportRecords::FileContents(order);
    QStringDecoder decoder(QStringConverter::System);
    const QString written = decoder.decode(file);
    fuzz::check(written == records.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n"),
                "the file is not the records, one a line");
    return 0;
}

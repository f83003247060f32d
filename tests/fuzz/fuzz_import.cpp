// A price list as bytes: decoded and split into lines by the reader, every line read by the
// import's line parser, and what it accepts checked the way the item window would check it.
#include "FuzzSupport.h"

#include "catalogue/ImportLine.h"
#include "catalogue/ItemChecks.h"
#include "catalogue/PriceListReader.h"
#include "common/TextChecks.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace ordwell;

namespace {

QTemporaryDir* workDir = nullptr;
QString listPath;

// Writes an accepted item back as a line and reads it again: nothing of it may change.
void checkRoundTrip(const ImportedItem& item, const QLocale& locale) {
    const QString line = QStringList{item.code,
                                     item.descr,
                                     QString::number(item.packqty),
                                     QString::number(item.defqty),
                                     item.price.toPlainString(),
                                     item.expiry.toString(Qt::ISODate)}
                             .join(QLatin1Char(','));
    // A price with more than two decimals has no two-decimal text that gives it back.
    if (item.price.tenThousandths() % 100 != 0 || item.price.toPlainString().size() > 8)
        return;
    if (item.descr.contains(QLatin1Char(',')))
        return;
    const Result<ImportedItem> again = parseImportLine(line, locale);
    fuzz::check(again.isOk(), "an accepted item written back is refused",
                line + QStringLiteral(" : ") + again.message());
    fuzz::check(again->code == item.code && again->descr == item.descr && again->packqty == item.packqty &&
                    again->defqty == item.defqty && again->price == item.price && again->expiry == item.expiry,
                "an accepted item changed on the way back", line);
}

void checkLine(const QString& line, const QLocale& locale) {
    const Result<ImportedItem> item = parseImportLine(line, locale);
    if (!item) {
        fuzz::check(!item.message().isEmpty(), "a refusal without a reason", line);
        return;
    }
    fuzz::check(!item->code.isEmpty() && item->code.size() <= 25 && IsValidCode(item->code, false),
                "an accepted code breaks the rules", item->code);
    fuzz::check(!item->descr.isEmpty() && item->descr.size() <= 55, "an accepted description breaks the rules",
                item->descr);
    fuzz::check(item->packqty >= 0 && item->packqty <= 99999 && item->defqty >= 0 && item->defqty <= 99999,
                "an accepted quantity is out of range", line);
    fuzz::check(item->price >= Money(), "an accepted price is negative", line);
    fuzz::check(item->expiry.isValid(), "an accepted expiry is not a date", line);
    checkRoundTrip(*item, locale);

    // The same values in the item window's boxes: its checks must not fall over on them.
    QStringList boxes = ItemChecks::boxesFor(
        Item{item->code, item->descr, item->packqty, item->defqty, item->price, item->expiry, {}}, locale);
    ItemChecks::ValidateItem(boxes, QDate(2024, 6, 15), locale);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::fixLocale();
    workDir = new QTemporaryDir();
    if (!workDir->isValid())
        fuzz::fail("no temporary folder");
    listPath = workDir->filePath(QStringLiteral("list.csv"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    {
        QFile file(listPath);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            fuzz::fail("cannot write the price list");
        file.write(reinterpret_cast<const char*>(data), qint64(size));
    }
    const QLocale locale;
    const Result<int> counted = PriceListReader::countLines(listPath);

    PriceListReader reader(listPath);
    reader.open();
    QString line;
    int lines = 0;
    while (reader.readLine(line)) {
        ++lines;
        fuzz::check(!line.contains(QLatin1Char('\n')), "a line holds a line feed", line);
        fuzz::check(reader.lineNumber() == lines, "the line number is off");
        checkLine(line, locale);
    }
    if (counted)
        fuzz::check(counted.value() == lines, "the count and the lines read differ",
                    QString::number(counted.value()) + QLatin1Char('/') + QString::number(lines));
    else
        fuzz::check(lines == 0, "the count failed but lines were read", counted.message());
    return 0;
}

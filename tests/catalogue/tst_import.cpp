#include "VendorFixture.h"
#include "catalogue/ImportLine.h"
#include "catalogue/ItemImport.h"
#include "catalogue/ItemImporter.h"
#include "catalogue/PriceListReader.h"
#include "support/EdgeText.h"
#include "support/ScriptedPrompter.h"

#include <QDir>
#include <QStringEncoder>
#include <QTest>

using namespace ordwell;

namespace {

const QDate Today(2024, 6, 15);

// What the progress display was told, in order.
class RecordedProgress : public ImportProgress {
public:
    void showLineCount(int count) override { lineCount = count; }
    void showLine(int line) override { lastLine = line; }
    void showInfo(const QString& text) override { infos << text; }
    void showResetPrices(const QString& text) override { resetPrices = text; }
    int lineCount = -1;
    int lastLine = 0;
    QStringList infos;
    QString resetPrices;
};

QString incorrect(const QString& path, const QString& line) {
    return QStringLiteral("An error has been found in ") + QDir::toNativeSeparators(path) +
           QStringLiteral(" the line ") + line +
           QStringLiteral(" is incorrect, please correct this error and re-run the import");
}

// An item's stored description, quantities, price and expiry, or nothing when there is none.
QStringList item(const test::VendorFixture& v, const QString& code) {
    auto q = Sql::exec(
        v.db(), QStringLiteral("SELECT descr, packqty, defqty, price, priceexp FROM items WHERE code = ?"), {code});
    if (!q || !q.value().next())
        return {};
    return {q.value().value(0).toString(), q.value().value(1).toString(), q.value().value(2).toString(),
            Money::fromTenThousandths(q.value().value(3).toLongLong()).toPlainString(), q.value().value(4).toString()};
}

} // namespace

class TestImport : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void lineRules_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("refused"); // the field named, or empty for a good line
        // Lengths at their limits are linesAtTheEdges' rows, through the whole import.
        const auto row = [](const char* tag, const QString& line, const char* refused) {
            QTest::newRow(tag) << line << QString::fromLatin1(refused);
        };
        row("good", "AB12,Widget,6,2,12.50,31/12/2030", "");
        row("lower-case code", "ab12,Widget,6,2,12.50,31/12/2030", "");
        row("iso expiry", "AB12,Widget,6,2,12.50,2030-12-31", "");
        row("too few commas", "AB12,Widget,6,2,12.50", "five commas");
        row("comma in description", "AB12,Widget, large,6,2,12.50,31/12/2030", "pack quantity");
        row("empty code", ",Widget,6,2,12.50,31/12/2030", "code");
        row("space in code", "AB 12,Widget,6,2,12.50,31/12/2030", "code");
        row("fractional default", "AB12,Widget,6,1.5,12.50,31/12/2030", "default quantity");
        row("negative price", "AB12,Widget,6,2,-1.00,31/12/2030", "price");
        row("price not a number", "AB12,Widget,6,2,1.2.3,31/12/2030", "price");
        row("no expiry", "AB12,Widget,6,2,12.50,", "expiry");
        row("no such day", "AB12,Widget,6,2,12.50,31/02/2030", "expiry");
        row("comma in the expiry", "AB12,Widget,6,2,12.50,31/12,2030", "expiry");
        row("GTIN after the expiry", "AB12,Widget,6,2,12.50,31/12/2030,4006381333931", "");
        row("GTIN misread", "AB12,Widget,6,2,12.50,31/12/2030,4006381333932", "GTIN");
        row("GTIN of letters", "AB12,Widget,6,2,12.50,31/12/2030,x", "GTIN");
    }
    void lineRules() {
        QFETCH(QString, line);
        QFETCH(QString, refused);
        const Result<ImportedItem> parsed = parseImportLine(line);
        if (refused.isEmpty()) {
            QVERIFY2(parsed.isOk(), qPrintable(parsed.message()));
            QCOMPARE(parsed->code, QStringLiteral("AB12"));
            QCOMPARE(parsed->descr, QStringLiteral("Widget"));
            QCOMPARE(parsed->packqty, 6);
            QCOMPARE(parsed->defqty, 2);
            QCOMPARE(parsed->price.toPlainString(), QStringLiteral("12.50"));
            QCOMPARE(parsed->expiry, QDate(2030, 12, 31));
            QCOMPARE(parsed->gtin, line.count(QLatin1Char(',')) == 6 ? QStringLiteral("04006381333931") : QString());
        } else {
            QVERIFY(!parsed.isOk());
            QVERIFY2(parsed.message().contains(refused), qPrintable(parsed.message()));
        }
    }

    // A line at the edges of its columns: stored exactly as written, or the import stops on it
    // and stores nothing. Numbers one past their lengths are spreadsheetFiles' padded rows.
    void linesAtTheEdges_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("stored");
        const QString rest = QStringLiteral(",1,1,2.50,31/12/2030");
        const QString code25(25, QLatin1Char('Z'));
        const QString emoji = QStringLiteral("\U0001F600");
        QTest::newRow("code of 25") << code25 + QStringLiteral(",Bolt") + rest << true;
        QTest::newRow("code of 26") << code25 + QStringLiteral("Z,Bolt") + rest << false;
        QTest::newRow("accented code") << QStringLiteral("CAF\u00c91,Bolt") + rest << false;
        QTest::newRow("emoji ends at 55")
            << QStringLiteral("A1,") + test::edgeText(QStringLiteral("\u00df"), emoji, 55, 2) + rest << true;
        QTest::newRow("emoji one unit over")
            << QStringLiteral("A1,") + test::edgeText(QStringLiteral("\u00df"), emoji, 55, 1) + rest << false;
        QTest::newRow("quotes, backslash, tab") << QStringLiteral("A1,\"Bolt\" 3\\4\tM8") + rest << true;
        QTest::newRow("largest quantities") << QStringLiteral("A1,Bolt,99999,99999,2.50,31/12/2030") << true;
        QTest::newRow("price of eight") << QStringLiteral("A1,Bolt,1,1,99999.99,31/12/2030") << true;
    }
    void linesAtTheEdges() {
        QFETCH(QString, line);
        QFETCH(bool, stored);
        test::VendorFixture v;
        const QString path = v.folders().desktopDir() + QStringLiteral("/list.csv");
        QVERIFY(test::writeFile(path, (line + QStringLiteral("\r\n")).toUtf8()));
        const ImportOutcome outcome = ItemImporter(v.db(), Today).importFile(path);
        QCOMPARE(outcome.completed(), stored);
        QCOMPARE(v.count(QStringLiteral("items")), stored ? 1 : 0);
        const QStringList fields = line.split(QLatin1Char(','));
        if (stored)
            QCOMPARE(item(v, fields[0]), fields.mid(1, 4) + QStringList{"2030-12-31"});
    }

    // An incorrect line keeps exactly the lines before it, whatever batch they fell in, and
    // nothing after it is read; a header line therefore imports nothing.
    void anIncorrectLineKeepsExactlyTheEarlierLines_data() {
        QTest::addColumn<int>("badLine");
        QTest::addColumn<int>("batch");
        QTest::newRow("header") << 1 << 5000;
        QTest::newRow("inside a batch") << 6 << 4;
        QTest::newRow("right after a batch") << 5 << 4;
        QTest::newRow("one line batches") << 3 << 1;
    }
    void anIncorrectLineKeepsExactlyTheEarlierLines() {
        QFETCH(int, badLine);
        QFETCH(int, batch);
        test::VendorFixture v;
        QByteArray content;
        for (int i = 1; i <= 9; ++i)
            content += i == badLine ? QByteArray("code,descr,packqty,defqty,price,priceexp\n")
                                    : QByteArray("C") + QByteArray::number(i) + ",Item,1,1,1.00,31/12/2030\n";
        const QString path = v.folders().desktopDir() + QStringLiteral("/list.csv");
        QVERIFY(test::writeFile(path, content));
        ItemImporter importer(v.db(), Today);
        importer.setBatchSize(batch);
        const ImportOutcome outcome = importer.importFile(path);
        QCOMPARE(outcome.stop, ImportOutcome::Stop::IncorrectLine);
        QCOMPARE(outcome.linesStored, badLine - 1);
        QCOMPARE(v.count(QStringLiteral("items")), badLine - 1);
        QCOMPARE(outcome.message, incorrect(path, QStringLiteral("code,descr,packqty,defqty,price,priceexp")));
        QVERIFY(item(v, QStringLiteral("C%1").arg(badLine + 1)).isEmpty());
    }

    // abc1 updates ABC1; a price expired before today becomes 0.00 expiring 11 March 2020 and
    // is counted; one expiring today is kept; of a code given twice the later line stands; a
    // second run of the same file adds nothing.
    void updatesExpiriesAndRepeats() {
        test::VendorFixture v;
        v.addItem("ABC1", "9.99", QDate(2030, 1, 1), "Old name");
        const QString path = v.folders().desktopDir() + QStringLiteral("/list.txt");
        QVERIFY(test::writeFile(path, "abc1,New name,12,3,4.25,01/01/2031\n"
                                      "OLD1,Yesterday,1,1,5.00,14/06/2024\n"
                                      "OLD2,Last week,1,1,5.00,08/06/2024\n"
                                      "NOW1,Today,1,1,7.10,15/06/2024\n"
                                      "now1,Today again,1,1,7.20,15/06/2024"));
        ItemImporter importer(v.db(), Today);
        ImportOutcome outcome = importer.importFile(path);
        QVERIFY2(outcome.completed(), qPrintable(outcome.message));
        QCOMPARE(outcome.linesStored, 5);
        QCOMPARE(outcome.expiredCount, 2);
        QCOMPARE(v.count(QStringLiteral("items")), 4);
        QCOMPARE(item(v, QStringLiteral("ABC1")), (QStringList{"New name", "12", "3", "4.25", "2031-01-01"}));
        QCOMPARE(item(v, QStringLiteral("OLD1")), (QStringList{"Yesterday", "1", "1", "0.00", "2020-03-11"}));
        QCOMPARE(item(v, QStringLiteral("OLD2")).mid(3), (QStringList{"0.00", "2020-03-11"}));
        QCOMPARE(item(v, QStringLiteral("NOW1")), (QStringList{"Today again", "1", "1", "7.20", "2024-06-15"}));
        outcome = importer.importFile(path);
        QVERIFY(outcome.completed());
        QCOMPARE(v.count(QStringLiteral("items")), 4);
    }

    // A seventh field gives the item its GTIN; a six-field line leaves the stored one; a GTIN
    // another item holds, in the catalogue or earlier in the file, makes the line incorrect.
    void gtinsFromTheSeventhField() {
        test::VendorFixture v;
        v.addItem("KEEP", "1.00");
        v.addItem("HOLD", "1.00");
        QVERIFY(Sql::run(v.db(), QStringLiteral("UPDATE items SET gtin = CASE code WHEN 'KEEP' THEN '05012345670003' "
                                                "ELSE '05012345670010' END")));
        const QString path = v.folders().desktopDir() + QStringLiteral("/list.csv");
        QVERIFY(test::writeFile(path, "KEEP,Kept,1,1,2.00,31/12/2030\n"
                                      "NEW1,New,1,1,2.00,31/12/2030,5012345670027\n"
                                      "HOLD,Held,1,1,2.00,31/12/2030,05012345670010\n"
                                      "NEW2,Again,1,1,2.00,31/12/2030,5012345670027\n"));
        ItemImporter importer(v.db(), Today);
        const ImportOutcome outcome = importer.importFile(path);
        QCOMPARE(outcome.stop, ImportOutcome::Stop::IncorrectLine);
        QCOMPARE(outcome.linesStored, 3);
        auto gtinOf = [&v](const char* code) {
            return Sql::scalar(v.db(), QStringLiteral("SELECT gtin FROM items WHERE code = ?"),
                               {QString::fromLatin1(code)})
                ->toString();
        };
        QCOMPARE(gtinOf("KEEP"), QStringLiteral("05012345670003"));
        QCOMPARE(gtinOf("NEW1"), QStringLiteral("05012345670027"));
        QCOMPARE(gtinOf("HOLD"), QStringLiteral("05012345670010"));
        QCOMPARE(v.count(QStringLiteral("items")), 3);

        QVERIFY(test::writeFile(path, "NEW3,Taken,1,1,2.00,31/12/2030,5012345670003\n"));
        QCOMPARE(importer.importFile(path).stop, ImportOutcome::Stop::IncorrectLine);
        QCOMPARE(v.count(QStringLiteral("items")), 3);
    }

    // What spreadsheet programs save: Windows line ends, a byte-order mark, UTF-16, or the
    // Windows code page (not UTF-8) all import with their characters; numbers padded with blanks
    // are numbers as long as the padding fits the field's length, and a blank inside one is not.
    void spreadsheetFiles_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("descr"); // P1's description, or empty when the first line is refused
        QTest::addColumn<int>("packqty");   // -1: the file is refused before anything is read
        QTest::addColumn<QString>("price");
        const QString text =
            QStringLiteral("P1,Cr\u00e8me br\u00fbl\u00e9e,1,1,2.00,31/12/2030\nP2,Tea,1,1,1.00,31/12/2030\n");
        const QString creme = QStringLiteral("Cr\u00e8me br\u00fbl\u00e9e");
        QTest::newRow("utf-8") << text.toUtf8() << creme << 1 << "2.00";
        QTest::newRow("crlf") << QString(text).replace(QStringLiteral("\n"), QStringLiteral("\r\n")).toUtf8() << creme
                              << 1 << "2.00";
        QTest::newRow("no final line end") << text.chopped(1).toUtf8() << creme << 1 << "2.00";
        QTest::newRow("utf-8 mark") << QByteArray("\xEF\xBB\xBF") + text.toUtf8() << creme << 1 << "2.00";
        QStringEncoder utf16(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
        QTest::newRow("utf-16 with mark") << QByteArray(utf16(text)) << creme << 1 << "2.00";
        // The non-UTF-8 bytes come after a valid first line: the whole file is one code page.
        QTest::newRow("windows-1252") << QByteArray("P2,Tea,1,1,1.00,31/12/2030\r\nP1,Cr\xE8me \x80 \xA3 \x93"
                                                    "best\x94,1,1,2.00,31/12/2030\r\n")
                                      << QStringLiteral("Cr\u00e8me \u20ac \u00a3 \u201cbest\u201d") << 1 << "2.00";
        QTest::newRow("padded numbers") << QByteArray("P1,Tea, 12 ,1  ,  2.00,31/12/2030\nP2,Tea,1,1,1.00,31/12/2030\n")
                                        << "Tea" << 12 << "2.00";
        QTest::newRow("padded to the limit")
            << QByteArray("P1,Tea,  123,1, 1234.50,31/12/2030\n") << "Tea" << 123 << "1234.50";
        QTest::newRow("padding past the limit") << QByteArray("P1,Tea,   123,1,1.00,31/12/2030\n") << "" << 0 << "";
        QTest::newRow("price padded past the limit")
            << QByteArray("P1,Tea,1,1,  1234.50,31/12/2030\n") << "" << 0 << "";
        QTest::newRow("blank inside a quantity") << QByteArray("P1,Tea,1 2,1,1.00,31/12/2030\n") << "" << 0 << "";
        QTest::newRow("blank inside a price") << QByteArray("P1,Tea,1,1,1 .00,31/12/2030\n") << "" << 0 << "";
        QTest::newRow("only blanks") << QByteArray("P1,Tea,1,   ,1.00,31/12/2030\n") << "" << 0 << "";
        QTest::newRow("utf-8 mark on other bytes")
            << QByteArray("\xEF\xBB\xBFP2,Tea,1,1,1.00,31/12/2030\nP1,Cr\xE8me,1,1,1.00,31/12/2030\n") << "" << -1
            << "";
    }
    void spreadsheetFiles() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, descr);
        QFETCH(int, packqty);
        QFETCH(QString, price);
        test::VendorFixture v;
        const QString path = v.folders().desktopDir() + QStringLiteral("/list.csv");
        QVERIFY(test::writeFile(path, bytes));
        test::ScriptedPrompter prompter;
        RecordedProgress progress;
        PriceListReader priceList(path);
        const Result<int> lines = ItemImport::prepare(priceList, prompter, progress);
        if (packqty < 0) {
            QVERIFY(!lines);
            QVERIFY2(prompter.lastText().contains(QLatin1String("line 2")), qPrintable(prompter.lastText()));
            return;
        }
        QVERIFY(lines);
        const ItemImport::Run run = ItemImport::execute(v.db(), priceList, Today, prompter, progress);
        if (descr.isEmpty()) {
            QCOMPARE(run.outcome.stop, ImportOutcome::Stop::IncorrectLine);
            QCOMPARE(prompter.messages.size(), 1);
            QCOMPARE(prompter.messages[0].title, QStringLiteral("Incorrect File format"));
            QCOMPARE(v.count(QStringLiteral("items")), 0);
            return;
        }
        QVERIFY2(run.outcome.completed(), qPrintable(run.outcome.message));
        QVERIFY(prompter.messages.isEmpty());
        QCOMPARE(progress.lineCount, run.outcome.linesStored);
        QCOMPARE(item(v, QStringLiteral("P1")),
                 (QStringList{descr, QString::number(packqty), "1", price, "2030-12-31"}));
    }

    // After a good import: the expired-price report, the revaluation with its message and the
    // completion text, in that order; after an incorrect line, only its message.
    void whatFollowsTheImport() {
        test::VendorFixture v;
        v.addItem("A1", "1.00");
        v.addOrder("TST1", "L", "1.00");
        v.addLine("TST1", 1, "A1", 1, "1.00", "1.00");
        v.addOrder("TST2", "L", "2.00");
        v.addLine("TST2", 1, "A1", 2, "1.00", "2.00");
        const QString bad = v.folders().desktopDir() + QStringLiteral("/bad.csv");
        QVERIFY(test::writeFile(bad, "A1,Apple,1,1,3.00,31/12/2030\nB2,Pear,x,1,1.00,31/12/2030\n"));
        test::ScriptedPrompter prompter;
        RecordedProgress progress;
        auto execute = [&](const QString& path) {
            PriceListReader priceList(path);
            return priceList.open() ? ItemImport::execute(v.db(), priceList, Today, prompter, progress)
                                    : ItemImport::Run{};
        };
        ItemImport::Run run = execute(bad);
        QCOMPARE(prompter.texts(), QStringList{incorrect(bad, QStringLiteral("B2,Pear,x,1,1.00,31/12/2030"))});
        QCOMPARE(prompter.messages[0].title, QStringLiteral("Incorrect File format"));
        QCOMPARE(prompter.messages[0].icon, MessageIcon::Critical);
        QVERIFY(progress.infos.isEmpty());
        QCOMPARE(item(v, QStringLiteral("A1")).value(3), QStringLiteral("3.00"));
        QCOMPARE(v.total(QStringLiteral("TST1")), QStringLiteral("1.00")); // not revalued

        const QString good = v.folders().desktopDir() + QStringLiteral("/good.csv");
        QVERIFY(test::writeFile(good, "A1,Apple,1,1,3.00,31/12/2030\nB2,Pear,1,1,1.00,01/01/2020\n"));
        prompter.clear();
        run = execute(good);
        QCOMPARE(run.ordersUpdated, 2);
        QCOMPARE(prompter.texts(), QStringList{QStringLiteral("2 order values have been updated")});
        QCOMPARE(progress.resetPrices, expiredPricesText(1));
        QCOMPARE(progress.infos, (QStringList{QStringLiteral("Updating order prices, please wait"),
                                              QStringLiteral("The import has completed, please click on Exit")}));
        QCOMPARE(progress.lastLine, 2);
        QCOMPARE(v.total(QStringLiteral("TST2")), QStringLiteral("6.00"));
    }
};

QTEST_MAIN(TestImport)
#include "tst_import.moc"

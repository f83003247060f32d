// The export core: every field of the records in its place and the lines in line order, and
// the edges (desktops that cannot take the file, no temporary file left, prices and records
// whatever the texts hold). One-space notes and a file already on the desktop are the export
// form's tests.
#include "OrderDataFixture.h"
#include "orders/ExportRecords.h"
#include "orders/OrderExport.h"
#include "vendors/VendorRepository.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace ordwell;

namespace {
const QString Id = QStringLiteral("ABC1000000");
const QString From = QStringLiteral("FROM:,Head Office,,1 High St,,,Kent,CT11AA,Ann,01234 567890,ann@example.org");
const QString To =
    QStringLiteral("TO:,CUST7,Acme Supplies,2 Mill Lane,,Leeds,Yorks,LS11AA,Rob Rep,0113 000,,Cat,,,cat@acme.example");
} // namespace

class TestOrderExport : public test::StrictTest {
    Q_OBJECT

    // The records of the file written for the order, split at CR LF (the last one empty).
    static QStringList exported(test::OrderDataFixture& f) {
        const QByteArray bytes = test::fileContents(QDir(f.desktopDir()).filePath(Id + QStringLiteral(".csv")));
        QStringList records = QString::fromUtf8(bytes).split(QStringLiteral("\r\n"));
        if (records.last().isEmpty())
            records.removeLast();
        else
            records << QStringLiteral("(last record without CR LF)");
        return records;
    }

    static OrderExport::ExportResult exportOrder(test::OrderDataFixture& f, const QString& desktop = {}) {
        return OrderExport::ExportOrder(f.systemDb(), f.vendorDb(), f.ctx().CurrentVendorName,
                                        desktop.isEmpty() ? f.desktopDir() : desktop, Id);
    }

private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // E-mailed through the real program: the PDF made, the mail program handed the message,
    // and the order marked sent as an export marks it; nothing marked when no mail program is
    // there or the vendor has no address (a mail program that fails is the export form's test).
    void emailedAsAnExportSendsIt() {
        test::OrderDataFixture f;
        QVERIFY(VendorRepository::addVendor(f.systemDb(), QStringLiteral("Acme Supplies"), QStringLiteral("ABC")));
        f.addItem(QStringLiteral("A1"), QStringLiteral("Apples & pears"), Money::fromPence(300));
        f.addOrder(Id, QStringLiteral("P"), Money::fromPence(900));
        f.addLine(Id, 1, QStringLiteral("A1"), 3, Money::fromPence(300), QStringLiteral("P"));
        QTemporaryDir bin;
        const QString record = bin.filePath(QStringLiteral("arguments"));
        QVERIFY(test::writeFile(bin.filePath(QStringLiteral("xdg-email")),
                                "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$MAIL_RECORD\"\nexit ${MAIL_EXIT:-0}\n"));
        QFile::setPermissions(bin.filePath(QStringLiteral("xdg-email")),
                              QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", bin.path().toLocal8Bit() + ':' + path);
        qputenv("MAIL_RECORD", record.toLocal8Bit());
        QStringList email{QStringLiteral("--data-dir"),    f.ctx().dataDir(),
                          QStringLiteral("--vendor"),      QStringLiteral("ABC"),
                          QStringLiteral("--email-order"), QStringLiteral("abc1000000")};
        if (test::onTestServer())
            email << QStringLiteral("--server") << test::testServer();
        auto send = [&](const char* exitCode) {
            qputenv("MAIL_EXIT", exitCode);
            return test::runHeadless(QStringLiteral(ORDWELL_EXE), email);
        };

        test::Finished run = send("0");
        QVERIFY2(run.code == 0, qPrintable(run.err));
        QCOMPARE(run.out.trimmed(),
                 QStringLiteral("The order ABC1000000 has been handed to the mail program, addressed to "
                                "cat@acme.example."));
        const QStringList arguments = QString::fromUtf8(test::fileContents(record)).split(QLatin1Char('\n'));
        QCOMPARE(arguments.mid(0, 3), (QStringList{QStringLiteral("--utf8"), QStringLiteral("--subject"),
                                                   QStringLiteral("Order ABC1000000 from Head Office")}));
        QVERIFY(arguments.contains(QStringLiteral("Dear Cat,")));
        const qsizetype attach = arguments.indexOf(QStringLiteral("--attach"));
        QVERIFY(attach > 0);
        QCOMPARE(arguments.at(attach + 2), QStringLiteral("cat@acme.example"));
        QProcess pdfText;
        pdfText.start(QStringLiteral("pdftotext"), {arguments.at(attach + 1), QStringLiteral("-")});
        QVERIFY(pdfText.waitForFinished(30000));
        const QString text = QString::fromUtf8(pdfText.readAllStandardOutput());
        QVERIFY2(text.contains(Id) && text.contains(QStringLiteral("Apples & pears")), qPrintable(text));
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("XX"));

        f.exec(QStringLiteral("UPDATE orderhead SET status = 'P'"));
        qputenv("PATH", bin.filePath(QStringLiteral("nothing")).toLocal8Bit());
        run = send("0");
        qputenv("PATH", path);
        QVERIFY2(run.code == 1 && run.err.contains(QStringLiteral("xdg-email is missing")), qPrintable(run.err));
        f.exec(QStringLiteral("UPDATE vendor SET contactemail = NULL, repemail = NULL"));
        run = send("0");
        QVERIFY2(run.code == 1 && run.err.contains(QStringLiteral("has no e-mail address")), qPrintable(run.err));
        QCOMPARE(f.orderStatus(Id), QStringLiteral("P"));
    }

    // No lines: five records; empty fields keep their commas, so FROM has 10 fields and TO 14.
    // Nothing but the finished file is left in the folder.
    void orderWithoutLines() {
        test::OrderDataFixture f;
        f.addOrder(Id, QStringLiteral("P"));
        const auto result = exportOrder(f);
        QCOMPARE(result.outcome, OrderExport::Outcome::Exported);
        QCOMPARE(result.path, QDir(f.desktopDir()).filePath(QStringLiteral("ABC1000000.csv")));
        QCOMPARE(exported(f), (QStringList{From, To, QStringLiteral("ORDER:,ABC1000000,11/03/2020,Ann,REF1,0.00"),
                                           QStringLiteral("NOTES:,"), QStringLiteral("NOTES:,")}));
        QCOMPARE(f.orderStatus(Id), QStringLiteral("X"));
        QCOMPARE(QDir(f.desktopDir()).entryList(QDir::Files | QDir::Hidden), QStringList{"ABC1000000.csv"});
    }

    // Lines in line order: a deleted item, a cancelled line, grouping commas left unquoted;
    // live lines follow the order to "X", the cancelled one stays "C".
    void linesAsWritten() {
        test::OrderDataFixture f;
        f.addItem(QStringLiteral("A100"), QStringLiteral("Blue pens box"), Money::fromPence(150));
        f.addItem(QStringLiteral("B200"), QStringLiteral("Gone"), Money::fromPence(70000));
        f.addItem(QStringLiteral("C300"), QStringLiteral("Red ink, bottled"), Money::fromPence(225));
        f.addOrder(Id, QStringLiteral("X"), Money::fromPence(140450), QStringLiteral("Ring first"),
                   QStringLiteral("Back door"));
        f.addLine(Id, 2, QStringLiteral("B200"), 2, Money::fromPence(70000), QStringLiteral("X"));
        f.addLine(Id, 1, QStringLiteral("A100"), 3, Money::fromPence(150), QStringLiteral("X"));
        f.addLine(Id, 3, QStringLiteral("C300"), 0, Money::fromPence(225), QStringLiteral("C"));
        f.removeItem(QStringLiteral("B200"));

        QCOMPARE(exportOrder(f).outcome, OrderExport::Outcome::Exported);
        QCOMPARE(exported(f).mid(2), (QStringList{
                                         QStringLiteral("ORDER:,ABC1000000,11/03/2020,Ann,REF1,1,404.50"),
                                         QStringLiteral("NOTES:,Ring first"),
                                         QStringLiteral("NOTES:,Back door"),
                                         QStringLiteral("LINE:1,A100,Blue pens box,3,1.5,4.50"),
                                         QStringLiteral("LINE:2,B200,No Item Found!,2,700,1,400.00"),
                                         QStringLiteral("LINE:3,C300,Red ink, bottled,0,2.25,0.00"),
                                     }));
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("XXXC"));
    }

    // A desktop that is missing or cannot take the file: a message naming it, no file, no
    // change to the order.
    void desktopThatCannotTakeTheFile_data() {
        QTest::addColumn<QString>("desktop");
        QTest::addColumn<QString>("named");
        const QString missing = QDir::tempPath() + QStringLiteral("/ordwell-no-such-desktop");
        QTest::newRow("missing") << missing << missing;
        QTest::newRow("not writable") << "/proc"
                                      << "/proc/ABC1000000.csv";
    }
    void desktopThatCannotTakeTheFile() {
        QFETCH(QString, desktop);
        QFETCH(QString, named);
        test::OrderDataFixture f;
        f.addOrder(Id, QStringLiteral("P"));
        f.addLine(Id, 1, QStringLiteral("A1"), 1, Money::fromPence(100), QStringLiteral("P"));
        const auto result = exportOrder(f, desktop);
        QCOMPARE(result.outcome, OrderExport::Outcome::Failed);
        QVERIFY2(result.message.contains(named), qPrintable(result.message));
        QVERIFY(!QFile::exists(result.path));
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("PP"));
    }

    void plainPrices_data() {
        QTest::addColumn<qlonglong>("units");
        QTest::addColumn<QString>("text");
        QTest::newRow("one and a half") << 15000LL << "1.5";
        QTest::newRow("whole") << 7000000LL << "700";
        QTest::newRow("four decimals") << 1234LL << "0.1234";
        QTest::newRow("no grouping") << 123456780000LL << "12345678";
        QTest::newRow("zero") << 0LL << "0";
    }
    void plainPrices() {
        QFETCH(qlonglong, units);
        QFETCH(QString, text);
        QCOMPARE(ExportRecords::PlainPrice(Money::fromTenThousandths(units)), text);
    }

    // Whatever the texts hold, the file has one record per line and the fixed field counts
    // for the organisation and the vendor.
    void recordsStayOneLineEach() {
        ExportTexts texts;
        texts.from = QStringList{QStringLiteral("Org")};
        texts.to = QStringList(20, QStringLiteral("v"));
        texts.note1 = QStringLiteral("two\r\nlines");
        texts.lines << ExportLineTexts{QStringLiteral("1"), QStringLiteral("A\n1"), std::nullopt,
                                       QStringLiteral("2"), QStringLiteral("1.5"),  QStringLiteral("3.00")};
        const QStringList records = ExportRecords::Records(texts);
        QCOMPARE(records.size(), 6);
        QCOMPARE(records[0], QStringLiteral("FROM:,Org,,,,,,,,,"));
        QCOMPARE(records[1].count(QLatin1Char(',')), 14);
        QCOMPARE(records[3], QStringLiteral("NOTES:,two lines"));
        QCOMPARE(records[5], QStringLiteral("LINE:1,A 1,No Item Found!,2,1.5,3.00"));
        QCOMPARE(ExportRecords::FileContents(texts).count("\r\n"), 6);
    }
};

QTEST_MAIN(TestOrderExport)
#include "tst_orderexport.moc"

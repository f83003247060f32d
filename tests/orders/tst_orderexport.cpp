// The export core at its edges: desktops that cannot take the file, no temporary file left,
// prices and records whatever the texts hold. The orders a user exports, odd ones included,
// are the export form's tests.
#include "OrderDataFixture.h"
#include "orders/ExportRecords.h"
#include "orders/OrderExport.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace ordwell;

namespace {
const QString Id = QStringLiteral("ABC1000000");
} // namespace

class TestOrderExport : public test::StrictTest {
    Q_OBJECT

    static OrderExport::ExportResult exportOrder(test::OrderDataFixture& f, const QString& desktop = {}) {
        return OrderExport::ExportOrder(f.systemDb(), f.vendorDb(), f.ctx().CurrentVendorName,
                                        desktop.isEmpty() ? f.desktopDir() : desktop, Id);
    }

private slots:
    void initTestCase() { test::initTestEnvironment(); }

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
        QCOMPARE(f.orderStatus(Id), QStringLiteral("P"));
        QCOMPARE(f.lineStatuses(Id), QStringLiteral("P"));
    }

    // Nothing but the finished file is left in the folder.
    void noTemporaryFileLeft() {
        test::OrderDataFixture f;
        f.addOrder(Id, QStringLiteral("P"));
        QCOMPARE(exportOrder(f).outcome, OrderExport::Outcome::Exported);
        QCOMPARE(QDir(f.desktopDir()).entryList(QDir::Files | QDir::Hidden), QStringList{"ABC1000000.csv"});
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

// A disk that fills up while the program writes: each action says so, leaves what was stored
// as it was, and works again once there is room.
#include "../catalogue/CatalogueSession.h"
#include "../orders/OrderFixture.h"
#include "PrivateDisk.h"
#include "common/Sql.h"
#include "shell/MainWindow.h"
#include "store/Store.h"
#include "support/DatabaseDump.h"

#include "orders/OrderExport.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace ordwell;

namespace {

const QString DiskFullText = QStringLiteral("The database could not be changed because the disk is full.");
const QString OrderId = QStringLiteral("ABC1000000");

// Everything a test makes in the temporary folder (data folder, desktop, settings) lands on a
// small disk of its own, so the test can fill it.
class SmallTemp {
public:
    explicit SmallTemp(int kib) : m_disk(m_host.path(), kib), m_oldTemp(qgetenv("TMPDIR")) {
        qputenv("TMPDIR", QFile::encodeName(m_host.path()));
    }
    ~SmallTemp() {
        if (m_oldTemp.isNull())
            qunsetenv("TMPDIR");
        else
            qputenv("TMPDIR", m_oldTemp);
    }
    test::SmallDisk& disk() { return m_disk; }

private:
    QTemporaryDir m_host;
    test::SmallDisk m_disk;
    QByteArray m_oldTemp;
};

// The warning the store logs for the statement a full disk stops.
void expectFullDiskWarning() {
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^SQLite result 13 ")));
}

QString priceList(int from, int count) {
    QString text;
    for (int i = from; i < from + count; ++i)
        text += QStringLiteral("IT%1,Item number %1 with a long enough description,6,2,12.50,31/12/2030\n")
                    .arg(i, 6, 10, QLatin1Char('0'));
    return text;
}

} // namespace

class TestDiskFull : public test::StrictTest {
    Q_OBJECT

private slots:
    void initTestCase() {
        test::initTestEnvironment();
        QVERIFY2(test::privateNamespaceProblem().isEmpty(), qPrintable(test::privateNamespaceProblem()));
    }

    // The second line of an order does not fit: the order keeps its first line, the grid and
    // total stay as stored, and the same line goes in once there is room.
    void orderLine() {
        SmallTemp temp(2048);
        QVERIFY2(temp.disk().problem().isEmpty(), qPrintable(temp.disk().problem()));
        test::OrderSession s;
        s.addItem(QStringLiteral("A1"), QStringLiteral("Widget"), QStringLiteral("1.50"));
        s.addItem(QStringLiteral("C3"), QStringLiteral("Cog"), QStringLiteral("2.00"));
        OrderForm* form = s.open();
        s.startOrder();
        s.scan(QStringLiteral("A1"), QStringLiteral("2"));
        QCOMPARE(s.lines(OrderId).size(), 1);
        const QString path = s.db().databaseName();
        const auto before = test::databaseDump(path);
        const QString total = s.header(7)->text();

        QVERIFY(temp.disk().fill());
        expectFullDiskWarning();
        s.scan(QStringLiteral("C3"), QStringLiteral("5"));
        QCOMPARE(s.prompter().messages.size(), 1);
        const test::ShownMessage failed = s.prompter().messages.first();
        QVERIFY2(failed.text.startsWith(QStringLiteral("The line could not be stored")), qPrintable(failed.text));
        QVERIFY2(failed.text.contains(DiskFullText), qPrintable(failed.text));
        QCOMPARE(failed.icon, MessageIcon::Critical);
        QCOMPARE(test::databaseDump(path), before);
        QCOMPARE(s.header(7)->text(), total);
        QCOMPARE(form->ui().flxitems->item(2, 1) ? form->ui().flxitems->item(2, 1)->text() : QString(), QString());

        temp.disk().release();
        s.prompter().clear();
        s.scan(QStringLiteral("C3"), QStringLiteral("5"));
        QVERIFY(s.prompter().messages.isEmpty());
        QCOMPARE(s.lines(OrderId).size(), 2);
        QCOMPARE(s.lines(OrderId).last().qty, 5);
        QCOMPARE(s.header(7)->text(), QStringLiteral("13.00"));
        QCOMPARE(test::integrityCheck(path), QStringLiteral("ok"));
    }

    // The export file cannot be written (the desktop is full or read-only), or the order cannot be
    // marked as exported (the data folder is full): either way no file is left and the order is as
    // it was; with room again the export goes through.
    void orderExport_data() {
        QTest::addColumn<QString>("says");
        QTest::newRow("desktop full") << QStringLiteral("could not be written: No space left on device");
        QTest::newRow("desktop read-only") << QStringLiteral("could not be written: Read-only file system");
        QTest::newRow("data folder full") << QStringLiteral("not kept: ") + DiskFullText;
    }
    void orderExport() {
        QFETCH(QString, says);
        const QLatin1String fault(QTest::currentDataTag());
        SmallTemp temp(2048);
        QVERIFY2(temp.disk().problem().isEmpty(), qPrintable(temp.disk().problem()));
        test::OrderSession s;
        // The desktop on a disk of its own, so that one of the two can be full alone.
        test::SmallDisk desktop(s.ctx().DesktopPath, 256);
        QVERIFY2(desktop.problem().isEmpty(), qPrintable(desktop.problem()));
        s.addItem(QStringLiteral("A1"), QStringLiteral("Widget"), QStringLiteral("1.50"));
        s.addOrder(OrderId, QStringLiteral("P"), Money::fromTenThousandths(30000));
        s.addLine(OrderId, 1, QStringLiteral("A1"), 2, Money::fromTenThousandths(15000), QStringLiteral("P"));
        const QString path = s.db().databaseName();
        OrderForm* form = s.open(QStringLiteral("mnuexpord"));
        const auto before = test::databaseDump(path);

        std::optional<test::ReadOnlyFolder> readOnly;
        if (fault == "desktop read-only") {
            readOnly.emplace(s.ctx().DesktopPath);
            QVERIFY2(readOnly->problem().isEmpty(), qPrintable(readOnly->problem()));
        } else {
            QVERIFY((fault == "desktop full" ? desktop : temp.disk()).fill());
        }
        if (fault == "data folder full")
            expectFullDiskWarning();
        s.click(form->ui().cmdnavbutton[2]);
        QCOMPARE(s.prompter().messages.size(), 1);
        const test::ShownMessage failed = s.prompter().messages.first();
        QCOMPARE(failed.icon, MessageIcon::Critical);
        QVERIFY2(failed.text.contains(says), qPrintable(failed.text));
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Order export failed"));
        QCOMPARE(QDir(s.ctx().DesktopPath).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot),
                 fault == "desktop full" ? QStringList{QStringLiteral(".filler")} : QStringList());
        QCOMPARE(test::databaseDump(path), before);

        readOnly.reset();
        desktop.release();
        temp.disk().release();
        s.prompter().clear();
        s.prompter().expect(QStringLiteral("Are you sure you want to export this order?"), MessageAnswer::Yes);
        s.prompter().expect(OrderExport::CompleteText(OrderId));
        s.click(form->ui().cmdbutton[MainButton::ExportOrder]);
        QVERIFY(QFile::exists(QDir(s.ctx().DesktopPath).filePath(OrderId + QStringLiteral(".csv"))));
        QCOMPARE(s.orderStatus(OrderId), QStringLiteral("X")); // the letter the vendor's file and reports read
    }

    // The compacted copy does not fit beside the original: the original stays byte for byte, no
    // copy is left, the vendor stays open and usable and compacts once there is room. (A system
    // database reopened after a failed compaction is the compaction tests' busy case.)
    void compaction() {
        SmallTemp temp(4096);
        QVERIFY2(temp.disk().problem().isEmpty(), qPrintable(temp.disk().problem()));
        test::CatalogueSession s;
        AppContext& ctx = s.ctx();
        // Enough rows that the copy takes many pages to write.
        QVERIFY(Sql::run(ctx.vendorDb(),
                         QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < "
                                        "2999) INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                                        "SELECT printf('ITEM%06d', i), 'Item ' || i, 6, 1, 100 + i, '2030-12-31' "
                                        "FROM n")));
        const QString path = Store::vendorDatabasePath(ctx.dataDir(), QStringLiteral("TST"));
        const QByteArray bytes = test::fileContents(path);
        const auto before = test::databaseDump(path);

        // Room for the start of the copy, not for all of it.
        QVERIFY(temp.disk().fill(bytes.size() / 3));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^SQLite result 13 .*VACUUM INTO")));
        s.window->triggerMenu(QStringLiteral("mnucompvend"));
        QCOMPARE(s.prompter().messages.size(), 1);
        const QString failed = s.prompter().messages.first().text;
        QVERIFY2(failed.startsWith(QStringLiteral("Database maintenance failed\n")) &&
                     failed.contains(QLatin1String("There is not enough free disk space for the compacted copy")),
                 qPrintable(failed));
        QCOMPARE(test::fileContents(path), bytes);
        QVERIFY(!QFileInfo::exists(ctx.dataFile(Store::CompactFileName)));
        QCOMPARE(ctx.CurrentVendorCode, QStringLiteral("TST"));
        QCOMPARE(s.count(QStringLiteral("items")), 3000);

        temp.disk().release();
        s.prompter().clear();
        s.prompter().expect(QStringLiteral("Database maintenance completed sucessfully"));
        s.window->triggerMenu(QStringLiteral("mnucompvend"));
        ctx.closeVendorDb();
        QCOMPARE(test::databaseDump(path), before);
    }

    // An import that meets a full disk stops with the reason and leaves the catalogue as it was,
    // wherever the disk ran out; once there is room the same file imports in full.
    void itemImport_data() {
        QTest::addColumn<int>("keepKib");
        QTest::newRow("full from the start") << 0;
        QTest::newRow("fills part way") << 1000;
    }
    void itemImport() {
        QFETCH(int, keepKib);
        SmallTemp temp(6144);
        QVERIFY2(temp.disk().problem().isEmpty(), qPrintable(temp.disk().problem()));
        test::CatalogueSession s;
        s.addItem(QStringLiteral("OLD1"), QStringLiteral("Kept as it was"));
        const int lines = 12000;
        const QString file = QDir(s.ctx().DesktopPath).filePath(QStringLiteral("prices.csv"));
        QVERIFY(test::writeFile(file, priceList(0, lines).toUtf8()));
        const QString path = s.db().databaseName();
        const auto before = test::databaseDump(path);

        QVERIFY(temp.disk().fill(qint64(keepKib) * 1024));
        expectFullDiskWarning();
        s.prompter().queueFile(file);
        s.window->triggerMenu(QStringLiteral("mnuimpitms"));
        QCOMPARE(s.prompter().messages.size(), 1);
        const test::ShownMessage failed = s.prompter().messages.first();
        QVERIFY2(failed.text.contains(DiskFullText), qPrintable(failed.text));
        QCOMPARE(failed.icon, MessageIcon::Critical);
        QTRY_VERIFY(s.window->mdiArea()->subWindowList().isEmpty());
        QVERIFY(s.enabled(QStringLiteral("mnuimpitms")));
        QCOMPARE(test::integrityCheck(path), QStringLiteral("ok"));
        QCOMPARE(test::databaseDump(path), before);

        temp.disk().release();
        s.prompter().clear();
        s.prompter().queueFile(file);
        s.window->triggerMenu(QStringLiteral("mnuimpitms"));
        QVERIFY(s.prompter().messages.isEmpty());
        QCOMPARE(s.count(QStringLiteral("items")), lines + 1);
    }
};

QTEST_MAIN(TestDiskFull)
#include "tst_diskfull.moc"

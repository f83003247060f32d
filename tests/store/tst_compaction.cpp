#include "../faults/LockHolder.h"
#include "app/MenuMasks.h"
#include "app/VendorSession.h"
#include "common/Sql.h"
#include "shell/MainWindow.h"
#include "shell/MenuWiring.h"
#include "store/Compaction.h"
#include "store/DatabaseFile.h"
#include "store/Store.h"
#include "support/DatabaseDump.h"
#include "support/TestSupport.h"
#include "vendors/VendorRepository.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QProcess>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QTest>

using namespace ordwell;

namespace {

const QString Done = QStringLiteral("Database maintenance completed sucessfully");

// The main window with its menus wired, not shown (the maintenance entries need no more), and
// the vendor `code` open when one is given.
std::unique_ptr<MainWindow> menus(AppContext& ctx, const QString& code = {}, const QString& name = {}) {
    auto window = std::make_unique<MainWindow>(ctx);
    wireMenus(*window, ctx);
    window->ApplyMenuMask(MenuMasks::NoVendor);
    window->ShowStatus(QString());
    if (!code.isEmpty() && !ctx.vendorSession().open(code, name))
        qWarning("vendor %s could not be opened", qPrintable(code));
    return window;
}

} // namespace

class TestCompaction : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void compactVendorShrinksTheFileKeepingItsRowsAndTheVendorOpen() {
        test::TestContext tc;
        AppContext& ctx = tc.context();
        QVERIFY(Store::CreateVendorDatabase(ctx.dataDir(), QStringLiteral("ABC")));
        const QString path = Store::vendorDatabasePath(ctx.dataDir(), QStringLiteral("ABC"));
        // Barcode rules and a catalogue, most of which is deleted again so the file has plenty of
        // free pages.
        QVERIFY(Store::OpenVendorDatabase(ctx.dataDir(), Store::vendorFileName(QStringLiteral("ABC"))));
        QVERIFY(Sql::run(ctx.vendorDb(),
                         QStringLiteral("INSERT INTO barcodes (codestart, skipfirst, skiplast, status) "
                                        "VALUES ('501', 2, 1, 'A'), ('502', 2, 1, 'A'), ('503', 2, 1, 'A')")));
        QVERIFY(Sql::run(ctx.vendorDb(),
                         QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n "
                                        "WHERE i < 3999) INSERT INTO items (code, descr, packqty, defqty, "
                                        "price, priceexp) SELECT printf('ITEM%06d', i), 'O''Hara''s long "
                                        "description of item ' || i, 6, 1, 12345 + i, '2026-12-31' FROM n")));
        QVERIFY(Sql::run(ctx.vendorDb(), QStringLiteral("DELETE FROM items WHERE code >= 'ITEM000050'")));
        const auto before = test::databaseDump(path);
        QCOMPARE(before.value(QStringLiteral("items")).size(), 50);
        const qint64 sizeBefore = QFileInfo(path).size();
        // A stale copy from an interrupted run: removed first, it must not become the result.
        const QString temp = ctx.dataFile(Store::CompactFileName);
        QVERIFY(test::writeFile(temp, "left over from a crash"));

        auto window = menus(ctx, QStringLiteral("ABC"), QStringLiteral("Acme Ltd"));
        window->triggerMenu(QStringLiteral("mnucompvend"));
        QCOMPARE(tc.prompter().texts(), QStringList{Done});
        QVERIFY(!QFileInfo::exists(temp));
        QVERIFY(QFileInfo(path).size() * 4 < sizeBefore);
        QCOMPARE(QFileInfo(path).permissions() &
                     (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
                 QFile::Permissions());

        // The vendor stays open on the compacted file, and the next code number carries on.
        QCOMPARE(ctx.CurrentVendorCode, QStringLiteral("ABC"));
        QCOMPARE(window->findChild<QLabel*>(QStringLiteral("sbPanel_1"))->text(), QStringLiteral("Acme Ltd"));
        QVERIFY(ctx.hasVendorDb() && ctx.hasSystemDb());
        QCOMPARE(QFileInfo(ctx.vendorDb().databaseName()).canonicalFilePath(), QFileInfo(path).canonicalFilePath());
        const auto after = test::databaseDump(path);
        QVERIFY(Sql::run(ctx.vendorDb(), QStringLiteral("INSERT INTO barcodes (codestart, skipfirst, skiplast, status) "
                                                        "VALUES ('9', 0, 0, 'A')")));
        QCOMPARE(Sql::scalar(ctx.vendorDb(), QStringLiteral("SELECT max(codenum) FROM barcodes")).value().toInt(), 4);
        ctx.closeVendorDb();
        QCOMPARE(after, before);
    }

    // One case per way a compaction can be refused before anything is replaced (a missing file
    // is the vendor's below, which then cannot be reopened).
    void failureLeavesTheOriginalAsItWas_data() {
        QTest::addColumn<QString>("reason");
        QTest::newRow("open here") << "still open in Ordwell";
        QTest::newRow("garbage") << "damaged or is not a database";
        QTest::newRow("no temp folder") << "could not be created";
        QTest::newRow("stale folder") << "could not be removed";
    }

    void failureLeavesTheOriginalAsItWas() {
        QFETCH(QString, reason);
        const QLatin1String situation(QTest::currentDataTag());
        test::TestFolders folders;
        QVERIFY(Store::CreateSystemDatabase(folders.dataDir()));
        const QString path = Store::systemDatabasePath(folders.dataDir());
        QString dataDir = folders.dataDir();
        if (situation == "open here")
            QVERIFY(Store::OpenSystemDatabase(folders.dataDir()));
        else if (situation == "garbage")
            QVERIFY(test::writeFile(path, QByteArray(8192, 'x')));
        else if (situation == "no temp folder")
            dataDir = QDir(folders.dataDir()).filePath(QStringLiteral("gone"));
        else if (situation == "stale folder")
            QVERIFY(QDir(folders.dataDir()).mkpath(Store::CompactFileName + QStringLiteral("/inside")));
        const QByteArray before = test::fileContents(path);

        if (situation == "garbage")
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^SQLite result 26 ")));
        const Status outcome = CompactDatabase(path, dataDir);
        QVERIFY(!outcome);
        QVERIFY2(outcome.message().contains(reason), qPrintable(outcome.message()));
        QCOMPARE(test::fileContents(path), before);
        if (situation != "stale folder")
            QVERIFY(!QFileInfo::exists(QDir(dataDir).filePath(Store::CompactFileName)));
        DatabaseFile::close(Store::SystemConnection);
    }

    void compactSystemReportsABusyFileThenCompactsOnceFree() {
        test::TestContext tc;
        AppContext& ctx = tc.context();
        QVERIFY(
            VendorRepository::addVendor(ctx.systemDb(), QStringLiteral("O'Brien's Supplies"), QStringLiteral("OBS")));
        QVERIFY(VendorRepository::addVendor(ctx.systemDb(), QStringLiteral("Acme Ltd"), QStringLiteral("ACM")));
        const QString path = Store::systemDatabasePath(ctx.dataDir());
        auto window = menus(ctx);
        ctx.closeSystemDb();
        const auto before = test::databaseDump(path);
        const QByteArray bytesBefore = test::fileContents(path);
        QVERIFY(Store::OpenSystemDatabase(ctx.dataDir()));

        // Another program in the middle of a write: a copy of this executable (see main).
        QProcess holder;
        QVERIFY(test::startLockHolder(holder, path));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^SQLite result 5 .*BEGIN IMMEDIATE")));
        window->triggerMenu(QStringLiteral("mnucompsys"));
        QCOMPARE(tc.prompter().messages.size(), 1);
        const test::ShownMessage failed = tc.prompter().messages.first();
        QVERIFY(failed.text.startsWith(QStringLiteral("Database maintenance failed\n")));
        QVERIFY2(failed.text.contains(QLatin1String("in use by another program")), qPrintable(failed.text));
        QCOMPARE(failed.title, QStringLiteral("Maintenance failed"));
        QCOMPARE(failed.icon, MessageIcon::Exclamation);
        QCOMPARE(test::fileContents(path), bytesBefore);
        QVERIFY(!QFileInfo::exists(ctx.dataFile(Store::CompactFileName)));
        QCOMPARE(VendorRepository::activeVendors(ctx.systemDb())->size(), 2);

        // Once the other program lets go it works, and its unfinished write never lands.
        holder.closeWriteChannel();
        QVERIFY(holder.waitForFinished(10000));
        tc.prompter().clear();
        window->triggerMenu(QStringLiteral("mnucompsys"));
        QCOMPARE(tc.prompter().texts(), QStringList{Done});
        QCOMPARE(tc.prompter().messages.first().title, QStringLiteral("Maintenance complete"));
        QCOMPARE(tc.prompter().messages.first().icon, MessageIcon::Information);
        QVERIFY(!QFileInfo::exists(ctx.dataFile(Store::CompactFileName)));
        QCOMPARE(test::databaseDump(path), before);
        // The program carries on with the reopened file, writing included.
        QVERIFY(VendorRepository::deactivateVendor(ctx.systemDb(), QStringLiteral("ACM")));
    }

    void vendorThatCannotBeReopenedIsClosed() {
        test::TestContext tc;
        AppContext& ctx = tc.context();
        // A vendor whose file goes from under the program while it is open.
        QVERIFY(Store::CreateVendorDatabase(ctx.dataDir(), QStringLiteral("XYZ")));
        auto window = menus(ctx, QStringLiteral("XYZ"), QStringLiteral("Gone Ltd"));
        QVERIFY(QFile::remove(Store::vendorDatabasePath(ctx.dataDir(), QStringLiteral("XYZ"))));
        window->triggerMenu(QStringLiteral("mnucompvend"));
        QCOMPARE(tc.prompter().messages.size(), 2);
        QVERIFY(tc.prompter().messages.at(0).text.contains(QStringLiteral(" does not exist.")));
        QCOMPARE(tc.prompter().messages.at(1).icon, MessageIcon::Critical);
        QVERIFY(ctx.CurrentVendorCode.isEmpty());
        QCOMPARE(window->findChild<QLabel*>(QStringLiteral("sbPanel_1"))->text(), QStringLiteral("No Vendor Selected"));
        QVERIFY(window->menuEntry(QStringLiteral("mnuedvend"))->isEnabled() &&
                !window->menuEntry(QStringLiteral("mnucompvend"))->isEnabled());
    }
};

int main(int argc, char** argv) {
    if (const int held = test::runLockHolder(argc, argv); held >= 0)
        return held;
    QApplication app(argc, argv);
    TestCompaction tests;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&tests, argc, argv);
}

#include "tst_compaction.moc"

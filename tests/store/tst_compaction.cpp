#include "common/Sql.h"
#include "shell/MainWindow.h"
#include "shell/Maintenance.h"
#include "shell/MenuMasks.h"
#include "shell/MenuWiring.h"
#include "store/Compaction.h"
#include "store/DatabaseFile.h"
#include "store/Store.h"
#include "support/TestSupport.h"
#include "vendors/VendorRepository.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlRecord>
#include <QTest>
#include <QUuid>
#include <cstdio>

using namespace ordwell;

namespace {

const QString Done = QStringLiteral("Database maintenance completed sucessfully");
const QString Failed = QStringLiteral("Database maintenance failed");

// Every table's rows as sorted text, and the catalogue: what "the same contents" means.
// Sorted because compaction may renumber the hidden row ids of keyed tables.
QMap<QString, QStringList> dump(const QString& path) {
    QMap<QString, QStringList> contents;
    const QString name = QUuid::createUuid().toString();
    {
        auto db = DatabaseFile::open(name, path, true);
        if (!db)
            return contents;
        QStringList tables;
        QSqlQuery catalogue(*db);
        catalogue.exec(QStringLiteral("SELECT type, name, sql FROM sqlite_master ORDER BY type, name"));
        while (catalogue.next()) {
            contents[QStringLiteral("catalogue")]
                << catalogue.value(0).toString() + catalogue.value(1).toString() + catalogue.value(2).toString();
            if (catalogue.value(0).toString() == QLatin1String("table"))
                tables << catalogue.value(1).toString();
        }
        for (const QString& table : tables) {
            QSqlQuery rows(*db);
            rows.exec(QStringLiteral("SELECT * FROM \"%1\"").arg(table));
            QStringList lines;
            while (rows.next()) {
                QStringList fields;
                for (int i = 0; i < rows.record().count(); ++i)
                    fields << (rows.isNull(i) ? QStringLiteral("<null>") : rows.value(i).toString());
                lines << fields.join(QLatin1Char('|'));
            }
            lines.sort();
            contents[table] = lines;
        }
    }
    DatabaseFile::close(name);
    return contents;
}

QByteArray fileHash(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

// Fills a vendor file with a catalogue, rules and orders, then deletes most of the catalogue
// so the file has plenty of free pages.
void fillVendorFile(const QString& path, int items, int keep) {
    const QString name = QUuid::createUuid().toString();
    {
        auto db = DatabaseFile::open(name, path);
        QVERIFY2(db, qPrintable(db.message()));
        Sql::Transaction tx(*db);
        QVERIFY(Sql::run(*db,
                         QStringLiteral("INSERT INTO vendor (vendorid, customerid, add1, county, postcode, repname, "
                                        "nextord, ordform) VALUES (?,?,?,?,?,?,?,?)"),
                         {QStringLiteral("ABC"), QStringLiteral("CUST1"), QStringLiteral("1 Mill Lane"),
                          QStringLiteral("Kent"), QStringLiteral("CT1 1AA"), QStringLiteral("O'Hara"), 12,
                          QStringLiteral("ordform.rpt")}));
        for (int i = 0; i < 3; ++i)
            QVERIFY(Sql::run(*db,
                             QStringLiteral("INSERT INTO barcodes (codestart, skipfirst, skiplast, status) "
                                            "VALUES (?,?,?,?)"),
                             {QStringLiteral("50%1").arg(i), 2, 1, QStringLiteral("A")}));
        for (int i = 0; i < items; ++i)
            QVERIFY(Sql::run(*db,
                             QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                                            "VALUES (?,?,?,?,?,?)"),
                             {QStringLiteral("ITEM%1").arg(i, 6, 10, QLatin1Char('0')),
                              QStringLiteral("A long description of item number %1 for padding").arg(i), 6, 1,
                              12345 + i, QStringLiteral("2026-12-31")}));
        QVERIFY(Sql::run(
            *db, QStringLiteral("INSERT INTO orderhead (orderid, orderdate, status, totalval) VALUES (?,?,?,?)"),
            {QStringLiteral("ABC0000001"), QStringLiteral("2026-03-11"), QStringLiteral("O"), 24690}));
        for (int line = 1; line <= 2; ++line)
            QVERIFY(Sql::run(*db,
                             QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, "
                                            "lineval, recvqty) VALUES (?,?,?,?,?,?,?,?,?)"),
                             {QStringLiteral("ABC0000001"), line, QStringLiteral("ITEM000001"),
                              QStringLiteral("2026-03-11"), QStringLiteral("O"), 1, 12345, 12345, 0}));
        QVERIFY(Sql::run(*db, QStringLiteral("DELETE FROM items WHERE code >= ?"),
                         {QStringLiteral("ITEM%1").arg(keep, 6, 10, QLatin1Char('0'))}));
        QVERIFY(tx.commit());
    }
    DatabaseFile::close(name);
}

// Another program holding the database: a child copy of this test executable opens the file,
// takes a lock and keeps it until told to stop.
class LockHolder {
public:
    enum Kind { Exclusive, WriteTransaction };

    LockHolder(const QString& path, Kind kind) {
        m_process.start(QCoreApplication::applicationFilePath(),
                        {QStringLiteral("--hold-lock"), path,
                         kind == Exclusive ? QStringLiteral("exclusive") : QStringLiteral("write")});
        m_locked = m_process.waitForStarted(10000) && m_process.waitForReadyRead(10000) &&
                   m_process.readLine().trimmed() == "locked";
    }
    ~LockHolder() { release(); }
    bool isLocked() const { return m_locked; }
    void release() {
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.closeWriteChannel();
        if (!m_process.waitForFinished(10000))
            m_process.kill();
    }

private:
    QProcess m_process;
    bool m_locked = false;
};

// The child side of LockHolder. Ends (and so lets go) when its input closes.
int holdLock(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const char* path = argv[2];
    const char* kind = argv[3];
    int status = 1;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("holder"));
        db.setDatabaseName(QString::fromLocal8Bit(path));
        if (db.open()) {
            QSqlQuery q(db);
            const bool exclusive = qstrcmp(kind, "exclusive") == 0;
            const bool held = exclusive ? q.exec(QStringLiteral("BEGIN EXCLUSIVE"))
                                        : q.exec(QStringLiteral("BEGIN IMMEDIATE")) &&
                                              q.exec(QStringLiteral("CREATE TABLE held_by_other (x)"));
            if (held) {
                std::printf("locked\n");
                std::fflush(stdout);
                while (std::getchar() != EOF) {
                }
                status = 0;
            }
        }
        db.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("holder"));
    return status;
}

QString statusText(MainWindow& window) {
    return window.findChild<QLabel*>(QStringLiteral("sbPanel_1"))->text();
}

} // namespace

class TestCompaction : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void compactedFileKeepsEveryRowAndShrinks() {
        test::TestFolders folders;
        QVERIFY(Store::CreateVendorDatabase(folders.dataDir(), QStringLiteral("ABC")));
        const QString path = Store::vendorDatabasePath(folders.dataDir(), QStringLiteral("ABC"));
        fillVendorFile(path, 4000, 50);
        const auto before = dump(path);
        QCOMPARE(before.value(QStringLiteral("items")).size(), 50);
        QCOMPARE(before.value(QStringLiteral("orderline")).size(), 2);
        const qint64 sizeBefore = QFileInfo(path).size();

        // A stale copy from an interrupted run: removed first, it must not become the result.
        const QString temp = folders.dataFile(Store::CompactFileName);
        {
            QFile stale(temp);
            QVERIFY(stale.open(QIODevice::WriteOnly));
            stale.write("left over from a crash");
        }

        const Status outcome = CompactDatabase(path, folders.dataDir());
        QVERIFY2(outcome, qPrintable(outcome.message()));
        QVERIFY(!QFileInfo::exists(temp));
        QCOMPARE(dump(path), before);
        QVERIFY2(QFileInfo(path).size() * 4 < sizeBefore,
                 qPrintable(QStringLiteral("%1 -> %2").arg(sizeBefore).arg(QFileInfo(path).size())));
        QCOMPARE(QFileInfo(path).permissions() &
                     (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
                 QFile::Permissions());
        // Still a working database: the next code number continues where it was.
        {
            auto db = Store::OpenVendorDatabase(folders.dataDir(), Store::vendorFileName(QStringLiteral("ABC")));
            QVERIFY(db);
            QVERIFY(Sql::run(*db, QStringLiteral("INSERT INTO barcodes (codestart, skipfirst, skiplast, status) "
                                                 "VALUES ('9', 0, 0, 'A')")));
            QCOMPARE(Sql::scalar(*db, QStringLiteral("SELECT max(codenum) FROM barcodes")).value().toInt(), 4);
        }
        DatabaseFile::close(Store::VendorConnection);
    }

    void failureLeavesTheOriginalAsItWas_data() {
        QTest::addColumn<QString>("situation");
        QTest::addColumn<QString>("reason");
        QTest::newRow("held exclusively by another program") << "exclusive"
                                                             << "in use by another program";
        QTest::newRow("another program in a write") << "write"
                                                    << "in use by another program";
        QTest::newRow("still open in this program") << "open here"
                                                    << "still open in Ordwell";
        QTest::newRow("not a database") << "garbage"
                                        << "damaged or is not a database";
        QTest::newRow("copy cannot be written") << "no temp folder"
                                                << "could not be created";
        QTest::newRow("stale copy cannot be removed") << "stale folder"
                                                      << "could not be removed";
        QTest::newRow("no file") << "missing"
                                 << "does not exist";
    }

    void failureLeavesTheOriginalAsItWas() {
        QFETCH(QString, situation);
        QFETCH(QString, reason);
        test::TestFolders folders;
        QVERIFY(Store::CreateSystemDatabase(folders.dataDir()));
        const QString path = Store::systemDatabasePath(folders.dataDir());
        QString dataDir = folders.dataDir();
        std::unique_ptr<LockHolder> holder;
        if (situation == QLatin1String("exclusive") || situation == QLatin1String("write")) {
            holder = std::make_unique<LockHolder>(
                path, situation == QLatin1String("write") ? LockHolder::WriteTransaction : LockHolder::Exclusive);
            QVERIFY(holder->isLocked());
        } else if (situation == QLatin1String("open here")) {
            QVERIFY(Store::OpenSystemDatabase(folders.dataDir()));
        } else if (situation == QLatin1String("garbage")) {
            QVERIFY(QFile::remove(path));
            QFile junk(path);
            QVERIFY(junk.open(QIODevice::WriteOnly));
            junk.write(QByteArray(8192, 'x'));
        } else if (situation == QLatin1String("no temp folder")) {
            dataDir = QDir(folders.dataDir()).filePath(QStringLiteral("gone"));
        } else if (situation == QLatin1String("stale folder")) {
            QVERIFY(QDir(folders.dataDir()).mkpath(Store::CompactFileName + QStringLiteral("/inside")));
        } else if (situation == QLatin1String("missing")) {
            QVERIFY(QFile::remove(path));
        }
        const QByteArray hashBefore = fileHash(path);

        const Status outcome = CompactDatabase(path, dataDir);
        QVERIFY(!outcome);
        QVERIFY2(outcome.message().contains(reason), qPrintable(outcome.message()));
        QVERIFY(!outcome.message().contains(QLatin1String("Unable to fetch")));
        QCOMPARE(fileHash(path), hashBefore);
        if (situation != QLatin1String("stale folder"))
            QVERIFY(!QFileInfo::exists(QDir(dataDir).filePath(Store::CompactFileName)));

        DatabaseFile::close(Store::SystemConnection);
        if (holder) {
            holder->release();
            QVERIFY(CompactDatabase(path, dataDir));
            QVERIFY(Store::OpenSystemDatabase(folders.dataDir()));
            // The other program's unfinished work was never committed, before or after.
            QVERIFY(
                !QSqlDatabase::database(Store::SystemConnection).tables().contains(QStringLiteral("held_by_other")));
            DatabaseFile::close(Store::SystemConnection);
        }
    }

    void compactSystemMenuReopensTheDatabase() {
        test::TestContext tc;
        AppContext& ctx = tc.context();
        QVERIFY(
            VendorRepository::addVendor(ctx.systemDb(), QStringLiteral("O'Brien's Supplies"), QStringLiteral("OBS")));
        QVERIFY(VendorRepository::addVendor(ctx.systemDb(), QStringLiteral("Acme Ltd"), QStringLiteral("ACM")));
        const QString path = Store::systemDatabasePath(ctx.dataDir());
        MainWindow window(ctx);
        wireMenus(window, ctx);
        window.ApplyMenuMask(MenuMasks::NoVendor);
        ctx.closeSystemDb();
        const auto before = dump(path);
        QVERIFY(Store::OpenSystemDatabase(ctx.dataDir()));

        window.triggerMenu(QStringLiteral("mnucompsys"));
        QCOMPARE(tc.prompter().texts(), QStringList{Done});
        QCOMPARE(tc.prompter().messages.first().title, QStringLiteral("Maintenance complete"));
        QCOMPARE(tc.prompter().messages.first().icon, MessageIcon::Information);
        QVERIFY(!QFileInfo::exists(ctx.dataFile(Store::CompactFileName)));
        // The program carries on with the reopened file: reading and writing both work.
        QVERIFY(ctx.hasSystemDb());
        QVERIFY(VendorRepository::deactivateVendor(ctx.systemDb(), QStringLiteral("ACM")));
        auto active = VendorRepository::activeVendors(ctx.systemDb());
        QVERIFY(active);
        QCOMPARE(active->size(), 1);
        QCOMPARE(active->first().name, QStringLiteral("O'Brien's Supplies"));
        ctx.closeSystemDb();
        auto after = dump(path);
        after[QStringLiteral("vendors")].replaceInStrings(QStringLiteral("|ACM|D"), QStringLiteral("|ACM|A"));
        QCOMPARE(after, before);
    }

    void compactVendorKeepsTheVendorOpen() {
        test::TestContext tc;
        AppContext& ctx = tc.context();
        QVERIFY(Store::CreateVendorDatabase(ctx.dataDir(), QStringLiteral("ABC")));
        const QString path = Store::vendorDatabasePath(ctx.dataDir(), QStringLiteral("ABC"));
        fillVendorFile(path, 500, 10);
        const auto before = dump(path);
        QVERIFY(Store::OpenVendorDatabase(ctx.dataDir(), Store::vendorFileName(QStringLiteral("ABC"))));
        MainWindow window(ctx);
        wireMenus(window, ctx);
        window.ApplyMenuMask(MenuMasks::VendorOpen);
        ctx.CurrentVendorCode = QStringLiteral("ABC");
        ctx.CurrentVendorName = QStringLiteral("Acme Ltd");
        window.ShowStatus(ctx.CurrentVendorName);

        window.triggerMenu(QStringLiteral("mnucompvend"));
        QCOMPARE(tc.prompter().texts(), QStringList{Done});
        QCOMPARE(ctx.CurrentVendorCode, QStringLiteral("ABC"));
        QCOMPARE(statusText(window), QStringLiteral("Acme Ltd"));
        QVERIFY(ctx.hasVendorDb());
        QCOMPARE(QFileInfo(ctx.vendorDb().databaseName()).canonicalFilePath(), QFileInfo(path).canonicalFilePath());
        QCOMPARE(Sql::scalar(ctx.vendorDb(), QStringLiteral("SELECT count(*) FROM items")).value().toInt(), 10);
        QVERIFY(ctx.hasSystemDb());
        ctx.closeVendorDb();
        QCOMPARE(dump(path), before);
    }

    void busyFileIsReportedAndReopened() {
        test::TestContext tc;
        AppContext& ctx = tc.context();
        QVERIFY(VendorRepository::addVendor(ctx.systemDb(), QStringLiteral("Acme Ltd"), QStringLiteral("ACM")));
        const QString path = Store::systemDatabasePath(ctx.dataDir());
        MainWindow window(ctx);
        LockHolder holder(path, LockHolder::WriteTransaction);
        QVERIFY(holder.isLocked());
        const QByteArray hashBefore = fileHash(path);

        Maintenance::compactSystem(ctx, window);
        QCOMPARE(tc.prompter().messages.size(), 1);
        const test::ShownMessage shown = tc.prompter().messages.first();
        QVERIFY(shown.text.startsWith(Failed + QLatin1Char('\n')));
        QVERIFY(shown.text.contains(QLatin1String("in use by another program")));
        QCOMPARE(shown.title, QStringLiteral("Maintenance failed"));
        QCOMPARE(shown.icon, MessageIcon::Exclamation);
        QCOMPARE(fileHash(path), hashBefore);
        QVERIFY(!QFileInfo::exists(ctx.dataFile(Store::CompactFileName)));
        QVERIFY(ctx.hasSystemDb());
        auto active = VendorRepository::activeVendors(ctx.systemDb());
        QVERIFY(active);
        QCOMPARE(active->size(), 1);
    }

    void vendorThatCannotBeReopenedIsClosed() {
        test::TestContext tc;
        AppContext& ctx = tc.context();
        MainWindow window(ctx);
        ctx.CurrentVendorCode = QStringLiteral("XYZ"); // its file has gone from under the program
        ctx.CurrentVendorName = QStringLiteral("Gone Ltd");
        window.ShowStatus(ctx.CurrentVendorName);
        Maintenance::compactVendor(ctx);
        QCOMPARE(tc.prompter().messages.size(), 2);
        QVERIFY(tc.prompter().messages.at(0).text.startsWith(Failed));
        QCOMPARE(tc.prompter().messages.at(1).icon, MessageIcon::Critical);
        QVERIFY(ctx.CurrentVendorCode.isEmpty());
        QCOMPARE(statusText(window), QStringLiteral("No Vendor Selected"));
        QVERIFY(window.menuEntry(QStringLiteral("mnuedvend"))->isEnabled());
        QVERIFY(!window.menuEntry(QStringLiteral("mnucompvend"))->isEnabled());
    }
};

int main(int argc, char** argv) {
    if (argc == 4 && qstrcmp(argv[1], "--hold-lock") == 0)
        return holdLock(argc, argv);
    QApplication app(argc, argv);
    TestCompaction tests;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&tests, argc, argv);
}

#include "tst_compaction.moc"

// Backups of the data folder and restoring them: what comes back is what was there, a bad
// archive is refused with the data left alone, and the menu, the command line and the exit
// each do their part.
#include "../faults/PrivateDisk.h"
#include "../orders/OrderDataFixture.h"
#include "app/VendorSession.h"
#include "common/Sql.h"
#include "shell/MainWindow.h"
#include "store/Backup.h"
#include "store/DatabaseFile.h"
#include "store/Schemas.h"
#include "store/Store.h"
#include "support/DatabaseDump.h"

#include <QAction>
#include <QDir>
#include <QLockFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <atomic>

using namespace ordwell;

namespace {

const QString Untouched = QStringLiteral("The current data has not been changed.");

// A data folder as a user has it: the organisation, two vendors with items and orders, the
// report files and the agreement, open in the program.
class Data : public test::OrderDataFixture {
public:
    Data() {
        addItem(QStringLiteral("A1"), QStringLiteral("Widget, \"large\""), Money::fromTenThousandths(15000));
        addItem(QStringLiteral("B2"), QStringLiteral("Crème brûlée tin"), Money::fromTenThousandths(22500), 6);
        addOrder(QStringLiteral("ABC1000000"), QStringLiteral("L"), Money::fromTenThousandths(30000));
        addLine(QStringLiteral("ABC1000000"), 1, QStringLiteral("A1"), 2, Money::fromTenThousandths(15000));
        if (!Store::CreateVendorDatabase(dataDir(), QStringLiteral("XYZ")))
            qFatal("cannot create the second vendor");
        test::writeFile(ctx().dataFile(QStringLiteral("ordform.rpt")), "order form definition\n");
        test::writeFile(ctx().dataFile(QStringLiteral("EULA.txt")), "The agreement.\n");
    }
    QString dataDir() { return ctx().dataDir(); }
    QString vendorPath() { return Store::vendorDatabasePath(dataDir(), QStringLiteral("ABC")); }
    // Closes what the program holds open, as the restore needs.
    void closeAll() {
        ctx().vendorSession().close();
        DatabaseFile::close(Store::VendorConnection);
        ctx().closeSystemDb();
    }
};

// Every database's rows and every other backed-up file's text, by file.
QMap<QString, QStringList> snapshot(const QString& dataDir) {
    QMap<QString, QStringList> all;
    const QDir dir(dataDir);
    for (const QString& name : dir.entryList({QStringLiteral("*.mdb")}, QDir::Files)) {
        const auto dump = test::databaseDump(dir.filePath(name));
        for (auto it = dump.cbegin(); it != dump.cend(); ++it)
            all.insert(name + QLatin1Char(':') + it.key(), it.value());
    }
    for (const QString& name : dir.entryList({QStringLiteral("*.rpt"), QStringLiteral("*.txt")}, QDir::Files))
        all.insert(name, {QString::fromUtf8(test::fileContents(dir.filePath(name)))});
    return all;
}

// Folders a restore or a backup may leave beside the data folder or the archive.
QStringList leftovers(const QString& folder) {
    return QDir(folder).entryList({QStringLiteral(".*restor*"), QStringLiteral(".ordwell-backup-*")},
                                  QDir::AllEntries | QDir::Hidden);
}

void addOrderWithLines(const QSqlDatabase& db, const QString& orderId, int lines) {
    Sql::run(db,
             QStringLiteral("INSERT INTO orderhead (orderid, orderdate, name, reference, status, totalval) VALUES (?, "
                            "'2020-03-11', 'Ann', 'REF', 'L', 0)"),
             {orderId});
    for (int line = 1; line <= lines; ++line)
        Sql::run(db,
                 QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, lineval, "
                                "recvqty) VALUES (?, ?, 'A1', '2020-03-11', 'L', 1, 15000, 15000, 0)"),
                 {orderId, line});
}

// The number `sql` gives on the database at `path`, opened on a connection of its own.
qint64 count(const QString& path, const QString& sql, bool readOnly = true) {
    const QString name = QStringLiteral("count");
    qint64 n = -1;
    {
        auto db = DatabaseFile::open(name, path, readOnly);
        if (db)
            n = Sql::scalar(*db, sql)->toLongLong();
    }
    DatabaseFile::close(name);
    return n;
}

using test::Finished;

// The real program, started with no display at all.
Finished runProgram(const QStringList& arguments) {
    return test::runHeadless(QStringLiteral(ORDWELL_EXE), arguments);
}

} // namespace

class TestBackup : public test::StrictTest {
    Q_OBJECT

private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // What a restore puts back equals what was backed up, database by database and file by file;
    // what came later goes, and what a backup never holds stays. A folder that does not exist yet
    // (a new computer) is restored into as well.
    void restoreGivesBackTheBackedUpData() {
        Data d;
        QTemporaryDir out;
        const QString archive = out.filePath(QStringLiteral("data.tar.gz"));
        QVERIFY(Backup::writeBackup(d.dataDir(), archive));
        QVERIFY(leftovers(out.path()).isEmpty());
        const auto atBackup = snapshot(d.dataDir());

        QVERIFY(Backup::checkBackup(archive));

        d.addOrder(QStringLiteral("ABC1000001"), QStringLiteral("L"));
        d.removeItem(QStringLiteral("A1"));
        QVERIFY(test::writeFile(d.ctx().dataFile(QStringLiteral("ordform.rpt")), "changed\n"));
        QVERIFY(Store::CreateVendorDatabase(d.dataDir(), QStringLiteral("NEW")));
        QVERIFY(QDir(d.dataDir()).mkpath(QStringLiteral("Backups")));
        QVERIFY(test::writeFile(d.ctx().dataFile(QStringLiteral("Backups/kept.tar.gz")), "an older backup"));
        d.closeAll();

        const Backup::Outcome restored = Backup::restoreBackup(archive, d.dataDir());
        QVERIFY2(restored, qPrintable(restored.message));
        QCOMPARE(snapshot(d.dataDir()), atBackup);
        QVERIFY(!QFileInfo::exists(Store::vendorDatabasePath(d.dataDir(), QStringLiteral("NEW"))));
        QCOMPARE(test::fileContents(d.ctx().dataFile(QStringLiteral("Backups/kept.tar.gz"))),
                 QByteArray("an older backup"));
        QVERIFY(leftovers(QFileInfo(d.dataDir()).absolutePath()).isEmpty());
        QCOMPARE(QFileInfo(d.dataDir()).permissions() & 0x0077, QFile::Permissions());

        // Into a new folder comes what was backed up and nothing else (no lock, no manifest).
        QTemporaryDir elsewhere;
        const QString fresh = elsewhere.filePath(QStringLiteral("new computer/Ordwell"));
        QVERIFY(Backup::restoreBackup(archive, fresh));
        QCOMPARE(snapshot(fresh), atBackup);
        QCOMPARE(QDir(fresh).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 (QStringList{"ABCvendor.mdb", "EULA.txt", "ordform.rpt", "Ordwell.mdb", "XYZvendor.mdb"}));
    }

    // The archive holds each database as one moment of it: an order another connection has not
    // committed is not in it, and orders committed while the copy is made are whole or absent.
    void backupWhileAnOrderIsWritten() {
        Data d;
        QTemporaryDir out;
        const QString halfWritten = out.filePath(QStringLiteral("half.tar.gz"));
        {
            auto writer = DatabaseFile::open(QStringLiteral("writer"), d.vendorPath());
            QVERIFY(writer);
            QVERIFY(Sql::run(*writer, QStringLiteral("BEGIN IMMEDIATE")));
            addOrderWithLines(*writer, QStringLiteral("ABC2000000"), 3);
            QVERIFY(Backup::writeBackup(d.dataDir(), halfWritten));
            QVERIFY(Sql::run(*writer, QStringLiteral("COMMIT")));
        }
        DatabaseFile::close(QStringLiteral("writer"));

        std::atomic<int> written{0};
        std::atomic<bool> stop{false};
        const QString path = d.vendorPath();
        std::unique_ptr<QThread> thread(QThread::create([&] {
            const QString name = QStringLiteral("busy writer");
            {
                QSqlDatabase db = DatabaseFile::addConnection(name, path, false);
                db.open();
                for (int i = 0; i < 2000 && !stop; ++i) {
                    Sql::Transaction tx(db);
                    addOrderWithLines(db, QStringLiteral("ABC3%1").arg(i, 6, 10, QLatin1Char('0')), 3);
                    if (tx.commit())
                        ++written;
                    QThread::msleep(2); // a few hundred orders a second, far beyond any office
                }
            }
            DatabaseFile::close(name);
        }));
        thread->start();
        QTRY_VERIFY(written >= 10);
        const QString busy = out.filePath(QStringLiteral("busy.tar.gz"));
        QVERIFY(Backup::writeBackup(d.dataDir(), busy));
        const int afterBackup = written;
        stop = true;
        thread->wait();

        const QString unorderedLines = QStringLiteral(
            "SELECT count(*) FROM orderhead h WHERE (SELECT count(*) FROM orderline l WHERE l.orderid = h.orderid) <> "
            "(CASE WHEN h.orderid = 'ABC1000000' THEN 1 ELSE 3 END)");
        QTemporaryDir restored;
        const QString first = restored.filePath(QStringLiteral("first"));
        QVERIFY(Backup::restoreBackup(halfWritten, first));
        QCOMPARE(count(Store::vendorDatabasePath(first, QStringLiteral("ABC")),
                       QStringLiteral("SELECT count(*) FROM orderhead")),
                 qint64(1));
        const QString second = restored.filePath(QStringLiteral("second"));
        QVERIFY(Backup::restoreBackup(busy, second));
        const QString copy = Store::vendorDatabasePath(second, QStringLiteral("ABC"));
        QCOMPARE(test::integrityCheck(copy), QStringLiteral("ok"));
        QCOMPARE(count(copy, unorderedLines), qint64(0));
        const qint64 orders = count(copy, QStringLiteral("SELECT count(*) FROM orderhead"));
        QVERIFY2(orders >= 2 + 10 && orders <= 2 + afterBackup, qPrintable(QString::number(orders)));
    }

    // A bad archive is refused before anything is touched, with a message that says why.
    void badArchiveIsRefused_data() {
        QTest::addColumn<Backup::Problem>("problem");
        QTest::addColumn<QString>("says");
        QTest::newRow("missing") << Backup::Problem::Missing << "does not exist";
        QTest::newRow("truncated") << Backup::Problem::Damaged << "is damaged";
        QTest::newRow("flipped byte") << Backup::Problem::Damaged << "is damaged";
        QTest::newRow("newer data") << Backup::Problem::FromNewerProgram << "newer version of Ordwell";
        QTest::newRow("plain tar") << Backup::Problem::NotABackup << "is not an Ordwell backup";
        QTest::newRow("not an archive") << Backup::Problem::NotABackup << "is not an Ordwell backup";
    }
    void badArchiveIsRefused() {
        const QLatin1String spoil(QTest::currentDataTag());
        QFETCH(Backup::Problem, problem);
        QFETCH(QString, says);
        Data d;
        QTemporaryDir out;
        const QString archive = out.filePath(QStringLiteral("bad.tar.gz"));
        if (spoil == "newer data") {
            // Data a newer program wrote, backed up by it.
            QCOMPARE(count(Store::vendorDatabasePath(d.dataDir(), QStringLiteral("XYZ")),
                           QStringLiteral("UPDATE schemaversion SET version = version + 1 RETURNING version"), false),
                     qint64(vendorSchema().version() + 1));
            QVERIFY(Backup::writeBackup(d.dataDir(), archive));
        } else if (spoil == "plain tar") {
            QVERIFY(test::writeFile(out.filePath(QStringLiteral("readme.txt")), "hello"));
            QCOMPARE(QProcess::execute(QStringLiteral("tar"), {QStringLiteral("-czf"), archive, QStringLiteral("-C"),
                                                               out.path(), QStringLiteral("readme.txt")}),
                     0);
        } else if (spoil == "not an archive") {
            QVERIFY(test::writeFile(archive, "Not an archive at all.\n"));
        } else if (spoil != "missing") {
            QVERIFY(Backup::writeBackup(d.dataDir(), archive));
            QByteArray bytes = test::fileContents(archive);
            if (spoil == "truncated")
                bytes.truncate(bytes.size() / 2);
            else
                bytes[bytes.size() / 2] = char(bytes.at(bytes.size() / 2) ^ 0x20);
            QVERIFY(test::writeFile(archive, bytes));
        }
        const auto before = snapshot(d.dataDir());
        d.closeAll();

        const Backup::Outcome checked = Backup::checkBackup(archive);
        QCOMPARE(checked.problem, problem);
        const Backup::Outcome restored = Backup::restoreBackup(archive, d.dataDir());
        QCOMPARE(restored.problem, problem);
        QVERIFY2(restored.message.contains(says), qPrintable(restored.message));
        QVERIFY2(restored.message.endsWith(Untouched), qPrintable(restored.message));
        if (problem == Backup::Problem::Damaged) {
            static const QRegularExpression namesAFile(QStringLiteral("\"[^\"]+\\.(mdb|rpt|txt|json)\""));
            QVERIFY2(namesAFile.match(restored.message).hasMatch(), qPrintable(restored.message));
        }
        QCOMPARE(snapshot(d.dataDir()), before);
        QVERIFY(leftovers(QFileInfo(d.dataDir()).absolutePath()).isEmpty());
    }

    // A full disk stops a backup with no partial archive left, and a restore with the data as
    // it was; with room again both work.
    void diskFull() {
        if (!test::privateNamespaceProblem().isEmpty())
            QSKIP(qPrintable(test::privateNamespaceProblem()));
        Data d;
        QTemporaryDir host;
        test::SmallDisk disk(host.path(), 2048);
        QVERIFY2(disk.problem().isEmpty(), qPrintable(disk.problem()));
        const QString archive = host.filePath(QStringLiteral("full.tar.gz"));
        QVERIFY(disk.fill(16 * 1024));
        const Backup::Outcome written = Backup::writeBackup(d.dataDir(), archive);
        QCOMPARE(written.problem, Backup::Problem::DiskFull);
        QVERIFY2(written.message.contains(QStringLiteral("not enough free disk space")), qPrintable(written.message));
        QCOMPARE(QDir(host.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList{QStringLiteral(".filler")});
        disk.release();
        QVERIFY(Backup::writeBackup(d.dataDir(), archive));

        // The data folder on a disk of its own, filled before a second restore.
        QTemporaryDir dataHost;
        test::SmallDisk dataDisk(dataHost.path(), 2048);
        QVERIFY2(dataDisk.problem().isEmpty(), qPrintable(dataDisk.problem()));
        const QString dataDir = dataHost.filePath(QStringLiteral("data"));
        QVERIFY(Backup::restoreBackup(archive, dataDir));
        d.addOrder(QStringLiteral("ABC1000009"), QStringLiteral("L"));
        d.closeAll();
        const QString newer = host.filePath(QStringLiteral("newer.tar.gz"));
        QVERIFY(Backup::writeBackup(d.dataDir(), newer));
        const auto before = snapshot(dataDir);
        QVERIFY(dataDisk.fill(16 * 1024));
        const Backup::Outcome restored = Backup::restoreBackup(newer, dataDir);
        QCOMPARE(restored.problem, Backup::Problem::DiskFull);
        QVERIFY2(restored.message.endsWith(Untouched), qPrintable(restored.message));
        QCOMPARE(snapshot(dataDir), before);
        QVERIFY(leftovers(dataHost.path()).isEmpty());
        dataDisk.release();
        QVERIFY(Backup::restoreBackup(newer, dataDir));
        QCOMPARE(snapshot(dataDir), snapshot(d.dataDir()));
    }

    // The command line: 0 done, 1 refused (the reason on standard error), 2 bad arguments.
    void headless() {
        Data d;
        QTemporaryDir out;
        const QString archive = out.filePath(QStringLiteral("cli.tar.gz"));
        const QStringList data{QStringLiteral("--data-dir"), d.dataDir()};
        const auto before = snapshot(d.dataDir());

        Finished run = runProgram(data + QStringList{QStringLiteral("--backup"), archive});
        QCOMPARE(run.code, 0);
        d.addOrder(QStringLiteral("ABC1000005"), QStringLiteral("L"));
        d.closeAll();
        run = runProgram(data + QStringList{QStringLiteral("--restore"), archive});
        QCOMPARE(run.code, 0);
        QVERIFY2(run.out.contains(QStringLiteral("restored")), qPrintable(run.out));
        QCOMPARE(snapshot(d.dataDir()), before);

        run = runProgram(data + QStringList{QStringLiteral("--restore"), out.filePath(QStringLiteral("none.tar.gz"))});
        QCOMPARE(run.code, 1);
        QVERIFY2(run.err.contains(QStringLiteral("does not exist")), qPrintable(run.err));
        {
            // A running copy of the program holds the folder.
            QLockFile running(d.ctx().dataFile(Store::SystemLockFileName));
            QVERIFY(running.tryLock(0));
            run = runProgram(data + QStringList{QStringLiteral("--restore"), archive});
            QCOMPARE(run.code, 1);
            QVERIFY2(run.err.contains(QStringLiteral("in use")), qPrintable(run.err));
        }
        run = runProgram(data + QStringList{QStringLiteral("--backup"), archive, QStringLiteral("--restore"), archive});
        QCOMPARE(run.code, 2);
        run = runProgram(
            data + QStringList{QStringLiteral("--backup"), archive, QStringLiteral("--vendor"), QStringLiteral("ABC")});
        QCOMPARE(run.code, 2);
        QCOMPARE(snapshot(d.dataDir()), before);
    }

    // The File menu: a backup while everything is open; a restore only with no window open,
    // after a question, leaving the restored data open with no vendor chosen.
    void menuEntries() {
        Data d;
        QVERIFY(d.ctx().vendorSession().open(QStringLiteral("ABC"), QStringLiteral("Acme Supplies")));
        auto window = test::openMainWindow(d.ctx());
        for (const char* name : {"mnuBackup", "mnuRestore"})
            QVERIFY(window->menuEntry(QString::fromLatin1(name))->isEnabled());
        const QString archive = d.ctx().DesktopPath + QStringLiteral("/menu");
        d.prompter().queueFile(archive);
        d.prompter().expect(QStringLiteral("The data has been backed up to \"%1.tar.gz\".").arg(archive));
        window->triggerMenu(QStringLiteral("mnuBackup"));
        const auto atBackup = snapshot(d.dataDir());
        d.addOrder(QStringLiteral("ABC1000007"), QStringLiteral("L"));

        d.ctx().OpenWindowCount = 1; // an order form, say
        d.prompter().expect(QStringLiteral("Please close every window before restoring data."));
        window->triggerMenu(QStringLiteral("mnuRestore"));
        QVERIFY(d.prompter().fileRequests.isEmpty());
        d.ctx().OpenWindowCount = 0;

        d.prompter().clear();
        d.prompter().queueFile(archive + Backup::FileSuffix);
        d.prompter().queueAnswer(MessageAnswer::Yes);
        window->triggerMenu(QStringLiteral("mnuRestore"));
        QCOMPARE(d.prompter().messages.size(), 2);
        QVERIFY(d.prompter().messages.first().text.startsWith(QStringLiteral("Replace all of the current data")));
        QVERIFY2(d.prompter().lastText().startsWith(QStringLiteral("The data has been restored")),
                 qPrintable(d.prompter().lastText()));
        QVERIFY(d.ctx().hasSystemDb());
        QVERIFY(d.ctx().holdsSystemLock());
        QVERIFY(!d.ctx().vendorSession().isOpen());
        d.closeAll();
        // The shipped report files the backup lacked have been put back beside them.
        const auto restored = snapshot(d.dataDir());
        for (auto it = atBackup.cbegin(); it != atBackup.cend(); ++it)
            QCOMPARE(restored.value(it.key()), it.value());
    }

    // On exit the program keeps the last few automatic backups, makes none when nothing has
    // changed since the newest, and never touches other files in their folder.
    void automaticBackups() {
        Data d;
        const QString folder = d.ctx().dataFile(QStringLiteral("Backups"));
        QString made;
        QVERIFY(Backup::keepAutomaticBackup(d.dataDir(), folder, 2, &made));
        const QString first = made;
        QVERIFY(QFileInfo(first).isFile());
        QVERIFY(test::writeFile(QDir(folder).filePath(QStringLiteral("mine.tar.gz")), "the user's own"));
        QVERIFY(test::writeFile(QDir(folder).filePath(QStringLiteral("Ordwell-auto-notes.tar.gz")), "also theirs"));
        QVERIFY(Backup::keepAutomaticBackup(d.dataDir(), folder, 2, &made));
        QVERIFY(made.isEmpty());

        QStringList kept{first};
        for (int i = 1; i <= 2; ++i) {
            d.addOrder(QStringLiteral("ABC100001%1").arg(i), QStringLiteral("L"));
            QVERIFY(Backup::keepAutomaticBackup(d.dataDir(), folder, 2, &made));
            QVERIFY(!made.isEmpty());
            kept << made;
        }
        QCOMPARE(Backup::automaticBackups(folder), kept.mid(1));
        QCOMPARE(QDir(folder).entryList(QDir::Files).size(), 4);

        // The exit does it with the settings' number and folder; 0 keeps none.
        {
            QSettings settings(d.ctx().settings()->fileName(), QSettings::IniFormat);
            settings.setValue(QStringLiteral("Settings/BackupsKept"), 1);
            settings.setValue(QStringLiteral("Settings/BackupFolder"), QStringLiteral("Elsewhere"));
        }
        d.addOrder(QStringLiteral("ABC1000019"), QStringLiteral("L"));
        test::openMainWindow(d.ctx())->exitProgram();
        QCOMPARE(Backup::automaticBackups(d.ctx().dataFile(QStringLiteral("Elsewhere"))).size(), 1);
        QVERIFY(!d.ctx().holdsSystemLock());
    }
};

QTEST_MAIN(TestBackup)
#include "tst_backup.moc"

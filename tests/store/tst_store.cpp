#include "common/Sql.h"
#include "store/DatabaseFile.h"
#include "store/SchemaUpgrade.h"
#include "store/Schemas.h"
#include "store/Store.h"
#include "support/DatabaseDump.h"
#include "support/TestSupport.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

using namespace ordwell;

namespace {
const QString Ins = QStringLiteral(
    "INSERT INTO Sysset (location, department, add1, add2, add3, county, postcode, contact, telephone, fax, email) "
    "VALUES (?,?,?,?,?,?,?,?,?,?,?)");

// Columns and indexes of every table as SQLite reports them: what must be the same whether a
// file was made new or upgraded from an older layout.
QStringList structureOf(const QString& path) {
    QStringList out;
    const QString name = QStringLiteral("structure");
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        db.setDatabaseName(path);
        db.open();
        QStringList tables = db.tables();
        tables.sort();
        for (const QString& table : tables) {
            for (const char* pragma : {"table_info", "index_list"}) {
                QSqlQuery q(db);
                q.exec(QStringLiteral("PRAGMA %1(\"%2\")").arg(QLatin1String(pragma), table));
                QStringList rows;
                while (q.next()) {
                    QStringList row;
                    for (int c = 0; c < q.record().count(); ++c)
                        row << q.value(c).toString();
                    if (QLatin1String(pragma) == QLatin1String("index_list"))
                        row.removeFirst(); // the position in the list, which follows creation order
                    rows << row.join(QLatin1Char('|'));
                }
                rows.sort();
                out << table + QLatin1Char(':') + rows.join(QLatin1Char(';'));
            }
        }
        QSqlQuery partial(db);
        partial.exec(QStringLiteral("SELECT name, sql FROM sqlite_master WHERE type = 'index' ORDER BY name"));
        while (partial.next())
            out << partial.value(0).toString() + QLatin1Char('=') + partial.value(1).toString();
    }
    QSqlDatabase::removeDatabase(name);
    return out;
}

// A vendor file as the first layout had it: made new, then the later additions taken away.
void makeFirstLayout(const QString& path) {
    const QString name = QStringLiteral("downgrade");
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        db.setDatabaseName(path);
        QVERIFY(db.open());
        for (const char* sql : {"DROP TABLE orderlease", "DROP TABLE reportfile", "DROP INDEX items_gtin",
                                "ALTER TABLE items DROP COLUMN gtin", "ALTER TABLE items DROP COLUMN unitcode",
                                "ALTER TABLE vendor DROP COLUMN peppolscheme",
                                "ALTER TABLE vendor DROP COLUMN peppolid", "ALTER TABLE vendor DROP COLUMN legalname",
                                "ALTER TABLE vendor DROP COLUMN country", "DROP TABLE schemaversion",
                                "INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                                "VALUES ('K1', 'Kept', 1, 1, 12500, '2030-01-01')"})
            QVERIFY2(Sql::run(db, QString::fromLatin1(sql)), sql);
    }
    QSqlDatabase::removeDatabase(name);
}

QVariantList sysset(const QString& location) {
    return {location,
            QVariant(),
            QStringLiteral("1 High St"),
            QVariant(),
            QVariant(),
            QStringLiteral("Kent"),
            QStringLiteral("CT1 1AA"),
            QStringLiteral("Ann"),
            QStringLiteral("01234 567890"),
            QVariant(),
            QStringLiteral("ann@example.org")};
}
} // namespace

class TestStore : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void newSystemDatabaseHasBothTablesEmpty() {
        test::TestFolders folders;
        QVERIFY(Store::CreateSystemDatabase(folders.dataDir()));
        {
            auto db = Store::OpenSystemDatabase(folders.dataDir());
            QVERIFY(db);
            QCOMPARE(Sql::scalar(*db, QStringLiteral("SELECT count(*) FROM Sysset")).value().toInt(), 0);
            QCOMPARE(Sql::scalar(*db, QStringLiteral("SELECT count(*) FROM vendors")).value().toInt(), 0);
            QVERIFY(!Store::HasOrganisationDetails(*db));
            // A second creation over the existing file is refused and the file is kept.
            QVERIFY(!Store::CreateSystemDatabase(folders.dataDir()));
        } // the connection is closed only once nothing uses it
        DatabaseFile::close(Store::SystemConnection);
    }

    void systemDatabaseRefusesBadRows() {
        test::TestFolders folders;
        QVERIFY(Store::CreateSystemDatabase(folders.dataDir()));
        {
            auto db = Store::OpenSystemDatabase(folders.dataDir());
            QVERIFY(db);
            Sql::Refusal why = Sql::Refusal::None;
            QVERIFY(Sql::run(*db, Ins, sysset(QStringLiteral("Acme")), &why));
            QVERIFY(Store::HasOrganisationDetails(*db));

            QVERIFY(!Sql::run(*db, Ins, sysset(QStringLiteral("ACME")), &why)); // keys ignore case
            QCOMPARE(why, Sql::Refusal::Duplicate);
            QVERIFY(!Sql::run(*db, Ins, sysset(QString(51, QLatin1Char('x'))), &why));
            QCOMPARE(why, Sql::Refusal::TooLongOrInvalid);
            QVERIFY(Sql::run(*db, Ins, sysset(QString(50, QLatin1Char('y'))), &why));

            const int required[] = {0, 2, 5, 6, 7, 8, 10};
            for (int column : required) {
                QVariantList row = sysset(QStringLiteral("Org %1").arg(column));
                row[column] = QVariant();
                QVERIFY2(!Sql::run(*db, Ins, row, &why), qPrintable(QString::number(column)));
                QCOMPARE(why, Sql::Refusal::Missing);
            }

            const QString vendor = QStringLiteral("INSERT INTO vendors (vendor, code, status) VALUES (?,?,?)");
            QVERIFY(Sql::run(*db, vendor,
                             {QStringLiteral("O'Brien's Supplies"), QStringLiteral("OBS"), QStringLiteral("A")}));
            QVERIFY(!Sql::run(
                *db, vendor, {QStringLiteral("O'Brien's Supplies"), QStringLiteral("XYZ"), QStringLiteral("A")}, &why));
            QCOMPARE(why, Sql::Refusal::Duplicate);
            QVERIFY(!Sql::run(*db, vendor,
                              {QStringLiteral("Long Code Ltd"), QStringLiteral("ABCDE"), QStringLiteral("A")}, &why));
            QCOMPARE(why, Sql::Refusal::TooLongOrInvalid);
        } // the connection is closed only once nothing uses it
        DatabaseFile::close(Store::SystemConnection);
    }

    void vendorDatabaseTablesAndLimits() {
        test::TestFolders folders;
        QVERIFY(Store::CreateVendorDatabase(folders.dataDir(), QStringLiteral(" ABC ")));
        QVERIFY(QFileInfo::exists(folders.dataFile(QStringLiteral("ABCvendor.mdb"))));
        {
            auto db = Store::OpenVendorDatabase(folders.dataDir(), Store::vendorFileName(QStringLiteral("ABC")));
            QVERIFY(db);
            for (const QString& table : {QStringLiteral("vendor"), QStringLiteral("barcodes"), QStringLiteral("items"),
                                         QStringLiteral("orderhead"), QStringLiteral("orderline")}) {
                QCOMPARE(Sql::scalar(*db, QStringLiteral("SELECT count(*) FROM ") + table).value().toInt(), 0);
            }

            // Rule numbers come from a counter starting at 1.
            const QString rule =
                QStringLiteral("INSERT INTO barcodes (codestart, skipfirst, skiplast, status) VALUES (?,?,?,?)");
            QVERIFY(Sql::run(*db, rule, {QStringLiteral("99"), 2, 1, QStringLiteral("A")}));
            QVERIFY(Sql::run(*db, rule, {QStringLiteral("98"), 0, 0, QStringLiteral("A")}));
            QCOMPARE(Sql::scalar(*db, QStringLiteral("SELECT min(codenum) FROM barcodes")).value().toInt(), 1);
            QCOMPARE(Sql::scalar(*db, QStringLiteral("SELECT max(codenum) FROM barcodes")).value().toInt(), 2);

            // Lines have no key: the same order and line number may be stored twice.
            const QString line = QStringLiteral(
                "INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, lineval, recvqty) "
                "VALUES (?,?,?,?,?,?,?,?,?)");
            const QVariantList l = {QStringLiteral("ABC1000000"),
                                    1,
                                    QStringLiteral("X1"),
                                    QStringLiteral("2026-11-23"),
                                    QStringLiteral("L"),
                                    2,
                                    15000,
                                    30000,
                                    0};
            const Status first = Sql::run(*db, line, l);
            QVERIFY2(first, qPrintable(first.message()));
            QVERIFY(Sql::run(*db, line, l));

            Sql::Refusal why = Sql::Refusal::None;
            const QString item = QStringLiteral(
                "INSERT INTO items (code, descr, packqty, defqty, price, priceexp) VALUES (?,?,?,?,?,?)");
            QVERIFY(Sql::run(
                *db, item,
                {QString(25, QLatin1Char('A')), QStringLiteral("Widget"), 1, 1, 10000, QStringLiteral("2027-01-01")}));
            QVERIFY(!Sql::run(
                *db, item,
                {QString(26, QLatin1Char('B')), QStringLiteral("Widget"), 1, 1, 10000, QStringLiteral("2027-01-01")},
                &why));
            QCOMPARE(why, Sql::Refusal::TooLongOrInvalid);
            QVERIFY(!Sql::run(
                *db, item, {QStringLiteral("C1"), QStringLiteral("Widget"), 1, 1, 10000, QStringLiteral("not a date")},
                &why));
            QCOMPARE(why, Sql::Refusal::TooLongOrInvalid);
            QVERIFY(
                !Sql::run(*db, item, {QStringLiteral("C2"), QStringLiteral("Widget"), 1, 1, 10000, QVariant()}, &why));
            QCOMPARE(why, Sql::Refusal::Missing);

            const QString head =
                QStringLiteral("INSERT INTO orderhead (orderid, orderdate, name, status, totalval) VALUES (?,?,?,?,?)");
            QVERIFY(Sql::run(*db, head,
                             {QStringLiteral("ABC1000000"), QStringLiteral("2026-11-23"), QString(28, QLatin1Char('n')),
                              QStringLiteral("L"), 0}));
            QVERIFY(!Sql::run(*db, head,
                              {QStringLiteral("ABC1000001"), QStringLiteral("2026-11-23"),
                               QString(29, QLatin1Char('n')), QStringLiteral("L"), 0},
                              &why));
            QCOMPARE(why, Sql::Refusal::TooLongOrInvalid);
        } // the connection is closed only once nothing uses it
        DatabaseFile::close(Store::VendorConnection);
    }

    void olderDataIsUpgradedAndNewerRefused() {
        test::TestFolders folders;
        const QString fresh = folders.dataFile(QStringLiteral("NEWvendor.mdb"));
        const QString old = folders.dataFile(QStringLiteral("OLDvendor.mdb"));
        QVERIFY(Store::CreateVendorDatabase(folders.dataDir(), QStringLiteral("NEW")));
        QVERIFY(Store::CreateVendorDatabase(folders.dataDir(), QStringLiteral("OLD")));
        makeFirstLayout(old);

        // Opening upgrades the old file to exactly what a new one holds, rows kept.
        {
            auto db = Store::OpenVendorDatabase(folders.dataDir(), QStringLiteral("OLDvendor.mdb"));
            QVERIFY2(db, qPrintable(db.message()));
            QCOMPARE(SchemaUpgrade::storedVersion(*db).value(), vendorSchema().version());
            QCOMPARE(Sql::scalar(*db, QStringLiteral("SELECT descr FROM items WHERE code = 'K1' AND gtin IS NULL"))
                         ->toString(),
                     QStringLiteral("Kept"));
        }
        DatabaseFile::close(Store::VendorConnection);
        QCOMPARE(structureOf(old), structureOf(fresh));

        // A step that fails leaves the old file exactly as it was.
        QFile::remove(old);
        QVERIFY(Store::CreateVendorDatabase(folders.dataDir(), QStringLiteral("OLD")));
        makeFirstLayout(old);
        {
            // An index of the name the upgrade makes, left by hand, makes its step fail.
            QSqlDatabase db = DatabaseFile::addConnection(QStringLiteral("clash"), old, false);
            QVERIFY(db.open());
            QVERIFY(Sql::run(db, QStringLiteral("CREATE INDEX items_gtin ON items (descr)")));
        }
        QSqlDatabase::removeDatabase(QStringLiteral("clash"));
        const auto before = test::databaseDump(old);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("index items_gtin already exists")));
        {
            auto db = Store::OpenVendorDatabase(folders.dataDir(), QStringLiteral("OLDvendor.mdb"));
            QVERIFY(!db);
            QVERIFY2(db.message().contains(QStringLiteral("could not be upgraded to version 2")),
                     qPrintable(db.message()));
        }
        QVERIFY(!DatabaseFile::isOpen(Store::VendorConnection));
        QCOMPARE(test::databaseDump(old), before);

        // Data from a newer program is refused, untouched.
        {
            QSqlDatabase db = DatabaseFile::addConnection(QStringLiteral("newer"), fresh, false);
            QVERIFY(db.open());
            QVERIFY(SchemaUpgrade::recordVersion(db, vendorSchema().version() + 1));
        }
        QSqlDatabase::removeDatabase(QStringLiteral("newer"));
        const auto newer = test::databaseDump(fresh);
        {
            auto db = Store::OpenVendorDatabase(folders.dataDir(), QStringLiteral("NEWvendor.mdb"));
            QVERIFY(!db);
            QVERIFY2(db.message().contains(QStringLiteral("newer version of Ordwell")), qPrintable(db.message()));
        }
        QCOMPARE(test::databaseDump(fresh), newer);
    }

    void failedCreationLeavesNoFile() {
        test::TestFolders folders;
        const QString missing = folders.dataFile(QStringLiteral("no/such/folder"));
        QVERIFY(!Store::CreateSystemDatabase(missing));
        QVERIFY(!QFileInfo::exists(missing + QStringLiteral("/Ordwell.mdb")));
        // Not a database at all: opening says so instead of pretending.
        QFile junk(folders.dataFile(QStringLiteral("Ordwell.mdb")));
        QVERIFY(junk.open(QIODevice::WriteOnly));
        junk.write(QByteArray(4096, 'x'));
        junk.close();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^SQLite result 26 ")));
        QVERIFY(!Store::OpenSystemDatabase(folders.dataDir()));
        QVERIFY(!DatabaseFile::isOpen(Store::SystemConnection));
    }

    // Failures are told apart by SQLite's result code, whatever words its message uses, and
    // those that are not the user's to mend are logged as warnings.
    void failuresAreToldApartByResultCode_data() {
        QTest::addColumn<QString>("situation");
        QTest::addColumn<int>("refusal");
        QTest::addColumn<QString>("saying");
        QTest::addColumn<int>("code");
        QTest::newRow("another connection writes")
            << "busy" << int(Sql::Refusal::Busy) << "in use by another program" << 5;
        QTest::newRow("not a database") << "junk" << int(Sql::Refusal::Damaged) << "damaged" << 26;
        QTest::newRow("opened read-only")
            << "readonly" << int(Sql::Refusal::Unavailable) << "could not be read or changed" << 8;
    }

    void failuresAreToldApartByResultCode() {
        QFETCH(QString, situation);
        QFETCH(int, refusal);
        QFETCH(QString, saying);
        QFETCH(int, code);
        test::TestFolders folders;
        QVERIFY(Store::CreateVendorDatabase(folders.dataDir(), QStringLiteral("ABC")));
        const QString path = folders.dataFile(QStringLiteral("ABCvendor.mdb"));
        if (situation == QLatin1String("junk"))
            QVERIFY(test::writeFile(path, QByteArray(4096, 'x')));
        {
            QSqlDatabase holder = DatabaseFile::addConnection(QStringLiteral("holder"), path, false);
            QVERIFY(holder.open());
            if (situation == QLatin1String("busy"))
                QVERIFY(Sql::run(holder, QStringLiteral("BEGIN IMMEDIATE")));
            QSqlDatabase writer =
                DatabaseFile::addConnection(QStringLiteral("writer"), path, situation == QLatin1String("readonly"));
            // No waiting for the holder to finish: the test wants the refusal, not the wait.
            writer.setConnectOptions(writer.connectOptions().replace(QStringLiteral("=2000"), QStringLiteral("=0")));
            QVERIFY(writer.open());

            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^SQLite result %1 ").arg(code)));
            Sql::Refusal why = Sql::Refusal::None;
            const Status written = Sql::run(writer,
                                            QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, "
                                                           "price, priceexp) VALUES ('A1', 'Apple', 1, 1, 0, "
                                                           "'2030-01-01')"),
                                            {}, &why);
            QVERIFY(!written);
            QCOMPARE(int(why), refusal);
            QVERIFY2(written.message().contains(saying), qPrintable(written.message()));
            QVERIFY(!written.message().contains(QLatin1String("SQLite")));
        }
        DatabaseFile::close(QStringLiteral("writer"));
        DatabaseFile::close(QStringLiteral("holder"));
    }

    // A database another program is writing is in use, not damaged, and says so when opened.
    void openingABusyDatabaseSaysItIsInUse() {
        test::TestFolders folders;
        QVERIFY(Store::CreateVendorDatabase(folders.dataDir(), QStringLiteral("ABC")));
        const QString path = folders.dataFile(QStringLiteral("ABCvendor.mdb"));
        {
            QSqlDatabase holder = DatabaseFile::addConnection(QStringLiteral("holder"), path, false);
            QVERIFY(holder.open());
            QVERIFY(Sql::run(holder, QStringLiteral("BEGIN EXCLUSIVE")));
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^SQLite result 5 ")));
            const auto opened = DatabaseFile::open(QStringLiteral("reader"), path, true);
            QVERIFY(!opened);
            QVERIFY2(opened.message().contains(QLatin1String("is in use by another program")),
                     qPrintable(opened.message()));
            QVERIFY(!DatabaseFile::isOpen(QStringLiteral("reader")));
            QVERIFY(Sql::run(holder, QStringLiteral("ROLLBACK")));
        }
        DatabaseFile::close(QStringLiteral("holder"));
        QVERIFY(DatabaseFile::open(QStringLiteral("reader"), path, true));
        DatabaseFile::close(QStringLiteral("reader"));
    }

    // A statement is prepared once and runs again with new values, rows and refusals included.
    void preparedStatementRunsAgainWithNewValues() {
        test::TestFolders folders;
        QVERIFY(Store::CreateVendorDatabase(folders.dataDir(), QStringLiteral("ABC")));
        {
            auto db = Store::OpenVendorDatabase(folders.dataDir(), Store::vendorFileName(QStringLiteral("ABC")));
            QVERIFY(db);
            {
                Sql::Statement insert(*db, QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, "
                                                          "priceexp) VALUES (?, ?, 1, 1, ?, '2030-01-01')"));
                Sql::Statement lookUp(*db, QStringLiteral("SELECT descr, price FROM items WHERE code = ?"));
                QVERIFY(insert.exec({QStringLiteral("A1"), QStringLiteral("Apple"), 150}));
                QVERIFY(insert.exec({QStringLiteral("B2"), QStringLiteral("O'Brien's pear"), 275}));
                const Status again = insert.exec({QStringLiteral("a1"), QStringLiteral("Apple pie"), 1});
                QVERIFY(!again);
                QCOMPARE(insert.refusal(), Sql::Refusal::Duplicate);
                QVERIFY(insert.exec({QStringLiteral("C3"), QStringLiteral("Cherry"), 5}));
                QCOMPARE(insert.refusal(), Sql::Refusal::None);

                for (const auto& [code, descr, price] :
                     {std::tuple{"B2", "O'Brien's pear", 275}, {"A1", "Apple", 150}}) {
                    QVERIFY(lookUp.exec({QString::fromLatin1(code)}));
                    QVERIFY(lookUp.query().next());
                    QCOMPARE(lookUp.query().value(0).toString(), QString::fromLatin1(descr));
                    QCOMPARE(lookUp.query().value(1).toInt(), price);
                }
                QVERIFY(lookUp.exec({QStringLiteral("ZZ")}));
                QVERIFY(!lookUp.query().next());
            }
            QCOMPARE(Sql::scalar(*db, QStringLiteral("SELECT count(*) FROM items")).value().toInt(), 3);
        } // the connection is closed only once nothing uses it
        DatabaseFile::close(Store::VendorConnection);
    }
};

QTEST_GUILESS_MAIN(TestStore)
#include "tst_store.moc"

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
#include <QTest>

using namespace ordwell;

namespace {
const QString Ins = QStringLiteral(
    "INSERT INTO Sysset (location, department, add1, add2, add3, county, postcode, contact, telephone, fax, email) "
    "VALUES (?,?,?,?,?,?,?,?,?,?,?)");

// Columns and indexes of every table as SQLite reports them, and each index's own text: what
// must be the same whether a file was made new or upgraded from an older layout.
QStringList structureOf(const QString& path) {
    QStringList out;
    const QString name = QStringLiteral("structure");
    {
        auto db = DatabaseFile::open(name, path, true);
        if (!db)
            return {db.message()};
        auto q = Sql::exec(
            *db, QStringLiteral("SELECT t.name, c.cid, c.name, c.type, c.\"notnull\", c.dflt_value, c.pk FROM "
                                "sqlite_master t, pragma_table_info(t.name) c WHERE t.type = 'table' UNION ALL "
                                "SELECT t.name, i.name, i.\"unique\", i.origin, i.partial, x.sql, NULL FROM "
                                "sqlite_master t, pragma_index_list(t.name) i LEFT JOIN sqlite_master x ON "
                                "x.name = i.name WHERE t.type = 'table' ORDER BY 1, 2, 3"));
        while (q && q.value().next()) {
            QStringList row;
            for (int c = 0; c < 7; ++c)
                row << q.value().value(c).toString();
            out << row.join(QLatin1Char('|'));
        }
    }
    DatabaseFile::close(name);
    return out;
}

// Runs each statement on a connection of its own to the file at `path`; false at the first refused.
bool runOn(const QString& path, std::initializer_list<const char*> statements) {
    const QString name = QStringLiteral("by hand");
    bool done = false;
    {
        QSqlDatabase db = DatabaseFile::addConnection(name, path, false);
        done = db.open();
        for (const char* sql : statements)
            done = done && Sql::run(db, QString::fromLatin1(sql));
    }
    QSqlDatabase::removeDatabase(name);
    return done;
}

// A vendor file as the first layout had it: made new, then the later additions taken away.
bool makeFirstLayout(const QString& path) {
    return runOn(path, {"DROP TABLE orderlease", "DROP TABLE reportfile", "DROP INDEX items_gtin",
                        "ALTER TABLE items DROP COLUMN gtin", "ALTER TABLE items DROP COLUMN unitcode",
                        "ALTER TABLE vendor DROP COLUMN peppolscheme", "ALTER TABLE vendor DROP COLUMN peppolid",
                        "ALTER TABLE vendor DROP COLUMN legalname", "ALTER TABLE vendor DROP COLUMN country",
                        "DROP TABLE schemaversion",
                        "INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                        "VALUES ('K1', 'Kept', 1, 1, 12500, '2030-01-01')"});
}

// An organisation's row, its empty optional values NULL.
QVariantList sysset(const QString& location) {
    QVariantList row{location};
    for (const QString& value :
         QStringLiteral("|1 High St|||Kent|CT1 1AA|Ann|01234 567890||ann@example.org").split(u'|'))
        row << (value.isEmpty() ? QVariant() : QVariant(value));
    return row;
}

// Why the store refused a statement; Refusal::None when it was taken.
Sql::Refusal refusalOf(const QSqlDatabase& db, const QString& sql, const QVariantList& values) {
    Sql::Refusal why = Sql::Refusal::None;
    Sql::run(db, sql, values, &why);
    return why;
}
} // namespace

class TestStore : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void systemDatabaseRefusesBadRows() {
        test::TestFolders folders;
        QVERIFY(Store::CreateSystemDatabase(folders.dataDir()));
        // A second creation over the existing file is refused and the file is kept.
        QVERIFY(!Store::CreateSystemDatabase(folders.dataDir()));
        {
            auto db = Store::OpenSystemDatabase(folders.dataDir());
            QVERIFY(db);
            QVERIFY(!Store::HasOrganisationDetails(*db));
            QCOMPARE(refusalOf(*db, Ins, sysset(QStringLiteral("Acme"))), Sql::Refusal::None);
            QVERIFY(Store::HasOrganisationDetails(*db));
            QCOMPARE(refusalOf(*db, Ins, sysset(QStringLiteral("ACME"))), Sql::Refusal::Duplicate); // keys ignore case
            QCOMPARE(refusalOf(*db, Ins, sysset(QString(51, QLatin1Char('x')))), Sql::Refusal::TooLongOrInvalid);
            QCOMPARE(refusalOf(*db, Ins, sysset(QString(50, QLatin1Char('y')))), Sql::Refusal::None);
            for (int column : {0, 2, 5, 6, 7, 8, 10}) {
                QVariantList row = sysset(QStringLiteral("Org %1").arg(column));
                row[column] = QVariant();
                QCOMPARE(refusalOf(*db, Ins, row), Sql::Refusal::Missing);
            }

            const QString vendor = QStringLiteral("INSERT INTO vendors (vendor, code, status) VALUES (?, ?, 'A')");
            const QString name = QStringLiteral("O'Brien's Supplies");
            QCOMPARE(refusalOf(*db, vendor, {name, QStringLiteral("OBS")}), Sql::Refusal::None);
            QCOMPARE(refusalOf(*db, vendor, {name, QStringLiteral("XYZ")}), Sql::Refusal::Duplicate);
            QCOMPARE(refusalOf(*db, vendor, {QStringLiteral("Long Code Ltd"), QStringLiteral("ABCDE")}),
                     Sql::Refusal::TooLongOrInvalid);
        } // the connection is closed only once nothing uses it
        DatabaseFile::close(Store::SystemConnection);
    }

    void vendorDatabaseLimits() {
        test::TestFolders folders;
        QVERIFY(Store::CreateVendorDatabase(folders.dataDir(), QStringLiteral(" ABC ")));
        QVERIFY(QFileInfo::exists(folders.dataFile(QStringLiteral("ABCvendor.mdb"))));
        {
            auto db = Store::OpenVendorDatabase(folders.dataDir(), Store::vendorFileName(QStringLiteral("ABC")));
            QVERIFY(db);
            // Lines have no key: the same order and line number may be stored twice.
            for (int twice = 0; twice < 2; ++twice)
                QVERIFY(Sql::run(*db, QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, "
                                                     "qty, price, lineval, recvqty) VALUES ('ABC1000000', 1, 'X1', "
                                                     "'2026-11-23', 'L', 2, 15000, 30000, 0)")));

            const QString item = QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                                                "VALUES (?, 'Widget', 1, 1, 10000, ?)");
            const QString expiry = QStringLiteral("2027-01-01");
            QCOMPARE(refusalOf(*db, item, {QString(25, QLatin1Char('A')), expiry}), Sql::Refusal::None);
            QCOMPARE(refusalOf(*db, item, {QString(26, QLatin1Char('B')), expiry}), Sql::Refusal::TooLongOrInvalid);
            QCOMPARE(refusalOf(*db, item, {QStringLiteral("C1"), QStringLiteral("not a date")}),
                     Sql::Refusal::TooLongOrInvalid);
            QCOMPARE(refusalOf(*db, item, {QStringLiteral("C2"), QVariant()}), Sql::Refusal::Missing);

            const QString head = QStringLiteral("INSERT INTO orderhead (orderid, orderdate, name, status, totalval) "
                                                "VALUES (?, '2026-11-23', ?, 'L', 0)");
            QCOMPARE(refusalOf(*db, head, {QStringLiteral("ABC1000000"), QString(28, QLatin1Char('n'))}),
                     Sql::Refusal::None);
            QCOMPARE(refusalOf(*db, head, {QStringLiteral("ABC1000001"), QString(29, QLatin1Char('n'))}),
                     Sql::Refusal::TooLongOrInvalid);
        } // the connection is closed only once nothing uses it
        DatabaseFile::close(Store::VendorConnection);
    }

    void olderDataIsUpgradedAndNewerRefused() {
        test::TestFolders folders;
        const QString fresh = folders.dataFile(QStringLiteral("NEWvendor.mdb"));
        const QString old = folders.dataFile(QStringLiteral("OLDvendor.mdb"));
        QVERIFY(Store::CreateVendorDatabase(folders.dataDir(), QStringLiteral("NEW")));
        QVERIFY(Store::CreateVendorDatabase(folders.dataDir(), QStringLiteral("OLD")));
        QVERIFY(makeFirstLayout(old));

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
        // An index of the name the upgrade makes, left by hand, makes its step fail.
        QVERIFY(makeFirstLayout(old) && runOn(old, {"CREATE INDEX items_gtin ON items (descr)"}));
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
        QVERIFY(runOn(fresh, {"UPDATE schemaversion SET version = version + 1"}));
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
    }

    // Failures are told apart by SQLite's result code, whatever words its message uses, and
    // those that are not the user's to mend are logged as warnings.
    void failuresAreToldApartByResultCode_data() {
        QTest::addColumn<int>("refusal");
        QTest::addColumn<QString>("saying");
        QTest::addColumn<int>("code");
        QTest::newRow("another connection writes") << int(Sql::Refusal::Busy) << "in use by another program" << 5;
        QTest::newRow("not a database") << int(Sql::Refusal::Damaged) << "damaged" << 26;
        QTest::newRow("opened read-only") << int(Sql::Refusal::Unavailable) << "could not be read or changed" << 8;
    }

    void failuresAreToldApartByResultCode() {
        const QLatin1String situation(QTest::currentDataTag());
        QFETCH(int, refusal);
        QFETCH(QString, saying);
        QFETCH(int, code);
        test::TestFolders folders;
        QVERIFY(Store::CreateVendorDatabase(folders.dataDir(), QStringLiteral("ABC")));
        const QString path = folders.dataFile(QStringLiteral("ABCvendor.mdb"));
        if (situation == "not a database")
            QVERIFY(test::writeFile(path, QByteArray(4096, 'x')));
        {
            QSqlDatabase holder = DatabaseFile::addConnection(QStringLiteral("holder"), path, false);
            QVERIFY(holder.open());
            if (situation == "another connection writes")
                QVERIFY(Sql::run(holder, QStringLiteral("BEGIN EXCLUSIVE")));
            QSqlDatabase writer =
                DatabaseFile::addConnection(QStringLiteral("writer"), path, situation == "opened read-only");
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

            if (situation == "another connection writes") {
                // A file another program is writing is in use, not damaged, when opened too.
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^SQLite result 5 ")));
                const auto opened = DatabaseFile::open(QStringLiteral("reader"), path, true);
                QVERIFY2(!opened && opened.message().contains(saying), qPrintable(opened.message()));
                QVERIFY(!DatabaseFile::isOpen(QStringLiteral("reader")));
                QVERIFY(Sql::run(holder, QStringLiteral("ROLLBACK")));
                QVERIFY(DatabaseFile::open(QStringLiteral("reader"), path, true));
            }
        }
        for (const char* name : {"reader", "writer", "holder"})
            DatabaseFile::close(QString::fromLatin1(name));
    }

    // A statement is prepared once and runs again with new values, after a refusal too.
    void preparedStatementRunsAgainWithNewValues() {
        test::TestFolders folders;
        QVERIFY(Store::CreateVendorDatabase(folders.dataDir(), QStringLiteral("ABC")));
        {
            auto db = Store::OpenVendorDatabase(folders.dataDir(), Store::vendorFileName(QStringLiteral("ABC")));
            QVERIFY(db);
            Sql::Statement insert(*db, QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, "
                                                      "priceexp) VALUES (?, ?, 1, 1, ?, '2030-01-01')"));
            Sql::Statement lookUp(*db, QStringLiteral("SELECT descr || ' ' || price FROM items WHERE code = ?"));
            QVERIFY(insert.exec({QStringLiteral("A1"), QStringLiteral("Apple"), 150}));
            QVERIFY(!insert.exec({QStringLiteral("a1"), QStringLiteral("Apple pie"), 1}));
            QVERIFY(insert.exec({QStringLiteral("B2"), QStringLiteral("O'Brien's pear"), 275}));
            QStringList found;
            for (const char* code : {"B2", "A1", "ZZ"})
                found << (lookUp.exec({QString::fromLatin1(code)}) && lookUp.query().next()
                              ? lookUp.query().value(0).toString()
                              : QStringLiteral("none"));
            QCOMPARE(found, (QStringList{"O'Brien's pear 275", "Apple 150", "none"}));
        } // the connection is closed only once nothing uses it
        DatabaseFile::close(Store::VendorConnection);
    }
};

QTEST_GUILESS_MAIN(TestStore)
#include "tst_store.moc"

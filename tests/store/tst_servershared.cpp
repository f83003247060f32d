// Several workstations on one real PostgreSQL server (the one scripts/test starts): order
// numbers drawn at once, orders leased to the workstation working on them, and the program's
// scripted commands: the price-list import writes the server's catalogue, and the reports
// read the server's orders, through a session that refuses every write.
#include "app/AppContext.h"
#include "app/MenuMasks.h"
#include "app/VendorSession.h"
#include "common/Sql.h"
#include "orders/OrderForm.h"
#include "orders/OrderPrinting.h"
#include "orders/OrderRepository.h"
#include "orders/Revaluation.h"
#include "shell/MainWindow.h"
#include "store/DatabaseFile.h"
#include "store/OrderLeases.h"
#include "store/ServerStore.h"
#include "store/Store.h"
#include "support/ScriptedPrompter.h"
#include "support/TestSupport.h"
#include "vendors/VendorChooser.h"
#include "vendors/VendorRecords.h"
#include "vendors/VendorRepository.h"

#include <QApplication>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QSet>
#include <QTest>
#include <QThread>
#include <atomic>
#include <thread>

using namespace ordwell;

namespace {

const QString Admin = QStringLiteral("admin");
const QString Conn = QStringLiteral("vendor");

QString server() {
    return test::testServer();
}

QString pdfText(const QString& pdf) {
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")});
    if (!p.waitForFinished(30000) || p.exitCode() != 0)
        return QStringLiteral("pdftotext failed");
    return QString::fromUtf8(p.readAllStandardOutput());
}

// The real program, with no display; `words` are its further arguments split at spaces.
test::Finished runProgram(const QStringList& arguments, const char* words = "") {
    return test::runHeadless(QStringLiteral(ORDWELL_EXE),
                             arguments + QString::fromLatin1(words).split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

// A second workstation: its own connection to vendor ABC, made and used on its own thread.
QStringList drawNumbers(const QString& connection, int count) {
    QStringList numbers;
    {
        auto db = ServerStore::openVendor(connection, server(), QStringLiteral("ABC"));
        if (!db)
            return {db.message()};
        const OrderRepository orders(*db);
        for (int i = 0; i < count; ++i) {
            auto number = orders.NextOrderNumber(QStringLiteral("ABC"));
            numbers << (number ? *number : number.message());
        }
    }
    DatabaseFile::close(connection);
    return numbers;
}

const QString OrderId = QStringLiteral("ABC1000000");

// The child process of theOrderFormRespectsAnotherWorkstationsOrder: takes the lease, says so, and
// waits to be killed.
int holdLease(const QString& conninfo) {
    static int noArguments = 0;
    QCoreApplication app(noArguments, nullptr);
    auto db = ServerStore::openVendor(QStringLiteral("holder"), conninfo, QStringLiteral("ABC"));
    if (!db)
        return 1;
    OrderLeases leases(*db, QStringLiteral("pc-b-run-1"), QStringLiteral("bob on pc-b"), 2);
    if (!leases.take(OrderId))
        return 1;
    std::printf("held\n");
    std::fflush(stdout);
    QThread::sleep(60);
    return 0;
}

} // namespace

class TestServerShared : public test::StrictTest {
    Q_OBJECT

    // A server database holding nothing of ours.
    void dropOurSchemas() {
        DatabaseFile::close(Conn);
        const QString problem = test::dropOrdwellSchemas();
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
    }

private slots:
    void initTestCase() {
        test::initTestEnvironment();
        ORDWELL_NEEDS_TEST_SERVER();
    }

    // The organisation, vendor ABC with one order of two lines (one cancelled), nothing else.
    void init() {
        dropOurSchemas();
        {
            auto admin = ServerStore::connect(Admin, server());
            QVERIFY2(admin, qPrintable(admin.message()));
            QVERIFY(ServerStore::createSystem(*admin));
            QVERIFY(ServerStore::createVendor(*admin, QStringLiteral("ABC")));
        }
        DatabaseFile::close(Admin);
        {
            auto system = ServerStore::openSystem(Admin, server());
            QVERIFY2(system, qPrintable(system.message()));
            QVERIFY(VendorRepository::addVendor(*system, QStringLiteral("Acme Supplies"), QStringLiteral("ABC")));
        }
        DatabaseFile::close(Admin);
        auto db = ServerStore::openVendor(Conn, server(), QStringLiteral("ABC"));
        QVERIFY2(db, qPrintable(db.message()));
        const QStringList rows = {
            QStringLiteral("INSERT INTO vendor (vendorid, customerid, add1, add3, county, postcode, repname, "
                           "contactname, contactemail, nextord, ordform) VALUES ('ABC', 'CUST7', '2 Mill Lane', "
                           "'Leeds', 'Yorks', 'LS11AA', 'Rob', 'Cat', 'cat@acme.example', 1000001, 'ordform.rpt')"),
            QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) VALUES "
                           "('A1', 'Apples', 1, 1, 30000, '2030-12-31')"),
            QStringLiteral("INSERT INTO orderhead (orderid, orderdate, name, reference, status, totalval, "
                           "reprintcount) VALUES ('ABC1000000', '2026-03-11', 'Ann', 'REF1', 'X', 90000, 1)"),
            QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, lineval, "
                           "recvqty, recvdate) VALUES ('ABC1000000', 1, 'A1', '2026-03-11', 'X', 3, 30000, 90000, "
                           "0, '1980-07-04'), ('ABC1000000', 2, 'A1', '2026-03-11', 'C', 5, 30000, 150000, 0, "
                           "'1980-07-04')"),
        };
        for (const QString& row : rows)
            QVERIFY2(Sql::run(*db, row), qPrintable(row));
    }
    void cleanup() { DatabaseFile::close(Conn); }

    // Two workstations starting orders at the same moment: every number once, none skipped.
    void orderNumbersDrawnAtOnce() {
        QStringList first;
        QStringList second;
        std::thread a([&first] { first = drawNumbers(QStringLiteral("pc-a"), 500); });
        std::thread b([&second] { second = drawNumbers(QStringLiteral("pc-b"), 500); });
        a.join();
        b.join();
        const QStringList drawn = first + second;
        QSet<QString> expected;
        for (int n = 1000001; n <= 1001000; ++n)
            expected.insert(QStringLiteral("ABC") + QString::number(n));
        QCOMPARE(QSet<QString>(drawn.cbegin(), drawn.cend()), expected);

        // A workstation that keeps the counter locked holds the other up for two seconds at
        // most: then the other is told, rather than left frozen.
        auto other = ServerStore::openVendor(QStringLiteral("pc-b"), server(), QStringLiteral("ABC"));
        QVERIFY(other);
        Sql::Transaction holding(*other);
        QVERIFY(Sql::run(*other, QStringLiteral("SELECT nextord FROM vendor FOR UPDATE")));
        const auto refused = OrderRepository(QSqlDatabase::database(Conn)).NextOrderNumber(QStringLiteral("ABC"));
        QVERIFY2(!refused && refused.message().contains(QStringLiteral("in use by another program")),
                 qPrintable(refused.message()));
    }

    // An order is its workstation's while the lease runs: refused to another, with who has
    // it; left out of another's lists; free again once released.
    void leasesKeepAnOrderToItsWorkstation() {
        auto other = ServerStore::openVendor(QStringLiteral("pc-b"), server(), QStringLiteral("ABC"));
        QVERIFY2(other, qPrintable(other.message()));
        OrderLeases mine(QSqlDatabase::database(Conn), QStringLiteral("pc-a-run-1"), QStringLiteral("ann on pc-a"), 60);
        OrderLeases theirs(*other, QStringLiteral("pc-b-run-1"), QStringLiteral("bob on pc-b"), 60);
        QVERIFY(mine.active());
        QVERIFY(mine.take(OrderId));
        QVERIFY(mine.take(OrderId)); // renewed, not refused
        const Status refused = theirs.take(OrderId);
        QCOMPARE(refused.message(), OrderLeases::heldMessage(OrderId, QStringLiteral("ann on pc-a")));
        QCOMPARE(theirs.heldElsewhere(OrderId)->value_or(QString()), QStringLiteral("ann on pc-a"));
        QVERIFY(!mine.heldElsewhere(OrderId)->has_value());
        auto visible = [](const OrderLeases& leases, const QSqlDatabase& db) {
            auto n = Sql::scalar(db,
                                 QStringLiteral("SELECT count(*) FROM orderhead h WHERE true") +
                                     leases.notLeasedElsewhere(QStringLiteral("h")),
                                 leases.notLeasedElsewhereValues());
            return n ? n->toInt() : -1;
        };
        QCOMPARE(visible(mine, QSqlDatabase::database(Conn)), 1);
        QCOMPARE(visible(theirs, *other), 0);
        QVERIFY(mine.renewAll());
        QVERIFY(mine.release(OrderId));
        QVERIFY(theirs.take(OrderId));
        QVERIFY(!mine.take(OrderId));
        QVERIFY(theirs.releaseAll());
    }

    // Another workstation's live order, leased to it, is neither offered here for recovery nor
    // revalued under it; once it is let go, both happen.
    void anOrderLeasedElsewhereIsLeftAlone() {
        const QSqlDatabase db = QSqlDatabase::database(Conn);
        QVERIFY(Sql::run(db, QStringLiteral("UPDATE orderhead SET status = 'L'")));
        QVERIFY(Sql::run(db, QStringLiteral("UPDATE orderline SET status = 'L'")));
        QVERIFY(Sql::run(db, QStringLiteral("UPDATE items SET price = 40000")));
        auto linePrice = [&db] {
            return Sql::scalar(db, QStringLiteral("SELECT price FROM orderline WHERE line = 1"))->toLongLong();
        };
        OrderLeases theirs(db, QStringLiteral("pc-b-run-1"), QStringLiteral("bob on pc-b"), 60);
        QVERIFY(theirs.take(OrderId));
        QCOMPARE(*VendorChooser::hasLiveOrder(db), false);
        QCOMPARE(*revalueOpenOrders(db), 0);
        QCOMPARE(linePrice(), 30000);

        QVERIFY(theirs.release(OrderId));
        QCOMPARE(*VendorChooser::hasLiveOrder(db), true);
        QCOMPARE(*revalueOpenOrders(db), 1);
        QCOMPARE(linePrice(), 40000);
    }

    // A price list imported through the program on one workstation (its vendor named in lower
    // case) while another builds an order: the server's catalogue takes it, the data folder gets
    // no file, and the order being built keeps its prices, its total always agreeing with its lines.
    void anImportWhileAnotherBuildsAnOrder() {
        const QSqlDatabase db = QSqlDatabase::database(Conn);
        QVERIFY(Sql::run(db, QStringLiteral("UPDATE orderhead SET status = 'L', totalval = 0")));
        QVERIFY(Sql::run(db, QStringLiteral("DELETE FROM orderline")));
        OrderLeases builder(db, QStringLiteral("pc-a-run-1"), QStringLiteral("ann on pc-a"));
        QVERIFY(builder.take(OrderId));
        std::atomic<bool> imported{false};
        // Lines go on until the import is over, so that the two overlap however long it takes.
        std::thread building([&imported] {
            {
                auto other = ServerStore::openVendor(QStringLiteral("builder"), server(), QStringLiteral("ABC"));
                for (int line = 1; other && !imported; ++line) {
                    // One line and the header's total in one step, as the order form writes them.
                    Sql::Transaction step(*other);
                    Sql::run(*other,
                             QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, "
                                            "lineval, recvqty) VALUES (?, ?, 'A1', '2026-03-11', 'L', 1, 30000, "
                                            "30000, 0)"),
                             {OrderId, line});
                    Sql::run(*other, QStringLiteral("UPDATE orderhead SET totalval = ? WHERE orderid = ?"),
                             {line * 30000, OrderId});
                    step.commit();
                }
            }
            DatabaseFile::close(QStringLiteral("builder"));
        });
        test::TestFolders folders;
        const QString list = folders.dataFile(QStringLiteral("prices.csv"));
        QByteArray lines;
        for (int i = 0; i < 3000; ++i)
            lines += "N" + QByteArray::number(i) + ",New,1,1,1.00,31/12/2030\n";
        QVERIFY(test::writeFile(list, lines + "A1,Apples,1,1,4.00,31/12/2030\n"));
        const test::Finished run = runProgram({QStringLiteral("--server"), server(), QStringLiteral("--data-dir"),
                                               folders.dataDir(), QStringLiteral("--import-items"), list},
                                              "--vendor abc");
        imported = true;
        building.join();
        QVERIFY2(run.code == 0, qPrintable(run.err));
        QVERIFY(!QFile::exists(folders.dataFile(QStringLiteral("ABCvendor.mdb"))));
        QCOMPARE(Sql::scalar(db, QStringLiteral("SELECT count(*) FROM items"))->toInt(), 3001);
        QCOMPARE(Sql::scalar(db, QStringLiteral("SELECT price FROM items WHERE code = 'A1'"))->toLongLong(), 40000);
        QCOMPARE(Sql::scalar(db, QStringLiteral("SELECT count(*) FROM orderline WHERE price <> 30000"))->toInt(), 0);
        QVERIFY(Sql::scalar(db, QStringLiteral("SELECT count(*) FROM orderline"))->toInt() > 0);
        QCOMPARE(Sql::scalar(db, QStringLiteral("SELECT totalval FROM orderhead"))->toLongLong(),
                 Sql::scalar(db, QStringLiteral("SELECT sum(lineval) FROM orderline"))->toLongLong());
    }

    // A vendor's own order form, imported on one workstation, prints on another whose data
    // folder never had it.
    void theVendorsOwnReportTravelsWithItsData() {
        test::TestFolders here;
        test::TestFolders there;
        const QString own = here.dataFile(QStringLiteral("acme.rpt"));
        QVERIFY(test::writeFile(own, "[report]\ntitle = Acme order\n[body]\nAcme's own form\n"));
        const Store::StoreLocation where(here.dataDir(), server());
        VendorDetails details = VendorRecords::LoadVendorDetails(where, QStringLiteral("ABC")).details;
        details.orderForm = own;
        const auto saved = VendorRecords::SaveVendorDetails(where, QStringLiteral("ABC"), details, SaveMode::Update);
        QVERIFY2(saved, qPrintable(saved.message()));

        const auto printed = OrderPrinting::OrderFormFile(QSqlDatabase::database(Conn), there.dataDir());
        QVERIFY2(printed, qPrintable(printed.message()));
        QVERIFY2(printed->startsWith(there.dataDir()), qPrintable(*printed));
        QCOMPARE(test::fileContents(*printed), test::fileContents(own));
    }

    // The order form on a second workstation: an order another one is working on is refused
    // with who has it; once that workstation is gone and its lease has run out, it is taken
    // up here, and then it is this workstation's.
    void theOrderFormRespectsAnotherWorkstationsOrder() {
        QVERIFY(Sql::run(QSqlDatabase::database(Conn), QStringLiteral("UPDATE orderhead SET status = 'E'")));
        QProcess holder;
        holder.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--hold-lease"), server()});
        QVERIFY(holder.waitForReadyRead(10000));

        test::TestFolders folders;
        test::ScriptedPrompter prompter;
        AppContext ctx(folders.dataDir(), folders.settingsFile(), prompter);
        ctx.setServer(server());
        QVERIFY(Store::OpenSystemDatabase(ctx.store()));
        test::storeOrganisationDetails(ctx);
        QVERIFY(ctx.vendorSession().open(QStringLiteral("ABC"), QStringLiteral("Acme Supplies")));
        {
            auto window = test::openMainWindow(ctx);
            window->ApplyMenuMask(MenuMasks::VendorOpen);
            window->triggerMenu(QStringLiteral("mnuLdOrd"));
            auto* form = window->findChild<OrderForm*>();
            QVERIFY(form && QTest::qWaitFor([form] { return form->ActivatedOnce; }, 5000));
            const OrderFormControls& ui = form->ui();
            QCOMPARE(ui.txtheader[0]->text(), OrderId);
            prompter.expect(OrderLeases::heldMessage(OrderId, QStringLiteral("bob on pc-b")));
            ui.cmdnavbutton[2]->click();
            QVERIFY(ui.txtheader[0]->text().isEmpty());
            QCOMPARE(Sql::scalar(ctx.vendorDb(), QStringLiteral("SELECT status FROM orderhead"))->toString(),
                     QStringLiteral("E"));

            holder.kill();
            QVERIFY(holder.waitForFinished(5000));
            QTest::qWait(2500); // its two-second lease runs out
            ui.cmdbutton[MainButton::LoadOrder]->click();
            ui.cmdnavbutton[2]->click();
            QCOMPARE(ui.txtheader[0]->text(), OrderId);
            QCOMPARE(Sql::scalar(ctx.vendorDb(), QStringLiteral("SELECT status FROM orderhead"))->toString(),
                     QStringLiteral("L"));
            OrderLeases other(ctx.vendorDb(), QStringLiteral("pc-c-run-1"), QStringLiteral("cy on pc-c"));
            QVERIFY(other.take(OrderId).message().contains(QStringLiteral(" on ")));
            ui.cmdbutton[MainButton::Exit]->click();
        }
        // Closing the form lets the order go.
        OrderLeases other(ctx.vendorDb(), QStringLiteral("pc-c-run-1"), QStringLiteral("cy on pc-c"));
        QVERIFY(other.take(OrderId));
        QVERIFY(other.release(OrderId));
        ctx.vendorSession().close();
        ctx.closeSystemDb();
    }

    // A data folder moved to an empty server database: everything copied and checked, the
    // files untouched, the copy usable by the program; a second copy refused.
    void aDataFolderMovesToTheServer() {
        dropOurSchemas();
        test::TestFolders folders;
        const QString dir = folders.dataDir();
        {
            QVERIFY(Store::CreateSystemDatabase(dir));
            auto system = Store::OpenSystemDatabase(dir);
            QVERIFY(system);
            QVERIFY(Sql::run(*system, QStringLiteral("INSERT INTO Sysset (location, add1, county, postcode, contact, "
                                                     "telephone, email) VALUES ('Harbour Books', '1 Quay', 'Devon', "
                                                     "'EX1 1AA', 'Ann', '01', 'a@b')")));
            for (const char* code : {"ABC", "OLD"}) {
                QVERIFY(VendorRepository::addVendor(*system, QString::fromLatin1(code) + QStringLiteral(" Ltd"),
                                                    QString::fromLatin1(code)));
                QVERIFY(Store::CreateVendorDatabase(dir, QString::fromLatin1(code)));
            }
            QVERIFY(VendorRepository::deactivateVendor(*system, QStringLiteral("OLD")));
            auto abc =
                Store::OpenVendorDatabase(dir, Store::vendorFileName(QStringLiteral("ABC")), QStringLiteral("file"));
            QVERIFY(abc);
            for (const char* sql :
                 {"INSERT INTO vendor (vendorid, customerid, add1, county, postcode, repname, nextord, ordform) "
                  "VALUES ('ABC', 'C1', '1 Road', 'Kent', 'CT1 1AA', 'Rep', 1000002, 'ordform.rpt')",
                  "INSERT INTO items (code, descr, packqty, defqty, price, priceexp) VALUES ('A1', 'Apples', 1, 1, "
                  "30000, '2030-12-31'), ('B2', 'Caf\u00e9 & Co', 6, 1, 12345, '2030-12-31')",
                  "INSERT INTO barcodes (codestart, skipfirst, skiplast, status) VALUES ('R1', 2, 0, 'A'), "
                  "('R2', 1, 1, 'D')",
                  "INSERT INTO orderhead (orderid, orderdate, status, totalval) VALUES ('ABC1000000', "
                  "'2026-03-11', 'X', 90000), ('ABC1000001', '2026-03-12', 'C', 0)",
                  "INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, lineval, recvqty) "
                  "VALUES ('ABC1000000', 1, 'A1', '2026-03-11', 'X', 3, 30000, 90000, 0)"})
                QVERIFY2(Sql::run(*abc, QString::fromUtf8(sql)), sql);
        }
        DatabaseFile::close(QStringLiteral("file"));
        DatabaseFile::close(Store::SystemConnection);
        const QByteArray before = test::fileContents(Store::vendorDatabasePath(dir, QStringLiteral("ABC")));

        const QStringList copy{QStringLiteral("--data-dir"), dir, QStringLiteral("--copy-to-server"), server()};
        test::Finished run = runProgram(copy);
        QVERIFY2(run.code == 0, qPrintable(run.err));
        QVERIFY2(run.out.contains(QStringLiteral("ABC ABC Ltd: 2 items, 2 barcode rules, 2 orders, 1 order lines.")) &&
                     run.out.contains(QStringLiteral("OLD OLD Ltd (deactivated): 0 items")),
                 qPrintable(run.out));
        QCOMPARE(test::fileContents(Store::vendorDatabasePath(dir, QStringLiteral("ABC"))), before);
        {
            auto db = ServerStore::openVendor(QStringLiteral("copied"), server(), QStringLiteral("ABC"));
            QVERIFY2(db, qPrintable(db.message()));
            QCOMPARE(Sql::scalar(*db, QStringLiteral("SELECT descr FROM items WHERE code = 'b2'"))->toString(),
                     QStringLiteral("Caf\u00e9 & Co"));
            // The next rule added gets a number of its own.
            QVERIFY(Sql::run(*db, QStringLiteral("INSERT INTO barcodes (codestart, skipfirst, skiplast, status) "
                                                 "VALUES ('R3', 0, 0, 'A')")));
            QCOMPARE(OrderRepository(*db).NextOrderNumber(QStringLiteral("ABC")).value(), QStringLiteral("ABC1000002"));
        }
        DatabaseFile::close(QStringLiteral("copied"));
        run = runProgram(copy);
        QCOMPARE(run.code, 1);
        QVERIFY2(run.err.contains(QStringLiteral("already holds Ordwell data")), qPrintable(run.err));
        run = runProgram({QStringLiteral("--data-dir"), dir}, "--copy-to-server shop-server");
        QCOMPARE(run.code, 2);
    }

    void reportsReadTheServer() {
        test::TestFolders folders;
        const QString pdf = folders.dataFile(QStringLiteral("out.pdf"));
        const QStringList base{QStringLiteral("--server"), server(), QStringLiteral("--data-dir"), folders.dataDir(),
                               QStringLiteral("--pdf"),    pdf};
        test::Finished run = runProgram(base, "--vendor ABC --render-report ordform.rpt --param ordnum=ABC1000000");
        QVERIFY2(run.code == 0, qPrintable(run.err));
        const QString form = pdfText(pdf);
        QVERIFY2(form.contains(QStringLiteral("ABC1000000")) && form.contains(QStringLiteral("Total 9.00")) &&
                     !form.contains(QStringLiteral("15.00")),
                 qPrintable(form));

        run = runProgram(base, "--vendor ABC --render-report vendhist.rpt");
        QVERIFY2(run.code == 0, qPrintable(run.err));
        QVERIFY2(pdfText(pdf).contains(QStringLiteral("March 2026")), qPrintable(pdfText(pdf)));
        run = runProgram(base, "--vendor ABC --render-report outitms.rpt");
        QVERIFY2(run.code == 0, qPrintable(run.err));
        QVERIFY2(pdfText(pdf).contains(QStringLiteral("ABC1000000")), qPrintable(pdfText(pdf)));

        // A report that tries to write is stopped by the server session, and nothing changes.
        const QString writer = folders.dataFile(QStringLiteral("writer.rpt"));
        QVERIFY(test::writeFile(writer, "[report]\ntitle = W\n[query q]\nWITH x AS (SELECT 1) "
                                        "UPDATE orderhead SET status = 'C'\n[body]\nx\n"));
        run = runProgram(base + QStringList{QStringLiteral("--render-report"), writer}, "--vendor ABC");
        QCOMPARE(run.code, 1);
        QVERIFY2(run.err.contains(QStringLiteral("tried to change the database")), qPrintable(run.err));
        auto status = Sql::scalar(QSqlDatabase::database(Conn),
                                  QStringLiteral("SELECT status FROM orderhead WHERE orderid = 'ABC1000000'"));
        QCOMPARE(status->toString(), QStringLiteral("X"));
    }
};

int main(int argc, char** argv) {
    if (argc == 3 && qstrcmp(argv[1], "--hold-lease") == 0)
        return holdLease(QString::fromLocal8Bit(argv[2]));
    QApplication app(argc, argv);
    TestServerShared test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_servershared.moc"

// The order form over a catalogue of 1,000,000 items with 20 active barcode rules and an order of
// 999 lines: how long loading the order into the grid takes, and one scan through the real form
// (the code typed with Enter, resolved through the rules, the line recorded with the header's
// total, the quantity confirmed); the same for a product barcode (EAN-13) and a GS1 case label
// that find their item by its GTIN. With a server named (scripts/bench starts one), the plain
// scan again with the same data on the server, and how many statements it sends there.
// Prints "<name> <value> <unit>" lines.
#include "BenchProcess.h"
#include "BenchServer.h"
#include "SilentPrompter.h"
#include "app/AppContext.h"
#include "app/VendorSession.h"
#include "common/Prompter.h"
#include "common/Sql.h"
#include "orders/OrderForm.h"
#include "orders/OrderFormOpener.h"
#include "orders/OrderWords.h"
#include "shell/MainWindow.h"
#include "store/DatabaseFile.h"
#include "store/ServerStore.h"
#include "store/Store.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace ordwell;

namespace {

constexpr int ItemCount = 1000000;
constexpr int RuleCount = 20;
constexpr int LineCount = 999;
constexpr int Scans = 300;
constexpr int GridLoads = 15;
const QString Vendor = QStringLiteral("BIG");
const QString OrderId = QStringLiteral("BIG1000000");

// The code of line n of the order: spread over the whole catalogue.
int itemOfLine(int n) {
    return n * 1000 + 7;
}

// Item i's product barcode: twelve digits from its number and the GS1 check digit. The SQL
// below writes the same for every item.
QString ean13Of(int item) {
    const QString body = QStringLiteral("%1").arg(500000000000LL + item, 12, 10, QLatin1Char('0'));
    int sum = 0;
    for (int k = 0; k < 12; ++k)
        sum += body.at(k).digitValue() * ((12 - 1 - k) % 2 == 0 ? 3 : 1);
    return body + QString::number((10 - sum % 10) % 10);
}

// The check digit of printf('%012d', ...) in SQL, digit by digit.
QString ean13CheckSql(const QString& body) {
    // Put together without QString::arg, which would read printf's "%012d" as its own markers.
    QStringList terms;
    for (int k = 1; k <= 12; ++k)
        terms << QStringLiteral("substr(") + body + QStringLiteral(", ") + QString::number(k) +
                     QStringLiteral(", 1) * ") + QString::number((12 - k) % 2 == 0 ? 3 : 1);
    return QStringLiteral("((10 - (") + terms.join(QStringLiteral(" + ")) + QStringLiteral(") % 10) % 10)");
}

// The catalogue, the rules and the lines of the order the form will start (its header is made by
// the form itself), written by a separate run so their cost stays out of the figures.
int generate(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QString dataDir = QString::fromLocal8Bit(argv[2]);
    if (!Store::CreateVendorDatabase(dataDir, Vendor))
        return 1;
    {
        auto db = Store::OpenVendorDatabase(dataDir, Store::vendorFileName(Vendor), QStringLiteral("generate"));
        if (!db)
            return 1;
        Sql::Transaction tx(*db);
        const Status made[] = {
            Sql::run(*db,
                     QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                                    "INSERT INTO items (code, descr, packqty, defqty, price, priceexp, gtin) "
                                    "SELECT printf('IT%08d', i), 'Item ' || ((i * 7919) % ?) || ' description', "
                                    "1 + i % 12, 1 + i % 3, 10000 + (i % 5000) * 100, '2030-01-01', "
                                    "'0' || printf('%012d', 500000000000 + i) || ") +
                         ean13CheckSql(QStringLiteral("printf('%012d', 500000000000 + i)")) + QStringLiteral(" FROM n"),
                     {ItemCount - 1, ItemCount}),
            // Rules R01 to R20: a scan meant for the last one passes all the others first.
            Sql::run(*db,
                     QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                                    "INSERT INTO barcodes (codestart, skipfirst, skiplast, status) "
                                    "SELECT printf('R%02d', i), 3, 1, 'A' FROM n"),
                     {RuleCount}),
            Sql::run(*db,
                     QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                                    "INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, "
                                    "lineval, recvqty, recvdate) "
                                    "SELECT ?, i, printf('IT%08d', i * 1000 + 7), '2026-01-05', 'L', 2, "
                                    "10000 + ((i * 1000 + 7) % 5000) * 100, 2 * (10000 + ((i * 1000 + 7) % 5000) * "
                                    "100), 0, '1980-07-04' FROM n"),
                     {LineCount, OrderId}),
            Sql::run(*db,
                     QStringLiteral("INSERT INTO vendor (vendorid, customerid, add1, county, postcode, repname, "
                                    "nextord, ordform) VALUES (?, 'C1', '1 Road', 'Kent', 'CT1 1AA', 'Rep', 1000000, "
                                    "'ordform.rpt')"),
                     {Vendor}),
        };
        for (const Status& s : made) {
            if (!s) {
                std::fprintf(stderr, "%s\n", qPrintable(s.message()));
                return 1;
            }
        }
        if (!tx.commit())
            return 1;
    }
    QSqlDatabase::removeDatabase(QStringLiteral("generate"));
    return 0;
}

// Plain codes typed into the focused box with Enter, the quantity confirmed with Enter: each
// needs the last rule, and merges into a line spread across the order.
std::vector<double> timePlainScans() {
    std::vector<double> scans;
    for (int n = 0; n < Scans; ++n) {
        const int line = 1 + (n * 337) % LineCount;
        const QString code = QStringLiteral("R%1IT%2X")
                                 .arg(RuleCount, 2, 10, QLatin1Char('0'))
                                 .arg(itemOfLine(line), 8, 10, QLatin1Char('0'));
        QElapsedTimer timer;
        timer.start();
        QTest::keyClicks(QApplication::focusWidget(), code);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        scans.push_back(timer.nsecsElapsed() / 1e6);
    }
    return scans;
}

// The same catalogue, rules and order lines on the server, made there in a few statements.
bool generateOnServer() {
    if (!bench::freshServerVendor(Vendor))
        return false;
    const QString name = QStringLiteral("generate");
    bool ok = true;
    {
        auto db = ServerStore::openVendor(name, bench::server(), Vendor);
        if (!db) {
            std::fprintf(stderr, "%s\n", qPrintable(db.message()));
            return false;
        }
        const QStringList statements = {
            QStringLiteral(
                "INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                "SELECT 'IT' || lpad(i::text, 8, '0'), 'Item ' || ((i::bigint * 7919) % 1000000) || ' description', "
                "1 + i % 12, 1 + i % 3, 10000 + (i % 5000) * 100, '2030-01-01' "
                "FROM generate_series(0, 999999) AS i"),
            QStringLiteral("INSERT INTO barcodes (codestart, skipfirst, skiplast, status) "
                           "SELECT 'R' || lpad(i::text, 2, '0'), 3, 1, 'A' FROM generate_series(1, 20) AS i"),
            QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, lineval, "
                           "recvqty, recvdate) SELECT 'BIG1000000', i, 'IT' || lpad((i * 1000 + 7)::text, 8, '0'), "
                           "'2026-01-05', 'L', 2, 10000 + ((i * 1000 + 7) % 5000) * 100, "
                           "2 * (10000 + ((i * 1000 + 7) % 5000) * 100), 0, '1980-07-04' "
                           "FROM generate_series(1, 999) AS i"),
            QStringLiteral("INSERT INTO vendor (vendorid, customerid, add1, county, postcode, repname, nextord, "
                           "ordform) VALUES ('BIG', 'C1', '1 Road', 'Kent', 'CT1 1AA', 'Rep', 1000000, 'ordform.rpt')"),
            QStringLiteral("ANALYZE"),
        };
        for (const QString& sql : statements) {
            const Status ran = ok ? Sql::run(*db, sql) : Status::ok();
            if (!ran)
                std::fprintf(stderr, "%s\n", qPrintable(ran.message()));
            ok = ok && bool(ran);
        }
    }
    DatabaseFile::close(name);
    return ok;
}

// Statements the server has run since the last reset, from its own statistics.
qint64 serverStatements(const QSqlDatabase& db, bool reset) {
    Sql::run(db, QStringLiteral("CREATE EXTENSION IF NOT EXISTS pg_stat_statements SCHEMA public"));
    if (reset) {
        Sql::run(db, QStringLiteral("SELECT public.pg_stat_statements_reset()"));
        return 0;
    }
    const auto calls =
        Sql::scalar(db, QStringLiteral("SELECT sum(calls) FROM public.pg_stat_statements WHERE dbid = "
                                       "(SELECT oid FROM pg_database WHERE datname = current_database())"));
    return calls ? calls->toLongLong() : -1;
}

// One plain scan through the real form on the server, as on the files.
int serverScans() {
    if (!generateOnServer()) {
        std::fprintf(stderr, "cannot make the catalogue on the server\n");
        return 1;
    }
    QTemporaryDir dir;
    SilentPrompter prompter;
    AppContext context(dir.path(), dir.filePath(QStringLiteral("settings.ini")), prompter);
    context.setServer(bench::server());
    if (!context.vendorSession().open(Vendor, QStringLiteral("Big Catalogue Ltd"))) {
        std::fprintf(stderr, "cannot open the vendor on the server\n");
        return 1;
    }
    int status = 0;
    {
        MainWindow window(context);
        window.resize(1200, 900);
        window.show();
        window.activateWindow();
        OrderForm* form = openOrderForm(window, context, OrderMode::New);
        if (!bench::waitFor([form] { return form->ActivatedOnce; }) || form->ui().txtheader[0]->text() != OrderId) {
            std::fprintf(stderr, "the order form did not start order %s on the server\n", qPrintable(OrderId));
            return 1;
        }
        form->ui().cmdstartorder->click();
        QCoreApplication::processEvents(); // the event loop runs between the click and the first key
        // Counted on a connection of its own, so the counting is not counted.
        const QString counter = QStringLiteral("count");
        auto admin = ServerStore::connect(counter, bench::server());
        if (!admin)
            return 1;
        serverStatements(*admin, true);
        const std::vector<double> scans = timePlainScans();
        const qint64 statements = serverStatements(*admin, false);
        const auto lines =
            Sql::scalar(context.vendorDb(),
                        QStringLiteral("SELECT COUNT(*) FROM orderline WHERE orderid = ? AND qty > 2"), {OrderId});
        if (!lines || lines->toInt() < 100 || prompter.shown) {
            std::fprintf(stderr, "the scans on the server were not recorded\n");
            status = 1;
        }
        std::printf("server_scan_median_ms %.2f ms\n", bench::median(scans));
        std::printf("server_scan_statements %.1f per scan\n", double(statements) / Scans);
        form->ui().cmdbutton[5]->click();
    }
    DatabaseFile::close(QStringLiteral("count"));
    context.vendorSession().close();
    return status;
}

} // namespace

int main(int argc, char** argv) {
    if (bench::isGeneratorRun(argc, argv))
        return generate(argc, argv);
    bench::offscreenUnlessChosen();
    QApplication app(argc, argv);
    QTemporaryDir dir;
    if (!bench::generateInChild(dir, "the catalogue"))
        return 1;

    SilentPrompter prompter;
    AppContext context(dir.path(), dir.filePath(QStringLiteral("settings.ini")), prompter);
    if (!context.vendorSession().open(Vendor, QStringLiteral("Big Catalogue Ltd"))) {
        std::fprintf(stderr, "cannot open the vendor\n");
        return 1;
    }
    int status = 0;
    {
        MainWindow window(context);
        window.resize(1200, 900);
        window.show();
        window.activateWindow();
        OrderForm* form = openOrderForm(window, context, OrderMode::New);
        if (!bench::waitFor([form] { return form->ActivatedOnce; })) {
            std::fprintf(stderr, "the order form was never activated\n");
            return 1;
        }
        if (form->ui().txtheader[0]->text() != OrderId) {
            std::fprintf(stderr, "unexpected order number %s\n", qPrintable(form->ui().txtheader[0]->text()));
            return 1;
        }

        // The order's lines into the grid, as every mode that brings an order up does.
        std::vector<double> loads;
        for (int i = 0; i < GridLoads; ++i) {
            form->ClearLineGrid();
            QCoreApplication::processEvents();
            QElapsedTimer timer;
            timer.start();
            form->LoadOrderLines();
            QCoreApplication::processEvents(); // painted
            loads.push_back(timer.nsecsElapsed() / 1e6);
        }
        if (!form->desk().lines || form->desk().lines->nextLineNumber() != LineCount + 1) {
            std::fprintf(stderr, "the order's lines were not loaded\n");
            return 1;
        }

        // The total box as the order stands, so each merge moves it as it would for the user.
        const auto total = Sql::scalar(
            context.vendorDb(), QStringLiteral("SELECT SUM(lineval) FROM orderline WHERE orderid = ?"), {OrderId});
        form->showTotal(Money::fromTenThousandths(total ? total->toLongLong() : 0));
        form->ui().cmdstartorder->click();
        QCoreApplication::processEvents(); // the event loop runs between the click and the first key
        const std::vector<double> scans = timePlainScans();
        const auto lines =
            Sql::scalar(context.vendorDb(),
                        QStringLiteral("SELECT COUNT(*) FROM orderline WHERE orderid = ? AND qty > 2"), {OrderId});
        if (!lines || lines->toInt() < 100 || prompter.shown) {
            std::fprintf(stderr, "the scans were not recorded\n");
            status = 1;
        }

        // Product barcodes and case labels of items across the catalogue: found by GTIN before
        // any rule is tried; the label's count is the quantity offered.
        auto timeScans = [&](const std::function<QString(int)>& scanOf) {
            std::vector<double> times;
            for (int n = 0; n < Scans; ++n) {
                const QString scan = scanOf(itemOfLine(1 + (n * 337) % LineCount));
                QElapsedTimer timer;
                timer.start();
                // The group separator as a scanner sends it in a keyboard's place: Ctrl+].
                const QStringList parts = scan.split(QChar(0x1D));
                for (qsizetype p = 0; p < parts.size(); ++p) {
                    if (p > 0)
                        QTest::keyClick(QApplication::focusWidget(), Qt::Key_BracketRight, Qt::ControlModifier);
                    QTest::keyClicks(QApplication::focusWidget(), parts.at(p));
                }
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
                times.push_back(timer.nsecsElapsed() / 1e6);
            }
            return bench::median(times);
        };
        const auto linesWith = [&] {
            return Sql::scalar(context.vendorDb(), QStringLiteral("SELECT SUM(qty) FROM orderline WHERE orderid = ?"),
                               {OrderId})
                ->toLongLong();
        };
        const qint64 before = linesWith();
        const double gtinScan = timeScans([](int item) { return ean13Of(item); });
        const qint64 afterGtin = linesWith();
        const double gs1Scan = timeScans([](int item) {
            return QStringLiteral("]C1020") + ean13Of(item) + QStringLiteral("375") + QChar(0x1D) +
                   QStringLiteral("10LOT") + QString::number(item);
        });
        // A case label of 5 adds five; a product barcode its item's default quantity (1 to 3).
        if (afterGtin - before < Scans || linesWith() - afterGtin != 5LL * Scans || prompter.shown) {
            std::fprintf(stderr, "the product barcode scans were not recorded as expected\n");
            status = 1;
        }
        std::printf("grid_load_999_ms %.1f ms\n", bench::median(loads));
        std::printf("scan_median_ms %.2f ms\n", bench::median(scans));
        std::printf("gtin_scan_median_ms %.2f ms\n", gtinScan);
        std::printf("gs1_scan_median_ms %.2f ms\n", gs1Scan);
        form->ui().cmdbutton[5]->click();
    }
    context.vendorSession().close();
    if (status == 0 && !bench::server().isEmpty())
        status = serverScans();
    return status;
}

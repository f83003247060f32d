// The order form's selection lists over a vendor with 10,000 orders (three lines each): for each
// of the four lists (load, print, export, receive) how long the list takes to come up from its
// button, and how long one step of the navigation bar takes (first, next, previous, last, each
// bringing the order's lines into the grid). Everything goes through the real form's buttons.
// Prints "<name> <value> <unit>" lines; order_list_10k_ms is the slowest list to come up.
#include "BenchProcess.h"
#include "SilentPrompter.h"
#include "app/AppContext.h"
#include "app/VendorSession.h"
#include "common/Sql.h"
#include "orders/OrderForm.h"
#include "orders/OrderFormOpener.h"
#include "orders/OrderWords.h"
#include "shell/MainWindow.h"
#include "store/Store.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace ordwell;

namespace {

constexpr int OrderCount = 10000;
constexpr int LinesPerOrder = 3;
constexpr int Opens = 7;
constexpr int Steps = 200;
const QString Vendor = QStringLiteral("BIG");

// The orders and their lines, written by a separate run so their cost stays out of the figures.
// Statuses by order number: 30% E, 25% P, 25% X, 10% S, and 5% each R and C (in no list).
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
        const QString status = QStringLiteral("CASE WHEN i % 20 < 6 THEN 'E' WHEN i % 20 < 11 THEN 'P' "
                                              "WHEN i % 20 < 16 THEN 'X' WHEN i % 20 < 18 THEN 'S' "
                                              "WHEN i % 20 = 18 THEN 'R' ELSE 'C' END");
        const Status made[] = {
            Sql::run(*db,
                     QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                                    "INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                                    "SELECT printf('IT%08d', i), 'Item ' || i, 1, 1, 15000, '2030-01-01' FROM n"),
                     {99}),
            Sql::run(*db,
                     QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                                    "INSERT INTO orderhead (orderid, orderdate, name, reference, status, totalval, "
                                    "reprintcount, note1, note2) "
                                    "SELECT printf('BIG%07d', i), '2026-01-05', 'Ann', 'R' || i, %1, 135000, 0, "
                                    "'First note', 'Second note' FROM n")
                         .arg(status),
                     {OrderCount}),
            Sql::run(*db,
                     QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?), "
                                    "l(k) AS (SELECT 1 UNION ALL SELECT k + 1 FROM l WHERE k < ?) "
                                    "INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, "
                                    "lineval, recvqty, recvdate) "
                                    "SELECT printf('BIG%07d', i), k, printf('IT%08d', (i + k) % 100), '2026-01-05', "
                                    "%1, 3, 15000, 45000, 0, '1980-07-04' FROM n, l")
                         .arg(status),
                     {OrderCount, LinesPerOrder}),
            Sql::run(*db,
                     QStringLiteral("INSERT INTO vendor (vendorid, customerid, add1, county, postcode, repname, "
                                    "nextord, ordform) VALUES (?, 'C1', '1 Road', 'Kent', 'CT1 1AA', 'Rep', "
                                    "1000000, 'ordform.rpt')"),
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

// Milliseconds for a click and the repaint after it.
double timedClick(QPushButton* button) {
    QElapsedTimer timer;
    timer.start();
    button->click();
    QCoreApplication::processEvents();
    return timer.nsecsElapsed() / 1e6;
}

struct ListCase {
    const char* key;
    int button;        // the main button that brings the list up
    int expectedCount; // orders the list must hold
};

// Load: E, L, P, S, X; print: E, P; export: P, X; receive: S, X (out of 20 in each block).
const ListCase Cases[] = {
    {"ALL", 1, OrderCount / 20 * 18},
    {"EP", 2, OrderCount / 20 * 11},
    {"PX", 3, OrderCount / 20 * 10},
    {"XS", 4, OrderCount / 20 * 7},
};

} // namespace

int main(int argc, char** argv) {
    if (bench::isGeneratorRun(argc, argv))
        return generate(argc, argv);
    bench::offscreenUnlessChosen();
    QApplication app(argc, argv);
    QTemporaryDir dir;
    if (!bench::generateInChild(dir, "the orders"))
        return 1;

    SilentPrompter prompter;
    AppContext context(dir.path(), dir.filePath(QStringLiteral("settings.ini")), prompter);
    if (!context.vendorSession().open(Vendor, QStringLiteral("Big Order Book Ltd"))) {
        std::fprintf(stderr, "cannot open the vendor\n");
        return 1;
    }
    int status = 0;
    double slowestOpen = 0;
    double slowestStep = 0;
    {
        MainWindow window(context);
        window.resize(1200, 900);
        window.show();
        window.activateWindow();
        OrderForm* form = openOrderForm(window, context, QString());
        if (!bench::waitFor([form] { return form->ActivatedOnce; })) {
            std::fprintf(stderr, "the order form was never activated\n");
            return 1;
        }
        const OrderFormControls& ui = form->ui();
        for (const ListCase& c : Cases) {
            const QString expected = QStringLiteral("Record 1 of %1").arg(c.expectedCount);
            std::vector<double> opens;
            std::vector<double> steps;
            for (int run = 0; run < Opens; ++run) {
                opens.push_back(timedClick(ui.cmdbutton[c.button]));
                if (ui.lblnavinfo->text() != expected) {
                    std::fprintf(stderr, "list %s shows \"%s\"\n", c.key, qPrintable(ui.lblnavinfo->text()));
                    return 1;
                }
                if (run == 0) {
                    for (int n = 0; n < Steps; ++n)
                        steps.push_back(timedClick(ui.cmdnavbutton[3])); // >
                    steps.push_back(timedClick(ui.cmdnavbutton[4]));     // >|
                    const bool atLast = ui.lblnavinfo->text() == QStringLiteral("Record %1 of %1").arg(c.expectedCount);
                    for (int n = 0; n < Steps; ++n)
                        steps.push_back(timedClick(ui.cmdnavbutton[1])); // <
                    steps.push_back(timedClick(ui.cmdnavbutton[0]));     // |<
                    if (!atLast || ui.lblnavinfo->text() != expected) {
                        std::fprintf(stderr, "list %s did not step through\n", c.key);
                        status = 1;
                    }
                }
                ui.cmdcancelld->click();
                QCoreApplication::processEvents();
            }
            const double open = bench::median(opens);
            const double step = bench::median(steps);
            slowestOpen = std::max(slowestOpen, open);
            slowestStep = std::max(slowestStep, *std::max_element(steps.begin(), steps.end()));
            std::printf("order_list_open_%s_ms %.1f ms\n", c.key, open);
            std::printf("order_list_step_%s_ms %.2f ms\n", c.key, step);
        }
        if (prompter.shown) {
            std::fprintf(stderr, "a message came up while browsing\n");
            status = 1;
        }
        ui.cmdbutton[5]->click();
    }
    context.vendorSession().close();
    std::printf("order_list_10k_ms %.1f ms\n", slowestOpen);
    std::printf("order_list_step_10k_max_ms %.1f ms\n", slowestStep);
    return status;
}

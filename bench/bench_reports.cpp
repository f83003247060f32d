// The shipped reports on a large order book, rendered to PDF through the engine the viewer and
// the headless run use: the order history of a vendor with 10,000 orders, and an order form of
// 999 lines. Prints "report_history_10k_s <seconds> s" and "report_orderform_999_s <seconds> s",
// each the median of three runs.
#include "common/Sql.h"
#include "reports/ReportEngine.h"
#include "reports/ShippedReports.h"
#include "store/Store.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>

using namespace ordwell;

namespace {

constexpr int OrderCount = 10000;
constexpr int LinesPerOrder = 5;
constexpr int BigOrderLines = 999;
const QString BigOrder = QStringLiteral("BEN9999999");

// Orders spread over the years and through every status; one order with 999 lines.
Status fill(const QSqlDatabase& db) {
    Sql::Transaction tx(db);
    const QString statuses = QStringLiteral("EPXSRC");
    Status s = Sql::run(db,
                        QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                                       "INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                                       "SELECT printf('IT%06d', i), 'Item ' || i || ' & its <description>', 1, 1, "
                                       "10000 + i * 37, '2099-12-31' FROM n"),
                        {4999});
    if (!s)
        return s;
    s = Sql::run(db,
                 QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                                "INSERT INTO orderhead (orderid, orderdate, name, reference, status, totalval, "
                                "printdate, reprintcount, recvdate) "
                                "SELECT printf('BEN%07d', i), date('2015-01-01', '+' || (i / 4) || ' days'), "
                                "'Buyer ' || (i % 7), 'REF' || i, substr(?, 1 + i % 6, 1), 0, "
                                "date('2015-01-02', '+' || (i / 4) || ' days'), 0, "
                                "CASE WHEN i % 6 IN (3, 4) THEN date('2015-01-09', '+' || (i / 4) || ' days') END "
                                "FROM n"),
                 {OrderCount - 1, statuses});
    if (!s)
        return s;
    s = Sql::run(db,
                 QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                                "INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, lineval, "
                                "recvqty) "
                                "SELECT h.orderid, n.i + 1, printf('IT%06d', (h.rowid * 7 + n.i) % 5000), h.orderdate, "
                                "h.status, 1 + n.i, 10000 + n.i * 250, (1 + n.i) * (10000 + n.i * 250), "
                                "CASE h.status WHEN 'R' THEN 1 + n.i WHEN 'S' THEN n.i ELSE 0 END "
                                "FROM orderhead h, n"),
                 {LinesPerOrder - 1});
    if (!s)
        return s;
    s = Sql::run(db,
                 QStringLiteral("INSERT INTO orderhead (orderid, orderdate, name, reference, status, totalval, "
                                "reprintcount, note1, note2) VALUES (?, '2024-06-01', 'Pat Smith', 'BIG-ONE', 'E', 0, "
                                "0, 'Deliver to the back door', 'Ring before noon')"),
                 {BigOrder});
    if (!s)
        return s;
    s = Sql::run(db,
                 QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                                "INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, lineval, "
                                "recvqty) SELECT ?, i, printf('IT%06d', i * 3 % 5000), '2024-06-01', "
                                "CASE WHEN i % 50 = 0 THEN 'C' ELSE 'E' END, 1 + i % 9, 2500 + i, "
                                "(1 + i % 9) * (2500 + i), 0 FROM n"),
                 {BigOrderLines, BigOrder});
    if (!s)
        return s;
    s = Sql::run(db, QStringLiteral("UPDATE orderhead SET totalval = (SELECT COALESCE(SUM(lineval), 0) FROM orderline "
                                    "l WHERE l.orderid = orderhead.orderid AND l.status <> 'C')"));
    if (!s)
        return s;
    return tx.commit();
}

// The median of three renderings, or a negative figure when one failed.
double median(const ReportRequest& request, const QString& pdf) {
    QList<double> seconds;
    for (int run = 0; run < 3; ++run) {
        QElapsedTimer timer;
        timer.start();
        const Status written = ReportEngine::renderToPdf(request, pdf);
        seconds << timer.nsecsElapsed() / 1e9;
        if (!written || QFileInfo(pdf).size() == 0) {
            std::fprintf(stderr, "%s\n", qPrintable(written.message()));
            return -1;
        }
    }
    std::sort(seconds.begin(), seconds.end());
    return seconds.at(1);
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QTemporaryDir dir;
    const QString code = QStringLiteral("BEN");
    if (!Store::CreateVendorDatabase(dir.path(), code) || !ShippedReports::installMissing(dir.path()).isEmpty()) {
        std::fprintf(stderr, "cannot set up the data folder\n");
        return 1;
    }
    {
        const QString name = QStringLiteral("fill");
        {
            auto db = Store::OpenVendorDatabase(dir.path(), Store::vendorFileName(code), name);
            const Status filled = db ? fill(*db) : db.status();
            if (!filled) {
                std::fprintf(stderr, "cannot fill the vendor database: %s\n", qPrintable(filled.message()));
                return 1;
            }
        }
        QSqlDatabase::removeDatabase(name);
    }

    ReportRequest request;
    request.databaseFile = Store::vendorDatabasePath(dir.path(), code);
    request.vendorCode = code;
    request.vendorName = QStringLiteral("Bench Supplies");

    request.reportFile = dir.filePath(ShippedReports::OrderHistoryFileName);
    const double history = median(request, dir.filePath(QStringLiteral("history.pdf")));

    request.reportFile = dir.filePath(Store::DefaultOrderFormFileName);
    request.parameters = {{QStringLiteral("ordnum"), BigOrder},
                          {QStringLiteral("custadd"), QStringLiteral("Acme Stores,1 High St,Town,Shire,AB1 2CD")},
                          {QStringLiteral("contdet"), QStringLiteral("Pat Smith,01234 567890,pat@acme.example")}};
    const double orderForm = median(request, dir.filePath(QStringLiteral("orderform.pdf")));
    if (history < 0 || orderForm < 0)
        return 1;
    std::printf("report_history_10k_s %.3f s\n", history);
    std::printf("report_orderform_999_s %.3f s\n", orderForm);
    return 0;
}

// Opening a vendor with a large catalogue and order book, through the chooser's own routine:
// the database opened, expired prices zeroed, open orders revalued, the live-order check.
// Prints "vendor_open_200k_s <seconds> s" (the median of three opens, each of a fresh copy),
// and "server_vendor_open_200k_s" for the same vendor on a server when one is named.
#include "BenchServer.h"
#include "SilentPrompter.h"
#include "app/AppContext.h"
#include "app/VendorSession.h"
#include "common/Dates.h"
#include "common/Prompter.h"
#include "common/Sql.h"
#include "store/Store.h"
#include "vendors/VendorChooser.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <functional>

using namespace ordwell;

namespace {

constexpr int ItemCount = 200000;
constexpr int ExpiredCount = 10000;
constexpr int OrderCount = 2000;
constexpr int LinesPerOrder = 50;

QString itemCode(int i) {
    return QStringLiteral("IT%1").arg(i, 8, 10, QLatin1Char('0'));
}

// The catalogue, every 20th price expired last month; orders alternately live/entered and
// printed, their lines priced a little off the catalogue so the revaluation has work.
bool fill(const QSqlDatabase& db) {
    const QDate today = QDate::currentDate();
    Sql::Transaction tx(db);
    QSqlQuery items(db);
    items.prepare(QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                                 "VALUES (?, ?, ?, ?, ?, ?)"));
    for (int i = 0; i < ItemCount; ++i) {
        items.bindValue(0, itemCode(i));
        items.bindValue(1, QStringLiteral("Item %1 description").arg((qint64(i) * 7919) % ItemCount));
        items.bindValue(2, 1 + i % 12);
        items.bindValue(3, 1);
        items.bindValue(4, qint64(10000 + (i % 5000) * 100));
        const bool expired = i % (ItemCount / ExpiredCount) == 0;
        items.bindValue(5, Dates::toStored(expired ? today.addMonths(-1) : today.addYears(1)));
        if (!items.exec())
            return false;
    }
    QSqlQuery head(db);
    head.prepare(QStringLiteral("INSERT INTO orderhead (orderid, orderdate, status, totalval) VALUES (?, ?, ?, 0)"));
    QSqlQuery line(db);
    line.prepare(QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, lineval, "
                                "recvqty) VALUES (?, ?, ?, ?, ?, ?, ?, ?, 0)"));
    for (int o = 0; o < OrderCount; ++o) {
        const QString id = QStringLiteral("BEN%1").arg(o, 7, 10, QLatin1Char('0'));
        // Most open; one live order left behind, as after a crash.
        const QString status = o == 0 ? QStringLiteral("L") : (o % 4 == 3 ? QStringLiteral("P") : QStringLiteral("E"));
        head.bindValue(0, id);
        head.bindValue(1, Dates::toStored(today));
        head.bindValue(2, status);
        if (!head.exec())
            return false;
        for (int l = 1; l <= LinesPerOrder; ++l) {
            const int item = (o * 7919 + l * 104729) % ItemCount;
            const qint64 price = 10000 + (item % 5000) * 100 + (l % 3 == 0 ? 500 : 0);
            line.bindValue(0, id);
            line.bindValue(1, l);
            line.bindValue(2, itemCode(item));
            line.bindValue(3, Dates::toStored(today));
            line.bindValue(4, status);
            line.bindValue(5, 1 + l % 4);
            line.bindValue(6, price);
            line.bindValue(7, price * (1 + l % 4));
            if (!line.exec())
                return false;
        }
    }
    return bool(tx.commit());
}

// The median of three opens of vendor BEN, each remade from SRC by `fresh` just before.
bool medianOpen(AppContext& context, const std::function<bool()>& fresh, double& median) {
    const QString code = QStringLiteral("BEN");
    QList<double> seconds;
    for (int run = 0; run < 3; ++run) {
        context.vendorSession().close();
        if (!fresh()) {
            std::fprintf(stderr, "cannot copy the vendor's data\n");
            return false;
        }
        QElapsedTimer timer;
        timer.start();
        const auto opened = VendorChooser::openVendor(context, code, QStringLiteral("Bench Supplies"));
        seconds << timer.nsecsElapsed() / 1e9;
        if (!opened || !*opened) {
            std::fprintf(stderr, "the vendor did not open with its live order\n");
            return false;
        }
        const auto zeroed =
            Sql::scalar(context.vendorDb(), QStringLiteral("SELECT COUNT(*) FROM items WHERE price = 0"));
        if (!zeroed || zeroed->toInt() != ExpiredCount) {
            std::fprintf(stderr, "expected %d zeroed prices\n", ExpiredCount);
            return false;
        }
    }
    context.vendorSession().close();
    std::sort(seconds.begin(), seconds.end());
    median = seconds.at(1);
    return true;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    if (!Store::CreateVendorDatabase(dir.path(), QStringLiteral("SRC"))) {
        std::fprintf(stderr, "cannot create the vendor database\n");
        return 1;
    }
    {
        const QString name = QStringLiteral("fill");
        {
            auto db = Store::OpenVendorDatabase(dir.path(), Store::vendorFileName(QStringLiteral("SRC")), name);
            if (!db || !fill(*db)) {
                std::fprintf(stderr, "cannot fill the vendor database\n");
                return 1;
            }
        }
        QSqlDatabase::removeDatabase(name);
    }

    SilentPrompter prompter;
    AppContext context(dir.path(), dir.filePath(QStringLiteral("settings.ini")), prompter);
    double median = 0;
    auto freshFile = [&dir] {
        const QString target = Store::vendorDatabasePath(dir.path(), QStringLiteral("BEN"));
        QFile::remove(target);
        return QFile::copy(Store::vendorDatabasePath(dir.path(), QStringLiteral("SRC")), target);
    };
    if (!medianOpen(context, freshFile, median))
        return 1;
    std::printf("vendor_open_200k_s %.3f s\n", median);

    if (bench::server().isEmpty())
        return 0;
    context.setServer(bench::server());
    {
        const QString name = QStringLiteral("fill");
        bool filled = bench::freshServerVendor(QStringLiteral("SRC"));
        if (filled) {
            auto db = ServerStore::openVendor(name, bench::server(), QStringLiteral("SRC"));
            filled = db && fill(*db);
        }
        DatabaseFile::close(name);
        if (!filled) {
            std::fprintf(stderr, "cannot fill the vendor on the server\n");
            return 1;
        }
    }
    if (!medianOpen(
            context, [] { return bench::freshServerVendor(QStringLiteral("BEN"), QStringLiteral("SRC")); }, median))
        return 1;
    std::printf("server_vendor_open_200k_s %.3f s\n", median);
    return 0;
}

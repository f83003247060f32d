// How the store behaves at catalogue scale: bulk item writes through the checked table
// layout, point look-ups by code, prefix look-ups by description, and vendor creation.
#include "common/Sql.h"
#include "store/DatabaseFile.h"
#include "store/Store.h"

#include <QCoreApplication>
#include <QDir>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace ordwell;

namespace {

QString itemCode(qint64 i) {
    return QStringLiteral("IT%1").arg(i, 8, 10, QLatin1Char('0'));
}

// Writes `count` items in one transaction, the way an import does.
void insertItems(const QSqlDatabase& db, int count, int descriptionSpread) {
    Sql::Transaction tx(db);
    QSqlQuery q(db);
    q.prepare(
        QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) VALUES (?, ?, ?, ?, ?, ?)"));
    for (int i = 0; i < count; ++i) {
        q.addBindValue(itemCode(i));
        q.addBindValue(QStringLiteral("Item %1 description").arg((qint64(i) * 7919) % descriptionSpread));
        q.addBindValue(1 + i % 12);
        q.addBindValue(1);
        q.addBindValue(qint64(10000 + i % 5000));
        q.addBindValue(QStringLiteral("2030-01-01"));
        q.exec();
    }
    tx.commit();
}

// A vendor database holding `count` items, made once per size and reused.
struct Catalogue {
    QTemporaryDir dir;
    QSqlDatabase db;
    explicit Catalogue(int count) {
        Store::CreateVendorDatabase(dir.path(), QStringLiteral("BEN"));
        db = *Store::OpenVendorDatabase(dir.path(), Store::vendorFileName(QStringLiteral("BEN")),
                                        QStringLiteral("bench%1").arg(count));
        insertItems(db, count, count);
    }
};

Catalogue& catalogue(int count) {
    static std::map<int, std::unique_ptr<Catalogue>> made;
    auto& c = made[count];
    if (!c)
        c = std::make_unique<Catalogue>(count);
    return *c;
}

void BM_BulkInsertItems(benchmark::State& state) {
    const int count = int(state.range(0));
    for (auto _ : state) {
        QTemporaryDir dir;
        Store::CreateVendorDatabase(dir.path(), QStringLiteral("INS"));
        {
            QSqlDatabase db = *Store::OpenVendorDatabase(dir.path(), Store::vendorFileName(QStringLiteral("INS")),
                                                         QStringLiteral("insert"));
            insertItems(db, count, count);
        }
        DatabaseFile::close(QStringLiteral("insert"));
    }
    state.counters["rows/s"] = benchmark::Counter(double(count) * state.iterations(), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_BulkInsertItems)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_ItemByCode(benchmark::State& state) {
    Catalogue& c = catalogue(int(state.range(0)));
    QSqlQuery q(c.db);
    q.prepare(QStringLiteral("SELECT descr, price FROM items WHERE code = ?"));
    qint64 i = 0;
    for (auto _ : state) {
        q.bindValue(0, itemCode((i * 104729) % state.range(0)));
        q.exec();
        benchmark::DoNotOptimize(q.next());
        ++i;
    }
}
BENCHMARK(BM_ItemByCode)->Arg(1000000)->Unit(benchmark::kMicrosecond);

void BM_DescriptionPrefix(benchmark::State& state) {
    Catalogue& c = catalogue(int(state.range(0)));
    QSqlQuery q(c.db);
    q.setForwardOnly(true);
    // Prefix range on the description index: the find window's look-up.
    q.prepare(QStringLiteral("SELECT code, descr FROM items WHERE descr >= ? AND descr < ? ORDER BY descr LIMIT 50"));
    int i = 0;
    for (auto _ : state) {
        const QString prefix = QStringLiteral("Item %1").arg(i++ % 1000);
        q.bindValue(0, prefix);
        q.bindValue(1, prefix + QChar(0xFFFF));
        q.exec();
        int rows = 0;
        while (q.next())
            ++rows;
        benchmark::DoNotOptimize(rows);
    }
}
BENCHMARK(BM_DescriptionPrefix)->Arg(1000000)->Unit(benchmark::kMicrosecond);

void BM_CreateVendorDatabase(benchmark::State& state) {
    QTemporaryDir dir;
    int n = 0;
    for (auto _ : state) {
        Store::CreateVendorDatabase(dir.path(), QStringLiteral("V%1").arg(n++, 2, 10, QLatin1Char('0')));
    }
}
BENCHMARK(BM_CreateVendorDatabase)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

#include "ScaleData.h"

#include "common/Dates.h"
#include "common/Sql.h"
#include "store/Store.h"

#include <QFile>
#include <QUuid>

namespace ordwell::ScaleData {

QString itemCode(int number) {
    return QStringLiteral("IT%1").arg(number, 8, 10, QLatin1Char('0'));
}

Status addItems(const QSqlDatabase& db, int from, int count, const QDate& today, int expiredEvery) {
    // Generated inside SQLite: a million rows take seconds this way, minutes one insert at a time.
    // Descriptions begin with a letter picked by a multiplicative hash of the number.
    return Sql::run(
        db,
        QStringLiteral("WITH RECURSIVE n(i) AS (SELECT ? UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                       "INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                       "SELECT printf('IT%08d', i), "
                       "char(65 + (i * 7919) % 26) || 'tem ' || ((i * 104729) % 1000003) || ' description', "
                       "1 + i % 12, 1 + i % 3, 10000 + (i % 5000) * 100, "
                       "CASE WHEN ? > 0 AND i % ? = 0 THEN ? ELSE ? END FROM n"),
        {from, from + count - 1, expiredEvery, qMax(expiredEvery, 1), Dates::toStored(today.addDays(-1)),
         Dates::toStored(today.addYears(1))});
}

Status makeVendor(const QString& dataDir, const QString& vendorCode, int count, const QDate& today, int expiredEvery) {
    if (Status made = Store::CreateVendorDatabase(dataDir, vendorCode); !made)
        return made;
    const QString connection = QStringLiteral("scale-data-") + QUuid::createUuid().toString(QUuid::Id128);
    Status result;
    {
        auto db = Store::OpenVendorDatabase(dataDir, Store::vendorFileName(vendorCode), connection);
        if (!db)
            return db.status();
        QSqlDatabase handle = *db;
        result = addItems(handle, 0, count, today, expiredEvery);
        handle.close();
    }
    QSqlDatabase::removeDatabase(connection);
    return result;
}

Status writePriceList(const QString& path, int from, int count, const QDate& today) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return Status::fail(QStringLiteral("cannot write %1: %2").arg(path, file.errorString()));
    const QByteArray expiry = today.addMonths(6).toString(Qt::ISODate).toLatin1();
    QByteArray line;
    for (int i = from; i < from + count; ++i) {
        line = itemCode(i).toLatin1();
        line += ",Price list item ";
        line += QByteArray::number(i);
        line += ',';
        line += QByteArray::number(1 + i % 24);
        line += ',';
        line += QByteArray::number(1 + i % 4);
        line += ',';
        line += QByteArray::number(1 + i % 900);
        line += '.';
        line += QByteArray::number(10 + i % 90);
        line += ',';
        line += expiry;
        line += '\n';
        if (file.write(line) != line.size())
            return Status::fail(QStringLiteral("cannot write %1: %2").arg(path, file.errorString()));
    }
    return file.flush() ? Status::ok() : Status::fail(file.errorString());
}

} // namespace ordwell::ScaleData

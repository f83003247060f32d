#include "OrderRepository.h"

#include "common/Dates.h"
#include "common/RecordFields.h"
#include "common/Sql.h"
#include "orders/OrderWords.h"
#include "store/Dialect.h"
#include "store/Schemas.h"

#include <QSqlQuery>

namespace ordwell {

Result<QString> OrderRepository::NextOrderNumber(const QString& vendorCode) const {
    Sql::Transaction tx(m_db);
    // Two workstations starting orders at once take turns here, each reading the counter the
    // other left.
    auto counter =
        Sql::scalar(m_db, QStringLiteral("SELECT nextord FROM vendor LIMIT 1") + Dialects::lockingRead(m_db));
    if (!counter)
        return counter.status();
    if (!counter->isValid())
        return Status::fail(QStringLiteral("The vendor's details are missing, so no order number can be given."));
    const qint64 next = counter->toLongLong();
    // A number wider than the order number column could never be stored: refuse it before the
    // counter moves, so it neither runs on nor wraps past its 32 bits.
    const QString number = vendorCode + QString::number(next);
    const int width = vendorSchema().columnLength(QStringLiteral("orderhead"), QStringLiteral("orderid"));
    if (number.size() > width)
        return Status::fail(QStringLiteral("The order numbers of this vendor have run out: the next one, %1, is "
                                           "longer than the %2 characters an order number may have.")
                                .arg(number)
                                .arg(width));
    const Status written = Sql::run(m_db, QStringLiteral("UPDATE vendor SET nextord = ?"), {next + 1});
    if (!written)
        return written;
    if (Status done = tx.commit(); !done)
        return done;
    return number;
}

Status OrderRepository::insertNewOrder(const QString& orderId, const QDate& orderDate) const {
    return Sql::run(m_db,
                    QStringLiteral("INSERT INTO orderhead (orderid, orderdate, status, totalval, reprintcount) "
                                   "VALUES (?, ?, ?, ?, ?)"),
                    {orderId, Dates::toStored(orderDate), OrderStatus::Live, qint64(0), 0});
}

Status OrderRepository::updateHeader(const OrderHeaderFields& header) const {
    return Sql::run(m_db,
                    QStringLiteral("UPDATE orderhead SET totalval = ?, name = ?, reference = ?, note1 = ?, note2 = ? "
                                   "WHERE orderid = ?"),
                    {header.total.roundedToPence().tenThousandths(), Sql::textOrNull(header.name),
                     Sql::textOrNull(header.reference), Sql::textOrNull(header.note1), Sql::textOrNull(header.note2),
                     header.orderId});
}

Result<OrderHeaderRow> OrderRepository::readHeader(const QString& orderId) const {
    auto query = Sql::exec(m_db,
                           QStringLiteral("SELECT orderid, orderdate, name, reference, note1, note2, status, totalval "
                                          "FROM orderhead WHERE orderid = ?"),
                           {orderId});
    if (!query)
        return query.status();
    QSqlQuery& q = query.value();
    if (!q.next())
        return Status::fail(QStringLiteral("The order %1 is not in the vendor's database.").arg(orderId));
    OrderHeaderRow row;
    row.orderId = q.value(0).toString();
    row.orderDate = Dates::dateFromStored(q.value(1).toString());
    row.name = q.value(2).toString();
    row.reference = q.value(3).toString();
    row.note1 = q.value(4).toString();
    row.note2 = q.value(5).toString();
    row.status = q.value(6).toString();
    row.total = Money::fromTenThousandths(q.value(7).toLongLong());
    return row;
}

} // namespace ordwell

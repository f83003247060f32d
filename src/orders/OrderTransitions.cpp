#include "OrderTransitions.h"

#include "common/Dates.h"
#include "common/Sql.h"

namespace ordwell::OrderTransitions {

namespace {
Status setLineStatus(const QSqlDatabase& db, const QString& orderId, const QString& letter) {
    const QString sql = letter == OrderStatus::Received
                            ? QStringLiteral("UPDATE orderline SET status = ?, recvqty = qty "
                                             "WHERE orderid = ? AND status <> 'C'")
                            : QStringLiteral("UPDATE orderline SET status = ? WHERE orderid = ? AND status <> 'C'");
    return Sql::run(db, sql, {letter, orderId});
}
} // namespace

Status setOrderStatus(const QSqlDatabase& db, const QString& orderId, const QString& letter, const QDate& today,
                      Money enteredTotal) {
    QString sql;
    QVariantList values{letter};
    if (letter == OrderStatus::Cancelled) {
        sql = QStringLiteral("UPDATE orderhead SET status = ?, totalval = 0 WHERE orderid = ?");
    } else if (letter == OrderStatus::Entered) {
        sql = QStringLiteral("UPDATE orderhead SET status = ?, totalval = ? WHERE orderid = ?");
        values << enteredTotal.roundedToPence().tenThousandths();
    } else if (letter == OrderStatus::Printed) {
        // Every expression reads the row as it was, so a print date already there makes this a
        // reprint.
        sql = QStringLiteral(
            "UPDATE orderhead SET status = ?, printdate = ?, "
            "reprintdate = CASE WHEN printdate IS NOT NULL AND printdate <> '' THEN ? ELSE reprintdate END, "
            "reprintcount = CASE WHEN printdate IS NOT NULL AND printdate <> '' THEN COALESCE(reprintcount, 0) + 1 "
            "ELSE reprintcount END WHERE orderid = ?");
        values << Dates::toStored(today) << Dates::toStored(today);
    } else if (letter == OrderStatus::Received) {
        sql = QStringLiteral("UPDATE orderhead SET status = ?, recvdate = ? WHERE orderid = ?");
        values << Dates::toStored(today);
    } else {
        sql = QStringLiteral("UPDATE orderhead SET status = ? WHERE orderid = ?");
    }
    values << orderId;
    auto query = Sql::exec(db, sql, values);
    if (!query)
        return query.status();
    if (query.value().numRowsAffected() != 1)
        return Status::fail(QStringLiteral("The order %1 could not be found.").arg(orderId));
    return Status::ok();
}

Status moveOrder(const QSqlDatabase& db, const QString& orderId, const QString& letter, const QDate& today,
                 Money enteredTotal) {
    Sql::Transaction transaction(db);
    Status moved = setOrderStatus(db, orderId, letter, today, enteredTotal);
    if (moved)
        moved = setLineStatus(db, orderId, letter);
    if (moved)
        moved = transaction.commit();
    return moved;
}

Result<QString> orderStatus(const QSqlDatabase& db, const QString& orderId) {
    auto value = Sql::scalar(db, QStringLiteral("SELECT status FROM orderhead WHERE orderid = ?"), {orderId});
    if (!value)
        return value.status();
    return value.value().toString();
}

Status maySend(const QSqlDatabase& db, const QString& orderId) {
    const auto status = orderStatus(db, orderId);
    if (!status)
        return status.status();
    if (status->isEmpty())
        return Status::fail(QStringLiteral("There is no order %1 of this vendor.").arg(orderId));
    static const QStringList sendable = {OrderStatus::Live, OrderStatus::Entered, OrderStatus::Printed,
                                         OrderStatus::Exported};
    if (!sendable.contains(*status))
        return Status::fail(
            QStringLiteral("The order %1 has been received or cancelled, so it is not sent again.").arg(orderId));
    return Status::ok();
}

} // namespace ordwell::OrderTransitions

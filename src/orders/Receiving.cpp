#include "Receiving.h"

#include "OrderTransitions.h"
#include "common/Dates.h"
#include "common/Sql.h"
#include "store/Dialect.h"

#include <QRegularExpression>
#include <QSqlQuery>

namespace ordwell::Receiving {

Result<ReceiptTotals> CountReceipt(const QSqlDatabase& db, const QString& orderId) {
    auto query = Sql::exec(db,
                           QStringLiteral("SELECT COALESCE(SUM(qty), 0), COALESCE(SUM(recvqty), 0) FROM orderline "
                                          "WHERE orderid = ? AND status <> 'C'"),
                           {orderId});
    if (!query)
        return query.status();
    ReceiptTotals totals;
    if (query.value().next()) {
        totals.ordered = query.value().value(0).toInt();
        totals.received = query.value().value(1).toInt();
    }
    return totals;
}

Status StartReceiving(const QSqlDatabase& db, const QString& orderId) {
    auto status = OrderTransitions::orderStatus(db, orderId);
    if (!status)
        return status.status();
    // Lines move with an exported order; taken up again part received, they stay as they are.
    if (status.value() == OrderStatus::Exported)
        return OrderTransitions::moveOrder(db, orderId, OrderStatus::PartReceived, QDate::currentDate());
    return OrderTransitions::setOrderStatus(db, orderId, OrderStatus::PartReceived, QDate::currentDate());
}

Judgement JudgeReceivedQuantity(const QString& typed, int outstanding) {
    static const QRegularExpression wholeNumber(QStringLiteral("^\\s*[+-]?[0-9]+\\s*$"));
    static const QRegularExpression otherNumber(
        QStringLiteral("^\\s*[+-]?([0-9]+([.,][0-9]*)?|[.,][0-9]+)([eE][+-]?[0-9]+)?\\s*$"));
    if (typed.isEmpty())
        return {};
    if (wholeNumber.match(typed).hasMatch()) {
        if (typed == QLatin1String("0"))
            return {Verdict::PassOver, 0};
        bool ok = false;
        const qlonglong r = typed.trimmed().toLongLong(&ok);
        if (ok && r > 0 && r <= outstanding)
            return {Verdict::Book, static_cast<int>(r)};
        return {Verdict::Refuse, 0};
    }
    // A fraction or an exponent is a number, but not a quantity that can arrive.
    if (otherNumber.match(typed).hasMatch())
        return {Verdict::Refuse, 0};
    return {};
}

Result<ReceivedLine> ReceiveLine(const QSqlDatabase& db, const QString& orderId, const QString& code, int quantity,
                                 const QDate& today) {
    Sql::Transaction transaction(db);
    // Lines have no key of their own, so the row is found again by the engine's own row
    // address, held for the rest of the step.
    const QString rowKey = Dialects::rowAddress(db);
    const QString select = QStringLiteral("SELECT line, code, qty, recvqty, price, status, ") + rowKey +
                           QStringLiteral(" FROM orderline WHERE orderid = ? AND code = ? AND status <> 'C' "
                                          "ORDER BY line LIMIT 1") +
                           Dialects::lockingRead(db);
    auto found = Sql::exec(db, select, {orderId, code});
    if (!found)
        return found.status();
    QSqlQuery& q = found.value();
    if (!q.next())
        return Status::fail(QStringLiteral("The order %1 has no line for the item %2.").arg(orderId, code));
    const int ordered = q.value(2).toInt();
    const int received = q.value(3).toInt();
    const QVariant rowId = q.value(6);
    q.finish();
    if (quantity <= 0 || quantity > Outstanding(ordered, received))
        return Status::fail(QStringLiteral("%1 cannot be received against the %2 still outstanding for the item %3.")
                                .arg(quantity)
                                .arg(Outstanding(ordered, received))
                                .arg(code));
    const int nowReceived = received + quantity;
    // Written and read back in one statement.
    auto after = Sql::exec(db,
                           QStringLiteral("UPDATE orderline SET recvqty = ?, recvdate = ?, "
                                          "status = CASE WHEN ? = qty THEN 'R' ELSE status END WHERE ") +
                               rowKey + QStringLiteral(" = ? RETURNING line, code, qty, recvqty, price, status"),
                           {nowReceived, Dates::toStored(today), nowReceived, rowId});
    if (!after)
        return after.status();
    if (!after.value().next())
        return Status::fail(QStringLiteral("The line for the item %1 could not be read back.").arg(code));
    ReceivedLine line;
    line.line = after.value().value(0).toInt();
    line.code = after.value().value(1).toString();
    line.ordered = after.value().value(2).toInt();
    line.received = after.value().value(3).toInt();
    line.price = Money::fromTenThousandths(after.value().value(4).toLongLong());
    line.status = after.value().value(5).toString();
    after.value().finish();
    if (Status c = transaction.commit(); !c)
        return c;
    return line;
}

Status CompleteReceipt(const QSqlDatabase& db, const QString& orderId, const QDate& today) {
    return OrderTransitions::moveOrder(db, orderId, OrderStatus::Received, today);
}

} // namespace ordwell::Receiving

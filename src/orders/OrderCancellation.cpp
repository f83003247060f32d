#include "OrderCancellation.h"

#include "OrderTransitions.h"
#include "common/Sql.h"

namespace ordwell::OrderCancellation {

Status CancelOrder(const QSqlDatabase& db, const QString& orderId) {
    Sql::Transaction transaction(db);
    if (Status s = OrderTransitions::setOrderStatus(db, orderId, QStringLiteral("C"), QDate::currentDate()); !s)
        return s;
    if (Status s = OrderTransitions::setLineStatus(db, orderId, QStringLiteral("C")); !s)
        return s;
    return transaction.commit();
}

Result<std::optional<OrderHeadRow>> FindLiveOrder(const QSqlDatabase& db) {
    auto query = Sql::exec(db,
                           QStringLiteral("SELECT %1 FROM orderhead WHERE status = ? ORDER BY orderid LIMIT 1")
                               .arg(OrderHeadRow::columns()),
                           {QStringLiteral("L")});
    if (!query)
        return query.status();
    if (!query.value().next())
        return std::optional<OrderHeadRow>();
    return std::optional<OrderHeadRow>(OrderHeadRow::fromQuery(query.value()));
}

std::array<QString, 8> HeaderTexts(const OrderHeadRow& order, const QString& statusText) {
    return {order.orderId, order.orderDateText(), order.name, order.reference,
            order.note1,   order.note2,           statusText, order.totalText()};
}

std::array<QString, 8> RecoveredHeaderTexts(const OrderHeadRow& order) {
    return HeaderTexts(order, QStringLiteral("L - Live"));
}

} // namespace ordwell::OrderCancellation

#include "OrderCancellation.h"

#include "OrderTransitions.h"
#include "common/Sql.h"
#include "store/OrderLeases.h"

namespace ordwell::OrderCancellation {

Status CancelOrder(const QSqlDatabase& db, const QString& orderId) {
    return OrderTransitions::moveOrder(db, orderId, OrderStatus::Cancelled, QDate::currentDate());
}

Result<std::optional<OrderHeadRow>> FindLiveOrder(const QSqlDatabase& db) {
    // A live order another workstation is working on is not this one's to recover.
    auto query = Sql::exec(
        db,
        QStringLiteral("SELECT %1 FROM orderhead h WHERE h.status = ?").arg(OrderHeadRow::columns()) +
            OrderLeases::notLeasedElsewhere(db, QStringLiteral("h")) + QStringLiteral(" ORDER BY h.orderid LIMIT 1"),
        QVariantList{OrderStatus::Live} + OrderLeases::notLeasedElsewhereValues(db));
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

#include "orders/OrderDesk.h"

#include "orders/OrderTransitions.h"

namespace ordwell {

namespace {
const std::pair<DeskMode, const QString*> ModeWords[] = {
    {DeskMode::New, &OrderMode::New},         {DeskMode::Load, &OrderMode::Load},
    {DeskMode::Print, &OrderMode::Print},     {DeskMode::Export, &OrderMode::Export},
    {DeskMode::Receive, &OrderMode::Receive}, {DeskMode::Live, &OrderMode::Live},
};
} // namespace

DeskMode deskModeFromWord(const QString& word) {
    for (const auto& [mode, text] : ModeWords)
        if (*text == word)
            return mode;
    return DeskMode::None;
}

QString wordOf(DeskMode mode) {
    for (const auto& [known, text] : ModeWords)
        if (known == mode)
            return *text;
    return {};
}

Status OrderDesk::openList(const QSqlDatabase& db, OrderListKey key) {
    list = std::make_unique<OrderList>(db, key);
    const Status opened = list->open();
    if (!opened)
        list.reset();
    return opened;
}

QString OrderDesk::chosenStatus() const {
    if (!list || list->isEmpty())
        return {};
    return list->current().status;
}

Status OrderDesk::takeUp(const QSqlDatabase& db, const QString& orderId, const QDate& today) {
    return OrderTransitions::moveOrder(db, orderId, OrderStatus::Live, today);
}

Status OrderDesk::finish(const QSqlDatabase& db, const QString& orderId, Money shownTotal, const QDate& today) {
    const auto status = OrderTransitions::orderStatus(db, orderId);
    if (!status)
        return status.status();
    if (*status != OrderStatus::Live)
        return Status::ok();
    return OrderTransitions::moveOrder(db, orderId, OrderStatus::Entered, today, shownTotal);
}

Result<bool> OrderDesk::countReceipt(const QSqlDatabase& db, const QString& orderId) {
    const auto totals = Receiving::CountReceipt(db, orderId);
    if (!totals)
        return totals.status();
    orderedTotal = totals->ordered;
    receivedTotal = totals->received;
    return totals->complete();
}

bool OrderDesk::booked(int quantity) {
    receivedTotal += quantity;
    return receivedTotal == orderedTotal;
}

} // namespace ordwell

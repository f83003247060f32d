#include "orders/OrderDesk.h"

#include "orders/OrderCancellation.h"
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

DeskStep OrderDesk::cancel(const QSqlDatabase& db, const QString& orderId) {
    if (const Status cancelled = OrderCancellation::CancelOrder(db, orderId); !cancelled)
        return DeskStep::failure(QStringLiteral("The order could not be cancelled; it stays as it was."), cancelled);
    return DeskStep::to(DeskScreen::Idle);
}

DeskStep OrderDesk::startReceiving(const QSqlDatabase& db, const QString& orderId) {
    if (const Status started = Receiving::StartReceiving(db, orderId); !started)
        return DeskStep::failure(QStringLiteral("Receiving could not begin."), started);
    const auto complete = countReceipt(db, orderId);
    if (!complete)
        return DeskStep::failure(QStringLiteral("The order's lines could not be counted."), complete.status());
    if (*complete) // everything had come already
        return receiveAll(db, orderId);
    return DeskStep::to(DeskScreen::Receiving);
}

ReceiptStep OrderDesk::receive(const QSqlDatabase& db, const QString& orderId, const QString& code,
                               const QString& typed, int outstanding) {
    ReceiptStep step;
    step.next = DeskScreen::Receiving;
    const auto judged = Receiving::JudgeReceivedQuantity(typed, outstanding);
    step.verdict = judged.verdict;
    if (judged.verdict != Receiving::Verdict::Book)
        return step;
    const auto booked = Receiving::ReceiveLine(db, orderId, code, judged.quantity);
    if (!booked) {
        step.status = booked.status();
        step.failed = QStringLiteral("The receipt could not be stored.");
        return step;
    }
    step.line = booked.value();
    if (this->booked(judged.quantity)) {
        const DeskStep closed = receiveAll(db, orderId);
        step.next = closed.next;
        step.status = closed.status;
        step.failed = closed.failed;
    }
    return step;
}

bool OrderDesk::booked(int quantity) {
    receivedTotal += quantity;
    return receivedTotal == orderedTotal;
}

DeskStep OrderDesk::receiveAll(const QSqlDatabase& db, const QString& orderId) {
    if (const Status done = Receiving::CompleteReceipt(db, orderId); !done)
        return DeskStep::failure(QStringLiteral("The order could not be closed as received."), done);
    return DeskStep::to(DeskScreen::Idle);
}

} // namespace ordwell

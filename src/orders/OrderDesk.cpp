#include "orders/OrderDesk.h"

#include "common/TextChecks.h"
#include "orders/OrderCancellation.h"
#include "orders/OrderPrinting.h"
#include "orders/OrderRepository.h"
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

OrderState OrderDesk::chosenState() const {
    if (!list || list->isEmpty())
        return OrderState::None;
    return orderStateOf(list->current().status);
}

Result<OrderState> OrderDesk::shownState(const QSqlDatabase& db) const {
    if (shown.isEmpty())
        return OrderState::None;
    const auto status = OrderTransitions::orderStatus(db, shown);
    if (!status)
        return status.status();
    return orderStateOf(*status);
}

bool OrderDesk::accepts(OrderState state) const {
    switch (mode) {
    case DeskMode::Print:
        return state == OrderState::Printed || state == OrderState::Live || state == OrderState::Entered;
    case DeskMode::Export:
        return state == OrderState::Printed || state == OrderState::Exported;
    case DeskMode::Receive:
        return state == OrderState::Exported || state == OrderState::PartReceived;
    default:
        return false;
    }
}

Status OrderDesk::takeUp(const QSqlDatabase& db, const QString& orderId, const QDate& today) {
    return OrderTransitions::moveOrder(db, orderId, OrderStatus::Live, today);
}

Status OrderDesk::finish(const QSqlDatabase& db, const QString& orderId, Money shownTotal, const QDate& today) {
    const auto status = OrderTransitions::orderStatus(db, orderId);
    if (!status)
        return status.status();
    if (orderStateOf(*status) != OrderState::Live)
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

DeskStep OrderDesk::startNew(const QSqlDatabase& db, const QString& orderId, const QDate& date) {
    shown = orderId;
    total = Money();
    if (const Status stored = OrderRepository(db).insertNewOrder(orderId, date); !stored)
        return DeskStep::failure(QStringLiteral("The new order %1 could not be stored.").arg(orderId), stored);
    if (const auto opened = openLines(db, orderId); !opened)
        return DeskStep::failure(QStringLiteral("The order's lines could not be read."), opened.status());
    return DeskStep::to(DeskScreen::NewHeader);
}

DeskStep OrderDesk::printed(const QSqlDatabase& db, const QString& orderId) {
    if (const Status marked = OrderPrinting::MarkPrinted(db, orderId); !marked)
        return DeskStep::failure(QStringLiteral("The order %1 was not printed.").arg(orderId), marked);
    return DeskStep::to(DeskScreen::ShownForAction);
}

ExportStep OrderDesk::exportToDesktop(const QSqlDatabase& systemDb, const QSqlDatabase& db, const QString& vendorName,
                                      const QString& desktopDir, const QString& orderId) {
    const OrderExport::ExportResult result = OrderExport::ExportOrder(systemDb, db, vendorName, desktopDir, orderId);
    ExportStep step;
    step.next = DeskScreen::ShownForAction;
    step.outcome = result.outcome;
    if (result.outcome == OrderExport::Outcome::Failed) {
        step.status = Status::fail(result.message);
        step.failed = result.message;
    }
    return step;
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

void OrderDesk::openItems(const QSqlDatabase& db) {
    catalogue = std::make_unique<ItemCatalogue>(db);
    resolver.reset();
}

void OrderDesk::closeItems() {
    resolver.reset();
    catalogue.reset();
    currentItem.reset();
}

Status OrderDesk::loadRules(const QSqlDatabase& db) {
    haveRules = false;
    if (!catalogue)
        openItems(db);
    auto rules = BarcodeResolver::loadActiveRules(db);
    const Status read = rules ? Status::ok() : rules.status();
    resolver = std::make_unique<BarcodeResolver>(*catalogue, rules ? rules.value() : QList<BarcodeRule>());
    haveRules = resolver->haveRules();
    rulesLoaded = true;
    return read;
}

Result<QList<OrderLine>> OrderDesk::openLines(const QSqlDatabase& db, const QString& orderId) {
    if (!lines)
        lines = std::make_unique<OrderLineBook>(db);
    auto opened = lines->open(orderId);
    if (opened)
        linesOpen = true;
    return opened;
}

void OrderDesk::closeLines() {
    if (linesOpen && lines)
        lines->close();
    linesOpen = false;
}

ScanStep OrderDesk::scan(const QSqlDatabase& db, const QString& typed, bool keepUnknown, const QDate& today) {
    if (!catalogue)
        openItems(db);
    if (!resolver)
        resolver = std::make_unique<BarcodeResolver>(*catalogue, QList<BarcodeRule>());
    const Resolution found = resolver->resolveScan(typed, today);
    ScanStep step;
    step.code = found.code;
    step.note = found.problem.isEmpty() ? found.warnings.join(QLatin1Char(' ')) : found.problem;
    if (found.item) {
        currentItem = *found.item;
        step.outcome = ScanOutcome::Item;
        step.quantity = found.quantity;
        step.alert = !found.warnings.isEmpty();
    } else if (!found.problem.isEmpty()) {
        step.outcome = ScanOutcome::Misread;
        step.alert = true;
    } else if (!keepUnknown) {
        // Dropped with no message to answer: the alert and the info line tell a person scanning.
        step.outcome = ScanOutcome::NothingFound;
        if (!step.code.isEmpty()) {
            step.note = QStringLiteral("No item has the code %1").arg(step.code);
            step.alert = true;
        }
    } else if (step.code.isEmpty()) {
        step.outcome = ScanOutcome::Empty;
    } else if (step.code.size() > ItemCodeLength) {
        step.outcome = ScanOutcome::TooLong;
    } else if (!IsValidCode(step.code, false)) {
        step.outcome = ScanOutcome::BadCharacters;
    } else {
        step.outcome = ScanOutcome::Unknown;
    }
    return step;
}

Status OrderDesk::keepUnknownItem(const CatalogueItem& item) {
    const Status saved = catalogue->addUnknownItem(item.code, item.descr, item.price, item.packQty);
    if (saved)
        currentItem = item;
    return saved;
}

Result<std::optional<LineChange>> OrderDesk::enterQuantity(qint64 qty, Money price, int pack, const QString& descr,
                                                           const OrderHeaderFields& header) {
    if (!currentItem || !linesOpen)
        return std::optional<LineChange>();
    OrderHeaderFields stored = header;
    stored.orderId = shown;
    stored.total = total;
    auto change = lines->record(currentItem->code, descr, pack, qty, price, editingLine, stored);
    if (!change)
        return change.status();
    total = change->total;
    if (!change->appended)
        editingLine = false;
    return std::optional<LineChange>(change.value());
}

} // namespace ordwell

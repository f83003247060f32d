// Receiving a delivery against the shown order: line by line or all at once, until nothing
// is outstanding and the order closes.
#include "orders/OrderFormAfterEntry.h"

#include "app/AppContext.h"
#include "common/FormHelpers.h"
#include "orders/OrderForm.h"
#include "orders/OrderLifeState.h"
#include "orders/Receiving.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

namespace ordwell::OrderFormAfterEntry {

namespace {

QString orderNumber(OrderForm& form) {
    return form.ui().txtheader[Header::OrderNumber]->text();
}

void clearEntryBoxes(OrderForm& form) {
    for (QLineEdit* box : form.ui().txtitem)
        box->clear();
}

} // namespace

void LockReceiveBox(OrderForm& form, bool locked) {
    QLineEdit* box = form.ui().txtrcvqty;
    if (!box->isVisibleTo(&form))
        return;
    box->clear();
    box->setEnabled(!locked);
    setBoxColour(box, locked ? BoxColour::Locked : BoxColour::Required);
    if (!locked)
        focusOn(box);
}

void StartReceiving(OrderForm& form) {
    form.ui().lblinfo->setText(QStringLiteral("Receiving order"));
    form.EnableMainButtons(true);
    form.ShowNavigationBar(false);
    form.ShowEntryRow(true);
    form.ShowFindItem(false);
    form.ShowCancelOrder(false);
    form.ShowReceiveControls(true);
    form.ShowStartOrder(false);
    form.ShowEditOrder(false);
    form.LockHeader(true);
    form.LockEntryRow(true);
    form.SetGridTabStop(true);
    form.EnableCancelOrder(true);
    form.EnableStartOrder(false);
    LockReceiveBox(form, true);
    const Status started = Receiving::StartReceiving(form.vendorDb(), orderNumber(form));
    if (!started) {
        form.reportFailure(QStringLiteral("Receiving could not begin."), started.message());
        return;
    }
    form.ui().txtheader[Header::Status]->setText(QStringLiteral("S - PART RECEIVED"));
    // The grid shows what is still to come of each line.
    form.ClearLineGrid();
    form.LoadOrderLines();
    CountReceipt(form);
}

void CountReceipt(OrderForm& form) {
    auto& state = OrderLifeState::of(form);
    const auto totals = Receiving::CountReceipt(form.vendorDb(), orderNumber(form));
    if (!totals) {
        form.reportFailure(QStringLiteral("The order's lines could not be counted."), totals.message());
        return;
    }
    state.orderedTotal = totals->ordered;
    state.receivedTotal = totals->received;
    if (!totals->complete()) {
        focusOn(form.ui().cmdrecv);
        return;
    }
    // Everything has come already.
    CompleteReceipt(form, true);
}

void ReceiveRowChosen(OrderForm& form, int row) {
    OrderFormControls& ui = form.ui();
    auto text = [&ui, row](int column) {
        const QTableWidgetItem* item = row > 0 ? ui.flxitems->item(row, column) : nullptr;
        return item ? item->text() : QString();
    };
    if (text(1).isEmpty() || text(3).toInt() <= 0) {
        focusOn(ui.cmdrecv);
        return;
    }
    // The row carries everything the boxes show, also for an item gone from the catalogue.
    ui.txtitem[Entry::Code]->setText(text(1));
    for (int c = Entry::Description; c <= Entry::Pack; ++c)
        ui.txtitem[c]->setText(text(c + 1));
    lockBox(ui.txtitem[Entry::Qty], true, false);
    LockReceiveBox(form, false);
}

bool txtrcvqty_KeyPress(OrderForm& form, QKeyEvent* key) {
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter && key->key() != Qt::Key_Tab)
        return false;
    OrderFormControls& ui = form.ui();
    auto& state = OrderLifeState::of(form);
    const int outstanding = ui.txtitem[Entry::Qty]->text().toInt();
    const auto judged = Receiving::JudgeReceivedQuantity(ui.txtrcvqty->text(), outstanding);
    switch (judged.verdict) {
    case Receiving::Verdict::Ignore:
        break;
    case Receiving::Verdict::Book: {
        const auto booked = Receiving::ReceiveLine(form.vendorDb(), orderNumber(form), ui.txtitem[Entry::Code]->text(),
                                                   judged.quantity);
        if (!booked) {
            form.reportFailure(QStringLiteral("The receipt could not be stored."), booked.message());
            break;
        }
        const Receiving::ReceivedLine& line = booked.value();
        form.ShowLineRow(line.line, line.code, ui.txtitem[Entry::Description]->text(), line.outstanding(), line.price,
                         ui.txtitem[Entry::Pack]->text().toInt(), line.status);
        state.receivedTotal += judged.quantity;
        clearEntryBoxes(form);
        LockReceiveBox(form, true);
        if (state.receivedTotal == state.orderedTotal)
            CompleteReceipt(form, true);
        else
            focusOn(ui.cmdrecv);
        break;
    }
    case Receiving::Verdict::PassOver:
        clearEntryBoxes(form);
        LockReceiveBox(form, true);
        focusOn(ui.cmdrecv);
        break;
    case Receiving::Verdict::Refuse:
        ui.txtrcvqty->clear();
        focusOn(ui.txtrcvqty);
        break;
    }
    return true;
}

void cmdrecv_Click(OrderForm& form) {
    if (form.appContext().prompter().ask(Receiving::ReceiveAllText, Receiving::ReceiveAllTitle, MessageIcon::None))
        CompleteReceipt(form, false);
}

void CompleteReceipt(OrderForm& form, bool wholeLine) {
    if (wholeLine)
        form.appContext().prompter().message(Receiving::CompleteText, Receiving::CompleteTitle, MessageIcon::None);
    const Status done = Receiving::CompleteReceipt(form.vendorDb(), orderNumber(form));
    if (!done) {
        form.reportFailure(QStringLiteral("The order could not be closed as received."), done.message());
        return;
    }
    form.CloseOrderLines();
    form.FinishShownOrder();
    form.ResetToIdle();
}

} // namespace ordwell::OrderFormAfterEntry

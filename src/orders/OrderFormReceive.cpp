// Receiving a delivery against the shown order: line by line or all at once, until nothing
// is outstanding and the order closes.
#include "orders/OrderForm.h"

#include "app/AppContext.h"
#include "common/FormHelpers.h"
#include "orders/Receiving.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

namespace ordwell {

QString OrderForm::orderNumber() {
    return m_ui.txtheader[Header::OrderNumber]->text();
}

void OrderForm::clearEntryBoxes() {
    for (QLineEdit* box : m_ui.txtitem)
        box->clear();
}

void OrderForm::LockReceiveBox(bool locked) {
    QLineEdit* box = m_ui.txtrcvqty;
    if (!box->isVisibleTo(this))
        return;
    box->clear();
    box->setEnabled(!locked);
    setBoxColour(box, locked ? BoxColour::Locked : BoxColour::Required);
    if (!locked)
        focusOn(box);
}

void OrderForm::StartReceiving() {
    m_ui.lblinfo->setText(QStringLiteral("Receiving order"));
    applyScreen(Screen::Receiving);
    LockReceiveBox(true);
    const Status started = Receiving::StartReceiving(vendorDb(), orderNumber());
    if (!started) {
        reportFailure(QStringLiteral("Receiving could not begin."), started.message());
        return;
    }
    m_ui.txtheader[Header::Status]->setText(QStringLiteral("S - PART RECEIVED"));
    // The grid shows what is still to come of each line.
    ClearLineGrid();
    LoadOrderLines();
    CountReceipt();
}

void OrderForm::CountReceipt() {
    const auto complete = m_desk.countReceipt(vendorDb(), orderNumber());
    if (!complete) {
        reportFailure(QStringLiteral("The order's lines could not be counted."), complete.message());
        return;
    }
    if (!*complete) {
        focusOn(m_ui.cmdrecv);
        return;
    }
    // Everything has come already.
    CompleteReceipt(true);
}

void OrderForm::ReceiveRowChosen(int row) {
    OrderFormControls& ui = m_ui;
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
    LockReceiveBox(false);
}

bool OrderForm::txtrcvqty_KeyPress(QKeyEvent* key) {
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter && key->key() != Qt::Key_Tab)
        return false;
    OrderFormControls& ui = m_ui;
    const int outstanding = ui.txtitem[Entry::Qty]->text().toInt();
    const auto judged = Receiving::JudgeReceivedQuantity(ui.txtrcvqty->text(), outstanding);
    switch (judged.verdict) {
    case Receiving::Verdict::Ignore:
        break;
    case Receiving::Verdict::Book: {
        const auto booked =
            Receiving::ReceiveLine(vendorDb(), orderNumber(), ui.txtitem[Entry::Code]->text(), judged.quantity);
        if (!booked) {
            reportFailure(QStringLiteral("The receipt could not be stored."), booked.message());
            break;
        }
        const Receiving::ReceivedLine& line = booked.value();
        ShowLineRow(line.line, line.code, ui.txtitem[Entry::Description]->text(), line.outstanding(), line.price,
                    ui.txtitem[Entry::Pack]->text().toInt(), line.status);
        clearEntryBoxes();
        LockReceiveBox(true);
        if (m_desk.booked(judged.quantity))
            CompleteReceipt(true);
        else
            focusOn(ui.cmdrecv);
        break;
    }
    case Receiving::Verdict::PassOver:
        clearEntryBoxes();
        LockReceiveBox(true);
        focusOn(ui.cmdrecv);
        break;
    case Receiving::Verdict::Refuse:
        ui.txtrcvqty->clear();
        focusOn(ui.txtrcvqty);
        break;
    }
    return true;
}

void OrderForm::cmdrecv_Click() {
    if (appContext().prompter().ask(Receiving::ReceiveAllText, Receiving::ReceiveAllTitle, MessageIcon::None))
        CompleteReceipt(false);
}

void OrderForm::CompleteReceipt(bool wholeLine) {
    if (wholeLine)
        appContext().prompter().message(Receiving::CompleteText, Receiving::CompleteTitle, MessageIcon::None);
    const Status done = Receiving::CompleteReceipt(vendorDb(), orderNumber());
    if (!done) {
        reportFailure(QStringLiteral("The order could not be closed as received."), done.message());
        return;
    }
    CloseOrderLines();
    FinishShownOrder();
    ResetToIdle();
}

} // namespace ordwell

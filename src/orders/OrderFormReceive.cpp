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
    applyScreen(DeskScreen::Receiving);
    LockReceiveBox(true);
    const DeskStep step = m_desk.startReceiving(vendorDb(), m_desk.shown);
    if (!step.status) {
        reportFailure(step.failed, step.status.message());
        return;
    }
    m_ui.txtheader[Header::Status]->setText(QStringLiteral("S - PART RECEIVED"));
    // The grid shows what is still to come of each line.
    ClearLineGrid();
    LoadOrderLines();
    if (step.next == DeskScreen::Idle) // everything had come already
        CloseReceivedOrder(true);
    else
        focusOn(m_ui.cmdrecv);
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
    const ReceiptStep step = m_desk.receive(vendorDb(), m_desk.shown, ui.txtitem[Entry::Code]->text(),
                                            ui.txtrcvqty->text(), ui.txtitem[Entry::Qty]->text().toInt());
    if (step.line) {
        const Receiving::ReceivedLine& line = *step.line;
        ShowLineRow(line.line, line.code, ui.txtitem[Entry::Description]->text(), line.outstanding(), line.price,
                    ui.txtitem[Entry::Pack]->text().toInt(), line.status);
    }
    if (step.line || step.verdict == Receiving::Verdict::PassOver) {
        clearEntryBoxes();
        LockReceiveBox(true);
    }
    if (!step.status) {
        reportFailure(step.failed, step.status.message());
        return true;
    }
    switch (step.verdict) {
    case Receiving::Verdict::Ignore:
        break;
    case Receiving::Verdict::Book:
    case Receiving::Verdict::PassOver:
        if (step.next == DeskScreen::Idle)
            CloseReceivedOrder(true);
        else
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
    if (!appContext().prompter().ask(Receiving::ReceiveAllText, Receiving::ReceiveAllTitle, MessageIcon::None))
        return;
    const DeskStep step = OrderDesk::receiveAll(vendorDb(), m_desk.shown);
    if (!step.status) {
        reportFailure(step.failed, step.status.message());
        return;
    }
    CloseReceivedOrder(false);
}

void OrderForm::CloseReceivedOrder(bool lastLineCame) {
    if (lastLineCame)
        appContext().prompter().message(Receiving::CompleteText, Receiving::CompleteTitle, MessageIcon::None);
    CloseOrderLines();
    FinishShownOrder();
    ResetToIdle();
}

} // namespace ordwell

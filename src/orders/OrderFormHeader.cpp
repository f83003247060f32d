// The order header: new orders, their numbers, and saving what the user typed.
#include "orders/OrderForm.h"

#include "common/Dates.h"
#include "common/FormHelpers.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ordwell {

void OrderForm::BeginNewOrder() {
    if (!m_desk.itemsOpen())
        OpenItems();
    if (!m_desk.rulesLoaded)
        LoadBarcodeRules();
    m_ui.lblinfo->setText(QStringLiteral("Enter new order details"));
    applyScreen(DeskScreen::NewHeader);
    ShowNewHeader();
}

void OrderForm::ShowNewHeader() {
    const QDate today = QDate::currentDate();
    const QString number = NextOrderNumber();
    if (number.isEmpty())
        return;
    ClaimOrder(number);
    m_ui.txtheader[Header::OrderNumber]->setText(number);
    m_ui.txtheader[Header::OrderDate]->setText(Dates::shortDate(today));
    m_ui.txtheader[Header::Status]->setText(QStringLiteral("L - Live"));
    showTotal(Money());
    SaveOrderHeader(QStringLiteral("NEW"));
}

QString OrderForm::NextOrderNumber() {
    const auto number = orders().NextOrderNumber(vendorCode());
    if (!number) {
        reportFailure(QStringLiteral("No order number could be given."), number.message());
        return {};
    }
    return *number;
}

void OrderForm::SaveOrderHeader(const QString& kind) {
    if (kind == QLatin1String("NEW")) {
        const QDate date = Dates::parseShortDate(m_ui.txtheader[Header::OrderDate]->text());
        const DeskStep step = m_desk.startNew(vendorDb(), m_ui.txtheader[Header::OrderNumber]->text(),
                                              date.isValid() ? date : QDate::currentDate());
        if (!step.status)
            reportFailure(step.failed, step.status.message());
    } else if (kind == QLatin1String("UPDATE")) {
        const Status done = orders().updateHeader(shownHeader());
        if (!done)
            reportFailure(QStringLiteral("The order's details could not be stored."), done.message());
    }
}

OrderHeaderFields OrderForm::shownHeader() const {
    OrderHeaderFields header;
    header.orderId = m_desk.shown;
    header.name = m_ui.txtheader[Header::ContactName]->text();
    header.reference = m_ui.txtheader[Header::Reference]->text();
    header.note1 = m_ui.txtheader[Header::Notes1]->text();
    header.note2 = m_ui.txtheader[Header::Notes2]->text();
    header.total = m_desk.total;
    return header;
}

void OrderForm::showTotal(Money total) {
    m_ui.txtheader[Header::Total]->setText(total.toString());
}

void OrderForm::cmdstartorder_Click() {
    SaveOrderHeader(QStringLiteral("UPDATE"));
    applyScreen(DeskScreen::Entering);
}

void OrderForm::cmdedit_Click() {
    applyScreen(DeskScreen::EditingHeader);
}

bool OrderForm::txtheader_KeyPress(int index, QKeyEvent* key) {
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        return false;
    switch (index) {
    case Header::ContactName:
    case Header::Reference:
    case Header::Notes1:
        focusOn(m_ui.txtheader[index + 1]);
        break;
    case Header::Notes2:
        if (m_desk.headerOpen())
            focusOn(m_ui.cmdstartorder);
        break;
    default:
        break;
    }
    return true;
}

} // namespace ordwell

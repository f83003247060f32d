// The selection lists of the load, print, export and receive modes, browsed one order at a
// time with the navigation bar, and the direct question for an order already on screen.
#include "orders/OrderForm.h"

#include "app/AppContext.h"
#include "common/FormHelpers.h"
#include "common/Sql.h"
#include "orders/OrderCancellation.h"
#include "orders/OrderNavigation.h"
#include "orders/OrderTransitions.h"
#include "orders/OrderWords.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ordwell {

void OrderForm::ShowOrderForAction() {
    applyScreen(DeskScreen::ShownForAction);
}

QLineEdit* OrderForm::headerBox(int index) {
    return m_ui.txtheader[index];
}

// Shows the list's current order in the header; the header only ever shows it, never writes.
void OrderForm::showCurrentOrder() {
    const OrderHeadRow& order = m_desk.list->current();
    showHeader(order, OrderCancellation::HeaderTexts(order, order.status));
}

void OrderForm::showHeader(const OrderHeadRow& order, const std::array<QString, 8>& texts) {
    m_desk.show(order);
    for (int i = 0; i < 8; ++i)
        headerBox(i)->setText(texts[i]);
}

void OrderForm::ApplyNavMask(const QString& mask) {
    const QString trimmed = mask.trimmed();
    for (int i = 0; i < trimmed.size() && i < 5; ++i)
        m_ui.cmdnavbutton[i]->setEnabled(OrderNavigation::maskEnables(trimmed, i));
}

void OrderForm::UpdateNavigation() {
    const OrderList& list = *m_desk.list;
    ApplyNavMask(list.mask());
    m_ui.lblnavinfo->setText(list.positionText());
}

bool OrderForm::OpenOrderList(OrderListKey key) {
    const Status opened = m_desk.openList(vendorDb(), key);
    if (!opened) {
        reportFailure(QStringLiteral("The list of orders could not be read."), opened.message());
        return false;
    }
    return true;
}

void OrderForm::CloseOrderList() {
    m_desk.closeList();
}

// The "No Orders" message of the mode; the form goes idle.
bool OrderForm::listIsEmpty() {
    if (!m_desk.list->isEmpty())
        return false;
    appContext().prompter().message(OrderNavigation::noOrdersText(wordOf(m_desk.mode)), OrderNavigation::NoOrdersTitle,
                                    MessageIcon::Information);
    ResetToIdle();
    CloseOrderList();
    return true;
}

void OrderForm::showList() {
    applyScreen(DeskScreen::Browsing);
    showCurrentOrder();
    UpdateNavigation();
    ClearLineGrid();
    LoadOrderLines();
    m_ui.lblinfo->setText(OrderNavigation::browsingGuidance(wordOf(m_desk.mode)));
    focusOn(m_ui.cmdnavbutton[2]);
}

void OrderForm::carryOut() {
    if (m_desk.mode == DeskMode::Print)
        PrintOrder();
    else if (m_desk.mode == DeskMode::Export)
        ExportOrder();
    else if (m_desk.mode == DeskMode::Receive)
        StartReceiving();
}

// Print, export and receive: the shown order when the mode accepts it, else the mode's list.
void OrderForm::beginChoosing() {
    if (!m_desk.itemsOpen())
        OpenItems();
    if (!m_desk.shown.isEmpty() && m_desk.accepts(ReadOrderStatus())) {
        const auto question = OrderNavigation::directQuestion(wordOf(m_desk.mode));
        if (question && appContext().prompter().ask(question->text, question->title, MessageIcon::None))
            carryOut();
        return;
    }
    FinishShownOrder();
    ResetToIdle();
    if (!OpenOrderList(*OrderNavigation::keyForMode(wordOf(m_desk.mode))) || listIsEmpty())
        return;
    showList();
}

// A live or entered order chosen from the load list is taken up for entry again.
void OrderForm::takeUp() {
    applyScreen(DeskScreen::TakenUp);
    // Order and lines turn live together, so a crash cannot leave them apart.
    const Status done = OrderDesk::takeUp(vendorDb(), m_desk.shown, QDate::currentDate());
    if (!done)
        reportFailure(QStringLiteral("The order could not be taken up again."), done.message());
    headerBox(Header::Status)->setText(QStringLiteral("L - LIVE"));
    m_ui.lblinfo->setText(QStringLiteral("Continue entering order details"));
    OpenOrderLines();
}

// A printed or exported order chosen from the load list waits for the next step.
void OrderForm::showLoaded(OrderState state) {
    const bool printed = state == OrderState::Printed;
    headerBox(Header::Status)->setText(OrderNavigation::takenUpStatusText(state));
    m_ui.lblinfo->setText(printed ? QStringLiteral("Print or export this order")
                                  : QStringLiteral("Export or receive this order"));
    ShowOrderForAction();
    focusOn(m_ui.cmdbutton[printed ? MainButton::PrintOrder : MainButton::ExportOrder]);
}

void OrderForm::chooseShownOrder() {
    // What the order is, from the list itself: the header only shows it.
    const OrderState state = m_desk.chosenState();
    CloseOrderList();
    EnableMainButtons(true);
    ShowNavigationBar(false);
    // Another workstation working on the order keeps it: said, and the form goes back to idle.
    if (!ClaimOrder(m_desk.shown)) {
        m_desk.shown.clear();
        ResetToIdle();
        return;
    }
    if (m_desk.mode == DeskMode::Load || m_desk.mode == DeskMode::Live) {
        if (state == OrderState::Live || state == OrderState::Entered) {
            takeUp();
        } else if (state == OrderState::Printed || state == OrderState::Exported) {
            showLoaded(state);
        } else if (state == OrderState::PartReceived) {
            // From here the form receives, as in the receive mode: the grid shows what is still
            // to come, so a line received in full cannot be chosen and too many is refused.
            m_desk.mode = DeskMode::Receive;
            m_ui.lblinfo->setText(QStringLiteral("Receiving this order"));
            headerBox(Header::Status)->setText(OrderNavigation::takenUpStatusText(state));
            StartReceiving();
        }
        return;
    }
    carryOut();
}

void OrderForm::BeginLoadOrder() {
    if (!OpenOrderList(OrderListKey::All) || listIsEmpty())
        return;
    if (!m_desk.itemsOpen())
        OpenItems();
    if (!m_desk.rulesLoaded)
        LoadBarcodeRules();
    showList();
}

void OrderForm::BeginPrintOrder() {
    beginChoosing();
}

void OrderForm::BeginExportOrder() {
    beginChoosing();
}

void OrderForm::BeginReceiveOrder() {
    beginChoosing();
}

void OrderForm::cmdnavbutton_Click(int index) {
    OrderList* list = m_desk.list.get();
    if (!list)
        return;
    if (index == 2) {
        chooseShownOrder();
        return;
    }
    ClearLineGrid();
    Status moved;
    switch (index) {
    case 0:
        moved = list->first();
        break;
    case 1:
        moved = list->previous();
        break;
    case 3:
        moved = list->next();
        break;
    case 4:
        moved = list->last();
        break;
    default:
        return;
    }
    ApplyNavMask(OrderNavigation::MovingMask);
    if (!moved)
        reportFailure(QStringLiteral("The next order of the list could not be read."), moved.message());
    showCurrentOrder();
    LoadOrderLines();
    UpdateNavigation();
}

void OrderForm::cmdcancelld_Click() {
    CloseOrderList();
    EnableMainButtons(true);
    ResetToIdle();
}

} // namespace ordwell

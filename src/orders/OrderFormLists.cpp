// The selection lists of the load, print, export and receive modes, browsed one order at a
// time with the navigation bar, and the direct question for an order already on screen.
#include "orders/OrderFormAfterEntry.h"

#include "app/AppContext.h"
#include "common/FormHelpers.h"
#include "common/Sql.h"
#include "orders/OrderCancellation.h"
#include "orders/OrderForm.h"
#include "orders/OrderLifeState.h"
#include "orders/OrderNavigation.h"
#include "orders/OrderTransitions.h"
#include "orders/OrderWords.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ordwell::OrderFormAfterEntry {

void ShowOrderForAction(OrderForm& form) {
    form.ShowNavigationBar(false);
    form.ShowEntryRow(false);
    form.ShowCancelOrder(true);
    form.ShowReceiveControls(false);
    form.ShowStartOrder(false);
    form.ShowEditOrder(false);
    form.LockHeader(true);
    form.LockEntryRow(true);
    form.SetGridTabStop(false);
    form.EnableCancelOrder(true);
}

namespace {

QLineEdit* header(OrderForm& form, int index) {
    return form.ui().txtheader[index];
}

// Shows the list's current order in the header; the header only ever shows it, never writes.
void showCurrentOrder(OrderForm& form) {
    const OrderHeadRow& order = OrderLifeState::of(form).list->current();
    const auto texts = OrderCancellation::HeaderTexts(order, order.status);
    for (int i = 0; i < 8; ++i)
        header(form, i)->setText(texts[i]);
}

void ApplyNavMask(OrderForm& form, const QString& mask) {
    const QString trimmed = mask.trimmed();
    for (int i = 0; i < trimmed.size() && i < 5; ++i)
        form.ui().cmdnavbutton[i]->setEnabled(OrderNavigation::maskEnables(trimmed, i));
    // Let the buttons repaint before the next look-up; the user's clicks wait.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void UpdateNavigation(OrderForm& form) {
    const OrderList& list = *OrderLifeState::of(form).list;
    ApplyNavMask(form, list.mask());
    form.ui().lblnavinfo->setText(list.positionText());
}

bool OpenOrderList(OrderForm& form, OrderListKey key) {
    auto& state = OrderLifeState::of(form);
    state.list = std::make_unique<OrderList>(form.vendorDb(), key);
    const Status opened = state.list->open();
    if (!opened) {
        state.list.reset();
        form.reportFailure(QStringLiteral("The list of orders could not be read."), opened.message());
        return false;
    }
    return true;
}

void CloseOrderList(OrderForm& form) {
    OrderLifeState::of(form).list.reset();
}

// The "No Orders" message of the mode; the form goes idle.
bool listIsEmpty(OrderForm& form) {
    if (!OrderLifeState::of(form).list->isEmpty())
        return false;
    form.appContext().prompter().message(OrderNavigation::noOrdersText(form.OrderMode), OrderNavigation::NoOrdersTitle,
                                         MessageIcon::Information);
    form.ResetToIdle();
    CloseOrderList(form);
    return true;
}

void showList(OrderForm& form) {
    form.ShowNavigationBar(true);
    form.ShowEntryRow(false);
    form.ShowCancelOrder(false);
    form.ShowReceiveControls(false);
    form.ShowStartOrder(false);
    form.ShowEditOrder(false);
    form.LockHeader(true);
    form.LockEntryRow(true);
    form.SetGridTabStop(false);
    form.EnableCancelOrder(false);
    form.EnableStartOrder(false);
    form.EnableEditOrder(false);
    form.EnableMainButtons(false);
    showCurrentOrder(form);
    UpdateNavigation(form);
    form.ClearLineGrid();
    form.LoadOrderLines();
    form.ui().lblinfo->setText(OrderNavigation::browsingGuidance(form.OrderMode));
    focusOn(form.ui().cmdnavbutton[2]);
}

void carryOut(OrderForm& form) {
    if (form.OrderMode == OrderMode::Print)
        PrintOrder(form);
    else if (form.OrderMode == OrderMode::Export)
        ExportOrder(form);
    else if (form.OrderMode == OrderMode::Receive)
        StartReceiving(form);
}

// Print, export and receive: the shown order when the mode accepts it, else the mode's list.
void beginChoosing(OrderForm& form) {
    if (!form.ItemsOpen)
        form.OpenItems();
    if (!header(form, Header::OrderNumber)->text().isEmpty() &&
        OrderNavigation::acceptedStatuses(form.OrderMode).contains(form.ReadOrderStatus())) {
        const auto question = OrderNavigation::directQuestion(form.OrderMode);
        if (question && form.appContext().prompter().ask(question->text, question->title, MessageIcon::None))
            carryOut(form);
        return;
    }
    form.FinishShownOrder();
    form.ResetToIdle();
    if (!OpenOrderList(form, *OrderNavigation::keyForMode(form.OrderMode)) || listIsEmpty(form))
        return;
    showList(form);
}

// A live or entered order chosen from the load list is taken up for entry again.
void takeUp(OrderForm& form) {
    const QString number = header(form, Header::OrderNumber)->text();
    form.ShowEntryRow(true);
    form.ShowCancelOrder(true);
    form.LockHeader(true);
    form.LockEntryRow(false);
    form.SetGridTabStop(true);
    form.ShowStartOrder(true);
    form.ShowEditOrder(true);
    form.EnableStartOrder(false);
    form.EnableEditOrder(true);
    // Order and lines turn live together, so a crash cannot leave them apart.
    const Status done = OrderTransitions::moveOrder(form.vendorDb(), number, OrderStatus::Live, QDate::currentDate());
    if (!done)
        form.reportFailure(QStringLiteral("The order could not be taken up again."), done.message());
    header(form, Header::Status)->setText(QStringLiteral("L - LIVE"));
    form.ui().lblinfo->setText(QStringLiteral("Continue entering order details"));
    form.OpenOrderLines();
}

// A printed or exported order chosen from the load list waits for the next step.
void showLoaded(OrderForm& form, const QString& status) {
    const bool printed = status == OrderStatus::Printed;
    header(form, Header::Status)->setText(OrderNavigation::takenUpStatusText(status));
    form.ui().lblinfo->setText(printed ? QStringLiteral("Print or export this order")
                                       : QStringLiteral("Export or receive this order"));
    ShowOrderForAction(form);
    focusOn(form.ui().cmdbutton[printed ? MainButton::PrintOrder : MainButton::ExportOrder]);
}

void select(OrderForm& form) {
    CloseOrderList(form);
    form.EnableMainButtons(true);
    form.ShowNavigationBar(false);
    // Another workstation working on the order keeps it: said, and the form goes back to idle.
    if (!form.ClaimOrder(header(form, Header::OrderNumber)->text())) {
        header(form, Header::OrderNumber)->clear();
        form.ResetToIdle();
        return;
    }
    if (form.OrderMode == OrderMode::Load || form.OrderMode == OrderMode::Live) {
        const QString status = header(form, Header::Status)->text();
        if (status == OrderStatus::Live || status == OrderStatus::Entered) {
            takeUp(form);
        } else if (status == OrderStatus::Printed || status == OrderStatus::Exported) {
            showLoaded(form, status);
        } else if (status == OrderStatus::PartReceived) {
            // From here the form receives, as in the receive mode: the grid shows what is still
            // to come, so a line received in full cannot be chosen and too many is refused.
            form.OrderMode = OrderMode::Receive;
            form.ui().lblinfo->setText(QStringLiteral("Receiving this order"));
            header(form, Header::Status)->setText(OrderNavigation::takenUpStatusText(status));
            StartReceiving(form);
        }
        return;
    }
    carryOut(form);
}

} // namespace

void BeginLoadOrder(OrderForm& form) {
    if (!OpenOrderList(form, OrderListKey::All) || listIsEmpty(form))
        return;
    if (!form.ItemsOpen)
        form.OpenItems();
    if (!form.RulesLoaded)
        form.LoadBarcodeRules();
    showList(form);
}

void BeginPrintOrder(OrderForm& form) {
    beginChoosing(form);
}

void BeginExportOrder(OrderForm& form) {
    beginChoosing(form);
}

void BeginReceiveOrder(OrderForm& form) {
    beginChoosing(form);
}

void cmdnavbutton_Click(OrderForm& form, int index) {
    OrderList* list = OrderLifeState::of(form).list.get();
    if (!list)
        return;
    if (index == 2) {
        select(form);
        return;
    }
    form.ClearLineGrid();
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
    ApplyNavMask(form, OrderNavigation::MovingMask);
    if (!moved)
        form.reportFailure(QStringLiteral("The next order of the list could not be read."), moved.message());
    showCurrentOrder(form);
    form.LoadOrderLines();
    UpdateNavigation(form);
}

void cmdcancelld_Click(OrderForm& form) {
    CloseOrderList(form);
    form.EnableMainButtons(true);
    form.ResetToIdle();
}

void install(OrderFormHooks& hooks) {
    hooks.BeginLoadOrder = BeginLoadOrder;
    hooks.BeginPrintOrder = BeginPrintOrder;
    hooks.BeginExportOrder = BeginExportOrder;
    hooks.BeginReceiveOrder = BeginReceiveOrder;
    hooks.BeginLiveOrder = BeginLiveOrder;
    hooks.cmdnavbutton_Click = cmdnavbutton_Click;
    hooks.cmdcancelld_Click = cmdcancelld_Click;
    hooks.cmdcancelord_Click = cmdcancelord_Click;
    hooks.cmdrecv_Click = cmdrecv_Click;
    hooks.ReceiveRowChosen = ReceiveRowChosen;
    hooks.txtrcvqty_KeyPress = txtrcvqty_KeyPress;
}

} // namespace ordwell::OrderFormAfterEntry

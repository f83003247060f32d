// "Cancel Order", and taking up the live order a stopped program left behind.
#include "orders/OrderForm.h"

#include "app/AppContext.h"
#include "common/FormHelpers.h"
#include "orders/OrderCancellation.h"
#include "orders/OrderWords.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ordwell {

void OrderForm::cmdcancelord_Click() {
    OrderFormControls& ui = m_ui;
    if (!appContext().prompter().ask(OrderCancellation::Question, OrderCancellation::Title, MessageIcon::None)) {
        // Back to where entry goes on.
        if (m_desk.mode == DeskMode::New || m_desk.mode == DeskMode::Load) {
            if (m_desk.headerOpen())
                focusOn(ui.txtheader[Header::ContactName]);
            else
                focusOn(ui.txtitem[ui.txtitem[Entry::Code]->text().isEmpty() ? Entry::Code : Entry::Qty]);
        }
        return;
    }
    CloseOrderLines();
    const DeskStep step = OrderDesk::cancel(vendorDb(), m_desk.shown);
    if (!step.status) {
        reportFailure(step.failed, step.status.message());
        return;
    }
    ResetToIdle();
}

void OrderForm::BeginLiveOrder() {
    if (!m_desk.itemsOpen())
        OpenItems();
    if (!m_desk.rulesLoaded)
        LoadBarcodeRules();
    applyScreen(DeskScreen::Recovered);
    RecoverLiveOrder();
    if (m_desk.shown.isEmpty()) {
        // Nothing was left live after all: offer the idle form rather than entry into nothing.
        ResetToIdle();
        return;
    }
    m_ui.lblinfo->setText(QStringLiteral("Order recovered"));
}

void OrderForm::RecoverLiveOrder() {
    m_ui.lblinfo->setText(QStringLiteral("Recovered order"));
    const auto live = OrderCancellation::FindLiveOrder(vendorDb());
    if (!live) {
        reportFailure(QStringLiteral("The live order could not be read."), live.message());
        return;
    }
    if (!live.value() || !ClaimOrder(live.value()->orderId))
        return;
    showHeader(*live.value(), OrderCancellation::RecoveredHeaderTexts(*live.value()));
    ClearLineGrid();
    // Shows the lines and keeps them open for entry to go on.
    LoadOrderLines();
}

} // namespace ordwell

// "Cancel Order", and taking up the live order a stopped program left behind.
#include "orders/OrderFormAfterEntry.h"

#include "app/AppContext.h"
#include "common/FormHelpers.h"
#include "orders/OrderCancellation.h"
#include "orders/OrderForm.h"
#include "orders/OrderWords.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ordwell::OrderFormAfterEntry {

void cmdcancelord_Click(OrderForm& form) {
    OrderFormControls& ui = form.ui();
    if (!form.appContext().prompter().ask(OrderCancellation::Question, OrderCancellation::Title, MessageIcon::None)) {
        // Back to where entry goes on.
        if (form.OrderMode == OrderMode::New || form.OrderMode == OrderMode::Load) {
            if (ui.cmdstartorder->isEnabled())
                focusOn(ui.txtheader[Header::ContactName]);
            else
                focusOn(ui.txtitem[ui.txtitem[Entry::Code]->text().isEmpty() ? Entry::Code : Entry::Qty]);
        }
        return;
    }
    form.CloseOrderLines();
    const Status cancelled = OrderCancellation::CancelOrder(form.vendorDb(), ui.txtheader[Header::OrderNumber]->text());
    if (!cancelled) {
        form.reportFailure(QStringLiteral("The order could not be cancelled; it stays as it was."),
                           cancelled.message());
        return;
    }
    form.ResetToIdle();
}

void BeginLiveOrder(OrderForm& form) {
    if (!form.ItemsOpen)
        form.OpenItems();
    if (!form.RulesLoaded)
        form.LoadBarcodeRules();
    form.ShowNavigationBar(false);
    form.ShowEntryRow(true);
    form.ShowCancelOrder(true);
    form.ShowReceiveControls(false);
    form.ShowStartOrder(true);
    form.ShowEditOrder(true);
    form.LockHeader(true);
    form.LockEntryRow(false);
    form.SetGridTabStop(true);
    form.EnableCancelOrder(true);
    form.EnableStartOrder(false);
    form.EnableEditOrder(true);
    form.EnableMainButtons(true);
    RecoverLiveOrder(form);
    if (form.ui().txtheader[Header::OrderNumber]->text().isEmpty()) {
        // Nothing was left live after all: offer the idle form rather than entry into nothing.
        form.ResetToIdle();
        return;
    }
    form.ui().lblinfo->setText(QStringLiteral("Order recovered"));
}

void RecoverLiveOrder(OrderForm& form) {
    form.ui().lblinfo->setText(QStringLiteral("Recovered order"));
    const auto live = OrderCancellation::FindLiveOrder(form.vendorDb());
    if (!live) {
        form.reportFailure(QStringLiteral("The live order could not be read."), live.message());
        return;
    }
    if (!live.value() || !form.ClaimOrder(live.value()->orderId))
        return;
    const auto texts = OrderCancellation::RecoveredHeaderTexts(*live.value());
    for (int i = 0; i < 8; ++i)
        form.ui().txtheader[i]->setText(texts[i]);
    form.ClearLineGrid();
    // Shows the lines and keeps them open for entry to go on.
    form.LoadOrderLines();
}

} // namespace ordwell::OrderFormAfterEntry

// Printing the shown order on the vendor's order form.
#include "orders/OrderFormAfterEntry.h"

#include "app/AppContext.h"
#include "common/WaitCursor.h"
#include "orders/OrderForm.h"
#include "orders/OrderPrinting.h"
#include "reports/ReportWindows.h"

#include <QLabel>
#include <QLineEdit>

namespace ordwell::OrderFormAfterEntry {

namespace {

// The report is shown before the order is marked, so a missing or broken report file leaves
// the order exactly as it was.
Status showAndMark(OrderForm& form, const QString& number) {
    AppContext& context = form.appContext();
    const auto file = OrderPrinting::OrderFormFile(form.vendorDb(), context.dataDir());
    if (!file)
        return file.status();
    const auto parameters = OrderPrinting::PrintParameters(context.systemDb(), number);
    if (!parameters)
        return parameters.status();
    if (Status shown = showOrderFormReport(context, file.value(), parameters.value()); !shown)
        return shown;
    return OrderPrinting::MarkPrinted(form.vendorDb(), number);
}

} // namespace

void PrintOrder(OrderForm& form) {
    OrderFormControls& ui = form.ui();
    ui.lblinfo->setText(QStringLiteral("Printing Order"));
    const QString number = ui.txtheader[Header::OrderNumber]->text();
    Status printed;
    {
        WaitCursor wait;
        printed = showAndMark(form, number);
    }
    if (!printed) {
        ui.lblinfo->setText(QStringLiteral("Order not printed"));
        form.appContext().prompter().message(
            QStringLiteral("The order %1 was not printed.\n%2").arg(number, printed.message()), QString(),
            MessageIcon::Critical);
        return;
    }
    ui.txtheader[Header::Status]->setText(QStringLiteral("P - PRINTED"));
    ShowOrderForAction(form);
    ui.lblinfo->setText(QStringLiteral("Order Printed"));
}

} // namespace ordwell::OrderFormAfterEntry

// Printing the shown order on the vendor's order
#include "orders/OrderForm.h"

#include "app/AppContext.h"
#include "common/WaitCursor.h"
#include "orders/OrderPrinting.h"
#include "reports/ReportWindows.h"

#include <QLabel>
#include <QLineEdit>

namespace ordwell {

// The report is shown before the order is marked, so a missing or broken report file leaves
// the order exactly as it was.
Status OrderForm::showAndMark(const QString& number) {
    AppContext& context = appContext();
    const auto file = OrderPrinting::OrderFormFile(vendorDb(), context.dataDir());
    if (!file)
        return file.status();
    const auto parameters = OrderPrinting::PrintParameters(context.systemDb(), number);
    if (!parameters)
        return parameters.status();
    if (Status shown = showOrderFormReport(context, file.value(), parameters.value()); !shown)
        return shown;
    return OrderDesk::printed(vendorDb(), number).status;
}

void OrderForm::PrintOrder() {
    OrderFormControls& ui = m_ui;
    ui.lblinfo->setText(QStringLiteral("Printing Order"));
    const QString number = m_desk.shown;
    Status printed;
    {
        WaitCursor wait;
        printed = showAndMark(number);
    }
    if (!printed) {
        ui.lblinfo->setText(QStringLiteral("Order not printed"));
        appContext().prompter().message(
            QStringLiteral("The order %1 was not printed.\n%2").arg(number, printed.message()), QString(),
            MessageIcon::Critical);
        return;
    }
    ui.txtheader[Header::Status]->setText(QStringLiteral("P - PRINTED"));
    ShowOrderForAction();
    ui.lblinfo->setText(QStringLiteral("Order Printed"));
}

} // namespace ordwell

// Exporting the shown order to the desktop.
#include "orders/OrderForm.h"

#include "app/AppContext.h"
#include "app/VendorSession.h"
#include "common/WaitCursor.h"
#include "orders/OrderExport.h"

#include <QLabel>
#include <QLineEdit>

namespace ordwell {

void OrderForm::ExportOrder() {
    OrderFormControls& ui = m_ui;
    AppContext& context = appContext();
    ui.lblinfo->setText(QStringLiteral("Exporting Order"));
    const QString number = m_desk.shown;
    ExportStep step;
    {
        WaitCursor wait;
        step = OrderDesk::exportToDesktop(context.systemDb(), vendorDb(), context.vendorSession().name(),
                                          context.DesktopPath, number);
    }
    switch (step.outcome) {
    case OrderExport::Outcome::FileExists:
        context.prompter().message(OrderExport::ExistsText, OrderExport::ExistsTitle, MessageIcon::Exclamation);
        ui.lblinfo->setText(QStringLiteral("Order export failed"));
        return;
    case OrderExport::Outcome::Failed:
        context.prompter().message(step.failed, QString(), MessageIcon::Critical);
        ui.lblinfo->setText(QStringLiteral("Order export failed"));
        return;
    case OrderExport::Outcome::Exported:
        break;
    }
    ui.txtheader[Header::Status]->setText(QStringLiteral("X - EXPORTED"));
    ui.lblinfo->setText(QStringLiteral("Order exported"));
    context.prompter().message(OrderExport::CompleteText(number), OrderExport::CompleteTitle, MessageIcon::None);
}

} // namespace ordwell

#include "MenuWiring.h"

#include "shell/AppContext.h"
#include "shell/MainWindow.h"
#include "vendors/VendorRecordsForm.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <memory>

namespace ordwell {

void wireMenus(MainWindow& mainWindow, AppContext& context) {
    Q_UNUSED(mainWindow);
    Q_UNUSED(context);

    // One vendor records window at a time: a second request brings the open one forward.
    auto vendorRecords = std::make_shared<QPointer<VendorRecordsForm>>();
    mainWindow.setMenuHandler(QStringLiteral("mnuedvend"), [&mainWindow, &context, vendorRecords] {
        if (*vendorRecords) {
            if (auto* sub = qobject_cast<QMdiSubWindow*>((*vendorRecords)->parentWidget()))
                mainWindow.mdiArea()->setActiveSubWindow(sub);
            return;
        }
        *vendorRecords = new VendorRecordsForm(context);
        mainWindow.showToolWindow(*vendorRecords);
    });
}

} // namespace ordwell

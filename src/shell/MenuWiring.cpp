#include "MenuWiring.h"

#include "shell/AppContext.h"
#include "shell/MainWindow.h"
#include "settings/SysDefaultsForm.h"
#include "vendors/VendorRecordsForm.h"
#include "shell/Maintenance.h"
#include "vendors/DeactivateVendorForm.h"

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

    // The organisation has one set of details, so one window for them: the main window asks
    // for it by itself on a first run, and a request while it is open changes nothing.
    auto sysDefaults = std::make_shared<QPointer<SysDefaultsForm>>();
    mainWindow.setMenuHandler(QStringLiteral("mnusysdefault"), [&mainWindow, &context, sysDefaults] {
        if (*sysDefaults)
            return;
        *sysDefaults = new SysDefaultsForm(context);
        mainWindow.showToolWindow(*sysDefaults);
    });

    // One deactivation window at a time; the menu is masked while it is open anyway.
    auto deactivation = std::make_shared<QPointer<DeactivateVendorForm>>();
    mainWindow.setMenuHandler(QStringLiteral("mnudevend"), [&mainWindow, &context, deactivation] {
        if (*deactivation) {
            if (auto* sub = qobject_cast<QMdiSubWindow*>((*deactivation)->parentWidget()))
                mainWindow.mdiArea()->setActiveSubWindow(sub);
            return;
        }
        *deactivation = new DeactivateVendorForm(context);
        mainWindow.showToolWindow(*deactivation);
    });

    mainWindow.setMenuHandler(QStringLiteral("mnucompsys"),
                              [&mainWindow, &context] { Maintenance::compactSystem(context, mainWindow); });
    mainWindow.setMenuHandler(QStringLiteral("mnucompvend"), [&context] { Maintenance::compactVendor(context); });
}

} // namespace ordwell

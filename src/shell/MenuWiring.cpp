#include "MenuWiring.h"

#include "app/AppContext.h"
#include "catalogue/BarcodeRulesForm.h"
#include "catalogue/ItemForm.h"
#include "catalogue/ItemImportCommand.h"
#include "orders/OrderFormOpener.h"
#include "reports/ReportWindows.h"
#include "settings/DatabaseServerDialog.h"
#include "settings/SysDefaultsForm.h"
#include "shell/BackupCommands.h"
#include "shell/MainWindow.h"
#include "shell/Maintenance.h"
#include "vendors/DeactivateVendorForm.h"
#include "vendors/VendorChooserForm.h"
#include "vendors/VendorRecordsForm.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <memory>

namespace ordwell {

namespace {

// A tool window of which there is only ever one: asking again brings the open one forward.
template <typename Form> std::function<void()> singleWindow(MainWindow& mainWindow, AppContext& context) {
    auto open = std::make_shared<QPointer<Form>>();
    return [&mainWindow, &context, open] {
        if (*open) {
            if (auto* frame = qobject_cast<QMdiSubWindow*>((*open)->parentWidget()))
                mainWindow.mdiArea()->setActiveSubWindow(frame);
            return;
        }
        *open = new Form(context);
        mainWindow.showToolWindow(*open);
    };
}

} // namespace

void wireMenus(MainWindow& mainWindow, AppContext& context) {
    // Also asked for by the main window itself on a first run.
    mainWindow.setMenuHandler(QStringLiteral("mnusysdefault"), singleWindow<SysDefaultsForm>(mainWindow, context));
    mainWindow.setMenuHandler(QStringLiteral("mnuedvend"), singleWindow<VendorRecordsForm>(mainWindow, context));
    mainWindow.setMenuHandler(QStringLiteral("mnudevend"), singleWindow<DeactivateVendorForm>(mainWindow, context));
    mainWindow.setMenuHandler(QStringLiteral("mnucompsys"),
                              [&mainWindow, &context] { Maintenance::compactSystem(context, mainWindow); });
    mainWindow.setMenuHandler(QStringLiteral("mnucompvend"), [&context] { Maintenance::compactVendor(context); });

    mainWindow.setMenuHandler(QStringLiteral("mnudbserver"), [&mainWindow, &context] {
        const auto settings = context.settings();
        const Store::StoreLocation where = context.store();
        const QString inUse = where.onServer() ? where.describe() : QStringLiteral("the folder ") + where.describe();
        DatabaseServerDialog dialog(*settings, context.prompter(), inUse, &mainWindow);
        dialog.exec();
    });

    mainWindow.setMenuHandler(QStringLiteral("mnuBackup"), [&context] { BackupCommands::backUpData(context); });
    mainWindow.setMenuHandler(QStringLiteral("mnuRestore"),
                              [&mainWindow, &context] { BackupCommands::restoreData(context, mainWindow); });

    // The vendor chooser.
    mainWindow.setMenuHandler(QStringLiteral("mnuswven"), singleWindow<VendorChooserForm>(mainWindow, context));

    // The catalogue: items.
    mainWindow.setMenuHandler(QStringLiteral("mnueditms"), singleWindow<ItemForm>(mainWindow, context));

    // The catalogue: import, barcode rules, find.
    mainWindow.setMenuHandler(QStringLiteral("mnuimpitms"),
                              [&mainWindow, &context] { ItemImportCommand::ImportItems(context, mainWindow); });
    mainWindow.setMenuHandler(QStringLiteral("mnubarcodes"), singleWindow<BarcodeRulesForm>(mainWindow, context));

    // Orders.
    wireOrderMenus(mainWindow, context);

    // Reports.
    mainWindow.setMenuHandler(QStringLiteral("mnurptoutitms"), [&context] { ShowOutstandingItemsReport(context); });
    mainWindow.setMenuHandler(QStringLiteral("mnurptOrdhist"), [&context] { ShowOrderHistoryReport(context); });
}

} // namespace ordwell

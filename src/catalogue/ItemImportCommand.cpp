#include "ItemImportCommand.h"

#include "ItemImport.h"
#include "PriceListReader.h"
#include "UploadForm.h"
#include "app/AppContext.h"
#include "app/FileChooser.h"
#include "app/MenuMasks.h"
#include "app/WindowHost.h"

#include <QDate>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>

namespace ordwell::ItemImportCommand {

void ImportItems(AppContext& context, WindowHost& mainWindow) {
    context.ApplyMenuMask(MenuMasks::VendorWindow);
    const QString path = FileChooser::choose(context, FileChooser::ImportFiles).value_or(QString());
    if (path.isEmpty()) {
        context.ApplyMenuMask(MenuMasks::VendorOpen);
        return;
    }
    const QDate today = QDate::currentDate();

    QPointer<UploadForm> form = new UploadForm;
    QMdiSubWindow* frame = mainWindow.mdiArea()->addSubWindow(form);
    frame->setObjectName(QStringLiteral("frmupload_frame"));
    frame->setAttribute(Qt::WA_DeleteOnClose);
    frame->setWindowIcon(mainWindow.hostWidget()->windowIcon());

    PriceListReader priceList(path);
    if (ItemImport::prepare(priceList, context.prompter(), *form)) {
        frame->adjustSize();
        mainWindow.CentreInMainWindow(frame);
        frame->show();
        const ItemImport::Run run =
            ItemImport::execute(context.vendorDb(), priceList, today, context.prompter(), *form);
        if (form && run.outcome.completed())
            form->finish();
        else if (form)
            form->unload();
    } else if (form) {
        form->unload();
    }
    context.ApplyMenuMask(MenuMasks::VendorOpen);
}

} // namespace ordwell::ItemImportCommand

#include "OrderFormOpener.h"

#include "app/WindowHost.h"
#include "orders/OrderForm.h"
#include "orders/OrderWords.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <cmath>

namespace ordwell {

namespace {
// The form sits a little above the middle of the main window.
constexpr double RaiseTwips = 550;
} // namespace

OrderForm* openOrderForm(WindowHost& mainWindow, AppContext& context, const QString& mode) {
    if (auto* open = mainWindow.mdiArea()->findChild<OrderForm*>(QStringLiteral("frmorder"))) {
        if (auto* frame = qobject_cast<QMdiSubWindow*>(open->parentWidget()))
            mainWindow.mdiArea()->setActiveSubWindow(frame);
        return open;
    }
    auto* form = new OrderForm(context);
    form->SetOrderMode(mode);
    mainWindow.showToolWindow(form);
    auto* frame = qobject_cast<QMdiSubWindow*>(form->parentWidget());
    if (!frame)
        return form;
    // No close, minimise or maximise: the form is left only through its own Exit.
    frame->setWindowFlags(Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    frame->show();
    if (mainWindow.hostWidget()->windowState() == Qt::WindowNoState) {
        const double tpp = mainWindow.twipsPerPixel();
        const int left = (mainWindow.hostWidget()->width() - frame->width()) / 2;
        const int top =
            int(std::lround(((mainWindow.hostWidget()->height() - frame->height()) / 2.0 * tpp - RaiseTwips) / tpp));
        frame->move(qMax(0, left), qMax(0, top));
    }
    return form;
}

void wireOrderMenus(WindowHost& mainWindow, AppContext& context) {
    const std::pair<const char*, const QString*> entries[] = {
        {"mnuNewOrd", &OrderMode::New},    {"mnuLdOrd", &OrderMode::Load},     {"mnuprtord", &OrderMode::Print},
        {"mnuexpord", &OrderMode::Export}, {"mnuRcvOrd", &OrderMode::Receive},
    };
    for (const auto& [entry, mode] : entries) {
        const QString word = *mode;
        mainWindow.setMenuHandler(QString::fromLatin1(entry),
                                  [&mainWindow, &context, word] { openOrderForm(mainWindow, context, word); });
    }
    context.setOrderFormOpener(
        [&mainWindow, &context](const QString& mode) { openOrderForm(mainWindow, context, mode); });
}

} // namespace ordwell

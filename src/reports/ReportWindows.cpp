#include "ReportWindows.h"

#include "app/VendorSession.h"
#include "common/WaitCursor.h"
#include "reports/ReportEngine.h"
#include "reports/ReportViewer.h"
#include "reports/ShippedReports.h"
#include "store/Store.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace ordwell {

namespace {

const QString OutstandingItemsForm = QStringLiteral("frmrptoutitm");
const QString OrderHistoryForm = QStringLiteral("frmrpordhist");
const QString OrderFormForm = QStringLiteral("frmprintreport");

// The vendor open at this moment: its database is what every report reads.
Result<ReportRequest> requestForOpenVendor(const AppContext& context, const QString& reportFile) {
    const VendorSession& session = context.vendorSession();
    const QString code = session.code().trimmed();
    if (!session.isOpen() || code.isEmpty())
        return Status::fail(QStringLiteral("No vendor is open, so there is nothing to report on."));
    ReportRequest request;
    request.reportFile = reportFile;
    request.databaseFile = Store::vendorDatabasePath(context.dataDir(), code);
    request.server = context.store().server;
    request.vendorCode = code;
    request.vendorName = session.name();
    return request;
}

Status showReport(AppContext& context, const QString& formName, const QString& caption, const ReportRequest& request,
                  const QString& pdfName) {
    Result<std::shared_ptr<RenderedReport>> report = Status::fail(QString());
    {
        WaitCursor wait;
        report = ReportEngine::run(request);
    }
    if (!report)
        return report.status();

    ReportViewer* viewer = findReportViewer(formName);
    WindowHost* mainWindow = context.windowHost();
    if (!viewer) {
        viewer = new ReportViewer(context, formName, caption);
        if (mainWindow) {
            QMdiSubWindow* frame = mainWindow->mdiArea()->addSubWindow(viewer);
            frame->setObjectName(formName + QStringLiteral("_frame"));
            frame->setAttribute(Qt::WA_DeleteOnClose);
            frame->setWindowIcon(mainWindow->hostWidget()->windowIcon());
            const QSize area = mainWindow->mdiArea()->viewport()->size();
            // Never narrower than the button row, which would otherwise be squeezed unreadable.
            frame->resize(QSize(area.width() * 9 / 10, area.height() * 9 / 10).expandedTo(frame->minimumSizeHint()));
            frame->move(area.width() / 20, area.height() / 20);
        }
    }
    // A window shown again for another order says so.
    viewer->setCaption(caption);
    viewer->setReport(report.value(), pdfName);
    auto* frame = qobject_cast<QMdiSubWindow*>(viewer->parentWidget());
    if (frame) {
        frame->show();
        mainWindow->mdiArea()->setActiveSubWindow(frame);
    } else {
        viewer->show();
        viewer->raise();
    }
    viewer->activateWindow();
    return Status::ok();
}

void showFixedReport(AppContext& context, const QString& formName, const QString& caption, const QString& fileName) {
    // A file deleted by hand comes back as shipped; a user's own is left alone.
    ShippedReports::installMissing(context.dataDir());
    auto request = requestForOpenVendor(context, context.dataFile(fileName));
    Status shown = request ? showReport(context, formName, caption, request.value(),
                                        QStringLiteral("%1 %2.pdf").arg(caption, request->vendorCode))
                           : request.status();
    if (!shown)
        context.prompter().message(shown.message(), caption, MessageIcon::Critical);
}

} // namespace

ReportViewer* findReportViewer(const QString& formName) {
    for (QWidget* top : QApplication::topLevelWidgets()) {
        if (top->objectName() == formName)
            if (auto* viewer = qobject_cast<ReportViewer*>(top))
                return viewer;
        if (auto* viewer = top->findChild<ReportViewer*>(formName))
            return viewer;
    }
    return nullptr;
}

void ShowOutstandingItemsReport(AppContext& context) {
    showFixedReport(context, OutstandingItemsForm, QStringLiteral("Outstanding Items"),
                    ShippedReports::OutstandingItemsFileName);
}

void ShowOrderHistoryReport(AppContext& context) {
    showFixedReport(context, OrderHistoryForm, QStringLiteral("Order History"), ShippedReports::OrderHistoryFileName);
}

Status showOrderFormReport(AppContext& context, const QString& reportFile, const ReportParameterValues& parameters) {
    auto request = requestForOpenVendor(context, reportFile);
    if (!request)
        return request.status();
    request.value().parameters = parameters;
    // Every order form is handed the same three values, used or not.
    request.value().strictParameters = false;
    const QString orderNumber = parameters.value(QStringLiteral("ordnum"));
    // The order window is "Order Form" too: the preview's title names the order it shows.
    const QString caption = orderNumber.isEmpty() ? QStringLiteral("Order Form")
                                                  : QStringLiteral("Order %1 - Print Preview").arg(orderNumber);
    return showReport(context, OrderFormForm, caption, request.value(),
                      (orderNumber.isEmpty() ? QStringLiteral("Order") : orderNumber) + QStringLiteral(".pdf"));
}

} // namespace ordwell

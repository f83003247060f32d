// Not a test: fills a data folder with the report tests' orders, writes each shipped report as
// a PDF there, and shows the main window with the order history open for a screenshot.
// Usage: report_shots DATA_DIR SECONDS_TO_SHOW
#include "ReportFixture.h"
#include "app/MenuMasks.h"
#include "app/VendorSession.h"
#include "reports/ReportEngine.h"
#include "reports/ReportWindows.h"
#include "reports/ShippedReports.h"
#include "shell/MainWindow.h"
#include "store/Store.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QDir>
#include <QTimer>
#include <cstdio>

using namespace ordwell;
using namespace ordwell::test;

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc < 3) {
        std::fprintf(stderr, "usage: report_shots DATA_DIR SECONDS\n");
        return 2;
    }
    initTestEnvironment();
    const QString dataDir = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(dataDir);
    auto fixture =
        std::make_unique<ReportFixture>(dataDir, QStringLiteral("ABC"), QStringLiteral("Bolt & Nut Supplies"));
    fixture->addStandardOrders();
    for (int i = 10; i < 60; ++i) {
        const QString id = QStringLiteral("ABC%1").arg(i, 7, 10, QLatin1Char('0'));
        const QString status = QStringLiteral("REPXSC").mid(i % 6, 1);
        fixture->addOrder(id, QStringLiteral("2024-0%1-%2").arg(1 + i % 2).arg(10 + i % 18), status,
                          QStringLiteral("Jo Bloggs"), QStringLiteral("REF-%1").arg(i), {}, {},
                          QStringLiteral("2024-0%1-%2").arg(1 + i % 2).arg(11 + i % 18));
        fixture->addLine(id, 1, QStringLiteral("BOLT10"), status, 1 + i % 5, Money::fromPence(250), 0);
        fixture->addLine(id, 2, QStringLiteral("NUT10"), status, 10, Money::fromTenThousandths(1250), 0);
    }
    fixture.reset();
    if (!ShippedReports::installMissing(dataDir).isEmpty())
        return 1;

    ReportRequest request;
    request.databaseFile = Store::vendorDatabasePath(dataDir, QStringLiteral("ABC"));
    request.vendorCode = QStringLiteral("ABC");
    request.vendorName = QStringLiteral("Bolt & Nut Supplies");
    for (const QString& file : ShippedReports::fileNames()) {
        request.reportFile = QDir(dataDir).filePath(file);
        request.strictParameters = false;
        request.parameters = {{QStringLiteral("ordnum"), QStringLiteral("ABC0000001")},
                              {QStringLiteral("custadd"), QStringLiteral("Acme Stores,1 High St,Town,Shire,AB1 2CD")},
                              {QStringLiteral("contdet"), QStringLiteral("Pat Smith,01234 567890,pat@acme.example")}};
        const Status written =
            ReportEngine::renderToPdf(request, QDir(dataDir).filePath(file + QStringLiteral(".pdf")));
        if (!written) {
            std::fprintf(stderr, "%s\n", qPrintable(written.message()));
            return 1;
        }
    }

    ScriptedPrompter prompter;
    AppContext context(dataDir, QDir(dataDir).filePath(QStringLiteral("settings.ini")), prompter);
    if (!Store::OpenSystemDatabase(dataDir))
        return 1;
    storeOrganisationDetails(context);
    auto window = openMainWindow(context);
    // A virtual screen has no window manager to maximise with.
    window->setGeometry(0, 0, 1280, 800);
    window->show();
    if (const Status opened =
            context.vendorSession().open(QStringLiteral("ABC"), QStringLiteral("Bolt & Nut Supplies"));
        !opened)
        return 1;
    context.ApplyMenuMask(MenuMasks::VendorOpen);
    ShowOrderHistoryReport(context);
    QTimer::singleShot(int(QString::fromLocal8Bit(argv[2]).toDouble() * 1000), &app, [&] {
        context.vendorSession().close();
        app.quit();
    });
    return app.exec();
}

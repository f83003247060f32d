#include "HeadlessEmail.h"

#include "OrderEmail.h"
#include "app/HeadlessVendor.h"
#include "app/VendorSession.h"
#include "catalogue/ConsolePrompter.h"
#include "common/Sql.h"
#include "reports/ShippedReports.h"
#include "store/Store.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTextStream>

namespace ordwell {

namespace {

enum ExitCode { Sent = 0, Refused = 1, BadArguments = 2 };

int emailOrder(const Options& options, QTextStream& out, QTextStream& err) {
    const QString dataDir = resolveDataDir(options);
    ShippedReports::installMissing(dataDir);
    ConsolePrompter prompter(out, err);
    HeadlessVendor vendor(options, prompter);
    if (const QString problem = vendor.open(options.vendorCode); !problem.isEmpty()) {
        err << problem << Qt::endl;
        return BadArguments;
    }
    AppContext& context = vendor.context();
    const QString orderId = options.emailOrder.trimmed().toUpper();
    auto mail = OrderEmail::prepare(context.systemDb(), context.vendorDb(), dataDir, vendor.code(), vendor.name(),
                                    orderId, OrderEmail::outgoingFolder());
    Status sent = mail.status();
    if (mail)
        sent = OrderEmail::send(context.vendorDb(), orderId, *mail);
    if (!sent) {
        err << sent.message() << Qt::endl;
        return Refused;
    }
    out << QStringLiteral("The order %1 has been handed to the mail program, addressed to %2.")
               .arg(orderId, mail->recipient)
        << Qt::endl;
    return Sent;
}

} // namespace

int emailOrderHeadless(int& argc, char** argv, const Options& options) {
    // The PDF is drawn with no window and no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QGuiApplication::setOrganizationName(QStringLiteral("Ordwell"));
    QGuiApplication::setApplicationName(QStringLiteral("Ordwell"));
    QTextStream out(stdout);
    QTextStream err(stderr);
    if (!options.error.isEmpty()) {
        err << options.error << Qt::endl;
        return BadArguments;
    }
    return emailOrder(options, out, err);
}

} // namespace ordwell

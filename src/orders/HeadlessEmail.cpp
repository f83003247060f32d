#include "HeadlessEmail.h"

#include "OrderEmail.h"
#include "app/AppContext.h"
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
    const QString server = resolveServer(options);
    if (server.isEmpty() && !QFileInfo::exists(Store::systemDatabasePath(dataDir))) {
        err << QStringLiteral("There is no Ordwell database in %1.").arg(QDir::toNativeSeparators(dataDir)) << Qt::endl;
        return BadArguments;
    }
    ShippedReports::installMissing(dataDir);
    ConsolePrompter prompter(out, err);
    AppContext context(dataDir, options.settingsFile, prompter);
    context.setServer(server);
    if (server.isEmpty() && !context.takeSystemLock()) {
        err << QStringLiteral("The database is in use: Ordwell is already running on %1.")
                   .arg(QDir::toNativeSeparators(dataDir))
            << Qt::endl;
        return Refused;
    }
    struct Closer {
        AppContext& context;
        ~Closer() {
            context.closeVendorDb();
            context.closeSystemDb();
            context.releaseSystemLock();
        }
    } closer{context};

    auto system = Store::OpenSystemDatabase(context.store());
    if (!system) {
        err << system.message().section(QLatin1Char('\n'), 0, 0) << Qt::endl;
        return Refused;
    }
    auto vendor = Sql::exec(*system, QStringLiteral("SELECT code, vendor FROM vendors WHERE code = ? AND status = 'A'"),
                            {options.vendorCode.trimmed()});
    if (!vendor || !vendor.value().next()) {
        err << QStringLiteral("There is no active vendor with the code %1.").arg(options.vendorCode) << Qt::endl;
        return BadArguments;
    }
    const QString code = vendor.value().value(0).toString();
    const QString name = vendor.value().value(1).toString();
    vendor.value().finish();
    if (Status opened = context.vendorSession().open(code, name); !opened) {
        err << opened.message().section(QLatin1Char('\n'), 0, 0) << Qt::endl;
        return Refused;
    }
    const QString orderId = options.emailOrder.trimmed().toUpper();
    auto mail =
        OrderEmail::prepare(*system, context.vendorDb(), dataDir, code, name, orderId, OrderEmail::outgoingFolder());
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

#include "HeadlessReport.h"

#include "common/Sql.h"
#include "reports/ReportEngine.h"
#include "reports/ShippedReports.h"
#include "store/DatabaseFile.h"
#include "store/ServerStore.h"
#include "store/Store.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTextStream>
#include <QUuid>

namespace ordwell {

namespace {

// The vendor's name from the list of vendors, read without taking the running program's lock.
Result<QString> vendorName(const Store::StoreLocation& where, const QString& code) {
    const QString path = Store::systemDatabasePath(where.dataDir);
    if (!where.onServer() && !QFileInfo(path).isFile())
        return Status::fail(
            QStringLiteral("There is no Ordwell data in \"%1\".").arg(QDir::toNativeSeparators(where.dataDir)));
    const QString connection = QStringLiteral("ordwell-headless-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    Result<QString> result = Status::fail(QString());
    {
        auto db = where.onServer() ? ServerStore::openSystem(connection, where.server)
                                   : DatabaseFile::open(connection, path, true);
        if (!db) {
            result = db.status();
        } else {
            auto name = Sql::scalar(db.value(), QStringLiteral("SELECT vendor FROM vendors WHERE code = ?"), {code});
            if (!name)
                result = name.status();
            else if (!name->isValid())
                result = Status::fail(QStringLiteral("There is no vendor with the code \"%1\".").arg(code));
            else
                result = name->toString();
        }
    }
    DatabaseFile::close(connection);
    return result;
}

// A bare file name means the data folder's copy unless one is at hand where we are.
QString reportPath(const QString& given, const QString& dataDir) {
    const QFileInfo info(given);
    if (info.isAbsolute() || info.exists() || given.contains(QLatin1Char('/')))
        return info.absoluteFilePath();
    return QDir(dataDir).filePath(given);
}

} // namespace

int renderReportFromOptions(const Options& options, QString& error) {
    const QString dataDir = resolveDataDir(options);
    const Store::StoreLocation where(dataDir, resolveServer(options));
    if (!where.onServer() && !QFileInfo(dataDir).isDir()) {
        error = QStringLiteral("The data folder \"%1\" does not exist.").arg(QDir::toNativeSeparators(dataDir));
        return 1;
    }
    // On a server the shipped reports still come from the data folder, made if need be.
    if (where.onServer())
        QDir().mkpath(dataDir);
    ShippedReports::installMissing(dataDir);
    const QString code = options.vendorCode.trimmed();
    auto name = vendorName(where, code);
    if (!name) {
        error = name.message();
        return 1;
    }
    ReportRequest request;
    request.reportFile = reportPath(options.renderReport, dataDir);
    request.databaseFile = Store::vendorDatabasePath(dataDir, code);
    request.server = where.server;
    request.vendorCode = code;
    request.vendorName = name.value();
    for (const auto& [key, value] : options.reportParameters)
        request.parameters.insert(key, value);
    const Status written = ReportEngine::renderToPdf(request, QFileInfo(options.pdfOutput).absoluteFilePath());
    if (!written) {
        error = written.message();
        return 1;
    }
    return 0;
}

int renderReportHeadless(int& argc, char** argv, const Options& options) {
    // No window ever: the offscreen platform needs no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QGuiApplication::setOrganizationName(QStringLiteral("Ordwell"));
    QGuiApplication::setApplicationName(QStringLiteral("Ordwell"));
    QString error;
    const int code = renderReportFromOptions(options, error);
    if (code != 0)
        QTextStream(stderr) << error.simplified() << '\n';
    return code;
}

} // namespace ordwell

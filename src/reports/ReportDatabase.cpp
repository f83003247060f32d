#include "ReportDatabase.h"

#include "common/Sql.h"
#include "store/DatabaseFile.h"
#include "store/ServerStore.h"

#include <QDir>
#include <QFileInfo>
#include <QUuid>

namespace ordwell {

ReportDatabase::ReportDatabase(QString connectionName, QString path)
    : m_connectionName(std::move(connectionName)), m_path(std::move(path)) {}

ReportDatabase::~ReportDatabase() {
    DatabaseFile::close(m_connectionName);
}

Result<std::shared_ptr<ReportDatabase>> ReportDatabase::open(const QString& path) {
    const QString shown = QDir::toNativeSeparators(path);
    if (!QFileInfo(path).isFile())
        return Status::fail(QStringLiteral("The vendor database \"%1\" does not exist.").arg(shown));
    const QString name = QStringLiteral("ordwell-report-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    auto opened = DatabaseFile::open(name, path, true);
    if (!opened)
        return opened.status();
    std::shared_ptr<ReportDatabase> db(new ReportDatabase(name, path));
    // Belt and braces: the file is open read-only, and the connection also refuses writes.
    const Status queryOnly = Sql::run(db->database(), QStringLiteral("PRAGMA query_only = ON"));
    if (!queryOnly)
        return Status::fail(QStringLiteral("The vendor database \"%1\" could not be opened for reading: %2")
                                .arg(shown, queryOnly.message()));
    return db;
}

Result<std::shared_ptr<ReportDatabase>> ReportDatabase::openOnServer(const QString& conninfo,
                                                                     const QString& vendorCode) {
    const QString name = QStringLiteral("ordwell-report-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    auto opened = ServerStore::openVendor(name, conninfo, vendorCode);
    if (!opened) {
        DatabaseFile::close(name);
        return opened.status();
    }
    std::shared_ptr<ReportDatabase> db(new ReportDatabase(name, ServerStore::describe(conninfo)));
    const Status readOnly =
        Sql::run(db->database(), QStringLiteral("SET SESSION CHARACTERISTICS AS TRANSACTION READ ONLY"));
    if (!readOnly)
        return Status::fail(QStringLiteral("The data of vendor %1 on %2 could not be opened for reading: %3")
                                .arg(vendorCode.trimmed(), ServerStore::describe(conninfo), readOnly.message()));
    return db;
}

QSqlDatabase ReportDatabase::database() const {
    return QSqlDatabase::database(m_connectionName, false);
}

bool ReportDatabase::isWriteRefusal(const QSqlError& error) {
    // SQLITE_READONLY (8) and its extended codes; SQLITE_AUTH (23) should an authorizer refuse.
    bool ok = false;
    const int code = error.nativeErrorCode().toInt(&ok);
    if (ok && ((code & 0xff) == 8 || (code & 0xff) == 23))
        return true;
    // A server's read-only session refuses with SQLSTATE 25006.
    if (error.nativeErrorCode() == QLatin1String("25006"))
        return true;
    return error.databaseText().contains(QLatin1String("readonly"), Qt::CaseInsensitive);
}

} // namespace ordwell

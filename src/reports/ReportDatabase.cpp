#include "ReportDatabase.h"

#include "common/Sql.h"
#include "store/DatabaseFile.h"

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

QSqlDatabase ReportDatabase::database() const {
    return QSqlDatabase::database(m_connectionName, false);
}

bool ReportDatabase::isWriteRefusal(const QSqlError& error) {
    // SQLITE_READONLY (8) and its extended codes; SQLITE_AUTH (23) should an authorizer refuse.
    bool ok = false;
    const int code = error.nativeErrorCode().toInt(&ok);
    if (ok && ((code & 0xff) == 8 || (code & 0xff) == 23))
        return true;
    return error.databaseText().contains(QLatin1String("readonly"), Qt::CaseInsensitive);
}

} // namespace ordwell

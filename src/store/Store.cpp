#include "Store.h"

#include "DatabaseFile.h"
#include "SchemaUpgrade.h"
#include "Schemas.h"
#include "common/Sql.h"

#include <QDir>

namespace ordwell::Store {

QString systemDatabasePath(const QString& dataDir) {
    return QDir(dataDir).filePath(SystemFileName);
}

QString vendorFileName(const QString& code) {
    return code.trimmed() + QStringLiteral("vendor.mdb");
}

QString vendorDatabasePath(const QString& dataDir, const QString& code) {
    return QDir(dataDir).filePath(vendorFileName(code));
}

Status CreateSystemDatabase(const QString& dataDir) {
    return DatabaseFile::create(systemDatabasePath(dataDir), systemSchema());
}

namespace {

// Opens a file and brings its layout up to this program's version; data it cannot use is
// closed again with the reason.
Result<QSqlDatabase> openCurrent(const QString& connectionName, const QString& path, const Schema& schema) {
    Status upgraded;
    {
        auto opened = DatabaseFile::open(connectionName, path);
        if (!opened)
            return opened;
        upgraded = SchemaUpgrade::bringUpToDate(*opened, schema, path);
        if (upgraded)
            return opened;
    }
    DatabaseFile::close(connectionName);
    return upgraded;
}

} // namespace

Result<QSqlDatabase> OpenSystemDatabase(const QString& dataDir) {
    return openCurrent(SystemConnection, systemDatabasePath(dataDir), systemSchema());
}

Status CreateVendorDatabase(const QString& dataDir, const QString& code) {
    return DatabaseFile::create(vendorDatabasePath(dataDir, code), vendorSchema());
}

Result<QSqlDatabase> OpenVendorDatabase(const QString& dataDir, const QString& fileName,
                                        const QString& connectionName) {
    return openCurrent(connectionName, QDir(dataDir).filePath(fileName), vendorSchema());
}

bool HasOrganisationDetails(const QSqlDatabase& systemDb) {
    auto count = Sql::scalar(systemDb, QStringLiteral("SELECT count(*) FROM Sysset"));
    return count && count.value().toInt() > 0;
}

} // namespace ordwell::Store

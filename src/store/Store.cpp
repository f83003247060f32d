#include "Store.h"

#include "DatabaseFile.h"
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

Result<QSqlDatabase> OpenSystemDatabase(const QString& dataDir) {
    return DatabaseFile::open(SystemConnection, systemDatabasePath(dataDir));
}

Status CreateVendorDatabase(const QString& dataDir, const QString& code) {
    return DatabaseFile::create(vendorDatabasePath(dataDir, code), vendorSchema());
}

Result<QSqlDatabase> OpenVendorDatabase(const QString& dataDir, const QString& fileName,
                                        const QString& connectionName) {
    return DatabaseFile::open(connectionName, QDir(dataDir).filePath(fileName));
}

bool HasOrganisationDetails(const QSqlDatabase& systemDb) {
    auto count = Sql::scalar(systemDb, QStringLiteral("SELECT count(*) FROM Sysset"));
    return count && count.value().toInt() > 0;
}

} // namespace ordwell::Store

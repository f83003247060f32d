#include "Store.h"

#include "DatabaseFile.h"
#include "SchemaUpgrade.h"
#include "Schemas.h"
#include "ServerStore.h"
#include "common/Sql.h"

#include <QDir>
#include <QFileInfo>

namespace ordwell::Store {

namespace {

// `file`'s path inside `folder`, or empty when it lies elsewhere.
QString relativeInside(const QString& folder, const QString& file) {
    if (folder.isEmpty() || file.isEmpty())
        return {};
    const QString relative = QDir(folder).relativeFilePath(file);
    if (relative.isEmpty() || relative == QLatin1String(".") || relative == QLatin1String("..") ||
        relative.startsWith(QLatin1String("../")) || QDir::isAbsolutePath(relative))
        return {};
    return relative;
}

QString pathInside(const QString& dataDir, const QString& path) {
    const QString relative =
        relativeInside(QDir(dataDir).absolutePath(), QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    if (!relative.isEmpty())
        return relative;
    // The same folder reached through a link.
    return relativeInside(QFileInfo(dataDir).canonicalFilePath(), QFileInfo(path).canonicalFilePath());
}

} // namespace

QString systemDatabasePath(const QString& dataDir) {
    return QDir(dataDir).filePath(SystemFileName);
}

QString vendorFileName(const QString& code) {
    return code.trimmed() + QStringLiteral("vendor.mdb");
}

QString vendorDatabasePath(const QString& dataDir, const QString& code) {
    return QDir(dataDir).filePath(vendorFileName(code));
}

QString StoreLocation::describe() const {
    return onServer() ? ServerStore::describe(server) : QDir::toNativeSeparators(dataDir);
}

namespace {
const QString ServerSetUpConnection = QStringLiteral("ServerSetUp");

// A short connection of its own for making schemas on the server.
template <typename Work> auto onServer(const StoreLocation& where, Work work) -> decltype(work(QSqlDatabase())) {
    decltype(work(QSqlDatabase())) outcome = Status::ok();
    {
        auto db = ServerStore::connect(ServerSetUpConnection, where.server);
        if (!db)
            return db.status();
        outcome = work(*db);
    }
    DatabaseFile::close(ServerSetUpConnection);
    return outcome;
}
} // namespace

Result<bool> SystemDatabaseExists(const StoreLocation& where) {
    if (!where.onServer())
        return QFileInfo::exists(systemDatabasePath(where.dataDir));
    return onServer(where, [](const QSqlDatabase& db) -> Result<bool> {
        auto found =
            Sql::scalar(db, QStringLiteral("SELECT count(*) FROM information_schema.schemata WHERE schema_name = ?"),
                        {ServerStore::SystemSchema});
        if (!found)
            return found.status();
        return found->toInt() > 0;
    });
}

Status CreateSystemDatabase(const StoreLocation& where) {
    if (where.onServer())
        return onServer(where, [](const QSqlDatabase& db) { return ServerStore::createSystem(db); });
    return DatabaseFile::create(systemDatabasePath(where.dataDir), systemSchema());
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

Result<QSqlDatabase> OpenSystemDatabase(const StoreLocation& where) {
    if (where.onServer())
        return ServerStore::openSystem(SystemConnection, where.server);
    return openCurrent(SystemConnection, systemDatabasePath(where.dataDir), systemSchema());
}

Status CreateVendorDatabase(const StoreLocation& where, const QString& code) {
    if (where.onServer())
        return onServer(where, [&code](const QSqlDatabase& db) { return ServerStore::createVendor(db, code); });
    return DatabaseFile::create(vendorDatabasePath(where.dataDir, code), vendorSchema());
}

Result<QSqlDatabase> OpenVendorDatabase(const StoreLocation& where, const QString& fileName,
                                        const QString& connectionName) {
    if (where.onServer()) {
        const QString code = fileName.chopped(qMin(fileName.size(), vendorFileName(QString()).size()));
        return ServerStore::openVendor(connectionName, where.server, code);
    }
    return openCurrent(connectionName, QDir(where.dataDir).filePath(fileName), vendorSchema());
}

QString storedFilePath(const QString& dataDir, const QString& path) {
    const QString trimmed = path.trimmed();
    if (trimmed.isEmpty() || QDir::isRelativePath(trimmed))
        return trimmed;
    const QString inside = pathInside(dataDir, trimmed);
    return inside.isEmpty() ? trimmed : inside;
}

QString resolveFilePath(const QString& dataDir, const QString& stored) {
    const QString path = stored.trimmed();
    if (path.isEmpty())
        return path;
    if (QDir::isRelativePath(path))
        return QDir::cleanPath(QDir(dataDir).absoluteFilePath(path));
    if (!pathInside(dataDir, path).isEmpty())
        return path;
    // Stored whole before the folder moved: the old place is gone, or is itself a data folder
    // (the original of a copy). A user's own report elsewhere is left where it is.
    const QFileInfo old(path);
    const QString here = QDir(dataDir).absoluteFilePath(old.fileName());
    const bool oldIsDataFolder = QFileInfo::exists(systemDatabasePath(old.absolutePath()));
    if ((oldIsDataFolder || !old.exists()) && QFileInfo::exists(here))
        return here;
    return path;
}

bool HasOrganisationDetails(const QSqlDatabase& systemDb) {
    auto count = Sql::scalar(systemDb, QStringLiteral("SELECT count(*) FROM Sysset"));
    return count && count.value().toInt() > 0;
}

} // namespace ordwell::Store

#pragma once

#include "common/Status.h"

#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// File names inside the data folder, and creating and opening the two kinds of database.
namespace Store {

inline const QString SystemFileName = QStringLiteral("Ordwell.mdb");
inline const QString SystemLockFileName = QStringLiteral("Ordwell.ldb");
inline const QString CompactFileName = QStringLiteral("Ordwellcomp.mdb");
inline const QString DefaultOrderFormFileName = QStringLiteral("ordform.rpt");
inline const QString SystemConnection = QStringLiteral("SystemConnection");
inline const QString VendorConnection = QStringLiteral("VendorConnection");

// Where the databases are: the data folder's files, or a PostgreSQL server shared by several
// workstations (the data folder then still holds the report files and the agreement).
struct StoreLocation {
    StoreLocation(QString folder = {}, QString serverConninfo = {}) // NOLINT: a folder is a location
        : dataDir(std::move(folder)), server(std::move(serverConninfo)) {}
    StoreLocation(const char*) = delete;
    QString dataDir;
    QString server; // a libpq connection string; empty for the files
    bool onServer() const { return !server.isEmpty(); }
    // For the status bar and messages: the folder, or "database ordwell on shop-server".
    QString describe() const;
};

QString systemDatabasePath(const QString& dataDir);
// "ABC" -> "ABCvendor.mdb"; surrounding spaces are trimmed first.
QString vendorFileName(const QString& code);
QString vendorDatabasePath(const QString& dataDir, const QString& code);

// Whether the organisation's database has been made (a file, or its schema on the server).
Result<bool> SystemDatabaseExists(const StoreLocation& where);
Status CreateSystemDatabase(const StoreLocation& where);
Result<QSqlDatabase> OpenSystemDatabase(const StoreLocation& where);

Status CreateVendorDatabase(const StoreLocation& where, const QString& code);
// `fileName` is the code followed by "vendor.mdb", no folder.
Result<QSqlDatabase> OpenVendorDatabase(const StoreLocation& where, const QString& fileName,
                                        const QString& connectionName = VendorConnection);

// A file named in a database row (a vendor's order-form report): one in the data folder is
// stored by its path inside the folder, so that the folder can be moved, restored or copied
// elsewhere; one outside keeps its whole path.
QString storedFilePath(const QString& dataDir, const QString& path);
// The file a stored path names in this data folder. A whole path into another place the folder
// once was (its old copy, or where it was before a move) leads to the file of that name here.
QString resolveFilePath(const QString& dataDir, const QString& stored);

// True when the organisation's details have been saved.
bool HasOrganisationDetails(const QSqlDatabase& systemDb);

} // namespace Store
} // namespace ordwell

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

QString systemDatabasePath(const QString& dataDir);
// "ABC" -> "ABCvendor.mdb"; surrounding spaces are trimmed first.
QString vendorFileName(const QString& code);
QString vendorDatabasePath(const QString& dataDir, const QString& code);

Status CreateSystemDatabase(const QString& dataDir);
Result<QSqlDatabase> OpenSystemDatabase(const QString& dataDir);

Status CreateVendorDatabase(const QString& dataDir, const QString& code);
// `fileName` is the code followed by "vendor.mdb", no folder.
Result<QSqlDatabase> OpenVendorDatabase(const QString& dataDir, const QString& fileName,
                                        const QString& connectionName = VendorConnection);

// True when the organisation's details have been saved.
bool HasOrganisationDetails(const QSqlDatabase& systemDb);

} // namespace Store
} // namespace ordwell

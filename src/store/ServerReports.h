#pragma once

#include "common/Status.h"

#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// A vendor's own report files kept in its data on a server, so that every workstation prints
// with the same file, whatever its own data folder holds. On the files these do nothing: the
// data folder is the one place already.
namespace ServerReports {

// Keeps the file at `path` under its file name. Nothing is done for the shared default report,
// which every workstation installs itself.
Status keep(const QSqlDatabase& vendorDb, const QString& path);

// The file to print with for `path`: the kept copy, written to `cacheDir` under its name,
// when the vendor's data on a server holds one; else `path` itself.
Result<QString> fileFor(const QSqlDatabase& vendorDb, const QString& path, const QString& cacheDir);

} // namespace ServerReports
} // namespace ordwell

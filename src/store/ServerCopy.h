#pragma once

#include "common/Status.h"

#include <QString>
#include <QStringList>

namespace ordwell {

// Moving to a server: a whole data folder (the organisation, every vendor with its items,
// barcode rules, orders and lines, deactivated vendors too) copied into a server database that
// holds no Ordwell data yet. Each database is copied in one transaction on the server and
// checked there, row counts and money totals, against the file before it is committed; any
// failure takes back what was copied, so the server is left as it was. The files are only
// read, each from one consistent snapshot, and are left exactly as they were (an older layout
// is not upgraded: its missing columns are left empty on the server).
namespace ServerCopy {

// One line per database copied, for the user: "ABC Acme Ltd: 1,204 items, 3 barcode rules, ...".
Result<QStringList> copyDataFolder(const QString& dataDir, const QString& conninfo);

} // namespace ServerCopy
} // namespace ordwell

#pragma once

#include "FieldScheme.h"
#include "common/Status.h"

#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// Every database records the version of its layout. Opening older data brings it up to the
// program's version in one transaction; data from a newer program is refused untouched.
namespace SchemaUpgrade {

inline const QString VersionTable = QStringLiteral("schemaversion");

// The version of the layout `db` holds: 1 for data from before versions were recorded.
Result<int> storedVersion(const QSqlDatabase& db);

// Writes `version` as the database's version (inside the caller's transaction).
Status recordVersion(const QSqlDatabase& db, int version);

// Brings `db` up to `schema`'s version. `shownName` names the data in messages (a file, or a
// vendor on a server).
Status bringUpToDate(const QSqlDatabase& db, const Schema& schema, const QString& shownName);

} // namespace SchemaUpgrade
} // namespace ordwell

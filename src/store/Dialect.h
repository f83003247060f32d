#pragma once

#include "common/Status.h"

#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// The two engines the store runs on: the embedded files, and a PostgreSQL server shared by
// several workstations. Nearly every statement is the same on both; the few that are not are
// chosen here, by the connection they run on.
enum class Dialect { SQLite, PostgreSQL };

namespace Dialects {

Dialect of(const QSqlDatabase& db);

// True when the database (a file, or the connection's own schema on a server) has `table`.
Result<bool> hasTable(const QSqlDatabase& db, const QString& table);

} // namespace Dialects
} // namespace ordwell

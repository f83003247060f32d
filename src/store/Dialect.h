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

// A text column compared exactly, letter case included ("descr COLLATE BINARY" in a file,
// "descr::text" on a server, whose case-blind text type is otherwise used).
QString exactly(const QSqlDatabase& db, const QString& column);
// A text column compared without regard to case, as the key columns are on both engines.
QString caseBlind(const QSqlDatabase& db, const QString& column);

// The engine's own address of a row, for a table without a key: "rowid" in a file, "ctid" on
// a server (where it changes when the row is rewritten: read it under lockingRead()).
QString rowAddress(const QSqlDatabase& db);

// A SELECT that a read-then-write must hold until its transaction ends: " FOR UPDATE" on a
// server, where another workstation could otherwise read the same row in between; nothing on
// a file, whose writing transaction already keeps every other writer out.
QString lockingRead(const QSqlDatabase& db);

// The database's own clock, `?` seconds on, as the stored date-and-time text ("2026-11-24
// 17:05:00.250", UTC, to the millisecond): workstations compare times by the one clock they share, never their own.
QString clockPlusSeconds(const QSqlDatabase& db);
// The same clock now, with no value to bind.
QString clockNow(const QSqlDatabase& db);

// " AND a IS ? AND b IS ?" for an UPDATE that must find its row as it was read (a null equal
// to a null); on a server "IS NOT DISTINCT FROM". Text columns are best given through
// exactly(), so that a change of letter case counts as a change.
QString unchanged(const QSqlDatabase& db, const QStringList& columns);

// True when the database (a file, or the connection's own schema on a server) has `table`.
Result<bool> hasTable(const QSqlDatabase& db, const QString& table);

} // namespace Dialects
} // namespace ordwell

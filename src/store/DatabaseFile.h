#pragma once

#include "FieldScheme.h"
#include "common/Status.h"

#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// Creating, opening and closing one embedded database file through a named connection.
namespace DatabaseFile {

// Builds a new file at `path` with every table of `schema`. The tables are made in a
// temporary file that takes the final name only when complete, so a failure leaves nothing
// behind. Refuses to replace an existing file.
Status create(const QString& path, const Schema& schema);

// Opens the existing file at `path` as connection `connectionName` (replacing any connection
// of that name) and checks that it really is a readable database.
Result<QSqlDatabase> open(const QString& connectionName, const QString& path, bool readOnly = false);

// Registers connection `connectionName` to the file at `path` with the program's usual
// options (a busy wait, optionally read-only), without opening it.
QSqlDatabase addConnection(const QString& connectionName, const QString& path, bool readOnly);

// Closes the named connection and forgets it. Harmless when it is not open.
void close(const QString& connectionName);

bool isOpen(const QString& connectionName);

// Owner-only rights on a file or folder we made.
void restrictToOwner(const QString& path, bool isFolder);

} // namespace DatabaseFile
} // namespace ordwell

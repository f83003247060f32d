#pragma once

#include "common/Status.h"

#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// The organisation's data on a PostgreSQL server: the system database is the schema
// "ordwell" and each vendor's database a schema of its own ("vendor_abc"), so every statement
// the program runs on a vendor is the same on both engines; a connection works inside one
// schema through its search path.
namespace ServerStore {

inline const QString SystemSchema = QStringLiteral("ordwell");

// "ABC" -> "vendor_abc".
QString vendorSchemaName(const QString& code);

// A libpq connection string in key=value form, from either form libpq takes (a
// "postgresql://" URI or key=value pairs). Refuses text that is neither.
Result<QString> keywordForm(const QString& conninfo);

// Where the data is, for the status bar and messages: "database ordwell on shop-server".
QString describe(const QString& conninfo);

// Connects as `connectionName`; a server that cannot be reached is a message naming the host,
// the database and libpq's reason.
Result<QSqlDatabase> connect(const QString& connectionName, const QString& conninfo);

// Creates the system schema with its tables (and what every later schema needs), or a vendor's
// schema with its tables, each in one transaction. Refuses a schema that exists already.
Status createSystem(const QSqlDatabase& db);
Status createVendor(const QSqlDatabase& db, const QString& code);

// Connects and works inside the system schema or a vendor's, upgraded to this program's
// layout (or refused when the server's data is newer).
Result<QSqlDatabase> openSystem(const QString& connectionName, const QString& conninfo);
Result<QSqlDatabase> openVendor(const QString& connectionName, const QString& conninfo, const QString& code);

} // namespace ServerStore
} // namespace ordwell

#pragma once

#include "common/Status.h"

#include <QString>

class QSettings;

namespace ordwell {

// Where this workstation keeps its data, as chosen in the Database Server window: the data
// folder's files (an empty choice) or a PostgreSQL server named by a libpq connection string.
// The choice is kept in the settings; a password never is (libpq reads ~/.pgpass itself).
namespace ServerChoice {

inline const QString SettingsKey = QStringLiteral("Server/Connection");

QString kept(const QSettings& settings);
// Checks the text first (see check()); an empty text goes back to the data folder.
Status keep(QSettings& settings, const QString& conninfo);

// A connection string that may be kept: one libpq reads, without a password in it.
Status check(const QString& conninfo);

// Connects once and says what was found there, in a sentence for the user; a server that
// cannot be reached is a failure naming the host, the database and libpq's reason.
Result<QString> test(const QString& conninfo);

} // namespace ServerChoice
} // namespace ordwell

#pragma once

#include "app/Options.h"

#include <QTextStream>

namespace ordwell {

// `ordwell [--data-dir DIR] --backup FILE` and `--restore FILE`: the backup and the restore
// with no window, for scripts and scheduled jobs; and the move of a data folder to a server.
// Needs no display.
//
// Exit codes: 0 done (a line saying so on standard output); 1 refused or failed, with the
// reason on standard error and the data as it was. Bad arguments (2) are main()'s business.
namespace HeadlessBackup {

enum ExitCode { Done = 0, Refused = 1, BadArguments = 2 };

// The backup, the restore or the copy to a server, whichever the options ask for.
int run(const Options& options, QTextStream& out, QTextStream& err);

// `ordwell [--data-dir DIR] --copy-to-server CONNINFO`: the data folder copied into an empty
// server database, with a line for each database copied. A connection string libpq cannot
// read is a bad argument (2); a server that already holds Ordwell data, or any failure, is 1.
int copyToServer(const Options& options, QTextStream& out, QTextStream& err);

} // namespace HeadlessBackup
} // namespace ordwell

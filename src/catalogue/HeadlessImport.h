#pragma once

#include "app/Options.h"

#include <QTextStream>

namespace ordwell {

// `ordwell --vendor CODE --import-items FILE`: the item import with no window, for scripts.
// Needs no display (a QCoreApplication is enough). Holds the database lock for its run, so it
// and a running copy of the program keep each other out.
//
// Exit codes: 0 imported (the completion and expired-price texts on standard output); 1 the
// file could not be imported as a whole (the incorrect-line message on standard error, the
// lines before it kept); 2 nothing was tried (unknown or deactivated vendor, missing file,
// database in use or missing), with a one-line reason on standard error.
namespace HeadlessImport {

enum ExitCode { Imported = 0, Stopped = 1, NotStarted = 2 };

int run(const Options& options, QTextStream& out, QTextStream& err);

} // namespace HeadlessImport
} // namespace ordwell

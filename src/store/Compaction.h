#pragma once

#include "common/Status.h"

#include <QString>

namespace ordwell {

// Rewrites the database file at `path` into a fresh, compact copy ("Ordwellcomp.mdb" in
// `dataDir`) and puts the copy in its place. The program must have closed every connection
// of its own to the file first. The copy replaces the original only after it has passed an
// integrity check and holds as many rows in every table as the original, and the replacement
// is one atomic rename, so a complete copy of the data carries the file's name at every
// moment. On failure the original is left exactly as it was and no temporary file remains.
// Shows the hourglass while it works but no message: the caller reports the outcome.
Status CompactDatabase(const QString& path, const QString& dataDir);

} // namespace ordwell

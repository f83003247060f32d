#pragma once

#include "common/Status.h"

namespace ordwell {

class AppContext;
class MainWindow;
class Prompter;

// The maintenance menu's compaction entries: each closes its database, compacts the file and
// opens it again, telling the user how it went.
namespace Maintenance {

// Compacts the system database. When it cannot be opened again the program cannot go on: the
// user is told and the program ends through `mainWindow`.
void compactSystem(AppContext& context, MainWindow& mainWindow);

// Compacts the open vendor's database; the vendor stays the open one. When its database cannot
// be opened again, the vendor is closed so nothing works on a connection that is gone.
void compactVendor(AppContext& context);

// The success or failure message; a failure of ours adds its reason under the fixed text.
void reportCompaction(Prompter& prompter, const Status& outcome);

} // namespace Maintenance
} // namespace ordwell

#pragma once

#include "app/Options.h"

namespace ordwell {

// `ordwell --vendor CODE --export-peppol NUMBER --out FILE`: the order written as a Peppol order
// and marked exported, with no window, as "Export as Peppol Order..." does. Exit codes: 0
// written (a line saying so on standard output); 1 refused or failed, with the reason on
// standard error, no file and the order as it was; 2 bad arguments or nothing to work on.
int exportPeppolHeadless(const Options& options);

} // namespace ordwell

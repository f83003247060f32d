#pragma once

#include "app/Options.h"

namespace ordwell {

// `ordwell --vendor CODE --email-order NUMBER`: the order's PDF made and the mail program
// opened on it, with no window, as "E-mail Order..." does. Exit codes: 0 handed to the mail
// program (a line saying so on standard output); 1 refused or failed, with the reason on
// standard error and the order as it was; 2 bad arguments or nothing to work on.
int emailOrderHeadless(int& argc, char** argv, const Options& options);

} // namespace ordwell

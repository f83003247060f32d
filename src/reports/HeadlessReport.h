#pragma once

#include "app/Options.h"

namespace ordwell {

// `ordwell --data-dir D --vendor CODE --render-report FILE [--param name=value ...] --pdf OUT`:
// writes the PDF with no window and no display (the offscreen platform), and gives the exit
// code: 0 when written, 1 with a one-line reason on standard error when not.
int renderReportHeadless(int& argc, char** argv, const Options& options);

// The work of the above once the application object exists; the reason is left in `error`.
int renderReportFromOptions(const Options& options, QString& error);

} // namespace ordwell

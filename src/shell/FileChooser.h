#pragma once

#include "common/Prompter.h"
#include "shell/AppContext.h"

namespace ordwell {

// frmgetfile: lets the user pick a file of the kind in FileChooserKind, starting on the
// desktop. Leaves the full path in ChosenFilePath; a cancel leaves it as it was.
namespace FileChooser {

inline constexpr int ImportFiles = 2;
inline constexpr int ReportFiles = 3;

// The dialog settings for a kind: title, start folder, filters.
FileRequest requestFor(int kind, const QString& desktopPath);

void choose(AppContext& context);

} // namespace FileChooser
} // namespace ordwell

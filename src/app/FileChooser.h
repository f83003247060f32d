#pragma once

#include "app/AppContext.h"
#include "common/Prompter.h"

#include <optional>

namespace ordwell {

// frmgetfile: lets the user pick a file of one kind, starting on the desktop.
namespace FileChooser {

inline constexpr int ImportFiles = 2;
inline constexpr int ReportFiles = 3;

// The dialog settings for a kind: title, start folder, filters.
FileRequest requestFor(int kind, const QString& desktopPath);

// The chosen file's full path, or nothing when the user cancelled.
std::optional<QString> choose(AppContext& context, int kind);

} // namespace FileChooser
} // namespace ordwell

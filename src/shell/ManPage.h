#pragma once

#include <QString>

namespace ordwell {

// The manual page's OPTIONS entries in troff (man macros), made from the option table.
QString manPageOptions();

// The page template with its options marker line replaced by manPageOptions().
// Returns an empty string when the template has no marker.
QString fillManPage(const QString& pageTemplate);

// The marker line in the template that stands for the option entries.
inline constexpr char manPageOptionsMarker[] = ".\\\" ordwell-option-table";

} // namespace ordwell

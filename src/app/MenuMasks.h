#pragma once

#include <QString>

namespace ordwell::MenuMasks {

// Which main-menu entries may be used, one character per entry in menu order ("1" enabled).
inline const QString NoVendor = QStringLiteral("11100000000110011011");
inline const QString VendorOpen = QStringLiteral("11111111111001100100");
inline const QString SystemWindow = QStringLiteral("01000000000000000010");
inline const QString VendorWindow = QStringLiteral("01000000000001100000");
// While the organisation's details are first entered: only About.
inline const QString FirstEntry = QStringLiteral("01000000000000000000");

inline constexpr int Length = 20;

} // namespace ordwell::MenuMasks

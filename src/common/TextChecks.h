#pragma once

#include <QString>

namespace ordwell {

// Turns a..z into A..Z and leaves every other character as it is (accented letters included),
// so a code typed in lower case is stored the way it is printed.
QString UpperCaseCode(const QString& text);

// True when every character is a digit or a capital A..Z (or a space when allowed).
// Case-sensitive on purpose: callers upper-case first. An empty text passes.
bool IsValidCode(const QString& text, bool allowSpace);

// True when every character is one of "0123456789() ". An empty text passes.
bool IsValidPhone(const QString& text);

} // namespace ordwell

#pragma once

#include <QString>

class QLineEdit;

namespace ordwell {

// Limits what can be typed into a box to `maxLength` UTF-16 code units, the unit the columns'
// limits are checked in here (a character outside the Basic Multilingual Plane, such as an
// emoji, takes two). A character that no longer fits is left out whole: Qt's own limit would
// cut a surrogate pair in two and leave half a character that cannot be stored.
void limitBox(QLineEdit* box, int maxLength);

// The most that can be typed into the box.
int typingLimit(const QLineEdit* box);

// Shows a value the program wrote in full, even where it is longer than can be typed (a
// grouped price: "99,999.99" in an eight-character box); Qt's limit would cut its last digits
// off and the value read back from the box would be a different one.
void showWhole(QLineEdit* box, const QString& text);

// Empties the box and gives it back its typing limit.
void clearBox(QLineEdit* box);

} // namespace ordwell

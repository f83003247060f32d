#pragma once

#include <QList>
#include <QString>

class QAbstractButton;
class QLineEdit;
class QWidget;

namespace ordwell {

// The box colours every entry window uses.
enum class BoxColour { Locked, Required, Optional };

void setBoxColour(QLineEdit* box, BoxColour colour);
BoxColour boxColour(const QLineEdit* box);

// Locked boxes are read-only (not disabled) so their text stays readable; open boxes are
// yellow when required and white otherwise.
void lockBox(QLineEdit* box, bool locked, bool required);

// "1" enables the button at that position, anything else disables it.
void applyButtonMask(const QList<QAbstractButton*>& buttons, const QString& mask);
QString buttonMask(const QList<QAbstractButton*>& buttons);

// Moves the keyboard focus, ignoring a target that cannot take it.
void focusOn(QWidget* widget);

} // namespace ordwell

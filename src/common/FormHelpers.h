#pragma once

#include <QList>
#include <QString>

class QAbstractButton;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
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

// One button of a record window's row; the accessible name is for buttons whose caption is
// only arrows.
struct ButtonSpec {
    const char* caption;
    const char* accessibleName = nullptr;
};

// The record windows' button row: buttons "cmdbutton_<i>" in the order given, stored in `made`.
QHBoxLayout* makeButtonRow(QWidget* parent, const ButtonSpec* specs, int count, QPushButton** made);

// The sunken "Record n of m" panel; `role` says what it is for a screen reader, which reads
// its text as the value.
QLabel* makePositionLabel(QWidget* parent, const QString& role);

// Moves the keyboard focus, ignoring a target that cannot take it.
void focusOn(QWidget* widget);

// Enter on the focused button presses it, as Space does. Every button of every window gets
// this, because Enter-driven entry moves the focus onto a button and expects the next Enter to
// press it. Unlike auto-default, it never makes a dialog's button its default, so Enter in a
// box of a dialog presses nothing.
void pressWithEnter(QAbstractButton* button);

} // namespace ordwell

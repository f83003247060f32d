#pragma once

#include "common/Money.h"
#include "common/Prompter.h"

#include <QDate>
#include <QList>
#include <QLocale>
#include <QString>
#include <functional>
#include <optional>
#include <variant>

namespace ordwell {

// What a box holds once read: the record windows keep typed values, never text parsed back
// at save. An empty box reads as std::monostate.
enum class FieldKind { Text, Number, Money, Date };
using FieldValue = std::variant<std::monostate, QString, int, Money, QDate>;

// Whether the user must fill a box, may fill it, or never types in it (always locked).
enum class FieldNeed { Required, Optional, Fixed };

// A refused entry: what to tell the user and which box (field index) to send them back to.
struct FieldProblem {
    QString message;
    QString title;
    MessageIcon icon = MessageIcon::Exclamation;
    int field = 0;

    bool operator==(const FieldProblem& other) const = default;
};

// The check Enter runs in one box. It may rewrite `text` (an upper-cased code); a problem
// keeps the focus in the box it names.
using EnterRule = std::function<std::optional<FieldProblem>(QString& text)>;

// Where Enter goes after a box's check passes: another field's index, or one of these.
inline constexpr int NextIsSave = -1; // the Save button, when it is enabled
inline constexpr int NextStays = -2;  // nowhere: the focus stays

// One row of a record window's field table.
struct FieldSpec {
    QString objectName;     // "txtbox_3"
    QString caption;        // the label beside the box, its accessible name unless overridden
    QString accessibleName; // where the caption alone is ambiguous ("Address line 2")
    int maxLength = 0;      // 0: no input limit
    FieldNeed need = FieldNeed::Optional;
    FieldKind kind = FieldKind::Text;
    int next = NextStays;
    EnterRule onEnter; // empty: Enter only moves on
};

namespace Fields {

// The box text for a value, in the user's formats (money with two decimals and grouping,
// dates in the short form).
QString format(const FieldValue& value, const QLocale& locale = QLocale());

// The typed value of a box's text, nothing when the text is not of the kind. Surrounding
// spaces are ignored for numbers, money and dates; empty text is std::monostate.
std::optional<FieldValue> parse(FieldKind kind, const QString& text, const QLocale& locale = QLocale());

// The text of a text value, empty for anything else.
QString text(const FieldValue& value);

} // namespace Fields

// The checks of a save, run in the order the user hears about them. Normally the first failure
// ends the run; a check added with alwaysCheck runs even after one (a value that could never be
// stored is always worth pointing out). Checks are evaluated as they are added.
class CheckSequence {
public:
    // Runs `failed` only while every earlier check has passed.
    CheckSequence& check(const std::function<bool()>& failed, FieldProblem problem);
    CheckSequence& alwaysCheck(const std::function<bool()>& failed, FieldProblem problem);

    bool passing() const { return m_problems.isEmpty(); }
    const QList<FieldProblem>& problems() const { return m_problems; }
    std::optional<FieldProblem> first() const;

private:
    QList<FieldProblem> m_problems;
};

} // namespace ordwell

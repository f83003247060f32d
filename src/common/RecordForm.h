#pragma once

#include "common/RecordCursor.h"
#include "common/RecordFields.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <functional>

class QAbstractButton;
class QLabel;
class QLineEdit;
class QWidget;

namespace ordwell {

// One named screen state of a record window: which buttons the mask enables, which boxes are
// open for typing (the rest are locked green), and what the position label shows.
struct FormState {
    // The button mask; empty: the browse mask computed from the cursor.
    QString mask;
    // Open boxes by field index; empty function: every box locked.
    std::function<bool(int field)> open;
    // Empty: the position from the cursor; otherwise this text ("Adding/Editing Record").
    QString positionText;
};

// The machinery a record window is built on. It builds the boxes of a field table with their
// caption labels, handles Enter in every box (the box's check, then the next box or Save),
// locks and colours the boxes, and applies each named state: button mask, locks, position.
// The window keeps its own layout and its records; it owns this object as a child.
//
// Records stay where they are: the position and browse mask come from a RecordCursor that only
// answers count and position.
class RecordForm : public QObject {
    Q_OBJECT
public:
    RecordForm(QWidget* owner, std::function<Prompter&()> prompter, QList<FieldSpec> fields);

    int fieldCount() const { return int(m_fields.size()); }
    const FieldSpec& spec(int field) const { return m_fields.at(field); }
    QLineEdit* box(int field) const { return m_boxes.at(field); }
    QLabel* caption(int field) const { return m_captions.at(field); }
    int fieldOf(const QLineEdit* box) const;

    // The buttons in mask order; `save` is the one Enter moves to after the last box.
    void setButtons(QList<QAbstractButton*> buttons, int save = -1);
    const QList<QAbstractButton*>& buttons() const { return m_buttons; }

    // The label showing the position, the cursor it comes from, and how it and the browse mask
    // read from (position, count).
    void setPosition(QLabel* label, RecordCursor* cursor, std::function<QString(int, int)> text,
                     std::function<QString(int, int)> browseMask);

    void addState(int id, FormState state);
    // Applies the state whole: mask, locks and colours, position text. Emits stateEntered.
    void enterState(int id);
    int state() const { return m_state; }

    void applyMask(const QString& mask);
    void showPosition();
    void showPositionText(const QString& text);

    // Box contents. setText leaves a box alone when it already shows the text.
    QString text(int field) const;
    void setText(int field, const QString& text);
    std::optional<FieldValue> value(int field) const;
    void setValue(int field, const FieldValue& value);
    void clear(int from, int to); // fields from .. to - 1

    // Tells the user and puts the focus in the box the problem names.
    void report(const FieldProblem& problem);

    // What Enter does in an open box; tests and forms may call it directly.
    void enter(int field);

signals:
    void stateEntered(int id);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<Prompter&()> m_prompter;
    QList<FieldSpec> m_fields;
    QList<QLineEdit*> m_boxes;
    QList<QLabel*> m_captions;
    QList<QAbstractButton*> m_buttons;
    int m_save = -1;
    QLabel* m_positionLabel = nullptr;
    RecordCursor* m_cursor = nullptr;
    std::function<QString(int, int)> m_positionText;
    std::function<QString(int, int)> m_browseMask;
    QHash<int, FormState> m_states;
    int m_state = -1;
};

} // namespace ordwell

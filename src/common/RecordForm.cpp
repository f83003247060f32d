#include "RecordForm.h"

#include "common/BoxLimit.h"
#include "common/FormHelpers.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace ordwell {

RecordForm::RecordForm(QWidget* owner, std::function<Prompter&()> prompter, QList<FieldSpec> fields)
    : QObject(owner), m_prompter(std::move(prompter)), m_fields(std::move(fields)) {
    for (const FieldSpec& spec : m_fields) {
        auto* box = new QLineEdit(owner);
        box->setObjectName(spec.objectName);
        if (spec.maxLength > 0)
            limitBox(box, spec.maxLength);
        if (!spec.accessibleName.isEmpty())
            box->setAccessibleName(spec.accessibleName);
        box->installEventFilter(this);
        auto* label = new QLabel(spec.caption, owner);
        label->setBuddy(box);
        m_boxes.append(box);
        m_captions.append(label);
        if (spec.need == FieldNeed::Fixed)
            lockBox(box, true, false);
    }
}

int RecordForm::fieldOf(const QLineEdit* box) const {
    for (int i = 0; i < m_boxes.size(); ++i) {
        if (m_boxes.at(i) == box)
            return i;
    }
    return -1;
}

void RecordForm::setButtons(QList<QAbstractButton*> buttons, int save) {
    m_buttons = std::move(buttons);
    m_save = save;
}

void RecordForm::setPosition(QLabel* label, RecordCursor* cursor, std::function<QString(int, int)> text,
                             std::function<QString(int, int)> browseMask) {
    m_positionLabel = label;
    m_cursor = cursor;
    m_positionText = std::move(text);
    m_browseMask = std::move(browseMask);
}

void RecordForm::addState(int id, FormState state) {
    m_states.insert(id, std::move(state));
}

void RecordForm::enterState(int id) {
    const FormState state = m_states.value(id);
    m_state = id;
    if (!state.mask.isEmpty())
        applyMask(state.mask);
    else if (m_browseMask && m_cursor)
        applyMask(m_browseMask(m_cursor->position(), m_cursor->count()));
    for (int field = 0; field < m_fields.size(); ++field) {
        const FieldNeed need = m_fields.at(field).need;
        if (need == FieldNeed::Fixed)
            continue;
        const bool open = state.open && state.open(field);
        lockBox(m_boxes.at(field), !open, need == FieldNeed::Required);
    }
    if (state.positionText.isEmpty())
        showPosition();
    else
        showPositionText(state.positionText);
    emit stateEntered(id);
}

void RecordForm::applyMask(const QString& mask) {
    applyButtonMask(m_buttons, mask);
}

void RecordForm::showPosition() {
    if (m_positionLabel && m_cursor && m_positionText)
        m_positionLabel->setText(m_positionText(m_cursor->position(), m_cursor->count()));
}

void RecordForm::showPositionText(const QString& text) {
    if (m_positionLabel)
        m_positionLabel->setText(text);
}

QString RecordForm::text(int field) const {
    return m_boxes.at(field)->text();
}

void RecordForm::setText(int field, const QString& text) {
    QLineEdit* box = m_boxes.at(field);
    if (box->text() != text)
        box->setText(text);
}

std::optional<FieldValue> RecordForm::value(int field) const {
    return Fields::parse(m_fields.at(field).kind, text(field));
}

void RecordForm::setValue(int field, const FieldValue& value) {
    setText(field, Fields::format(value));
}

void RecordForm::clear(int from, int to) {
    for (int field = from; field < to && field < m_boxes.size(); ++field)
        m_boxes.at(field)->clear();
}

void RecordForm::report(const FieldProblem& problem) {
    m_prompter().message(problem.message, problem.title, problem.icon);
    if (problem.field >= 0 && problem.field < m_boxes.size())
        focusOn(m_boxes.at(problem.field));
}

void RecordForm::enter(int field) {
    const FieldSpec& spec = m_fields.at(field);
    if (spec.onEnter) {
        QString typed = text(field);
        const std::optional<FieldProblem> problem = spec.onEnter(typed);
        setText(field, typed);
        if (problem) {
            report(*problem);
            return;
        }
    }
    if (spec.next >= 0 && spec.next < m_boxes.size())
        focusOn(m_boxes.at(spec.next));
    else if (spec.next == NextIsSave && m_save >= 0 && m_save < m_buttons.size() && m_buttons.at(m_save)->isEnabled())
        focusOn(m_buttons.at(m_save));
}

bool RecordForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            const int field = fieldOf(qobject_cast<QLineEdit*>(watched));
            if (field >= 0) {
                // A locked box holds nothing the user could put right, so it checks nothing.
                if (!m_boxes.at(field)->isReadOnly())
                    enter(field);
                return true;
            }
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace ordwell

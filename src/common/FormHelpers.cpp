#include "FormHelpers.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>

namespace ordwell {

namespace {
const char* const ColourProperty = "ordwellBoxColour";

QColor colourOf(BoxColour colour) {
    switch (colour) {
    case BoxColour::Locked:
        return QColor(0, 255, 0);
    case BoxColour::Required:
        return QColor(255, 255, 0);
    case BoxColour::Optional:
        break;
    }
    return QColor(255, 255, 255);
}

class EnterPresses : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
            return false;
        auto* button = qobject_cast<QAbstractButton*>(watched);
        if (!button || !button->isEnabled())
            return false;
        // A held key presses once.
        if (!key->isAutoRepeat())
            button->click();
        return true;
    }
};

const char* const EnterProperty = "ordwellPressWithEnter";
} // namespace

void setBoxColour(QLineEdit* box, BoxColour colour) {
    QPalette palette = box->palette();
    palette.setColor(QPalette::Base, colourOf(colour));
    // Dark text on the light box colours, whatever the desktop theme.
    palette.setColor(QPalette::Text, QColor(0, 0, 0));
    box->setPalette(palette);
    box->setProperty(ColourProperty, static_cast<int>(colour));
}

BoxColour boxColour(const QLineEdit* box) {
    const QVariant v = box->property(ColourProperty);
    return v.isValid() ? static_cast<BoxColour>(v.toInt()) : BoxColour::Optional;
}

void lockBox(QLineEdit* box, bool locked, bool required) {
    box->setReadOnly(locked);
    setBoxColour(box, locked ? BoxColour::Locked : (required ? BoxColour::Required : BoxColour::Optional));
}

void applyButtonMask(const QList<QAbstractButton*>& buttons, const QString& mask) {
    const QString trimmed = mask.trimmed();
    for (int i = 0; i < buttons.size(); ++i)
        buttons.at(i)->setEnabled(i < trimmed.size() && trimmed.at(i) == QLatin1Char('1'));
}

QString buttonMask(const QList<QAbstractButton*>& buttons) {
    QString mask;
    for (const QAbstractButton* b : buttons)
        mask += b->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
    return mask;
}

void focusOn(QWidget* widget) {
    if (widget && widget->isEnabled() && widget->focusPolicy() != Qt::NoFocus)
        widget->setFocus(Qt::OtherFocusReason);
}

void pressWithEnter(QAbstractButton* button) {
    if (button->property(EnterProperty).toBool())
        return;
    button->setProperty(EnterProperty, true);
    button->installEventFilter(new EnterPresses(button));
}

QHBoxLayout* makeButtonRow(QWidget* parent, const ButtonSpec* specs, int count, QPushButton** made) {
    auto* row = new QHBoxLayout;
    for (int i = 0; i < count; ++i) {
        auto* b = new QPushButton(QString::fromLatin1(specs[i].caption), parent);
        b->setObjectName(QStringLiteral("cmdbutton_%1").arg(i));
        b->setAutoDefault(false);
        pressWithEnter(b);
        if (specs[i].accessibleName)
            b->setAccessibleName(QString::fromLatin1(specs[i].accessibleName));
        row->addWidget(b);
        made[i] = b;
    }
    return row;
}

QLabel* makePositionLabel(QWidget* parent, const QString& role) {
    auto* label = new QLabel(parent);
    label->setObjectName(QStringLiteral("lblreccount"));
    label->setAlignment(Qt::AlignCenter);
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setAccessibleDescription(role);
    return label;
}

} // namespace ordwell

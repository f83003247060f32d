#include "SysDefaultsForm.h"

#include "common/FormHelpers.h"
#include "shell/MenuMasks.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace ordwell {

namespace {

const char* const ButtonCaptions[SysDefaultsForm::ButtonCount] = {"&Edit", "&Save", "&Cancel", "E&xit"};

const QString ViewingMask = QStringLiteral("1001");
const QString EditingMask = QStringLiteral("0110");
const QString FirstEntryMask = QStringLiteral("0100");

} // namespace

SysDefaultsForm::SysDefaultsForm(AppContext& context, QWidget* parent) : ToolWindow(context, Level::System, parent) {
    setObjectName(QStringLiteral("frmsysdefaults"));
    setWindowTitle(QStringLiteral("System Defaults"));
    buildForm();
    InitialState();
}

void SysDefaultsForm::buildForm() {
    auto* layout = new QVBoxLayout(this);

    m_instructions[0] = new QLabel(
        QStringLiteral("All fields highlighted in yellow are required, all fields highlighted white are optional."),
        this);
    m_instructions[1] = new QLabel(QStringLiteral("Please enter your organisations details."), this);
    for (int i = 0; i < 2; ++i) {
        m_instructions[i]->setObjectName(QStringLiteral("lblinstr_%1").arg(i));
        m_instructions[i]->setWordWrap(true);
        m_instructions[i]->hide();
    }
    // The request first, then how to read the colours.
    layout->addWidget(m_instructions[1]);
    layout->addWidget(m_instructions[0]);

    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    const int charWidth = QFontMetrics(font()).averageCharWidth();
    for (int field = 0; field < DetailsFieldCount; ++field) {
        const DetailsFieldInfo& info = detailsFieldInfo(field);
        auto* box = new QLineEdit(this);
        box->setObjectName(QStringLiteral("txtbox_%1").arg(field));
        box->setMaxLength(info.maxLength);
        box->installEventFilter(this);
        auto* caption = new QLabel(info.caption, this);
        caption->setObjectName(QStringLiteral("lbltext_%1").arg(field));
        caption->setBuddy(box);
        if (field >= Address1 && field <= Address3)
            box->setAccessibleName(QStringLiteral("Address line %1").arg(field - Address1 + 1));

        // Short fields get boxes about their own length; the rest share the full width.
        Qt::Alignment alignment;
        if (info.maxLength <= 20) {
            box->setFixedWidth(charWidth * (info.maxLength + 4));
            alignment = Qt::AlignLeft;
        } else {
            box->setMinimumWidth(charWidth * 40);
        }
        grid->addWidget(caption, field, 0);
        grid->addWidget(box, field, 1, alignment);
        m_boxes.append(box);
    }
    layout->addLayout(grid);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (int i = 0; i < ButtonCount; ++i) {
        auto* button = new QPushButton(QString::fromLatin1(ButtonCaptions[i]), this);
        button->setObjectName(QStringLiteral("cmdbutton_%1").arg(i));
        // Enter on a focused button presses it, as on any dialog.
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, [this, i] { onButton(i); });
        buttons->addWidget(button);
        m_buttons.append(button);
    }
    layout->addSpacing(4);
    layout->addLayout(buttons);
    layout->addStretch(1);
}

QString SysDefaultsForm::loadMask() const {
    // On a first run (or while nothing is stored) the details come before anything else, so
    // only About stays on the menu.
    if (context().DatabaseJustCreated || m_firstEntry)
        return MenuMasks::FirstEntry;
    return MenuMasks::SystemWindow;
}

QAbstractButton* SysDefaultsForm::closeBoxButton() const {
    return m_buttons.at(ExitButton);
}

void SysDefaultsForm::ApplyButtonMask(const QString& mask) {
    applyButtonMask(m_buttons, mask);
}

void SysDefaultsForm::LockDetails(bool locked) {
    for (int field = 0; field < DetailsFieldCount; ++field)
        lockBox(m_boxes.at(field), locked, detailsFieldInfo(field).required);
}

void SysDefaultsForm::ShowDetails() {
    auto stored = OrganisationDetailsStore(context().systemDb()).load();
    if (!stored) {
        context().prompter().message(stored.message(), QString(), MessageIcon::Critical);
        return;
    }
    // The boxes show exactly what is stored: a value typed into an empty optional field and
    // then cancelled must not look as if it had been kept.
    const OrganisationDetails details = stored.value().value_or(OrganisationDetails{});
    for (int field = 0; field < DetailsFieldCount; ++field) {
        if (m_boxes.at(field)->text() != details[field])
            m_boxes.at(field)->setText(details[field]);
    }
}

void SysDefaultsForm::InitialState() {
    auto stored = OrganisationDetailsStore(context().systemDb()).load();
    if (!stored) {
        // Unreadable: show nothing, but leave the way out open.
        context().prompter().message(stored.message(), QString(), MessageIcon::Critical);
        ApplyButtonMask(ViewingMask);
        LockDetails(true);
        return;
    }
    if (stored.value()) {
        const OrganisationDetails& details = *stored.value();
        for (int field = 0; field < DetailsFieldCount; ++field)
            m_boxes.at(field)->setText(details[field]);
        ApplyButtonMask(ViewingMask);
        LockDetails(true);
        return;
    }
    m_firstEntry = true;
    ApplyButtonMask(FirstEntryMask);
    LockDetails(false);
    context().ApplyMenuMask(MenuMasks::FirstEntry);
    for (QLabel* line : m_instructions)
        line->show();
}

OrganisationDetails SysDefaultsForm::typedDetails() const {
    OrganisationDetails details;
    for (int field = 0; field < DetailsFieldCount; ++field)
        details[field] = m_boxes.at(field)->text();
    return details;
}

void SysDefaultsForm::report(const DetailsProblem& problem) {
    context().prompter().message(problem.message, problem.title, problem.icon);
    focusOn(m_boxes.at(problem.box));
}

bool SysDefaultsForm::ValidateDetails() {
    OrganisationDetails details = typedDetails();
    const QList<DetailsProblem> problems = DetailsRules::validateForSave(details);
    if (m_boxes.at(Postcode)->text() != details[Postcode])
        m_boxes.at(Postcode)->setText(details[Postcode]);
    for (const DetailsProblem& problem : problems)
        report(problem);
    return problems.isEmpty();
}

bool SysDefaultsForm::SaveDetails() {
    const Status saved = OrganisationDetailsStore(context().systemDb()).save(typedDetails());
    if (!saved) {
        context().prompter().message(saved.message(), QString(), MessageIcon::Critical);
        return false;
    }
    return true;
}

void SysDefaultsForm::onButton(int index) {
    switch (index) {
    case EditButton:
        ApplyButtonMask(EditingMask);
        LockDetails(false);
        break;
    case SaveButton:
        // A refused or failed save leaves the window editing with everything as typed.
        if (!ValidateDetails() || !SaveDetails())
            return;
        m_firstEntry = false;
        ApplyButtonMask(ViewingMask);
        LockDetails(true);
        for (QLabel* line : m_instructions)
            line->hide();
        // Take back the room the instruction lines had, rather than leave a gap below.
        layout()->activate();
        if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget()))
            frame->resize(frame->width(), frame->sizeHint().height());
        focusOn(m_buttons.at(ExitButton));
        break;
    case CancelButton:
        ShowDetails();
        ApplyButtonMask(ViewingMask);
        LockDetails(true);
        break;
    case ExitButton:
        ApplyButtonMask(ViewingMask);
        LockDetails(true);
        finishToolWindow();
        break;
    default:
        break;
    }
}

void SysDefaultsForm::onEnter(int box) {
    QLineEdit* edit = m_boxes.at(box);
    QString text = edit->text();
    const std::optional<DetailsProblem> problem = DetailsRules::checkOnEnter(box, text);
    if (text != edit->text())
        edit->setText(text);
    if (problem) {
        report(*problem);
        return;
    }
    if (box + 1 < DetailsFieldCount)
        focusOn(m_boxes.at(box + 1));
    else if (m_buttons.at(SaveButton)->isEnabled())
        focusOn(m_buttons.at(SaveButton));
}

bool SysDefaultsForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const int box = m_boxes.indexOf(qobject_cast<QLineEdit*>(watched));
        if (box >= 0 && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
            onEnter(box);
            return true;
        }
    }
    return ToolWindow::eventFilter(watched, event);
}

void SysDefaultsForm::focusOnActivation() {
    focusOn(m_boxes.at(Location)->text().isEmpty() ? static_cast<QWidget*>(m_boxes.at(Location))
                                                   : m_buttons.at(EditButton));
}

void SysDefaultsForm::showEvent(QShowEvent* event) {
    ToolWindow::showEvent(event);
    if (m_shownOnce)
        return;
    m_shownOnce = true;
    // Coming back to this window from another one inside the main window counts as activating
    // it; a message box closing does not.
    if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget()))
        connect(frame, &QMdiSubWindow::aboutToActivate, this, &SysDefaultsForm::focusOnActivation);
    // After the host has finished placing the window and giving it the focus.
    QTimer::singleShot(0, this, &SysDefaultsForm::focusOnActivation);
}

} // namespace ordwell

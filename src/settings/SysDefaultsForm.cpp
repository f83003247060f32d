#include "SysDefaultsForm.h"

#include "app/MenuMasks.h"
#include "common/FormHelpers.h"
#include "common/RecordForm.h"
#include "settings/PeppolPartyDialog.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace ordwell {

namespace {

const char* const ButtonCaptions[SysDefaultsForm::ButtonCount] = {"&Edit", "&Save", "&Cancel", "E&xit"};

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

    m_record = new RecordForm(
        this, [this]() -> Prompter& { return context().prompter(); }, detailsFieldTable());
    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    const int charWidth = QFontMetrics(font()).averageCharWidth();
    for (int field = 0; field < DetailsFieldCount; ++field) {
        const DetailsFieldInfo& info = detailsFieldInfo(field);
        QLineEdit* box = m_record->box(field);
        QLabel* caption = m_record->caption(field);
        caption->setObjectName(QStringLiteral("lbltext_%1").arg(field));

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
    }
    layout->addLayout(grid);

    auto* buttons = new QHBoxLayout;
    // Apart from the record's own buttons: the details for electronic orders, once the
    // organisation's details are stored.
    m_peppol = new QPushButton(QStringLiteral("Electronic &Ordering..."), this);
    m_peppol->setObjectName(QStringLiteral("cmdpeppol"));
    pressWithEnter(m_peppol);
    connect(m_peppol, &QPushButton::clicked, this, &SysDefaultsForm::onPeppol);
    buttons->addWidget(m_peppol);
    buttons->addStretch(1);
    for (int i = 0; i < ButtonCount; ++i) {
        auto* button = new QPushButton(QString::fromLatin1(ButtonCaptions[i]), this);
        button->setObjectName(QStringLiteral("cmdbutton_%1").arg(i));
        pressWithEnter(button);
        connect(button, &QPushButton::clicked, this, [this, i] { onButton(i); });
        buttons->addWidget(button);
        m_buttons.append(button);
    }
    layout->addSpacing(4);
    layout->addLayout(buttons);
    layout->addStretch(1);

    m_record->setButtons(m_buttons, SaveButton);
    m_record->addState(Viewing, {QStringLiteral("1001"), {}, {}});
    const auto all = [](int) { return true; };
    m_record->addState(Editing, {QStringLiteral("0110"), all, {}});
    m_record->addState(FirstEntry, {QStringLiteral("0100"), all, {}});
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

void SysDefaultsForm::enterState(State state) {
    m_record->enterState(state);
    // The instructions belong to the first entry only.
    for (QLabel* line : m_instructions)
        line->setVisible(state == FirstEntry);
    m_peppol->setEnabled(state == Viewing && !m_asRead[Location].isEmpty());
}

void SysDefaultsForm::onPeppol() {
    PeppolPartyDialog dialog(context().systemDb(), PeppolSide::Organisation, m_asRead[Location], context().prompter(),
                             this);
    dialog.exec();
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
    m_asRead = details;
    for (int field = 0; field < DetailsFieldCount; ++field)
        m_record->setText(field, details[field]);
}

void SysDefaultsForm::InitialState() {
    auto stored = OrganisationDetailsStore(context().systemDb()).load();
    if (!stored) {
        // Unreadable: show nothing, but leave the way out open.
        context().prompter().message(stored.message(), QString(), MessageIcon::Critical);
        enterState(Viewing);
        return;
    }
    m_asRead = stored.value().value_or(OrganisationDetails{});
    if (stored.value()) {
        const OrganisationDetails& details = *stored.value();
        for (int field = 0; field < DetailsFieldCount; ++field)
            m_record->setText(field, details[field]);
        enterState(Viewing);
        return;
    }
    m_firstEntry = true;
    enterState(FirstEntry);
    context().ApplyMenuMask(MenuMasks::FirstEntry);
}

OrganisationDetails SysDefaultsForm::typedDetails() const {
    OrganisationDetails details;
    for (int field = 0; field < DetailsFieldCount; ++field)
        details[field] = m_record->text(field);
    return details;
}

bool SysDefaultsForm::ValidateDetails() {
    OrganisationDetails details = typedDetails();
    const QList<DetailsProblem> problems = DetailsRules::validateForSave(details);
    m_record->setText(Postcode, details[Postcode]);
    for (const DetailsProblem& problem : problems)
        m_record->report(problem);
    return problems.isEmpty();
}

bool SysDefaultsForm::SaveDetails() {
    const OrganisationDetails typed = typedDetails();
    bool changedElsewhere = false;
    const Status saved = OrganisationDetailsStore(context().systemDb()).save(typed, &m_asRead, &changedElsewhere);
    if (!saved) {
        context().prompter().message(saved.message(), QString(), MessageIcon::Critical);
        // What the other workstation stored is shown and kept, as a save would have left it.
        if (changedElsewhere)
            ShowDetails();
        return changedElsewhere;
    }
    m_asRead = typed;
    return true;
}

void SysDefaultsForm::onButton(int index) {
    switch (index) {
    case EditButton:
        enterState(Editing);
        break;
    case SaveButton:
        // A refused or failed save leaves the window editing with everything as typed.
        if (!ValidateDetails() || !SaveDetails())
            return;
        m_firstEntry = false;
        enterState(Viewing);
        // Take back the room the instruction lines had, rather than leave a gap below.
        layout()->activate();
        if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget()))
            frame->resize(frame->width(), frame->sizeHint().height());
        focusOn(m_buttons.at(ExitButton));
        break;
    case CancelButton:
        ShowDetails();
        enterState(Viewing);
        break;
    case ExitButton:
        enterState(Viewing);
        finishToolWindow();
        break;
    default:
        break;
    }
}

void SysDefaultsForm::focusOnActivation() {
    focusOn(m_record->text(Location).isEmpty() ? static_cast<QWidget*>(m_record->box(Location))
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

#include "VendorRecordsForm.h"

#include "common/FormHelpers.h"
#include "common/WaitCursor.h"
#include "shell/FileChooser.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace ordwell {

namespace {

const char* const FieldProperty = "vendorField";

struct ButtonInfo {
    const char* caption;
    const char* accessibleName; // for the buttons whose caption is only arrows
};

const std::array<ButtonInfo, VendorRecordsForm::ButtonCount> ButtonInfos = {{
    {"&Edit", nullptr},
    {"&Save", nullptr},
    {"&Cancel", nullptr},
    {"|<<", "First vendor"},
    {"<<", "Previous vendor"},
    {">>", "Next vendor"},
    {">>|", "Last vendor"},
    {"&Add new", nullptr},
    {"E&xit", nullptr},
}};

int field(VendorField f) {
    return static_cast<int>(f);
}

} // namespace

VendorRecordsForm::VendorRecordsForm(AppContext& context, QWidget* parent)
    : ToolWindow(context, Level::System, parent) {
    setObjectName(QStringLiteral("frmaddeditvnd"));
    setWindowTitle(QStringLiteral("Add / Edit Vendors"));
    buildControls();

    // Opening: the list, the two boxes that are never typed in, everything locked.
    reloadList();
    m_current = m_vendors.isEmpty() ? -1 : 0;
    m_bound = true;
    showCurrentVendor();
    LockDetailFields(true);
    for (VendorField f : {VendorField::NextOrder, VendorField::OrderForm})
        lockBox(box(f), true, false);
    SetNavigationMask();
    LockIdentityFields(true);
    showPosition();
    loadDetails();
}

void VendorRecordsForm::buildControls() {
    auto* grid = new QGridLayout;
    const auto addBox = [this, grid](QLineEdit* edit, const QString& caption, int row, int column, int chars) {
        auto* label = new QLabel(caption, this);
        label->setBuddy(edit);
        edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * qBound(4, chars, 30) + 12);
        grid->addWidget(label, row, column);
        grid->addWidget(edit, row, column + 1);
        edit->installEventFilter(this);
    };

    const QStringList identityNames = {QStringLiteral("Company Name"), QStringLiteral("Shortcode")};
    const int identityLengths[] = {CompanyNameMaxLength, ShortcodeLength};
    for (int i = 0; i < 2; ++i) {
        m_identity[i] = new QLineEdit(this);
        m_identity[i]->setObjectName(QStringLiteral("txtcomp_%1").arg(i));
        m_identity[i]->setMaxLength(identityLengths[i]);
        m_identity[i]->setProperty(FieldProperty, field(i == 0 ? VendorField::CompanyName : VendorField::Shortcode));
    }
    addBox(m_identity[0], identityNames[0], 0, 0, 30);
    addBox(m_identity[1], identityNames[1], 0, 2, 5);
    m_identity[1]->setMaximumWidth(m_identity[1]->minimumWidth() + 8);

    const auto& columns = vendorDetailColumns();
    for (int i = 0; i < VendorDetailCount; ++i) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(QStringLiteral("txtbox_%1").arg(i));
        if (columns[i].maxLength > 0)
            edit->setMaxLength(columns[i].maxLength);
        edit->setProperty(FieldProperty, i);
        m_boxes[i] = edit;
    }
    // The address, county and postcode on the left; the people on the right.
    const int left = field(VendorField::Postcode) + 1;
    for (int i = 0; i < left; ++i)
        addBox(m_boxes[i], QString::fromLatin1(columns[i].caption), i + 1, 0, columns[i].maxLength);
    for (int i = left; i <= field(VendorField::ContactEmail); ++i)
        addBox(m_boxes[i], QString::fromLatin1(columns[i].caption), i - left + 1, 2, columns[i].maxLength);
    for (int line = 1; line <= 3; ++line) {
        m_boxes[field(VendorField::Address1) + line - 1]->setAccessibleName(
            QStringLiteral("Address line %1").arg(line));
    }
    const int lastRow = field(VendorField::ContactEmail) - left + 2;
    addBox(box(VendorField::NextOrder), QStringLiteral("Next Order"), lastRow, 0, 10);

    auto* orderFormRow = new QHBoxLayout;
    auto* orderFormLabel = new QLabel(QStringLiteral("Order Form"), this);
    orderFormLabel->setBuddy(box(VendorField::OrderForm));
    box(VendorField::OrderForm)->installEventFilter(this);
    m_importReport = new QPushButton(QStringLiteral("..."), this);
    m_importReport->setObjectName(QStringLiteral("cmdimprpt"));
    m_importReport->setAccessibleName(QStringLiteral("Import order form report"));
    m_importReport->setToolTip(QStringLiteral("Import this vendor's own order form report"));
    m_importReport->setAutoDefault(false);
    m_importReport->setMaximumWidth(m_importReport->fontMetrics().horizontalAdvance(QStringLiteral("....")) + 16);
    orderFormRow->addWidget(box(VendorField::OrderForm), 1);
    orderFormRow->addWidget(m_importReport);
    grid->addWidget(orderFormLabel, lastRow, 2);
    grid->addLayout(orderFormRow, lastRow, 3);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    grid->setColumnMinimumWidth(2, 90);

    m_recordCount = new QLabel(this);
    m_recordCount->setObjectName(QStringLiteral("lblreccount"));
    m_recordCount->setAlignment(Qt::AlignCenter);
    m_recordCount->setFrameShape(QFrame::Panel);
    m_recordCount->setFrameShadow(QFrame::Sunken);
    m_recordCount->setAccessibleName(QStringLiteral("Record position"));

    auto* buttons = new QHBoxLayout;
    for (int i = 0; i < ButtonCount; ++i) {
        auto* b = new QPushButton(QString::fromLatin1(ButtonInfos[i].caption), this);
        b->setObjectName(QStringLiteral("cmdbutton_%1").arg(i));
        b->setAutoDefault(false);
        if (ButtonInfos[i].accessibleName)
            b->setAccessibleName(QString::fromLatin1(ButtonInfos[i].accessibleName));
        buttons->addWidget(b);
        m_buttons[i] = b;
    }

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addWidget(m_recordCount);
    layout->addLayout(buttons);

    // Tab goes through the boxes in the order they are filled in.
    QWidget* previous = m_identity[0];
    const auto chain = [&previous](QWidget* next) {
        QWidget::setTabOrder(previous, next);
        previous = next;
    };
    chain(m_identity[1]);
    for (QLineEdit* edit : m_boxes)
        chain(edit);
    chain(m_importReport);
    for (QPushButton* b : m_buttons)
        chain(b);

    connect(button(Edit), &QPushButton::clicked, this, &VendorRecordsForm::onEdit);
    connect(button(Save), &QPushButton::clicked, this, &VendorRecordsForm::onSave);
    connect(button(Cancel), &QPushButton::clicked, this, &VendorRecordsForm::onCancel);
    connect(button(First), &QPushButton::clicked, this, [this] { moveTo(0); });
    connect(button(Previous), &QPushButton::clicked, this, [this] { moveTo(m_current - 1); });
    connect(button(Next), &QPushButton::clicked, this, [this] { moveTo(m_current + 1); });
    connect(button(Last), &QPushButton::clicked, this, [this] { moveTo(int(m_vendors.size()) - 1); });
    connect(button(AddNew), &QPushButton::clicked, this, &VendorRecordsForm::onAddNew);
    connect(button(Exit), &QPushButton::clicked, this, &VendorRecordsForm::onExit);
    connect(m_importReport, &QPushButton::clicked, this, &VendorRecordsForm::onImportReport);
}

QLineEdit* VendorRecordsForm::box(VendorField f) const {
    if (f == VendorField::CompanyName)
        return m_identity[0];
    if (f == VendorField::Shortcode)
        return m_identity[1];
    return m_boxes[field(f)];
}

VendorRecordsForm::State VendorRecordsForm::state() const {
    if (m_adding)
        return m_secondStage ? State::AddingDetails : State::AddingIdentity;
    return m_secondStage ? State::Editing : State::Browse;
}

QAbstractButton* VendorRecordsForm::closeBoxButton() const {
    switch (state()) {
    case State::Browse:
        return button(Exit);
    case State::Editing:
    case State::AddingIdentity:
        return button(Cancel);
    case State::AddingDetails:
        break;
    }
    // The new vendor exists already: the only way on is to save its details.
    return nullptr;
}

void VendorRecordsForm::showEvent(QShowEvent* event) {
    ToolWindow::showEvent(event);
    if (m_shownOnce)
        return;
    m_shownOnce = true;
    // After the window has become the active one, which would otherwise take the focus back.
    QTimer::singleShot(0, this, [this] {
        QPushButton* target = m_vendors.isEmpty() ? button(AddNew) : button(Edit);
        if (target->isEnabled())
            focusOn(target);
    });
}

bool VendorRecordsForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        auto* edit = qobject_cast<QLineEdit*>(watched);
        if (edit && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
            // A locked box holds nothing the user could put right, so it checks nothing.
            if (!edit->isReadOnly())
                onEnter(static_cast<VendorField>(edit->property(FieldProperty).toInt()));
            return true;
        }
    }
    return ToolWindow::eventFilter(watched, event);
}

// ---- the list and the boxes ------------------------------------------------------------

void VendorRecordsForm::reloadList() {
    auto list = VendorRepository::activeVendors(context().systemDb());
    if (!list) {
        context().prompter().message(QStringLiteral("The list of vendors could not be read.\n%1").arg(list.message()),
                                     QString(), MessageIcon::Critical);
        m_vendors.clear();
        return;
    }
    m_vendors = list.value();
}

void VendorRecordsForm::showCurrentVendor() {
    if (!m_bound)
        return;
    const bool valid = m_current >= 0 && m_current < m_vendors.size();
    m_identity[0]->setText(valid ? m_vendors.at(m_current).name : QString());
    m_identity[1]->setText(valid ? m_vendors.at(m_current).code : QString());
}

QString VendorRecordsForm::currentCode() const {
    return m_identity[1]->text();
}

void VendorRecordsForm::loadDetails() {
    clearDetails();
    if (m_current < 0 || m_current >= m_vendors.size())
        return;
    const auto loaded = VendorRecords::LoadVendorDetails(context().dataDir(), m_vendors.at(m_current).code);
    showDetails(loaded.details);
    if (!loaded.problem.isEmpty())
        context().prompter().message(loaded.problem, QString(), MessageIcon::Critical);
}

void VendorRecordsForm::clearDetails() {
    for (QLineEdit* edit : m_boxes)
        edit->clear();
}

void VendorRecordsForm::showDetails(const VendorDetails& details) {
    for (int i = 0; i < VendorDetailCount; ++i)
        m_boxes[i]->setText(details.values[i]);
}

VendorDetails VendorRecordsForm::detailsFromBoxes() const {
    VendorDetails details;
    for (int i = 0; i < VendorDetailCount; ++i)
        details.values[i] = m_boxes[i]->text();
    return details;
}

void VendorRecordsForm::SetNavigationMask() {
    ApplyButtonMask(VendorRecords::navigationMask(m_current + 1, int(m_vendors.size())));
}

void VendorRecordsForm::ApplyButtonMask(const QString& mask) {
    applyButtonMask(QList<QAbstractButton*>(m_buttons.begin(), m_buttons.end()), mask);
}

void VendorRecordsForm::LockIdentityFields(bool lock) {
    for (QLineEdit* edit : m_identity)
        lockBox(edit, lock, true);
}

void VendorRecordsForm::LockDetailFields(bool lock) {
    const auto& columns = vendorDetailColumns();
    for (int i = 0; i < VendorDetailCount; ++i) {
        if (columns[i].kind != DetailKind::NeverEditable)
            lockBox(m_boxes[i], lock, columns[i].kind == DetailKind::Required);
    }
    m_importReport->setEnabled(!lock);
}

void VendorRecordsForm::showPosition() {
    m_recordCount->setText(VendorRecords::positionText(m_current + 1, int(m_vendors.size())));
}

void VendorRecordsForm::showEditingPosition() {
    m_recordCount->setText(VendorRecords::EditingPositionText);
}

void VendorRecordsForm::tell(const QString& text) {
    context().prompter().message(text, QString(), MessageIcon::Critical);
}

bool VendorRecordsForm::accept(const VendorCheck& check) {
    if (check.rewriteField)
        box(*check.rewriteField)->setText(check.rewriteText);
    if (check.passed())
        return true;
    context().prompter().message(check.failure->text, check.failure->title, check.failure->icon);
    showEditingPosition();
    focusOn(box(check.focus));
    return false;
}

// ---- the buttons -----------------------------------------------------------------------

void VendorRecordsForm::moveTo(int index) {
    if (index < 0 || index >= m_vendors.size())
        return;
    clearDetails();
    m_current = index;
    showCurrentVendor();
    loadDetails();
    SetNavigationMask();
    showPosition();
}

void VendorRecordsForm::onEdit() {
    if (m_current < 0)
        return;
    ApplyButtonMask(VendorRecords::EditingMask);
    LockIdentityFields(true);
    LockDetailFields(false);
    m_secondStage = true;
    m_adding = false;
    showEditingPosition();
    focusOn(box(VendorField::CustomerId));
}

void VendorRecordsForm::onAddNew() {
    m_bound = false;
    clearDetails();
    m_identity[0]->clear();
    m_identity[1]->clear();
    m_adding = true;
    m_secondStage = false;
    LockIdentityFields(false);
    ApplyButtonMask(VendorRecords::EditingMask);
    showEditingPosition();
    focusOn(m_identity[0]);
}

void VendorRecordsForm::onSave() {
    if (m_adding && !m_secondStage)
        saveIdentity();
    else if (m_secondStage)
        saveDetails();
}

void VendorRecordsForm::saveIdentity() {
    if (!accept(VendorRecords::ValidateNewVendor(context().systemDb(), m_identity[0]->text(), m_identity[1]->text())))
        return;
    const QString code = m_identity[1]->text();
    Status created;
    {
        WaitCursor wait;
        created =
            VendorRecords::CreateVendorEntry(context().systemDb(), context().dataDir(), m_identity[0]->text(), code);
    }
    if (!created) {
        // Nothing was kept: the user may change the name or code and try again.
        tell(created.message());
        showEditingPosition();
        focusOn(m_identity[0]);
        return;
    }
    reloadList();
    ApplyButtonMask(VendorRecords::DetailsStageMask);
    LockIdentityFields(true);
    LockDetailFields(false);
    m_adding = true;
    m_secondStage = true;
    m_bound = true;
    m_current = m_vendors.isEmpty() ? -1 : 0;
    while (m_current >= 0 && m_current + 1 < m_vendors.size() && m_vendors.at(m_current).code != code)
        ++m_current;
    showCurrentVendor();
    focusOn(box(VendorField::CustomerId));
    showPosition();
}

void VendorRecordsForm::saveDetails() {
    if (!accept(VendorRecords::ValidateVendorDetails(detailsFromBoxes())))
        return;
    Result<VendorDetails> saved = Status::fail(QString());
    {
        WaitCursor wait;
        saved = VendorRecords::SaveVendorDetails(context().dataDir(), currentCode(), detailsFromBoxes(),
                                                 m_adding ? SaveMode::New : SaveMode::Update);
    }
    if (!saved) {
        tell(saved.message());
        showEditingPosition();
        return;
    }
    showDetails(saved.value());
    m_adding = false;
    m_secondStage = false;
    LockDetailFields(true);
    SetNavigationMask();
    focusOn(button(Exit));
    showPosition();
}

void VendorRecordsForm::onCancel() {
    switch (state()) {
    case State::AddingIdentity:
        LockIdentityFields(true);
        LockDetailFields(true);
        m_adding = false;
        m_secondStage = false;
        m_bound = true;
        m_current = m_vendors.isEmpty() ? -1 : 0;
        showCurrentVendor();
        loadDetails();
        break;
    case State::Editing:
        // The edits are thrown away: the stored details come back.
        loadDetails();
        LockIdentityFields(true);
        LockDetailFields(true);
        m_secondStage = false;
        break;
    case State::Browse:
    case State::AddingDetails:
        return;
    }
    SetNavigationMask();
    focusOn(button(Exit));
    showPosition();
}

void VendorRecordsForm::onExit() {
    finishToolWindow();
}

void VendorRecordsForm::onImportReport() {
    AppContext& ctx = context();
    ctx.FileChooserKind = FileChooser::ReportFiles;
    FileChooser::choose(ctx);
    const QString chosen = ctx.ChosenFilePath;
    ctx.ChosenFilePath.clear();
    if (chosen.isEmpty())
        return;
    const auto imported = VendorRecords::importReport(chosen, ctx.dataDir(), currentCode(), ctx.prompter());
    switch (imported.outcome) {
    case VendorRecords::ImportOutcome::Imported:
        // Reaches the database only when the details are saved.
        box(VendorField::OrderForm)->setText(imported.path);
        break;
    case VendorRecords::ImportOutcome::Declined:
        break;
    case VendorRecords::ImportOutcome::Failed:
        tell(imported.problem);
        break;
    }
}

void VendorRecordsForm::onEnter(VendorField f) {
    if (f == VendorField::Shortcode) {
        if (accept(
                VendorRecords::ValidateNewVendor(context().systemDb(), m_identity[0]->text(), m_identity[1]->text())))
            focusOn(button(Save));
        return;
    }
    const EnterCheck outcome = VendorRecords::enterKeyCheck(f, box(f)->text());
    if (outcome.check.rewriteField)
        box(*outcome.check.rewriteField)->setText(outcome.check.rewriteText);
    if (!outcome.check.passed()) {
        const VendorMessage& m = *outcome.check.failure;
        context().prompter().message(m.text, m.title, m.icon);
        focusOn(box(outcome.check.focus));
        return;
    }
    if (outcome.next)
        focusOn(box(*outcome.next));
    else if (outcome.toSave && button(Save)->isEnabled())
        focusOn(button(Save));
}

} // namespace ordwell

#include "VendorRecordsForm.h"

#include "app/FileChooser.h"
#include "common/FormHelpers.h"
#include "common/RecordForm.h"
#include "common/WaitCursor.h"
#include "settings/PeppolPartyDialog.h"
#include "store/DatabaseFile.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace ordwell {

namespace {

const std::array<ButtonSpec, VendorRecordsForm::ButtonCount> VendorButtonSpecs = {{
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

bool isDetail(int f) {
    return f < TypedDetailCount;
}

bool isIdentity(int f) {
    return f >= field(VendorField::CompanyName);
}

} // namespace

VendorRecordsForm::VendorRecordsForm(AppContext& context, QWidget* parent)
    : ToolWindow(context, Level::System, parent) {
    setObjectName(QStringLiteral("frmaddeditvnd"));
    setWindowTitle(QStringLiteral("Add / Edit Vendors"));
    buildControls();

    // Opening: the list, the first vendor, everything locked.
    reloadList();
    showCurrentVendor();
    enterState(State::Browse);
    loadDetails();
}

void VendorRecordsForm::buildControls() {
    QList<FieldSpec> fields = VendorRecords::vendorFieldTable();
    fields[field(VendorField::Shortcode)].onEnter = [this](QString& text) { return checkIdentity(text); };
    m_record = new RecordForm(
        this, [this]() -> Prompter& { return context().prompter(); }, fields);

    auto* grid = new QGridLayout;
    const auto addBox = [this, grid](VendorField f, int row, int column) {
        QLineEdit* edit = box(f);
        const int chars = f == VendorField::NextOrder ? 10 : m_record->spec(field(f)).maxLength;
        edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * qBound(4, chars, 30) + 12);
        grid->addWidget(m_record->caption(field(f)), row, column);
        grid->addWidget(edit, row, column + 1);
    };

    addBox(VendorField::CompanyName, 0, 0);
    addBox(VendorField::Shortcode, 0, 2);
    box(VendorField::Shortcode)->setMaximumWidth(box(VendorField::Shortcode)->minimumWidth() + 8);

    // The address, county and postcode on the left; the people on the right.
    const int left = field(VendorField::Postcode) + 1;
    for (int i = 0; i < left; ++i)
        addBox(VendorField(i), i + 1, 0);
    for (int i = left; i <= field(VendorField::ContactEmail); ++i)
        addBox(VendorField(i), i - left + 1, 2);
    const int lastRow = field(VendorField::ContactEmail) - left + 2;
    addBox(VendorField::NextOrder, lastRow, 0);

    auto* orderFormRow = new QHBoxLayout;
    m_importReport = new QPushButton(QStringLiteral("..."), this);
    m_importReport->setObjectName(QStringLiteral("cmdimprpt"));
    m_importReport->setAccessibleName(QStringLiteral("Import order form report"));
    m_importReport->setToolTip(QStringLiteral("Import this vendor's own order form report"));
    m_importReport->setAutoDefault(false);
    pressWithEnter(m_importReport);
    m_importReport->setMaximumWidth(m_importReport->fontMetrics().horizontalAdvance(QStringLiteral("....")) + 16);
    orderFormRow->addWidget(box(VendorField::OrderForm), 1);
    orderFormRow->addWidget(m_importReport);
    grid->addWidget(m_record->caption(field(VendorField::OrderForm)), lastRow, 2);
    grid->addLayout(orderFormRow, lastRow, 3);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    grid->setColumnMinimumWidth(2, 90);

    m_recordCount = makePositionLabel(this, QStringLiteral("Record position"));

    auto* buttons = makeButtonRow(this, VendorButtonSpecs.data(), ButtonCount, m_buttons.data());

    // The vendor's details for electronic orders, kept apart from the record's own buttons.
    m_peppol = new QPushButton(QStringLiteral("Electronic &Ordering..."), this);
    m_peppol->setObjectName(QStringLiteral("cmdpeppol"));
    pressWithEnter(m_peppol);
    auto* peppolRow = new QHBoxLayout;
    peppolRow->addStretch(1);
    peppolRow->addWidget(m_peppol);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(peppolRow);
    layout->addWidget(m_recordCount);
    layout->addLayout(buttons);

    // Tab goes through the boxes in the order they are filled in.
    QWidget* previous = box(VendorField::CompanyName);
    const auto chain = [&previous](QWidget* next) {
        QWidget::setTabOrder(previous, next);
        previous = next;
    };
    chain(box(VendorField::Shortcode));
    for (int i = 0; i < VendorDetailCount; ++i)
        chain(box(VendorField(i)));
    chain(m_importReport);
    chain(m_peppol);
    for (QPushButton* b : m_buttons)
        chain(b);

    m_record->setButtons(QList<QAbstractButton*>(m_buttons.begin(), m_buttons.end()), Save);
    m_record->setPosition(m_recordCount, &m_vendors, &VendorRecords::positionText, &VendorRecords::navigationMask);
    const QString editingText = VendorRecords::EditingPositionText;
    m_record->addState(int(State::Browse), {});
    m_record->addState(int(State::Editing), {VendorRecords::EditingMask, isDetail, editingText});
    m_record->addState(int(State::AddingIdentity), {VendorRecords::EditingMask, isIdentity, editingText});
    m_record->addState(int(State::AddingDetails), {VendorRecords::DetailsStageMask, isDetail, {}});
    // The order form report can be imported while the details are open.
    connect(m_record, &RecordForm::stateEntered, this, [this](int state) {
        m_importReport->setEnabled(state == int(State::Editing) || state == int(State::AddingDetails));
        m_peppol->setEnabled(state == int(State::Browse) && m_vendors.current() != nullptr);
    });

    connect(button(Edit), &QPushButton::clicked, this, &VendorRecordsForm::onEdit);
    connect(button(Save), &QPushButton::clicked, this, &VendorRecordsForm::onSave);
    connect(button(Cancel), &QPushButton::clicked, this, &VendorRecordsForm::onCancel);
    connect(button(First), &QPushButton::clicked, this, [this] { move(&RecordCursor::first); });
    connect(button(Previous), &QPushButton::clicked, this, [this] { move(&RecordCursor::previous); });
    connect(button(Next), &QPushButton::clicked, this, [this] { move(&RecordCursor::next); });
    connect(button(Last), &QPushButton::clicked, this, [this] { move(&RecordCursor::last); });
    connect(button(AddNew), &QPushButton::clicked, this, &VendorRecordsForm::onAddNew);
    connect(button(Exit), &QPushButton::clicked, this, &VendorRecordsForm::onExit);
    connect(m_importReport, &QPushButton::clicked, this, &VendorRecordsForm::onImportReport);
    connect(m_peppol, &QPushButton::clicked, this, &VendorRecordsForm::onPeppol);
}

QLineEdit* VendorRecordsForm::box(VendorField f) const {
    return m_record->box(field(f));
}

VendorRecordsForm::State VendorRecordsForm::state() const {
    return State(m_record->state());
}

void VendorRecordsForm::enterState(State state) {
    m_record->enterState(int(state));
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
        QPushButton* target = m_vendors.count() == 0 ? button(AddNew) : button(Edit);
        if (target->isEnabled())
            focusOn(target);
    });
}

// ---- the list and the boxes ------------------------------------------------------------

void VendorRecordsForm::reloadList() {
    auto list = VendorRepository::activeVendors(context().systemDb());
    if (!list) {
        context().prompter().message(QStringLiteral("The list of vendors could not be read.\n%1").arg(list.message()),
                                     QString(), MessageIcon::Critical);
        m_vendors.reset({});
        return;
    }
    m_vendors.reset(list.value());
}

void VendorRecordsForm::showCurrentVendor() {
    const VendorEntry* current = m_vendors.current();
    m_record->setText(field(VendorField::CompanyName), current ? current->name : QString());
    m_record->setText(field(VendorField::Shortcode), current ? current->code : QString());
}

QString VendorRecordsForm::currentCode() const {
    return m_record->text(field(VendorField::Shortcode));
}

void VendorRecordsForm::loadDetails() {
    clearDetails();
    const VendorEntry* current = m_vendors.current();
    if (!current)
        return;
    const auto loaded = VendorRecords::LoadVendorDetails(context().store(), current->code);
    m_asRead = loaded.details;
    showDetails(loaded.details);
    if (!loaded.problem.isEmpty())
        context().prompter().message(loaded.problem, QString(), MessageIcon::Critical);
}

void VendorRecordsForm::clearDetails() {
    m_record->clear(0, VendorDetailCount);
}

void VendorRecordsForm::showDetails(const VendorDetails& details) {
    for (int i = 0; i < TypedDetailCount; ++i)
        m_record->setText(i, details.values[i]);
    m_record->setValue(field(VendorField::NextOrder),
                       details.nextOrder ? FieldValue(*details.nextOrder) : FieldValue());
    m_record->setText(field(VendorField::OrderForm), details.orderForm);
}

VendorDetails VendorRecordsForm::detailsFromBoxes() const {
    VendorDetails details;
    for (int i = 0; i < TypedDetailCount; ++i)
        details.values[i] = m_record->text(i);
    const auto next = m_record->value(field(VendorField::NextOrder));
    if (next && std::holds_alternative<int>(*next))
        details.nextOrder = std::get<int>(*next);
    details.orderForm = m_record->text(field(VendorField::OrderForm));
    return details;
}

void VendorRecordsForm::showEditingPosition() {
    m_record->showPositionText(VendorRecords::EditingPositionText);
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

std::optional<FieldProblem> VendorRecordsForm::checkIdentity(QString& shortcode) {
    const VendorCheck check = VendorRecords::ValidateNewVendor(
        context().systemDb(), m_record->text(field(VendorField::CompanyName)), shortcode);
    if (check.rewriteField == VendorField::Shortcode)
        shortcode = check.rewriteText;
    if (check.passed())
        return std::nullopt;
    return FieldProblem{check.failure->text, check.failure->title, check.failure->icon, field(check.focus)};
}

// ---- the buttons -----------------------------------------------------------------------

void VendorRecordsForm::move(bool (RecordCursor::*step)()) {
    if (!(m_vendors.*step)())
        return;
    showCurrentVendor();
    loadDetails();
    enterState(State::Browse);
}

void VendorRecordsForm::onEdit() {
    if (!m_vendors.current())
        return;
    enterState(State::Editing);
    focusOn(box(VendorField::CustomerId));
}

void VendorRecordsForm::onAddNew() {
    clearDetails();
    m_record->clear(field(VendorField::CompanyName), VendorFieldCount);
    enterState(State::AddingIdentity);
    focusOn(box(VendorField::CompanyName));
}

void VendorRecordsForm::onSave() {
    if (state() == State::AddingIdentity)
        saveIdentity();
    else if (state() == State::Editing || state() == State::AddingDetails)
        saveDetails();
}

void VendorRecordsForm::saveIdentity() {
    const QString company = m_record->text(field(VendorField::CompanyName));
    if (!accept(VendorRecords::ValidateNewVendor(context().systemDb(), company, currentCode())))
        return;
    const QString code = currentCode();
    Status created;
    {
        WaitCursor wait;
        created = VendorRecords::CreateVendorEntry(context().systemDb(), context().store(), company, code);
    }
    if (!created) {
        // Nothing was kept: the user may change the name or code and try again.
        tell(created.message());
        showEditingPosition();
        focusOn(box(VendorField::CompanyName));
        return;
    }
    reloadList();
    // The new vendor, wherever it sorts (the last one should it somehow be missing).
    m_vendors.last();
    for (int i = 0; i < m_vendors.count(); ++i) {
        if (m_vendors.rows().at(i).code == code)
            m_vendors.moveTo(i);
    }
    showCurrentVendor();
    enterState(State::AddingDetails);
    focusOn(box(VendorField::CustomerId));
}

void VendorRecordsForm::saveDetails() {
    if (!accept(VendorRecords::ValidateVendorDetails(detailsFromBoxes())))
        return;
    Result<VendorDetails> saved = Status::fail(QString());
    bool changedElsewhere = false;
    {
        WaitCursor wait;
        const bool adding = state() == State::AddingDetails;
        saved = VendorRecords::SaveVendorDetails(context().store(), currentCode(), detailsFromBoxes(),
                                                 adding ? SaveMode::New : SaveMode::Update,
                                                 adding ? nullptr : &m_asRead, &changedElsewhere);
    }
    if (!saved) {
        tell(saved.message());
        if (changedElsewhere) {
            // What the other workstation stored is shown; the user may edit again.
            loadDetails();
            enterState(State::Browse);
            focusOn(button(Exit));
            return;
        }
        showEditingPosition();
        return;
    }
    m_asRead = saved.value();
    showDetails(saved.value());
    enterState(State::Browse);
    focusOn(button(Exit));
}

void VendorRecordsForm::onCancel() {
    switch (state()) {
    case State::AddingIdentity:
        m_vendors.first();
        showCurrentVendor();
        loadDetails();
        break;
    case State::Editing:
        // The edits are thrown away: the stored details come back.
        loadDetails();
        break;
    case State::Browse:
    case State::AddingDetails:
        return;
    }
    enterState(State::Browse);
    focusOn(button(Exit));
}

void VendorRecordsForm::onExit() {
    finishToolWindow();
}

void VendorRecordsForm::onImportReport() {
    AppContext& ctx = context();
    const QString chosen = FileChooser::choose(ctx, FileChooser::ReportFiles).value_or(QString());
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

void VendorRecordsForm::onPeppol() {
    const VendorEntry* current = m_vendors.current();
    if (!current)
        return;
    auto db = Store::OpenVendorDatabase(context().store(), Store::vendorFileName(current->code),
                                        VendorRecords::ConnectionName);
    if (!db) {
        context().prompter().message(
            QStringLiteral("The details of vendor %1 could not be read.\n%2").arg(current->code, db.message()),
            QString(), MessageIcon::Critical);
        DatabaseFile::close(VendorRecords::ConnectionName);
        return;
    }
    {
        PeppolPartyDialog dialog(*db, PeppolSide::Vendor, current->name, context().prompter(), this);
        dialog.exec();
    }
    DatabaseFile::close(VendorRecords::ConnectionName);
}

} // namespace ordwell

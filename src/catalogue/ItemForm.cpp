#include "ItemForm.h"

#include "app/MenuMasks.h"
#include "app/VendorSession.h"
#include "catalogue/Find.h"
#include "catalogue/ItemChecks.h"
#include "common/FormHelpers.h"
#include "common/RecordForm.h"
#include "orders/Revaluation.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace ordwell {

namespace {

const std::array<ButtonSpec, ItemForm::ButtonCount> ItemButtonSpecs = {{
    {"&Add Item", nullptr},
    {"&Save", nullptr},
    {"&Cancel", nullptr},
    {"|<", "First item"},
    {"<", "Previous item"},
    {"&Edit", nullptr},
    {">", "Next item"},
    {">|", "Last item"},
    {"&Find", nullptr},
    {"E&xit", nullptr},
}};

const char* const Captions[ItemChecks::BoxCount] = {"Item Code", "Description",   "Pack Quantity", "Default Quantity",
                                                    "Price",     "Price expires", "&GTIN",         "&Unit"};

const QString AddOrEditMask = QStringLiteral("0110000000");

QString positionText(int position, int count) {
    if (count == 0)
        return QStringLiteral("There are no items");
    return QStringLiteral("Record %1 of %2").arg(position).arg(count);
}

} // namespace

ItemForm::ItemForm(AppContext& context, QWidget* parent)
    : ToolWindow(context, Level::Vendor, parent),
      m_browser(std::make_unique<ItemBrowser>(context.vendorSession().db())) {
    setObjectName(QStringLiteral("frmaddedititem"));
    setWindowTitle(QStringLiteral("Add / Edit an item"));
    buildControls();

    // Opening: the count and the first item, everything locked.
    const Status opened = m_browser->open();
    showCurrentItem();
    enterState(State::Browse);
    if (m_browser->isEmpty())
        m_record->showPositionText(QStringLiteral("There are no active items"));
    if (!opened)
        QTimer::singleShot(0, this, [this, opened] { succeeded(opened); });
}

ItemForm::~ItemForm() = default;

void ItemForm::buildControls() {
    QList<FieldSpec> fields;
    for (int i = 0; i < ItemChecks::BoxCount; ++i) {
        FieldSpec spec;
        spec.objectName = QStringLiteral("txtbox_%1").arg(i);
        spec.caption = QString::fromLatin1(Captions[i]);
        spec.maxLength = ItemChecks::InputLimits[i];
        spec.need = i >= ItemChecks::Gtin ? FieldNeed::Optional : FieldNeed::Required;
        spec.kind = FieldKind::Text;
        // Enter moves on itself: a box whose check fails quietly keeps the focus.
        spec.next = NextStays;
        spec.onEnter = [this, i](QString& text) -> std::optional<FieldProblem> {
            const auto outcome =
                ItemChecks::enterPressed(ItemChecks::Box(i), text, today(),
                                         [this](const QString& code) { return m_browser->repository().exists(code); });
            if (outcome.refusal) {
                if (outcome.refusal->emptiesBox)
                    text.clear();
                else if (i == ItemChecks::Code)
                    text = outcome.rewritten;
                return FieldProblem{outcome.refusal->text, outcome.refusal->title, MessageIcon::Exclamation, i};
            }
            if (!outcome.moveOn)
                return std::nullopt;
            text = outcome.rewritten;
            focusOn(i < ItemChecks::PriceExpiry ? static_cast<QWidget*>(box(i + 1)) : button(Save));
            return std::nullopt;
        };
        fields.append(spec);
    }
    m_record = new RecordForm(
        this, [this]() -> Prompter& { return context().prompter(); }, fields);

    auto* grid = new QGridLayout;
    for (int i = 0; i < ItemChecks::BoxCount; ++i) {
        QLineEdit* edit = box(i);
        edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * qBound(6, ItemChecks::InputLimits[i], 40) + 12);
        grid->addWidget(m_record->caption(i), i, 0);
        grid->addWidget(edit, i, 1, Qt::AlignLeft);
    }
    grid->setColumnStretch(1, 1);

    m_position = makePositionLabel(this, QStringLiteral("Item position"));

    auto* buttons = makeButtonRow(this, ItemButtonSpecs.data(), ButtonCount, m_buttons.data());

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addWidget(m_position);
    layout->addLayout(buttons);

    QWidget* previous = box(0);
    for (int i = 1; i < ItemChecks::BoxCount; ++i) {
        setTabOrder(previous, box(i));
        previous = box(i);
    }
    for (QPushButton* b : m_buttons) {
        setTabOrder(previous, b);
        previous = b;
    }

    m_record->setButtons(QList<QAbstractButton*>(m_buttons.begin(), m_buttons.end()), Save);
    m_record->setPosition(m_position, m_browser.get(), &positionText,
                          [](int position, int count) { return ItemBrowser::navigationMask(position, count); });
    m_record->addState(int(State::Browse), {});
    m_record->addState(int(State::Adding),
                       {AddOrEditMask, [](int) { return true; }, QStringLiteral("Adding New Record")});
    // The code of a stored item never changes.
    m_record->addState(int(State::Editing), {AddOrEditMask, [](int field) { return field != ItemChecks::Code; },
                                             QStringLiteral("Editing Record")});

    connect(button(AddItem), &QPushButton::clicked, this, &ItemForm::onAddItem);
    connect(button(Save), &QPushButton::clicked, this, &ItemForm::onSave);
    connect(button(Cancel), &QPushButton::clicked, this, &ItemForm::onCancel);
    connect(button(First), &QPushButton::clicked, this, [this] { move(&ItemBrowser::first); });
    connect(button(Previous), &QPushButton::clicked, this, [this] { move(&ItemBrowser::previous); });
    connect(button(Edit), &QPushButton::clicked, this, &ItemForm::onEdit);
    connect(button(Next), &QPushButton::clicked, this, [this] { move(&ItemBrowser::next); });
    connect(button(Last), &QPushButton::clicked, this, [this] { move(&ItemBrowser::last); });
    connect(button(Find), &QPushButton::clicked, this, &ItemForm::onFind);
    connect(button(Exit), &QPushButton::clicked, this, &ItemForm::onExit);
}

QLineEdit* ItemForm::box(int field) const {
    return m_record->box(field);
}

ItemForm::State ItemForm::state() const {
    return State(m_record->state());
}

QDate ItemForm::today() const {
    return m_today.isValid() ? m_today : QDate::currentDate();
}

QStringList ItemForm::boxTexts() const {
    QStringList texts;
    for (int i = 0; i < ItemChecks::BoxCount; ++i)
        texts << m_record->text(i);
    return texts;
}

QAbstractButton* ItemForm::closeBoxButton() const {
    return state() == State::Browse ? button(Exit) : button(Cancel);
}

void ItemForm::showEvent(QShowEvent* event) {
    ToolWindow::showEvent(event);
    if (m_shownOnce)
        return;
    m_shownOnce = true;
    // After the window has become the active one, which would otherwise take the focus back.
    QTimer::singleShot(0, this, [this] {
        if (state() == State::Browse)
            focusOn(button(AddItem));
    });
}

void ItemForm::showCurrentItem() {
    const auto& current = m_browser->current();
    const QStringList texts = current ? ItemChecks::boxesFor(*current) : QStringList();
    for (int i = 0; i < ItemChecks::BoxCount; ++i)
        m_record->setText(i, texts.value(i));
}

void ItemForm::enterState(State state) {
    m_record->enterState(int(state));
}

void ItemForm::tell(const QString& text) {
    context().prompter().message(text, QString(), MessageIcon::Critical);
}

bool ItemForm::succeeded(const Status& status) {
    if (status)
        return true;
    tell(status.message());
    return false;
}

void ItemForm::move(bool (ItemBrowser::*step)()) {
    if (!((*m_browser).*step)()) {
        succeeded(m_browser->lastError());
        return;
    }
    showCurrentItem();
    enterState(State::Browse);
}

void ItemForm::onAddItem() {
    // The current item stays as it was; the boxes only stop showing it.
    m_record->clear(0, ItemChecks::BoxCount);
    enterState(State::Adding);
    focusOn(box(ItemChecks::Code));
}

void ItemForm::onEdit() {
    if (!m_browser->current())
        return;
    enterState(State::Editing);
    focusOn(box(ItemChecks::Description));
}

void ItemForm::onSave() {
    const State was = state();
    if (was == State::Browse)
        return;
    QStringList texts = boxTexts();
    const auto refusal = ItemChecks::ValidateItem(texts, today());
    // The upper-cased code and any emptied box are shown whatever the outcome.
    for (int i = 0; i < ItemChecks::BoxCount; ++i)
        m_record->setText(i, texts.at(i));
    if (refusal) {
        m_record->report({refusal->text, refusal->title, MessageIcon::Exclamation, int(refusal->box)});
        return;
    }
    const Item item = ItemChecks::itemFrom(texts);
    if (!item.gtin.isEmpty()) {
        const auto holder = m_browser->repository().findByGtin(item.gtin);
        if (!succeeded(holder.status()))
            return;
        if (*holder && (*holder)->code.compare(item.code, Qt::CaseInsensitive) != 0) {
            const auto taken = ItemChecks::gtinTaken(item.gtin, (*holder)->code);
            m_record->report({taken.text, taken.title, MessageIcon::Exclamation, ItemChecks::Gtin});
            return;
        }
    }
    if (was == State::Adding) {
        const auto taken = m_browser->repository().exists(item.code);
        if (!succeeded(taken.status()))
            return;
        if (*taken) {
            m_record->report(
                {ItemChecks::DuplicateText, ItemChecks::DuplicateTitle, MessageIcon::Exclamation, ItemChecks::Code});
            return;
        }
        if (!succeeded(m_browser->add(item)))
            return;
    } else {
        bool changedElsewhere = false;
        if (!succeeded(m_browser->save(item, &changedElsewhere))) {
            if (changedElsewhere) {
                showCurrentItem();
                enterState(State::Browse);
                focusOn(button(Edit));
            }
            return;
        }
    }
    showCurrentItem();
    enterState(State::Browse);
    focusOn(button(AddItem));
}

void ItemForm::onCancel() {
    const State was = state();
    if (was == State::Browse)
        return;
    if (!m_browser->isEmpty()) {
        m_browser->first();
        // Back to the item being edited, as stored.
        const QString code = m_record->text(ItemChecks::Code);
        if (was == State::Editing && !code.isEmpty())
            succeeded(m_browser->goTo(code).status());
    }
    showCurrentItem();
    enterState(State::Browse);
}

void ItemForm::onFind() {
    const auto chosen = Find::findItemDescription(context(), this, Find::ItemFormMask);
    showDescription(chosen.value_or(QString()));
}

void ItemForm::showDescription(const QString& description) {
    if (!description.isEmpty()) {
        m_browser->first();
        const auto found = m_browser->goToDescription(description);
        if (!found)
            tell(found.message());
        else if (!*found)
            context().prompter().message(QStringLiteral("Item description not found."),
                                         QStringLiteral("Item Description Error"), MessageIcon::Critical);
    }
    showCurrentItem();
    enterState(State::Browse);
}

void ItemForm::onExit() {
    // Prices may have changed: the open orders follow before the window goes.
    RefreshOrderValues(context().vendorDb(), context().prompter());
    finishToolWindow();
}

} // namespace ordwell

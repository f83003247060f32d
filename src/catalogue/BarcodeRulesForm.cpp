#include "BarcodeRulesForm.h"

#include "BarcodeRules.h"
#include "ScanKeyFilter.h"
#include "ScanReading.h"
#include "ScanTrial.h"
#include "common/FormHelpers.h"
#include "common/TextChecks.h"
#include "common/WaitCursor.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>

namespace ordwell {

namespace {
const QColor ActiveColour(255, 255, 255);
const QColor DeactivatedColour(255, 0, 0);
const QString ActiveText = QStringLiteral("Active");
const QString DeactivatedText = QStringLiteral("Deactivated");
const QString SelectRuleText = QStringLiteral("Please select a barcode rule to edit");
const QString SelectRuleTitle = QStringLiteral("Double click a code");
const QString InvalidCountText = QStringLiteral("Please enter a valid number of charaters to skip");
} // namespace

BarcodeRulesForm::BarcodeRulesForm(AppContext& context, QWidget* parent) : ToolWindow(context, Level::Vendor, parent) {
    setObjectName(QStringLiteral("frmbarcodes"));
    setWindowTitle(QStringLiteral("Barcode Rules"));
    buildControls();
    SetupRuleGrid();
    LoadRuleGrid();
    for (QLineEdit* box : m_boxes)
        setBoxColour(box, BoxColour::Required);
}

BarcodeRulesForm::~BarcodeRulesForm() = default;

QLayout* BarcodeRulesForm::buildTester() {
    m_sample = new QLineEdit(this);
    m_sample->setObjectName(QStringLiteral("txtscantest"));
    m_sample->setAccessibleDescription(
        QStringLiteral("Type or scan a barcode and press Enter to see which rule or GS1 reading applies"));
    auto* caption = new QLabel(QStringLiteral("&Test a Scan"), this);
    caption->setObjectName(QStringLiteral("lblscantest"));
    caption->setBuddy(m_sample);
    m_sampleResult = new QLabel(this);
    m_sampleResult->setObjectName(QStringLiteral("lblscanresult"));
    m_sampleResult->setWordWrap(true);
    m_sampleResult->setTextFormat(Qt::PlainText);
    m_sampleResult->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // Left without an accessible name, so a screen reader reads the outcome itself.
    m_sampleResult->setAccessibleDescription(QStringLiteral("What the scan being tested reads as"));
    auto settings = context().settings();
    m_sampleKeys = new ScanKeyFilter(m_sample, GroupSeparatorSubstitute::fromSettings(*settings));
    connect(m_sample, &QLineEdit::returnPressed, this, [this] { testScan(); });

    auto* tester = new QGridLayout;
    tester->addWidget(caption, 0, 0);
    tester->addWidget(m_sample, 0, 1);
    tester->addWidget(m_sampleResult, 1, 0, 1, 2);
    tester->setColumnStretch(1, 1);
    return tester;
}

void BarcodeRulesForm::testScan() {
    if (!m_reader)
        m_reader = std::make_unique<ScanReader>();
    const Result<ScanTrial> trial = [&] {
        WaitCursor wait;
        return tryScan(*m_reader, context().vendorDb(), m_sample->text(), QDate::currentDate());
    }();
    if (!trial) {
        context().prompter().message(trial.message(), QString(), MessageIcon::Critical);
        return;
    }
    m_sampleResult->setText(trial->describe().join(QLatin1Char('\n')));
}

void BarcodeRulesForm::buildControls() {
    m_grid = new QTableWidget(this);
    m_grid->setObjectName(QStringLiteral("MSFlexGrid"));
    m_grid->setAccessibleName(QStringLiteral("Barcode rules"));
    m_grid->setAccessibleDescription(
        QStringLiteral("Prefix, characters skipped at the front and at the end, status. Double-click a rule to switch "
                       "it between active and deactivated, or to edit it after Edit."));
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    m_grid->horizontalHeader()->hide();
    m_grid->verticalHeader()->hide();
    m_grid->setMinimumSize(420, 220);
    connect(m_grid, &QTableWidget::cellDoubleClicked, this, [this] { onGridDoubleClick(); });

    const char* captions[3] = {"Starts With", "Skip First", "Skip Last"};
    const int lengths[3] = {9, 2, 2};
    auto* entry = new QGridLayout;
    for (int i = 0; i < 3; ++i) {
        m_boxes[i] = new QLineEdit(this);
        m_boxes[i]->setObjectName(QStringLiteral("txtinfo_%1").arg(i));
        m_boxes[i]->setMaxLength(lengths[i]);
        m_labels[i] = new QLabel(QString::fromLatin1(captions[i]), this);
        m_labels[i]->setObjectName(QStringLiteral("lblinfo_%1").arg(i));
        m_labels[i]->setBuddy(m_boxes[i]);
        entry->addWidget(m_labels[i], 0, i);
        entry->addWidget(m_boxes[i], 1, i);
        connect(m_boxes[i], &QLineEdit::returnPressed, this, [this, i] { onEnter(i); });
    }

    const char* buttonCaptions[ButtonCount] = {"&Add", "&Edit", "E&xit"};
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (int i = 0; i < ButtonCount; ++i) {
        m_buttons[i] = new QPushButton(QString::fromLatin1(buttonCaptions[i]), this);
        m_buttons[i]->setObjectName(QStringLiteral("cmdbutton_%1").arg(i));
        m_buttons[i]->setAutoDefault(false);
        pressWithEnter(m_buttons[i]);
        buttons->addWidget(m_buttons[i]);
    }
    connect(m_buttons[AddButton], &QPushButton::clicked, this, [this] { AddOrSaveRule(); });
    connect(m_buttons[EditButton], &QPushButton::clicked, this, [this] {
        m_editingRule = true;
        context().prompter().message(SelectRuleText, SelectRuleTitle, MessageIcon::Information);
    });
    connect(m_buttons[ExitButton], &QPushButton::clicked, this, [this] { finishToolWindow(); });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_grid, 1);
    layout->addLayout(entry);
    layout->addLayout(buttons);
    layout->addLayout(buildTester());

    setTabOrder(m_boxes[0], m_boxes[1]);
    setTabOrder(m_boxes[1], m_boxes[2]);
    setTabOrder(m_boxes[2], m_buttons[AddButton]);
    setTabOrder(m_buttons[AddButton], m_buttons[EditButton]);
    setTabOrder(m_buttons[EditButton], m_buttons[ExitButton]);
    setTabOrder(m_buttons[ExitButton], m_sample);
    setTabOrder(m_sample, m_grid);
}

QAbstractButton* BarcodeRulesForm::closeBoxButton() const {
    return m_buttons[ExitButton];
}

void BarcodeRulesForm::resizeEvent(QResizeEvent* event) {
    ToolWindow::resizeEvent(event);
    // Column 0 an eighth, the prefix a quarter, the three numbers an eighth each.
    const int w = m_grid->viewport()->width() - 1;
    const int widths[GridColumns] = {w / 8, w / 4, w / 8, w / 8, w / 8};
    for (int c = 0; c < GridColumns; ++c)
        m_grid->setColumnWidth(c, widths[c]);
}

void BarcodeRulesForm::SetupRuleGrid() {
    m_grid->setColumnCount(GridColumns);
    m_grid->setRowCount(GridRows);
    m_rowNumbers = QList<int>(GridRows, 0);
    // Row 0 is left empty; rows 1 to 99 are numbered in the first column.
    for (int row = 1; row < GridRows; ++row)
        setCell(row, 0, QString::number(row));
}

void BarcodeRulesForm::setCell(int row, int column, const QString& text) {
    if (row >= m_grid->rowCount()) {
        // More rules than rows: the grid grows, numbering its new rows.
        const int from = m_grid->rowCount();
        m_grid->setRowCount(row + 1);
        m_rowNumbers.resize(row + 1);
        for (int r = from; r <= row; ++r) {
            auto* number = new QTableWidgetItem(QString::number(r));
            number->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
            m_grid->setItem(r, 0, number);
        }
    }
    QTableWidgetItem* item = m_grid->item(row, column);
    if (!item) {
        item = new QTableWidgetItem;
        item->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        m_grid->setItem(row, column, item);
    }
    item->setText(text);
}

void BarcodeRulesForm::colourRow(int row, int firstColumn, bool active) {
    for (int c = firstColumn; c < GridColumns; ++c) {
        if (QTableWidgetItem* item = m_grid->item(row, c)) {
            item->setBackground(active ? ActiveColour : DeactivatedColour);
            item->setForeground(QColor(0, 0, 0));
        }
    }
}

void BarcodeRulesForm::LoadRuleGrid() {
    WaitCursor wait;
    const auto rules = BarcodeRules::load(context().vendorDb());
    if (!rules) {
        context().prompter().message(rules.message(), QString(), MessageIcon::Critical);
        return;
    }
    int row = 1;
    for (const BarcodeRule& rule : *rules) {
        ShowRuleRow(row, rule.codestart, rule.skipfirst, rule.skiplast, rule.status);
        m_rowNumbers[row] = rule.codenum;
        ++row;
    }
    m_ruleCount = row - 1;
}

void BarcodeRulesForm::ShowRuleRow(int row, const QString& prefix, int skipFirst, int skipLast, const QString& status) {
    const bool active = status == BarcodeRules::Active;
    setCell(row, 1, prefix);
    setCell(row, 2, QString::number(skipFirst));
    setCell(row, 3, QString::number(skipLast));
    setCell(row, 4, active ? ActiveText : DeactivatedText);
    colourRow(row, 1, active);
    m_grid->setCurrentCell(row, 1);
    if (row > 8)
        m_grid->verticalScrollBar()->setValue(row - 8);
}

void BarcodeRulesForm::ToggleRuleStatus(const QString& prefix, int row) {
    WaitCursor wait;
    const auto switched = BarcodeRules::toggle(context().vendorDb(), prefix);
    if (!switched) {
        context().prompter().message(switched.message(), QString(), MessageIcon::Critical);
        return;
    }
    if (switched->has_value())
        setCell(row, 4, **switched == BarcodeRules::Active ? ActiveText : DeactivatedText);
    const QTableWidgetItem* status = m_grid->item(row, 4);
    colourRow(row, 0, status && status->text() == ActiveText);
}

void BarcodeRulesForm::onGridDoubleClick() {
    const int row = m_grid->currentRow();
    if (row < 1 || row > m_ruleCount)
        return;
    auto text = [this, row](int column) {
        const QTableWidgetItem* item = m_grid->item(row, column);
        return item ? item->text() : QString();
    };
    if (!m_editingRule) {
        if (!text(1).isEmpty())
            ToggleRuleStatus(text(1), row);
        return;
    }
    m_editCode = text(1);
    m_editRow = row;
    m_editNumber = m_rowNumbers.value(row);
    m_editShown = BarcodeRule{m_editNumber, text(1), text(2).toInt(), text(3).toInt(),
                              text(4) == ActiveText ? BarcodeRules::Active : BarcodeRules::Deactivated};
    for (int i = 0; i < 3; ++i)
        m_boxes[i]->setText(text(i + 1));
    focusOn(m_boxes[0]);
}

void BarcodeRulesForm::fail(const QString& message, const QString& title, int box) {
    context().prompter().message(message, title, MessageIcon::Exclamation);
    focusOn(m_boxes[box]);
}

void BarcodeRulesForm::onEnter(int box) {
    switch (box) {
    case 0:
        m_boxes[0]->setText(UpperCaseCode(m_boxes[0]->text()));
        if (!m_boxes[0]->text().isEmpty())
            focusOn(m_boxes[1]);
        else
            fail(QStringLiteral("Please enter a valid barcode value"), QStringLiteral("Invalid Data"), 0);
        break;
    case 1:
        if (BarcodeRules::skipCount(m_boxes[1]->text()))
            focusOn(m_boxes[2]);
        else
            fail(InvalidCountText, QStringLiteral("Invalid data"), 1);
        break;
    default:
        if (BarcodeRules::skipCount(m_boxes[2]->text()))
            focusOn(m_buttons[AddButton]);
        else
            fail(InvalidCountText, QStringLiteral("Invalid data"), 2);
        break;
    }
}

void BarcodeRulesForm::AddOrSaveRule() {
    const RuleEntryCheck check = ValidateRuleEntry(m_boxes[0]->text(), m_boxes[1]->text(), m_boxes[2]->text());
    m_boxes[0]->setText(check.prefix);
    if (!check.ok()) {
        fail(check.message, check.title, check.failedBox);
        return;
    }
    const QSqlDatabase db = context().vendorDb();
    if (m_editingRule) {
        if (m_editNumber == 0) {
            // Edit was pressed but no rule was chosen: there is nothing to save into yet.
            context().prompter().message(SelectRuleText, SelectRuleTitle, MessageIcon::Information);
            return;
        }
        // Editing never checks for a duplicate: two rules may end up sharing a prefix.
        Status saved;
        bool changedElsewhere = false;
        {
            WaitCursor wait;
            saved = BarcodeRules::save(db, m_editNumber, check.prefix, check.skipFirst, check.skipLast, &m_editShown,
                                       &changedElsewhere);
        }
        if (!saved) {
            context().prompter().message(saved.message(), QString(), MessageIcon::Critical);
            if (changedElsewhere) {
                // What is stored now is shown; the user may choose the rule again.
                LoadRuleGrid();
                ClearRuleEntry();
                focusOn(m_boxes[0]);
            }
            return;
        }
        m_editCode.clear();
        ShowRuleRow(m_editRow, check.prefix, check.skipFirst, check.skipLast, BarcodeRules::Active);
        ClearRuleEntry();
    } else {
        Result<bool> isNew = [&] {
            WaitCursor wait;
            return BarcodeRules::isNewPrefix(db, check.prefix);
        }();
        if (!isNew) {
            context().prompter().message(isNew.message(), QString(), MessageIcon::Critical);
            return;
        }
        if (!*isNew) {
            fail(QStringLiteral("This barcode prefix has already been used, please enter a new barcode prefix"),
                 QStringLiteral("Duplicate detected"), 0);
            return;
        }
        Result<int> added = [&] {
            WaitCursor wait;
            return BarcodeRules::add(db, check.prefix, check.skipFirst, check.skipLast);
        }();
        if (!added) {
            context().prompter().message(added.message(), QString(), MessageIcon::Critical);
            return;
        }
        ++m_ruleCount;
        ShowRuleRow(m_ruleCount, check.prefix, check.skipFirst, check.skipLast, BarcodeRules::Active);
        m_rowNumbers[m_ruleCount] = *added;
        ClearRuleEntry();
    }
    focusOn(m_boxes[0]);
    m_editingRule = false;
    m_editRow = 0;
    m_editNumber = 0;
}

void BarcodeRulesForm::ClearRuleEntry() {
    for (QLineEdit* box : m_boxes)
        box->clear();
}

} // namespace ordwell

#pragma once

#include "app/ToolWindow.h"
#include "catalogue/BarcodeRules.h"

#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace ordwell {

class ScanKeyFilter;
class ScanReader;

// frmbarcodes: the open vendor's barcode rules in a grid (active ones first, deactivated ones
// red), with boxes to add a rule or edit one. Double-clicking a row switches the rule between
// active and deactivated, or, after Edit, loads it into the boxes.
class BarcodeRulesForm : public ToolWindow {
    Q_OBJECT
public:
    explicit BarcodeRulesForm(AppContext& context, QWidget* parent = nullptr);
    ~BarcodeRulesForm() override;

    enum Button { AddButton, EditButton, ExitButton, ButtonCount };
    static constexpr int GridRows = 100;
    static constexpr int GridColumns = 5;

    int ruleCount() const { return m_ruleCount; }
    bool isEditingRule() const { return m_editingRule; }

protected:
    QAbstractButton* closeBoxButton() const override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildControls();
    void SetupRuleGrid();
    void LoadRuleGrid();
    void ShowRuleRow(int row, const QString& prefix, int skipFirst, int skipLast, const QString& status);
    void ToggleRuleStatus(const QString& prefix, int row);
    void AddOrSaveRule();
    void ClearRuleEntry();
    void colourRow(int row, int firstColumn, bool active);
    void setCell(int row, int column, const QString& text);
    void onGridDoubleClick();
    void onEnter(int box);
    void fail(const QString& message, const QString& title, int box);
    QLayout* buildTester();
    void testScan();

    QTableWidget* m_grid = nullptr;
    QLabel* m_labels[3] = {nullptr, nullptr, nullptr};
    QLineEdit* m_boxes[3] = {nullptr, nullptr, nullptr};
    QPushButton* m_buttons[ButtonCount] = {nullptr, nullptr, nullptr};
    // The tester: a sample typed or scanned, and what it reads as.
    QLineEdit* m_sample = nullptr;
    QLabel* m_sampleResult = nullptr;
    ScanKeyFilter* m_sampleKeys = nullptr;
    std::unique_ptr<ScanReader> m_reader;

    bool m_editingRule = false;
    int m_editRow = 0;
    QString m_editCode;
    int m_editNumber = 0;    // the rule's own number, so a prefix shared after an edit finds the right one
    BarcodeRule m_editShown; // the chosen rule as the list showed it, which a save may only overwrite
    int m_ruleCount = 0;
    QList<int> m_rowNumbers; // the rule number shown in each row (index = row)
};

} // namespace ordwell

#pragma once

#include "shell/ToolWindow.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace ordwell {

// frmbarcodes: the open vendor's barcode rules in a grid (active ones first, deactivated ones
// red), with boxes to add a rule or edit one. Double-clicking a row switches the rule between
// active and deactivated, or, after Edit, loads it into the boxes.
class BarcodeRulesForm : public ToolWindow {
    Q_OBJECT
public:
    explicit BarcodeRulesForm(AppContext& context, QWidget* parent = nullptr);

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

    QTableWidget* m_grid = nullptr;
    QLabel* m_labels[3] = {nullptr, nullptr, nullptr};
    QLineEdit* m_boxes[3] = {nullptr, nullptr, nullptr};
    QPushButton* m_buttons[ButtonCount] = {nullptr, nullptr, nullptr};

    bool m_editingRule = false;
    int m_editRow = 0;
    QString m_editCode;
    int m_editNumber = 0; // the rule's own number, so a prefix shared after an edit finds the right one
    int m_ruleCount = 0;
    QList<int> m_rowNumbers; // the rule number shown in each row (index = row)
};

} // namespace ordwell

#pragma once

#include "app/ToolWindow.h"
#include "catalogue/ItemBrowser.h"

#include <QDate>
#include <array>
#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;

namespace ordwell {

class RecordForm;

// frmaddedititem: the open vendor's catalogue, one item at a time. Browses by key however large
// the catalogue is, adds items, edits all but an item's code, finds an item by description, and
// revalues the open orders as it closes.
class ItemForm : public ToolWindow {
    Q_OBJECT
public:
    enum class State { Browse, Adding, Editing };
    // The ten buttons, in the order of the button mask.
    enum Button { AddItem, Save, Cancel, First, Previous, Edit, Next, Last, Find, Exit, ButtonCount };

    explicit ItemForm(AppContext& context, QWidget* parent = nullptr);
    ~ItemForm() override;

    State state() const;
    const ItemBrowser& browser() const { return *m_browser; }

    // The day prices are judged against; today unless a test fixes it.
    void setToday(const QDate& today) { m_today = today; }

    // Goes to the first item with this description, as Find does with the chosen one; tells the
    // user when there is none.
    void showDescription(const QString& description);

protected:
    QAbstractButton* closeBoxButton() const override;
    void showEvent(QShowEvent* event) override;

private:
    void buildControls();
    QLineEdit* box(int field) const;
    QPushButton* button(Button which) const { return m_buttons[which]; }
    QDate today() const;
    QStringList boxTexts() const;

    void showCurrentItem();
    void enterState(State state);
    void tell(const QString& text);
    bool succeeded(const Status& status);

    void move(bool (ItemBrowser::*step)());
    void onAddItem();
    void onEdit();
    void onSave();
    void onCancel();
    void onFind();
    void onExit();

    RecordForm* m_record = nullptr;
    std::array<QPushButton*, ButtonCount> m_buttons{};
    QLabel* m_position = nullptr;
    std::unique_ptr<ItemBrowser> m_browser;
    QDate m_today;
    bool m_shownOnce = false;
};

} // namespace ordwell

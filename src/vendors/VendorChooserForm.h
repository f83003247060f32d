#pragma once

#include "app/ToolWindow.h"

#include <QDate>
#include <array>

class QComboBox;
class QLabel;
class QPushButton;

namespace ordwell {

// frmswvend: where the user opens a vendor, switches to another or closes the open one. Opening
// resets expired prices and revalues open orders; a live order left behind is handed to the
// order form for recovery as the chooser closes.
class VendorChooserForm : public ToolWindow {
    Q_OBJECT
public:
    enum Button { Select, Exit, ButtonCount };

    explicit VendorChooserForm(AppContext& context, QWidget* parent = nullptr);

    // The day prices are judged against; today unless a test fixes it.
    void setToday(const QDate& today) { m_today = today; }

    void FillVendorList();
    void CloseChooser();

protected:
    QString closeMask() const override;
    QAbstractButton* closeBoxButton() const override;
    void windowActivated() override { FillVendorList(); }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    void onSelect();
    void closeSoon();

    QComboBox* m_vendors = nullptr;
    QLabel* m_info = nullptr;
    std::array<QPushButton*, ButtonCount> m_buttons{};
    QDate m_today;
    bool m_liveOrderFound = false;
    bool m_closing = false;
};

} // namespace ordwell

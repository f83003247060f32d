#pragma once

#include "app/ToolWindow.h"

#include <QString>
#include <array>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace ordwell {

// frmdeactvend: takes a vendor out of use after the user has typed a confirmation word. Only
// the vendor's row in the system database changes; its own database file is kept as it is.
class DeactivateVendorForm : public ToolWindow {
    Q_OBJECT
public:
    enum Button { Deactivate, Exit, ButtonCount };

    // What a press of De-activate finds wrong, checked in this order.
    enum class Refusal { None, NoVendorChosen, NotConfirmed };
    static Refusal checkRequest(const QString& chosenEntry, const QString& confirmation);

    explicit DeactivateVendorForm(AppContext& context, QWidget* parent = nullptr);

    // Lists the active vendors with none chosen; with none left, says so and closes the window.
    void FillVendorList();
    void DeactivateVendor(const QString& code);

protected:
    QAbstractButton* closeBoxButton() const override;
    void windowActivated() override { FillVendorList(); }

private:
    void buildControls();
    void onDeactivate();
    void closeSoon();

    QComboBox* m_vendors = nullptr;
    QLabel* m_info = nullptr;
    QLabel* m_instruction = nullptr;
    QLineEdit* m_confirmation = nullptr;
    std::array<QPushButton*, ButtonCount> m_buttons{};
    bool m_closing = false;
};

} // namespace ordwell

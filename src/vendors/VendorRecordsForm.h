#pragma once

#include "app/ToolWindow.h"
#include "common/RecordCursor.h"
#include "vendors/VendorRecords.h"
#include "vendors/VendorRepository.h"

#include <QList>
#include <array>

class QLabel;
class QLineEdit;
class QPushButton;

namespace ordwell {

class RecordForm;

// frmaddeditvnd: browses the active vendors one at a time, edits a vendor's details and adds
// new vendors in two stages (identity first, then details).
class VendorRecordsForm : public ToolWindow {
    Q_OBJECT
public:
    enum class State { Browse, Editing, AddingIdentity, AddingDetails };

    // The nine buttons, in the order of the button mask.
    enum Button { Edit, Save, Cancel, First, Previous, Next, Last, AddNew, Exit, ButtonCount };

    explicit VendorRecordsForm(AppContext& context, QWidget* parent = nullptr);

    State state() const;
    // The active vendors as the window holds them, and which one the identity boxes show.
    const QList<VendorEntry>& vendors() const { return m_vendors.rows(); }
    int currentIndex() const { return m_vendors.index(); }

protected:
    QAbstractButton* closeBoxButton() const override;
    void showEvent(QShowEvent* event) override;

private:
    void buildControls();
    QLineEdit* box(VendorField field) const;
    QPushButton* button(Button which) const { return m_buttons[which]; }

    void reloadList();
    void showCurrentVendor();
    QString currentCode() const;
    void loadDetails();
    void clearDetails();
    void showDetails(const VendorDetails& details);
    VendorDetails detailsFromBoxes() const;

    void enterState(State state);
    void showEditingPosition();
    void tell(const QString& text);
    // Shows a failed check's message, writes back its upper-cased text and moves the focus.
    bool accept(const VendorCheck& check);
    std::optional<FieldProblem> checkIdentity(QString& shortcode);

    void onEdit();
    void onSave();
    void saveIdentity();
    void saveDetails();
    void onCancel();
    void move(bool (RecordCursor::*step)());
    void onAddNew();
    void onExit();
    void onImportReport();
    void onPeppol();

    RecordForm* m_record = nullptr;
    std::array<QPushButton*, ButtonCount> m_buttons{};
    QLabel* m_recordCount = nullptr;
    QPushButton* m_importReport = nullptr;
    QPushButton* m_peppol = nullptr;

    ListCursor<VendorEntry> m_vendors;
    // The details as they were read, which a save may only overwrite as they are.
    VendorDetails m_asRead;
    bool m_shownOnce = false;
};

} // namespace ordwell

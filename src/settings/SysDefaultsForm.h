#pragma once

#include "app/ToolWindow.h"
#include "settings/OrganisationDetails.h"

#include <QList>

class QAbstractButton;
class QLabel;
class QPushButton;

namespace ordwell {

class RecordForm;

// frmsysdefaults: the organisation's own details, shown read-only until Edit opens them.
// While nothing has been stored yet the window can only be left by saving valid details.
class SysDefaultsForm : public ToolWindow {
    Q_OBJECT
public:
    enum Button { EditButton, SaveButton, CancelButton, ExitButton, ButtonCount };
    // Details shown locked; open for editing; open before anything has been stored.
    enum State { Viewing, Editing, FirstEntry };

    explicit SysDefaultsForm(AppContext& context, QWidget* parent = nullptr);

    // True from opening on an empty table until the first valid save.
    bool isFirstEntry() const { return m_firstEntry; }

    void enterState(State state);
    void ShowDetails();
    bool ValidateDetails();
    bool SaveDetails();
    void InitialState();

protected:
    QString loadMask() const override;
    QAbstractButton* closeBoxButton() const override;
    void showEvent(QShowEvent* event) override;

private:
    void buildForm();
    void onButton(int index);
    void onPeppol();
    void focusOnActivation();
    OrganisationDetails typedDetails() const;

    RecordForm* m_record = nullptr;
    QList<QAbstractButton*> m_buttons;
    QPushButton* m_peppol = nullptr;
    QLabel* m_instructions[2] = {nullptr, nullptr};
    // The details as they were read, which a save may only overwrite as they are.
    OrganisationDetails m_asRead;
    bool m_firstEntry = false;
    bool m_shownOnce = false;
};

} // namespace ordwell

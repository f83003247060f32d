#include "DeactivateVendorForm.h"

#include "common/FormHelpers.h"
#include "vendors/VendorRepository.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTimer>

namespace ordwell {

namespace {
const QString ConfirmationWord = QStringLiteral("KILLVENDOR");
const QString ErrorTitle = QStringLiteral("Deactivation Error");
} // namespace

DeactivateVendorForm::Refusal DeactivateVendorForm::checkRequest(const QString& chosenEntry,
                                                                 const QString& confirmation) {
    if (chosenEntry.isEmpty())
        return Refusal::NoVendorChosen;
    // Exactly the word: a lower-case or padded entry is a sign the user did not mean it.
    if (confirmation != ConfirmationWord)
        return Refusal::NotConfirmed;
    return Refusal::None;
}

DeactivateVendorForm::DeactivateVendorForm(AppContext& context, QWidget* parent)
    : ToolWindow(context, Level::System, parent) {
    setObjectName(QStringLiteral("frmdeactvend"));
    setWindowTitle(QStringLiteral("Select a Vendor to Deactivate"));
    buildControls();
}

void DeactivateVendorForm::buildControls() {
    m_info = new QLabel(QStringLiteral("Please select a vendor to deactivate"), this);
    m_info->setObjectName(QStringLiteral("lblinfo"));
    m_vendors = new QComboBox(this);
    m_vendors->setObjectName(QStringLiteral("cmbvendors"));
    m_vendors->setEditable(false);
    m_vendors->setMinimumContentsLength(32);
    m_vendors->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_info->setBuddy(m_vendors);

    m_instruction = new QLabel(QStringLiteral("Type in KILLVENDOR to deactivate the vendor"), this);
    m_instruction->setObjectName(QStringLiteral("lblinstr"));
    m_confirmation = new QLineEdit(this);
    m_confirmation->setObjectName(QStringLiteral("txtdeactvend"));
    m_instruction->setBuddy(m_confirmation);

    const ButtonSpec specs[ButtonCount] = {{"De-activate"}, {"&Exit"}};
    auto* buttonRow = makeButtonRow(this, specs, ButtonCount, &m_buttons[0]);
    buttonRow->insertStretch(0, 1);
    connect(m_buttons[Deactivate], &QPushButton::clicked, this, &DeactivateVendorForm::onDeactivate);
    connect(m_buttons[Exit], &QPushButton::clicked, this, [this] { finishToolWindow(); });

    auto* layout = new QGridLayout(this);
    layout->addWidget(m_info, 0, 0);
    layout->addWidget(m_vendors, 1, 0);
    layout->addWidget(m_instruction, 2, 0);
    layout->addWidget(m_confirmation, 3, 0);
    layout->addLayout(buttonRow, 4, 0);

    setTabOrder(m_vendors, m_confirmation);
    setTabOrder(m_confirmation, m_buttons[Deactivate]);
    setTabOrder(m_buttons[Deactivate], m_buttons[Exit]);
}

QAbstractButton* DeactivateVendorForm::closeBoxButton() const {
    return m_buttons[Exit];
}

void DeactivateVendorForm::FillVendorList() {
    if (m_closing)
        return;
    m_vendors->clear();
    const auto vendors = VendorRepository::activeVendors(context().systemDb());
    if (!vendors) {
        context().prompter().message(
            QStringLiteral("The list of vendors could not be read.\n%1").arg(vendors.message()), QString(),
            MessageIcon::Critical);
        return;
    }
    if (vendors->isEmpty()) {
        context().prompter().message(QStringLiteral("There are no active vendors to deactivate"),
                                     QStringLiteral("No Active Vendors"), MessageIcon::Exclamation);
        closeSoon();
        return;
    }
    for (const VendorEntry& vendor : *vendors)
        m_vendors->addItem(vendor.listText(), vendor.code);
    // Nothing chosen until the user chooses.
    m_vendors->setCurrentIndex(-1);
}

void DeactivateVendorForm::onDeactivate() {
    switch (checkRequest(m_vendors->currentText(), m_confirmation->text())) {
    case Refusal::NoVendorChosen:
        context().prompter().message(QStringLiteral("Please select a vendor to deactivate"), ErrorTitle,
                                     MessageIcon::Exclamation);
        m_confirmation->clear();
        return;
    case Refusal::NotConfirmed:
        context().prompter().message(QStringLiteral("To deactivate this vendor please type in 'KILLVENDOR'"),
                                     ErrorTitle, MessageIcon::Exclamation);
        m_confirmation->clear();
        focusOn(m_confirmation);
        return;
    case Refusal::None:
        break;
    }
    DeactivateVendor(m_vendors->currentData().toString());
}

void DeactivateVendorForm::DeactivateVendor(const QString& code) {
    const Status done = VendorRepository::deactivateVendor(context().systemDb(), code);
    if (!done) {
        context().prompter().message(QStringLiteral("The vendor could not be deactivated.\n%1").arg(done.message()),
                                     QString(), MessageIcon::Critical);
        return;
    }
    m_confirmation->clear();
    FillVendorList();
}

void DeactivateVendorForm::closeSoon() {
    // Called from within the activation or a click: the window must not go away under the
    // code that is still running for it.
    m_closing = true;
    QTimer::singleShot(0, this, [this] { finishToolWindow(); });
}

} // namespace ordwell

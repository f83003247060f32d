#include "VendorChooserForm.h"
#include "common/FormHelpers.h"

#include "app/MenuMasks.h"
#include "app/VendorSession.h"
#include "common/Prompter.h"
#include "vendors/VendorChooser.h"
#include "vendors/VendorRepository.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTimer>

namespace ordwell {

VendorChooserForm::VendorChooserForm(AppContext& context, QWidget* parent)
    : ToolWindow(context, Level::System, parent) {
    setObjectName(QStringLiteral("frmswvend"));
    setWindowTitle(QStringLiteral("Please Select a Vendor"));
    buildControls();
    // The recovery notice comes once the menus show the vendor open, before the chooser goes.
    connect(this, &ToolWindow::toolWindowClosed, this, [this] {
        if (m_liveOrderFound)
            this->context().prompter().message(
                QStringLiteral("An order has been found in the Live state, the system will now recover this order!"),
                QStringLiteral("System Recovery"), MessageIcon::Critical);
    });
}

void VendorChooserForm::buildControls() {
    m_info = new QLabel(VendorChooser::InfoWhileClosed, this);
    m_info->setObjectName(QStringLiteral("lblinfo"));
    m_info->setWordWrap(true);
    m_vendors = new QComboBox(this);
    m_vendors->setObjectName(QStringLiteral("cmbvendors"));
    m_vendors->setEditable(false);
    m_vendors->setMinimumContentsLength(40);
    m_vendors->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_info->setBuddy(m_vendors);

    const ButtonSpec specs[ButtonCount] = {{"&Select Vendor"}, {"E&xit"}};
    auto* buttonRow = makeButtonRow(this, specs, ButtonCount, &m_buttons[0]);
    buttonRow->insertStretch(0, 1);
    connect(m_buttons[Select], &QPushButton::clicked, this, &VendorChooserForm::onSelect);
    connect(m_buttons[Exit], &QPushButton::clicked, this, &VendorChooserForm::CloseChooser);

    auto* layout = new QGridLayout(this);
    layout->addWidget(m_info, 0, 0);
    layout->addWidget(m_vendors, 1, 0);
    layout->addLayout(buttonRow, 2, 0);
    setTabOrder(m_vendors, m_buttons[Select]);
    setTabOrder(m_buttons[Select], m_buttons[Exit]);
    m_vendors->installEventFilter(this);
}

// Enter in the list chooses what it shows, so a vendor is opened with the arrow keys and Enter.
bool VendorChooserForm::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_vendors && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) && !key->isAutoRepeat()) {
            m_buttons[Select]->click();
            return true;
        }
    }
    return ToolWindow::eventFilter(watched, event);
}

QString VendorChooserForm::closeMask() const {
    return context().vendorSession().isOpen() ? MenuMasks::VendorOpen : MenuMasks::NoVendor;
}

QAbstractButton* VendorChooserForm::closeBoxButton() const {
    return m_buttons[Exit];
}

void VendorChooserForm::FillVendorList() {
    if (m_closing)
        return;
    const VendorSession& session = context().vendorSession();
    const auto vendors = VendorRepository::activeVendors(context().systemDb());
    m_vendors->clear();
    m_info->setText(VendorChooser::infoText(session.isOpen()));
    if (!vendors) {
        context().prompter().message(
            QStringLiteral("The list of vendors could not be read.\n%1").arg(vendors.message()), QString(),
            MessageIcon::Critical);
        return;
    }
    if (vendors->isEmpty()) {
        context().prompter().message(QStringLiteral("There are no active vendors to select"),
                                     QStringLiteral("No Active Vendors"), MessageIcon::Exclamation);
        closeSoon();
        return;
    }
    m_vendors->addItems(VendorChooser::listEntries(*vendors, session.code(), session.name()));
    // Nothing chosen until the user chooses.
    m_vendors->setCurrentIndex(-1);
}

void VendorChooserForm::onSelect() {
    const VendorChooser::Choice choice = VendorChooser::parseChoice(m_vendors->currentText());
    VendorSession& session = context().vendorSession();
    switch (choice.kind) {
    case VendorChooser::Choice::Kind::Nothing:
        break;
    case VendorChooser::Choice::Kind::CloseVendor:
        session.close();
        break;
    case VendorChooser::Choice::Kind::OpenVendor: {
        m_closing = true; // no list refresh while the vendor opens under the messages
        const auto opened = VendorChooser::openVendor(context(), choice.code, choice.name,
                                                      m_today.isValid() ? m_today : QDate::currentDate());
        m_liveOrderFound = opened && *opened;
        break;
    }
    }
    context().ShowStatus(session.name());
    CloseChooser();
}

void VendorChooserForm::CloseChooser() {
    m_closing = true;
    const bool recover = m_liveOrderFound;
    // Uncounts the window, applies the menu mask for the session as it now is, tells of a live
    // order (toolWindowClosed) and unloads the chooser.
    finishToolWindow();
    m_liveOrderFound = false;
    if (recover)
        context().openOrderForm(QStringLiteral("LIVEORDER"));
}

void VendorChooserForm::closeSoon() {
    // Called from within the activation: the window must not go away under the code that is
    // still running for it.
    m_closing = true;
    QTimer::singleShot(0, this, [this] { CloseChooser(); });
}

} // namespace ordwell

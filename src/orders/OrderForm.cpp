// The order form's modes, its main button row and the routines every part of it shares.
#include "orders/OrderForm.h"

#include "catalogue/ScanKeyFilter.h"

#include "app/MenuMasks.h"
#include "app/VendorSession.h"
#include "common/FormHelpers.h"
#include "common/WaitCursor.h"
#include "orders/OrderEmail.h"
#include "orders/OrderTransitions.h"
#include "orders/OrderWords.h"
#include "orders/PeppolOrder.h"
#include "store/OrderLeases.h"

#include <QCheckBox>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTableWidget>

namespace ordwell {

OrderForm::OrderForm(AppContext& context, QWidget* parent) : ToolWindow(context, Level::Vendor, parent) {
    setObjectName(QStringLiteral("frmorder"));
    setWindowTitle(QStringLiteral("Order Form"));
    buildControls();
    connectControls();
    // Until a mode has been carried out the form shows nothing to work on.
    ShowNavigationBar(false);
    ShowReceiveControls(false);
    ShowEntryRow(false);
    ShowStartOrder(false);
    ShowEditOrder(false);
    ShowCancelOrder(false);
    LockHeader(true);
    SetGridTabStop(false);
}

OrderForm::~OrderForm() = default;

QString OrderForm::vendorCode() const {
    return context().vendorSession().code();
}

QSqlDatabase OrderForm::vendorDb() const {
    return context().vendorSession().db();
}

void OrderForm::connectControls() {
    for (int i = 0; i < 6; ++i)
        connect(m_ui.cmdbutton[i], &QPushButton::clicked, this, [this, i] { cmdbutton_Click(i); });
    for (int i = 0; i < 5; ++i)
        connect(m_ui.cmdnavbutton[i], &QPushButton::clicked, this, [this, i] { cmdnavbutton_Click(i); });
    connect(m_ui.cmdcancelld, &QPushButton::clicked, this, &OrderForm::cmdcancelld_Click);
    connect(m_ui.cmdcancelord, &QPushButton::clicked, this, &OrderForm::cmdcancelord_Click);
    connect(m_ui.cmdrecv, &QPushButton::clicked, this, &OrderForm::cmdrecv_Click);
    connect(m_ui.cmdstartorder, &QPushButton::clicked, this, &OrderForm::cmdstartorder_Click);
    connect(m_ui.cmdedit, &QPushButton::clicked, this, &OrderForm::cmdedit_Click);
    connect(m_ui.cmdfinditem, &QPushButton::clicked, this, &OrderForm::FindItemByDescription);
    connect(m_ui.cmdemail, &QPushButton::clicked, this, &OrderForm::EmailShownOrder);
    connect(m_ui.cmdpeppol, &QPushButton::clicked, this, &OrderForm::ExportShownOrderAsPeppol);
    connect(m_ui.flxitems, &QTableWidget::cellDoubleClicked, this, [this] { LineRowChosen(); });
    for (QLineEdit* box : m_ui.txtheader)
        box->installEventFilter(this);
    for (QLineEdit* box : m_ui.txtitem)
        box->installEventFilter(this);
    m_ui.txtrcvqty->installEventFilter(this);
    m_ui.flxitems->installEventFilter(this);
    // After the form's own filter, so it sees a scanner's group-separator keys first.
    new ScanKeyFilter(m_ui.txtitem[Entry::Code], GroupSeparatorSubstitute::fromSettings(*context().settings()));
}

bool OrderForm::event(QEvent* event) {
    // Inside the main window the frame tells when the form becomes the active window; on its
    // own the form is told directly.
    if (event->type() == QEvent::ParentChange && !m_watchingFrame) {
        if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget())) {
            m_watchingFrame = true;
            connect(frame, &QMdiSubWindow::windowStateChanged, this,
                    [this](Qt::WindowStates before, Qt::WindowStates now) {
                        if (now.testFlag(Qt::WindowActive) && !before.testFlag(Qt::WindowActive))
                            onActivated();
                    });
        }
    }
    if (event->type() == QEvent::WindowActivate && !m_watchingFrame)
        onActivated();
    if (event->type() == QEvent::LayoutRequest) {
        // Rows of controls come and go with the screen state; the frame may never be smaller
        // than the layout then needs, or the grid would run under the button row.
        const bool handled = ToolWindow::event(event);
        if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget()))
            frame->setMinimumSize(frame->minimumSizeHint());
        return handled;
    }
    return ToolWindow::event(event);
}

void OrderForm::onActivated() {
    if (ActivatedOnce)
        return;
    SetupLineGrid();
    DispatchMode();
    ActivatedOnce = true;
}

bool OrderForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return ToolWindow::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    for (int i = 0; i < 8; ++i)
        if (watched == m_ui.txtheader[i])
            return txtheader_KeyPress(i, key);
    for (int i = 0; i < 5; ++i)
        if (watched == m_ui.txtitem[i])
            return txtitem_KeyPress(i, key);
    if (watched == m_ui.txtrcvqty)
        return txtrcvqty_KeyPress(key);
    if (watched == m_ui.flxitems && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)) {
        // The keyboard's way of double-clicking the current row.
        LineRowChosen();
        return true;
    }
    return ToolWindow::eventFilter(watched, event);
}

void OrderForm::DispatchMode() {
    switch (m_desk.mode) {
    case DeskMode::New:
        BeginNewOrder();
        break;
    case DeskMode::Load:
        BeginLoadOrder();
        break;
    case DeskMode::Print:
        BeginPrintOrder();
        break;
    case DeskMode::Export:
        BeginExportOrder();
        break;
    case DeskMode::Receive:
        BeginReceiveOrder();
        break;
    case DeskMode::Live:
        BeginLiveOrder();
        break;
    case DeskMode::None:
        break;
    }
}

void OrderForm::cmdbutton_Click(int index) {
    switch (index) {
    case MainButton::NewOrder:
        FinishShownOrder();
        ResetToIdle();
        m_desk.mode = DeskMode::New;
        break;
    case MainButton::LoadOrder:
        FinishShownOrder();
        ResetToIdle();
        m_desk.mode = DeskMode::Load;
        break;
    // The shown order stays, so the mode can offer it directly.
    case MainButton::PrintOrder:
        m_desk.mode = DeskMode::Print;
        break;
    case MainButton::ExportOrder:
        m_desk.mode = DeskMode::Export;
        break;
    case MainButton::ReceiveOrder:
        m_desk.mode = DeskMode::Receive;
        break;
    case MainButton::Exit:
        ExitOrderForm();
        break;
    default:
        return;
    }
    DispatchMode();
}

void OrderForm::FinishShownOrder() {
    if (m_desk.shown.isEmpty())
        return;
    const OrderState state = ReadOrderStatus();
    if (state == OrderState::Live) {
        CloseOrderLines();
        const Status done = OrderDesk::finish(vendorDb(), m_desk.shown, m_desk.total, QDate::currentDate());
        if (!done)
            reportFailure(QStringLiteral("The order's status could not be stored."), done.message());
    } else if (state == OrderState::Printed || state == OrderState::Exported || state == OrderState::PartReceived) {
        CloseOrderLines();
    }
}

OrderState OrderForm::ReadOrderStatus() {
    const auto state = m_desk.shownState(vendorDb());
    if (!state) {
        reportFailure(QStringLiteral("The order's status could not be read."), state.message());
        return OrderState::None;
    }
    return *state;
}

bool OrderForm::ClaimOrder(const QString& number) {
    OrderLeases* leases = appContext().vendorSession().leases();
    if (!leases)
        return true;
    const Status taken = leases->take(number);
    if (!taken)
        appContext().prompter().message(taken.message(), QStringLiteral("Order in use"), MessageIcon::Exclamation);
    return bool(taken);
}

void OrderForm::EmailShownOrder() {
    Prompter& prompter = appContext().prompter();
    const QString title = QStringLiteral("E-mail Order");
    const QString number = m_desk.shown;
    if (number.isEmpty()) {
        prompter.message(QStringLiteral("Bring up the order to e-mail first: load it, or choose it to print or "
                                        "export."),
                         title, MessageIcon::Exclamation);
        return;
    }
    if (!prompter.ask(QStringLiteral("Are you sure you want to e-mail order %1 to the vendor?").arg(number), title,
                      MessageIcon::Question))
        return;
    Result<OrderEmail::Mail> mail = Status::fail(QString());
    {
        WaitCursor wait;
        mail = OrderEmail::prepare(appContext().systemDb(), vendorDb(), appContext().dataDir(), vendorCode(),
                                   appContext().CurrentVendorName, number, OrderEmail::outgoingFolder());
    }
    if (!mail) {
        prompter.message(mail.message(), title, MessageIcon::Exclamation);
        return;
    }
    if (const Status sent = OrderEmail::send(vendorDb(), number, *mail); !sent) {
        // The PDF is made: offered for saving, to be sent some other way.
        if (prompter.ask(sent.message() + QStringLiteral("\n\nSave the order's PDF instead?"), title,
                         MessageIcon::Exclamation)) {
            FileRequest request{QStringLiteral("Save Order As"),
                                appContext().DesktopPath,
                                {QStringLiteral("PDF files (*.pdf)")},
                                false};
            const auto target = prompter.saveFile(request);
            if (target && !target->isEmpty() && !(QFile::exists(*target) && !QFile::remove(*target)) &&
                !QFile::copy(mail->attachment, *target))
                prompter.message(QStringLiteral("The PDF could not be saved as %1.").arg(*target), title,
                                 MessageIcon::Critical);
        }
        return;
    }
    ResetToIdle();
    m_ui.lblinfo->setText(QStringLiteral("Order %1 e-mailed to %2").arg(number, mail->recipient));
}

void OrderForm::ExportShownOrderAsPeppol() {
    Prompter& prompter = appContext().prompter();
    const QString title = QStringLiteral("Export as Peppol Order");
    const QString number = m_desk.shown;
    if (number.isEmpty()) {
        prompter.message(QStringLiteral("Bring up the order to export first: load it, or choose it to print or "
                                        "export."),
                         title, MessageIcon::Exclamation);
        return;
    }
    const QString path = QDir(appContext().DesktopPath).filePath(PeppolOrder::FileName(number));
    OrderExport::ExportResult result;
    {
        WaitCursor wait;
        result =
            PeppolOrder::exportOrder(appContext().systemDb(), vendorDb(), appContext().CurrentVendorName, path, number);
    }
    switch (result.outcome) {
    case OrderExport::Outcome::FileExists:
        prompter.message(QStringLiteral("The file %1 already exists on your desktop, please remove this file before "
                                        "exporting the order again")
                             .arg(PeppolOrder::FileName(number)),
                         OrderExport::ExistsTitle, MessageIcon::Exclamation);
        return;
    case OrderExport::Outcome::Failed:
        prompter.message(result.message, title, MessageIcon::Exclamation);
        return;
    case OrderExport::Outcome::Exported:
        break;
    }
    ResetToIdle();
    m_ui.lblinfo->setText(
        QStringLiteral("Order %1 written to the desktop as %2").arg(number, PeppolOrder::FileName(number)));
}

void OrderForm::ReleaseShownOrder() {
    OrderLeases* leases = appContext().vendorSession().leases();
    const QString number = m_desk.shown;
    if (leases && !number.isEmpty())
        leases->release(number);
    m_desk.shown.clear();
}

void OrderForm::ResetToIdle() {
    ReleaseShownOrder();
    m_ui.lblinfo->clear();
    for (QLineEdit* box : m_ui.txtheader)
        box->clear();
    m_ui.chkunknown->setChecked(false);
    ClearLineGrid();
    for (QLineEdit* box : m_ui.txtitem)
        box->clear();
    applyScreen(DeskScreen::Idle);
    focusOn(m_ui.cmdbutton[MainButton::NewOrder]);
}

void OrderForm::ExitOrderForm() {
    FinishShownOrder();
    ReleaseShownOrder();
    if (m_desk.itemsOpen())
        CloseItems();
    if (m_desk.linesOpen)
        CloseOrderLines();
    m_desk.mode = DeskMode::None;
    m_desk.rulesLoaded = false;
    ActivatedOnce = false;
    // Uncounts the window, restores the vendor's menus and unloads the form.
    finishToolWindow();
}

void OrderForm::reportFailure(const QString& what, const QString& why) {
    context().prompter().message(why.isEmpty() ? what : what + QLatin1Char('\n') + why, QString(),
                                 MessageIcon::Critical);
}

} // namespace ordwell

#pragma once

#include "app/ToolWindow.h"
#include "common/Money.h"
#include "orders/BarcodeResolver.h"
#include "orders/ItemCatalogue.h"
#include "orders/OrderDesk.h"
#include "orders/OrderFormControls.h"
#include "orders/OrderLineBook.h"
#include "orders/OrderRepository.h"

#include <QString>
#include <memory>
#include <optional>

class QKeyEvent;

namespace ordwell {

// frmorder: where orders are started, filled line by line, and taken through their lives.
// The form's routines are split by concern over this one class (OrderForm*.cpp); what it
// works with between user actions, apart from its controls, is its order desk.
class OrderForm : public ToolWindow {
    Q_OBJECT
public:
    explicit OrderForm(AppContext& context, QWidget* parent = nullptr);
    ~OrderForm() override;

    // The form's one public operation: the mode the next (first) activation carries out.
    void SetOrderMode(const QString& mode) { m_desk.mode = deskModeFromWord(mode); }

    OrderFormControls& ui() { return m_ui; }
    AppContext& appContext() const { return context(); }
    QString vendorCode() const;
    QSqlDatabase vendorDb() const;
    OrderRepository orders() const { return OrderRepository(vendorDb()); }
    // What the form works from between user actions.
    const OrderDesk& desk() const { return m_desk; }

    // Modes and shared routines.
    void DispatchMode();
    void cmdbutton_Click(int index);
    void FinishShownOrder();
    OrderState ReadOrderStatus();
    void ResetToIdle();
    // On a server, the order is this workstation's while it is shown here: claimed when it
    // comes up (refused, with who has it, while another workstation works on it), let go when
    // the form goes idle or closes.
    bool ClaimOrder(const QString& number);
    // "E-mail Order...": the order in the header, after a question, to the vendor by mail.
    void EmailShownOrder();
    // The shown order written to the desktop as a Peppol order, and marked exported.
    void ExportShownOrderAsPeppol();
    void ReleaseShownOrder();
    void ExitOrderForm();

    // Applies one of the desk's named screens from one table: what is shown, locked and enabled.
    void applyScreen(DeskScreen screen);

    // Screen-state routines: each sets exactly what it names.
    void ShowNavigationBar(bool on);
    void ShowEntryRow(bool on);
    void ShowReceiveControls(bool on);
    void ShowStartOrder(bool on);
    void ShowEditOrder(bool on);
    void ShowFindItem(bool on);
    void ShowCancelOrder(bool on);
    void EnableStartOrder(bool on);
    void EnableEditOrder(bool on);
    void EnableSaveUnknown(bool on);
    void EnableCancelOrder(bool on);
    void EnableMainButtons(bool on);
    void SetGridTabStop(bool on);
    void LockHeader(bool locked);
    void LockEntryRow(bool locked);

    // The header.
    void BeginNewOrder();
    void ShowNewHeader();
    QString NextOrderNumber();
    void SaveOrderHeader(const QString& kind);
    void cmdstartorder_Click();
    void cmdedit_Click();
    OrderHeaderFields shownHeader() const;
    void showTotal(Money total);

    // The lines.
    void SetupLineGrid();
    void ClearLineGrid();
    void ShowLineRow(int row, const QString& code, const QString& description, int quantity, Money price, int pack,
                     const QString& status);
    void LoadOrderLines();
    void OpenOrderLines();
    void CloseOrderLines();
    void OpenItems();
    void CloseItems();
    void AddOrUpdateLine();
    void LineRowChosen();

    // Item entry.
    void LoadBarcodeRules();
    void ResolveItemCode();
    void FillFromItem(const CatalogueItem& item);
    void PromptUnknownItem();
    bool ValidateUnknownItem();
    void SaveUnknownItem();
    void ClearItemEntry();
    void ReadyForNextItem();
    void UnknownItemState();
    void QuantityState();
    void FindItemByDescription();

    // The form's state.
    bool ActivatedOnce = false;

    // Tells the user a step failed; the data stays as last saved.
    void reportFailure(const QString& what, const QString& why);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildControls();
    void connectControls();
    void onActivated();
    void alignEntryRow();
    void sizeGridColumns();
    bool txtheader_KeyPress(int index, QKeyEvent* key);
    bool txtitem_KeyPress(int index, QKeyEvent* key);
    void headerBoxState(int index, bool locked);
    void entryBoxState(int index, bool open);
    // What the last scan read worth telling (a misread, a passed expiry), in the info line.
    void showScanNote(const QString& note);
    // The desktop's alert sound, for a scan that found nothing or needs a look.
    void alertUser();

    // The selection lists and their navigation bar (OrderFormLists.cpp).
    void ShowOrderForAction();
    QLineEdit* headerBox(int index);
    void showCurrentOrder();
    // Shows an order's header; the order is the one on screen from then on.
    void showHeader(const OrderHeadRow& order, const std::array<QString, 8>& texts);
    void ApplyNavMask(const QString& mask);
    void UpdateNavigation();
    bool OpenOrderList(OrderListKey key);
    void CloseOrderList();
    bool listIsEmpty();
    void showList();
    void carryOut();
    void beginChoosing();
    void takeUp();
    void showLoaded(OrderState state);
    void chooseShownOrder();
    void BeginLoadOrder();
    void BeginPrintOrder();
    void BeginExportOrder();
    void BeginReceiveOrder();
    void cmdnavbutton_Click(int index);
    void cmdcancelld_Click();
    // Cancellation and recovery (OrderFormCancel.cpp).
    void cmdcancelord_Click();
    void BeginLiveOrder();
    void RecoverLiveOrder();
    // Printing and export of the shown order (OrderFormPrint.cpp, OrderFormExport.cpp).
    Status showAndMark(const QString& number);
    void PrintOrder();
    void ExportOrder();
    // Receiving (OrderFormReceive.cpp).
    void clearEntryBoxes();
    void LockReceiveBox(bool locked);
    void StartReceiving();
    void ReceiveRowChosen(int row);
    bool txtrcvqty_KeyPress(QKeyEvent* key);
    void cmdrecv_Click();
    // The received order closes and the form goes idle; told first when its last line came.
    void CloseReceivedOrder(bool lastLineCame);

    OrderFormControls m_ui;
    OrderDesk m_desk;
    bool m_watchingFrame = false;
    QString m_scanNote;
    QString m_guidanceBeforeNote;
};

} // namespace ordwell

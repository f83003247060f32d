#pragma once

#include "common/Money.h"
#include "orders/BarcodeResolver.h"
#include "orders/ItemCatalogue.h"
#include "orders/OrderExport.h"
#include "orders/OrderLineBook.h"
#include "orders/OrderList.h"
#include "orders/OrderWords.h"
#include "orders/Receiving.h"

#include <QDate>

#include <QSqlDatabase>
#include <QString>
#include <memory>
#include <optional>

namespace ordwell {

// What the order form is doing: the mode it was opened with, or "Live" for an order a stopped
// program left behind.
enum class DeskMode { None, New, Load, Print, Export, Receive, Live };
// From the mode words the form is opened with ("NEWORDER" ...); an unknown word is None.
DeskMode deskModeFromWord(const QString& word);
QString wordOf(DeskMode mode);

// The order form's named screens: what each step leaves shown, locked and enabled.
enum class DeskScreen {
    Idle,
    Browsing,
    ShownForAction,
    TakenUp,
    Recovered,
    Receiving,
    NewHeader,     // a new order's details being typed
    Entering,      // lines being entered under a finished header
    EditingHeader, // the header opened again from line entry
};

// What a step did and the screen that follows it. A failed step leaves the data as it was and
// names what could not be done; the form stays where it is.
struct DeskStep {
    DeskScreen next = DeskScreen::Idle;
    Status status = Status::ok();
    QString failed; // "The receipt could not be stored." ...

    static DeskStep to(DeskScreen next) { return {next, Status::ok(), {}}; }
    static DeskStep failure(const QString& what, const Status& why) { return {DeskScreen::Idle, why, what}; }
};

// A step of receiving: the step, what was made of the typed quantity, and the line as it now
// stands when a quantity was booked.
struct ReceiptStep : DeskStep {
    Receiving::Verdict verdict = Receiving::Verdict::Ignore;
    std::optional<Receiving::ReceivedLine> line;
};

// The longest item code an order line or an unknown item may have.
inline constexpr int ItemCodeLength = 25;

// What a scanned or typed code came to, and so what the entry row does next.
enum class ScanOutcome {
    Item,          // an item of the catalogue: its quantity next
    Misread,       // a misread or a bad label: the next scan is awaited, nothing is made of it
    NothingFound,  // an unknown code while unknown items are not kept: dropped
    Empty,         // nothing was read
    TooLong,       // an unknown code too long to keep
    BadCharacters, // an unknown code with characters no code may have
    Unknown,       // an unknown code to keep: its description, price and pack next
};
struct ScanStep {
    ScanOutcome outcome = ScanOutcome::Empty;
    QString code;                // what the code box shows: the code as read
    QString note;                // worth telling on the info line (a misread, a passed expiry)
    bool alert = false;          // the scan needs a look
    std::optional<int> quantity; // one the label carried
};

// An export to the desktop: the step, and whether a file of that name stood in the way.
struct ExportStep : DeskStep {
    OrderExport::Outcome outcome = OrderExport::Outcome::Failed;
};

// What the order form works with between one user action and the next, apart from its
// controls: the mode and the screen, the order on screen with its total and state, the list of
// orders being browsed, the catalogue, the barcode rules and the lines being entered, and the
// count of the delivery being received; and the steps an order goes through, each saying which
// screen follows. No widgets: the form shows what this holds.
class OrderDesk {
public:
    // The list of the mode's orders, read afresh; on failure there is no list.
    Status openList(const QSqlDatabase& db, OrderListKey key);
    void closeList() { list.reset(); }
    bool browsing() const { return list != nullptr; }
    // The state of the order the list stands on; None with no list or an empty one.
    OrderState chosenState() const;
    // The state of the order on screen as stored now; None with no order shown.
    Result<OrderState> shownState(const QSqlDatabase& db) const;
    // Whether the mode's action (print, export, receive) takes an order in this state as it is.
    bool accepts(OrderState state) const;

    // Takes a live or entered order up for entry again: it and its lines become live together.
    static Status takeUp(const QSqlDatabase& db, const QString& orderId, const QDate& today);
    // Ends work on the shown order: a live one becomes entered, with the total the screen shows,
    // it and its lines together; an order in any other state is left as it is.
    static Status finish(const QSqlDatabase& db, const QString& orderId, Money shownTotal, const QDate& today);

    // A new order with the number given: stored live with the date and no lines, its lines
    // open for entry; it is the order on screen, and its header is typed next.
    DeskStep startNew(const QSqlDatabase& db, const QString& orderId, const QDate& date);
    // The order came out on the vendor's order form: marked printed, shown for its next step.
    static DeskStep printed(const QSqlDatabase& db, const QString& orderId);
    // The order written to the desktop as the vendor's file and marked exported; it stays shown.
    static ExportStep exportToDesktop(const QSqlDatabase& systemDb, const QSqlDatabase& db, const QString& vendorName,
                                      const QString& desktopDir, const QString& orderId);
    // Cancels the order with its lines, in one step; the form goes idle.
    static DeskStep cancel(const QSqlDatabase& db, const QString& orderId);

    // Receiving begins: the order is part received and its delivery counted. Receiving follows,
    // or, when nothing was outstanding, the order closes as received and the form goes idle.
    DeskStep startReceiving(const QSqlDatabase& db, const QString& orderId);
    // A quantity typed against a line with `outstanding` items to come. Booked, the line comes
    // back as it now stands; the last of the order closes it, and the form goes idle.
    ReceiptStep receive(const QSqlDatabase& db, const QString& orderId, const QString& code, const QString& typed,
                        int outstanding);
    // Everything outstanding is received at once and the order closes.
    static DeskStep receiveAll(const QSqlDatabase& db, const QString& orderId);

    // The vendor's catalogue and barcode rules, open while orders are entered.
    void openItems(const QSqlDatabase& db);
    void closeItems();
    bool itemsOpen() const { return catalogue != nullptr; }
    // The active barcode rules; when they cannot be read, codes are read without rules.
    Status loadRules(const QSqlDatabase& db);
    // The lines of the order being entered, kept while it is open.
    Result<QList<OrderLine>> openLines(const QSqlDatabase& db, const QString& orderId);
    void closeLines();

    // Reads a scanned or typed code; an item found becomes the current item.
    ScanStep scan(const QSqlDatabase& db, const QString& typed, bool keepUnknown, const QDate& today);
    // Adds an unknown item to the catalogue and makes it the current item.
    Status keepUnknownItem(const CatalogueItem& item);
    // The current item's line takes this quantity (and the boxes' description, pack and price):
    // a new line, or the line of the same code, stored with the typed header and the order's
    // new total. Nothing without a current item or open lines.
    Result<std::optional<LineChange>> enterQuantity(qint64 qty, Money price, int pack, const QString& descr,
                                                    const OrderHeaderFields& header);

    // What the form was opened to do, and the screen it shows now.
    DeskMode mode = DeskMode::None;
    DeskScreen screen = DeskScreen::Idle;
    // The header is open for typing: a new order's, or one opened again from line entry.
    bool headerOpen() const { return screen == DeskScreen::NewHeader || screen == DeskScreen::EditingHeader; }
    // The order on screen: its number (empty with none) and its total as it now stands.
    QString shown;
    Money total;
    void show(const OrderHeadRow& order) {
        shown = order.orderId;
        total = order.total;
    }
    std::unique_ptr<OrderList> list;
    int orderedTotal = 0;
    int receivedTotal = 0;

    std::unique_ptr<ItemCatalogue> catalogue;
    std::unique_ptr<BarcodeResolver> resolver;
    std::unique_ptr<OrderLineBook> lines;
    bool linesOpen = false;
    bool rulesLoaded = false;
    bool haveRules = false;
    // The catalogue item the entry boxes stand on, and whether a line of the grid is changed.
    std::optional<CatalogueItem> currentItem;
    bool editingLine = false;

private:
    // Counts what the order had and has had; true when nothing is outstanding.
    Result<bool> countReceipt(const QSqlDatabase& db, const QString& orderId);
    // A receipt booked against a line; true when it was the last of the order.
    bool booked(int quantity);
};

} // namespace ordwell

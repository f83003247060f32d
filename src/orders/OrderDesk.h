#pragma once

#include "common/Money.h"
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
enum class DeskScreen { Idle, Browsing, ShownForAction, TakenUp, Recovered, Receiving };

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

// What the order form works with between one user action and the next, apart from its
// controls: the list of orders being browsed, and the count of the delivery being received;
// and the steps an order goes through, each saying which screen follows.
// No widgets: the form shows what this holds.
class OrderDesk {
public:
    // The list of the mode's orders, read afresh; on failure there is no list.
    Status openList(const QSqlDatabase& db, OrderListKey key);
    void closeList() { list.reset(); }
    bool browsing() const { return list != nullptr; }
    // The status letter of the order the list stands on, empty with no list or an empty one.
    QString chosenStatus() const;

    // Takes a live or entered order up for entry again: it and its lines become live together.
    static Status takeUp(const QSqlDatabase& db, const QString& orderId, const QDate& today);
    // Ends work on the shown order: a live one becomes entered, with the total the screen shows,
    // it and its lines together; an order in any other state is left as it is.
    static Status finish(const QSqlDatabase& db, const QString& orderId, Money shownTotal, const QDate& today);

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

    // Counts what the order had and has had; true when nothing is outstanding.
    Result<bool> countReceipt(const QSqlDatabase& db, const QString& orderId);
    // A receipt booked against a line; true when it was the last of the order.
    bool booked(int quantity);

    std::unique_ptr<OrderList> list;
    int orderedTotal = 0;
    int receivedTotal = 0;
};

} // namespace ordwell

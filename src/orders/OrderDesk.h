#pragma once

#include "common/Money.h"
#include "orders/OrderList.h"
#include "orders/OrderWords.h"
#include "orders/Receiving.h"

#include <QDate>

#include <QSqlDatabase>
#include <QString>
#include <memory>

namespace ordwell {

// What the order form is doing: the mode it was opened with, or "Live" for an order a stopped
// program left behind.
enum class DeskMode { None, New, Load, Print, Export, Receive, Live };
// From the mode words the form is opened with ("NEWORDER" ...); an unknown word is None.
DeskMode deskModeFromWord(const QString& word);
QString wordOf(DeskMode mode);

// What the order form works with between one user action and the next, apart from its
// controls: the list of orders being browsed, and the count of the delivery being received.
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

    // Counts what the order had and has had; true when nothing is outstanding.
    Result<bool> countReceipt(const QSqlDatabase& db, const QString& orderId);
    // A receipt booked against a line; true when it was the last of the order.
    bool booked(int quantity);

    std::unique_ptr<OrderList> list;
    int orderedTotal = 0;
    int receivedTotal = 0;
};

} // namespace ordwell

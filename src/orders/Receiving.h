#pragma once

#include "common/Money.h"
#include "common/Status.h"

#include <QDate>
#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// Recording deliveries against an exported order: per line or all at once, until nothing is
// outstanding and the order closes as received. Each booking is one step in the database.
namespace Receiving {

inline const QString CompleteText = QStringLiteral("All items have been received, the order will now close");
inline const QString CompleteTitle = QStringLiteral("Order Complete");
inline const QString ReceiveAllText = QStringLiteral("Do you want to receive all items in the order?");
inline const QString ReceiveAllTitle = QStringLiteral("Receive All Items");
inline constexpr int ReceivedBoxLength = 5;

// What is still to come of a line.
inline int Outstanding(int ordered, int received) {
    return ordered - received;
}

// Ordered and received quantities over the order's lines that are not cancelled.
struct ReceiptTotals {
    int ordered = 0;
    int received = 0;
    bool complete() const { return ordered == received; }
};
Result<ReceiptTotals> CountReceipt(const QSqlDatabase& db, const QString& orderId);

// Receiving begins: an exported order's live lines become "S", then the order "S" (an order
// already "S" is simply written again). One step.
Status StartReceiving(const QSqlDatabase& db, const QString& orderId);

// What a quantity typed into the received box means against the line's outstanding quantity.
enum class Verdict {
    Ignore,   // empty or not a number: nothing happens
    Book,     // a whole number from 1 to the outstanding quantity
    PassOver, // exactly "0": the line is passed over
    Refuse,   // anything else numeric (too many, negative, zero written otherwise, fractions)
};
struct Judgement {
    Verdict verdict = Verdict::Ignore;
    int quantity = 0; // for Book
};
Judgement JudgeReceivedQuantity(const QString& typed, int outstanding);

// One line after a receipt, as the grid shows it again.
struct ReceivedLine {
    int line = 0;
    QString code;
    int ordered = 0;
    int received = 0;
    Money price;
    QString status;
    int outstanding() const { return Outstanding(ordered, received); }
};

// Books `quantity` against the order's live line with this code: the received quantity
// grows, the line's received date becomes today, and the line turns "R" when it has all it
// ordered. A quantity outside 1 to the outstanding quantity is refused and nothing changes.
Result<ReceivedLine> ReceiveLine(const QSqlDatabase& db, const QString& orderId, const QString& code, int quantity,
                                 const QDate& today = QDate::currentDate());

// The order is received: "R" with today's received date; every live line "R" with all it
// ordered received (their own received dates stay). One step.
Status CompleteReceipt(const QSqlDatabase& db, const QString& orderId, const QDate& today = QDate::currentDate());

} // namespace Receiving
} // namespace ordwell

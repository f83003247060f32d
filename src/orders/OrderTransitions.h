#pragma once

#include "common/Money.h"
#include "common/Status.h"

#include <QDate>
#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// The writes behind the order's life after entry: an order's status with what comes with
// it, and the status of its lines. Callers wrap them in one transaction per user action.
namespace OrderTransitions {

// Sets the order's status; "C" also zeroes the total, "E" stores `enteredTotal` (the total the
// screen showed when entry ended), "P" stamps the print date and "R" the received date with
// `today`. Fails when no such order exists. The only writer of an order's status.
Status setOrderStatus(const QSqlDatabase& db, const QString& orderId, const QString& letter, const QDate& today,
                      Money enteredTotal = {});

// Sets the status of every line of the order that is not cancelled; "R" also counts each
// such line as received in full. The only writer of the lines' status for the whole order.
Status setLineStatus(const QSqlDatabase& db, const QString& orderId, const QString& letter);

// The order and its lines moved to `letter` together, in one transaction (both as
// setOrderStatus and setLineStatus write them), so a failure leaves neither moved.
Status moveOrder(const QSqlDatabase& db, const QString& orderId, const QString& letter, const QDate& today,
                 Money enteredTotal = {});

// The order's stored status, or an empty text when there is no such order.
Result<QString> orderStatus(const QSqlDatabase& db, const QString& orderId);

// Whether the order may be sent to the vendor (e-mailed or written as an electronic order):
// it exists and is live, entered, printed or exported already. Received and cancelled orders
// are refused, saying why.
Status maySend(const QSqlDatabase& db, const QString& orderId);

} // namespace OrderTransitions
} // namespace ordwell

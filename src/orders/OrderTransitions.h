#pragma once

#include "common/Money.h"
#include "common/Status.h"
#include "orders/OrderWords.h"

#include <QDate>
#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// The writes behind the order's life after entry: an order's status with what comes with it,
// and the status of its lines. The only writers of either.
namespace OrderTransitions {

// Sets the order's status alone; "C" also zeroes the total, "E" stores `enteredTotal` (the
// total the screen showed when entry ended), "P" stamps the print date with `today` (and,
// when the order was printed before, the reprint date and one more on the count) and "R"
// the received date. Fails when no such order exists.
Status setOrderStatus(const QSqlDatabase& db, const QString& orderId, const QString& letter, const QDate& today,
                      Money enteredTotal = {});

// The order (as setOrderStatus writes it) and every line of it that is not cancelled moved to
// `letter` together, in one transaction, so a failure leaves neither moved; "R" also counts
// each such line as received in full.
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

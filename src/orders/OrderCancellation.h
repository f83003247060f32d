#pragma once

#include "OrderHeadRow.h"
#include "common/Status.h"

#include <QDate>
#include <QSqlDatabase>
#include <QString>
#include <array>
#include <optional>

namespace ordwell {

// Ending an order for good, and finding the order whose entry never ended.
namespace OrderCancellation {

inline const QString Question = QStringLiteral("Are you sure you want to cancel this order");
inline const QString Title = QStringLiteral("Cancel Order");

// The order and every line not yet cancelled become "C" and the order's total 0.00, in one
// step: after a crash either all of it is stored or none. Quantities, prices, line values and
// the print date stay as they were.
Status CancelOrder(const QSqlDatabase& db, const QString& orderId);

// The live order a stopped program left behind: the first "L" order by number, or nothing.
Result<std::optional<OrderHeadRow>> FindLiveOrder(const QSqlDatabase& db);

// The eight header box texts of an order: number, short date, contact name, reference, the
// two notes, the given status text and the total with two decimals.
std::array<QString, 8> HeaderTexts(const OrderHeadRow& order, const QString& statusText);

// The header of a recovered order: as HeaderTexts, with the status shown as "L - Live".
std::array<QString, 8> RecoveredHeaderTexts(const OrderHeadRow& order);

} // namespace OrderCancellation
} // namespace ordwell

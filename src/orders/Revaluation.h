#pragma once

#include "common/Prompter.h"
#include "common/Status.h"

#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// Brings the open vendor's live and entered orders ("L", "E") into line with the catalogue:
// a line whose price, to the penny, differs from its item's price takes the item's price and
// its value becomes price x quantity; a line whose code has left the catalogue keeps its price
// and value. Each order's total is then the running sum of its line values, rounded to the
// penny after every line. Orders in any other state keep the prices they were printed with.
//
// One transaction; the cost grows with the number of open order lines, not with the size of
// the catalogue. Returns how many order totals changed.
Result<int> revalueOpenOrders(const QSqlDatabase& vendorDb);

// "1 order value has been updated", "N order values have been updated"; empty for 0.
QString ordersUpdatedText(int count);
inline const QString OrdersUpdateTitle = QStringLiteral("Orders update");

// The routine as the vendor session, the item window and the import run it: hourglass,
// revalue, then the count message (none for 0), or the failure as a critical message with
// nothing changed. Returns the count, 0 after a failure.
int RefreshOrderValues(const QSqlDatabase& vendorDb, Prompter& prompter);

} // namespace ordwell

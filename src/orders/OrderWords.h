#pragma once

#include <QString>

namespace ordwell {

// The order status letters, stored on orderhead and on every orderline.
namespace OrderStatus {
inline const QString Live = QStringLiteral("L");
inline const QString Entered = QStringLiteral("E");
inline const QString Printed = QStringLiteral("P");
inline const QString Exported = QStringLiteral("X");
inline const QString PartReceived = QStringLiteral("S");
inline const QString Received = QStringLiteral("R");
inline const QString Cancelled = QStringLiteral("C");
} // namespace OrderStatus

// The words the order form is opened with.
namespace OrderMode {
inline const QString New = QStringLiteral("NEWORDER");
inline const QString Load = QStringLiteral("LOADORDER");
inline const QString Print = QStringLiteral("PRINTORDER");
inline const QString Export = QStringLiteral("EXPORDER");
inline const QString Receive = QStringLiteral("RCVORDER");
inline const QString Live = QStringLiteral("LIVEORDER");
} // namespace OrderMode

} // namespace ordwell

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

// An order's state as the program reasons about it; None: no order, or a letter it never writes.
enum class OrderState { None, Live, Entered, Printed, Exported, PartReceived, Received, Cancelled };

inline OrderState orderStateOf(const QString& letter) {
    using namespace OrderStatus;
    for (const auto& [text, state] :
         {std::pair{&Live, OrderState::Live}, std::pair{&Entered, OrderState::Entered},
          std::pair{&Printed, OrderState::Printed}, std::pair{&Exported, OrderState::Exported},
          std::pair{&PartReceived, OrderState::PartReceived}, std::pair{&Received, OrderState::Received},
          std::pair{&Cancelled, OrderState::Cancelled}})
        if (letter == *text)
            return state;
    return OrderState::None;
}

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

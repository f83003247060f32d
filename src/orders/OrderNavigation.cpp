#include "OrderNavigation.h"

#include "OrderWords.h"

namespace ordwell::OrderNavigation {

namespace {
const QString LoadMode = QStringLiteral("LOADORDER");
const QString PrintMode = QStringLiteral("PRINTORDER");
const QString ExportMode = QStringLiteral("EXPORDER");
const QString ReceiveMode = QStringLiteral("RCVORDER");
} // namespace

QString keyName(OrderListKey key) {
    switch (key) {
    case OrderListKey::All:
        return QStringLiteral("ALL");
    case OrderListKey::EP:
        return QStringLiteral("EP");
    case OrderListKey::PX:
        return QStringLiteral("PX");
    case OrderListKey::XS:
        return QStringLiteral("XS");
    }
    return {};
}

std::optional<OrderListKey> keyFromName(const QString& name) {
    for (OrderListKey key : {OrderListKey::All, OrderListKey::EP, OrderListKey::PX, OrderListKey::XS}) {
        if (keyName(key) == name)
            return key;
    }
    return std::nullopt;
}

std::optional<OrderListKey> keyForMode(const QString& modeWord) {
    if (modeWord == LoadMode)
        return OrderListKey::All;
    if (modeWord == PrintMode)
        return OrderListKey::EP;
    if (modeWord == ExportMode)
        return OrderListKey::PX;
    if (modeWord == ReceiveMode)
        return OrderListKey::XS;
    return std::nullopt;
}

QStringList statusesFor(OrderListKey key) {
    switch (key) {
    case OrderListKey::All:
        return {OrderStatus::Entered, OrderStatus::Live, OrderStatus::Printed, OrderStatus::PartReceived,
                OrderStatus::Exported};
    case OrderListKey::EP:
        return {OrderStatus::Entered, OrderStatus::Printed};
    case OrderListKey::PX:
        return {OrderStatus::Printed, OrderStatus::Exported};
    case OrderListKey::XS:
        return {OrderStatus::PartReceived, OrderStatus::Exported};
    }
    return {};
}

std::optional<DirectQuestion> directQuestion(const QString& modeWord) {
    if (modeWord == PrintMode)
        return DirectQuestion{QStringLiteral("Are you sure you want to print this order?"),
                              QStringLiteral("Print order?")};
    if (modeWord == ExportMode)
        return DirectQuestion{QStringLiteral("Are you sure you want to export this order?"),
                              QStringLiteral("Export order?")};
    if (modeWord == ReceiveMode)
        return DirectQuestion{QStringLiteral("Are you sure you want to receive this order?"),
                              QStringLiteral("Receive Order")};
    return std::nullopt;
}

QString browsingGuidance(const QString& modeWord) {
    if (modeWord == LoadMode)
        return QStringLiteral("Please select an order to load");
    if (modeWord == PrintMode)
        return QStringLiteral("Please Select an order to print");
    if (modeWord == ExportMode)
        return QStringLiteral("Please select an order to export");
    if (modeWord == ReceiveMode)
        return QStringLiteral("Please select an order to receive");
    return {};
}

QString noOrdersText(const QString& modeWord) {
    if (modeWord == LoadMode)
        return QStringLiteral("There are no orders to load, please create a new order");
    return QStringLiteral("There are no orders to load, please select a different option");
}

QString navigationMask(int position, int count) {
    if (count <= 1)
        return QStringLiteral("00100");
    if (position <= 1)
        return QStringLiteral("00111");
    if (position < count)
        return QStringLiteral("11111");
    return QStringLiteral("11100");
}

QString positionText(int position, int count) {
    return QStringLiteral("Record %1 of %2").arg(position).arg(count);
}

bool maskEnables(const QString& mask, int index) {
    const QString trimmed = mask.trimmed();
    return index >= 0 && index < trimmed.size() && trimmed.at(index) == QLatin1Char('1');
}

QString takenUpStatusText(OrderState state) {
    switch (state) {
    case OrderState::Live:
    case OrderState::Entered:
        return QStringLiteral("L - LIVE");
    case OrderState::Printed:
        return QStringLiteral("P - PRINTED");
    case OrderState::Exported:
        return QStringLiteral("X - EXPORTED");
    case OrderState::PartReceived:
        return QStringLiteral("S - PART RECEIVED");
    default:
        return {};
    }
}

} // namespace ordwell::OrderNavigation

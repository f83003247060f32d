#pragma once

#include "orders/OrderWords.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace ordwell {

// The four selection lists of the order form and the rules of their navigation bar, kept as
// plain functions so the form only wires them to its buttons.
enum class OrderListKey { All, EP, PX, XS };

namespace OrderNavigation {

// "ALL", "EP", "PX", "XS".
QString keyName(OrderListKey key);
std::optional<OrderListKey> keyFromName(const QString& name);

// The list a mode word browses: "LOADORDER" -> ALL, "PRINTORDER" -> EP, "EXPORDER" -> PX,
// "RCVORDER" -> XS; any other word has no list.
std::optional<OrderListKey> keyForMode(const QString& modeWord);

// The status letters a list holds, in the order the list shows them (alphabetical).
QStringList statusesFor(OrderListKey key);

// The question asked for the shown order in a mode: text and title. Nothing for modes that
// ask none.
struct DirectQuestion {
    QString text;
    QString title;
};
std::optional<DirectQuestion> directQuestion(const QString& modeWord);

// What the guidance line says while a mode's list is browsed.
QString browsingGuidance(const QString& modeWord);

// The "No Orders" message text of a mode with an empty list.
QString noOrdersText(const QString& modeWord);
inline const QString NoOrdersTitle = QStringLiteral("No Orders");

// The five-character enable mask of first, previous, Select, next, last for the current
// position (1-based) in a list of `count` orders.
QString navigationMask(int position, int count);
inline const QString MovingMask = QStringLiteral("00000");

// "Record 2 of 7".
QString positionText(int position, int count);

// Whether a mask character enables its button: only "1" does.
bool maskEnables(const QString& mask, int index);

// The status box text for an order taken up from the load list; empty for states that are
// shown bare or not at all.
QString takenUpStatusText(OrderState state);

} // namespace OrderNavigation
} // namespace ordwell

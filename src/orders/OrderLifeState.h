#pragma once

#include "orders/OrderList.h"

#include <QObject>
#include <memory>

namespace ordwell {

class OrderForm;

// What the after-entry steps keep on the form between user actions: the list being browsed
// and the receiving totals. A child of the form, so it lives and dies with it.
class OrderLifeState : public QObject {
    Q_OBJECT
public:
    explicit OrderLifeState(QObject* parent) : QObject(parent) {}

    // The form's state, made on first use.
    static OrderLifeState& of(OrderForm& form);

    std::unique_ptr<OrderList> list;
    int orderedTotal = 0;
    int receivedTotal = 0;
};

} // namespace ordwell

#include "orders/OrderLifeState.h"

#include "orders/OrderForm.h"

namespace ordwell {

OrderLifeState& OrderLifeState::of(OrderForm& form) {
    auto* state = form.findChild<OrderLifeState*>(QString(), Qt::FindDirectChildrenOnly);
    if (!state)
        state = new OrderLifeState(&form);
    return *state;
}

} // namespace ordwell

// Where each part of the order form that lives in its own files joins the form.
#include "orders/OrderFormHooks.h"

namespace ordwell {

void installOrderFormHooks(OrderFormHooks& hooks) {
    // The selection lists, cancellation and recovery, printing, export and receiving, and the
    // description chooser each add their steps here.
    (void)hooks;
}

} // namespace ordwell

#pragma once

#include <QString>
#include <functional>

class QKeyEvent;

namespace ordwell {

class OrderForm;

// The order form's steps that live in their own files (selection lists, cancellation and
// recovery, printing, export, receiving). Each is called with the
// form; an empty one does nothing.
struct OrderFormHooks {
    // Entry steps of the modes other than "NEWORDER".
    std::function<void(OrderForm&)> BeginLoadOrder;
    std::function<void(OrderForm&)> BeginPrintOrder;
    std::function<void(OrderForm&)> BeginExportOrder;
    std::function<void(OrderForm&)> BeginReceiveOrder;
    std::function<void(OrderForm&)> BeginLiveOrder;

    // Buttons of the navigation bar, "Cancel Order" and "Receive All".
    std::function<void(OrderForm&, int index)> cmdnavbutton_Click;
    std::function<void(OrderForm&)> cmdcancelld_Click;
    std::function<void(OrderForm&)> cmdcancelord_Click;
    std::function<void(OrderForm&)> cmdrecv_Click;

    // A grid row chosen while the order is part received ("S").
    std::function<void(OrderForm&, int row)> ReceiveRowChosen;
    // A key in the received-quantity box; true when it was handled (and so swallowed).
    std::function<bool(OrderForm&, QKeyEvent* key)> txtrcvqty_KeyPress;
};

// Fills the hooks of a new form; each part adds its own.
void installOrderFormHooks(OrderFormHooks& hooks);

} // namespace ordwell

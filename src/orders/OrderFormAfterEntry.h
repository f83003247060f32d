#pragma once

#include "orders/OrderFormHooks.h"

class QKeyEvent;

namespace ordwell {

class OrderForm;

// The order form's steps after entry: the selection lists and their navigation bar,
// cancellation and recovery, printing, export and receiving. Each works on the form's shared
// controls and routines; the rules themselves live in the plain order classes.
namespace OrderFormAfterEntry {

// Puts every step below into the form's hooks.
void install(OrderFormHooks& hooks);

// Selection lists.
void BeginLoadOrder(OrderForm& form);
void BeginPrintOrder(OrderForm& form);
void BeginExportOrder(OrderForm& form);
void BeginReceiveOrder(OrderForm& form);
void cmdnavbutton_Click(OrderForm& form, int index);
void cmdcancelld_Click(OrderForm& form);
// A printed or exported order shown for its next step: no entry, the header locked, only
// "Cancel Order" beside it.
void ShowOrderForAction(OrderForm& form);

// Cancellation and recovery.
void cmdcancelord_Click(OrderForm& form);
void BeginLiveOrder(OrderForm& form);
void RecoverLiveOrder(OrderForm& form);

// Printing and export of the order shown in the header.
void PrintOrder(OrderForm& form);
void ExportOrder(OrderForm& form);

// Receiving.
void StartReceiving(OrderForm& form);
void CountReceipt(OrderForm& form);
void ReceiveRowChosen(OrderForm& form, int row);
bool txtrcvqty_KeyPress(OrderForm& form, QKeyEvent* key);
void cmdrecv_Click(OrderForm& form);
void CompleteReceipt(OrderForm& form, bool wholeLine);
void LockReceiveBox(OrderForm& form, bool locked);

} // namespace OrderFormAfterEntry
} // namespace ordwell

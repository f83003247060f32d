#pragma once

#include <QString>

namespace ordwell {

class AppContext;
class WindowHost;
class OrderForm;

// Opens the order form inside the main window in `mode`; when it is open already, brings it
// forward (the menus that give a mode are disabled while it is open).
OrderForm* openOrderForm(WindowHost& mainWindow, AppContext& context, const QString& mode);

// The main menu's order entries, and the vendor session's way of opening the form.
void wireOrderMenus(WindowHost& mainWindow, AppContext& context);

} // namespace ordwell

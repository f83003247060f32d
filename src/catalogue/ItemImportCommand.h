#pragma once

namespace ordwell {

class AppContext;
class WindowHost;

// "Import Items" on the main menu: choose a price list, import it into the open vendor's
// catalogue in front of the progress window, then revalue the open orders.
namespace ItemImportCommand {

void ImportItems(AppContext& context, WindowHost& mainWindow);

} // namespace ItemImportCommand
} // namespace ordwell

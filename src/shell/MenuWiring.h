#pragma once

namespace ordwell {

class AppContext;
class MainWindow;

// Connects the main menu's entries to the windows and routines they open.
void wireMenus(MainWindow& mainWindow, AppContext& context);

} // namespace ordwell

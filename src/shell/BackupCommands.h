#pragma once

#include <QString>

namespace ordwell {

class AppContext;
class MainWindow;

// The File menu's backup and restore, and the automatic backups kept on exit.
namespace BackupCommands {

// "Back Up Data...": asks where, writes the archive while everything stays open.
void backUpData(AppContext& context);

// "Restore Data...": only with no window open. Asks for the archive and for confirmation,
// closes the vendor and the system database, restores, and opens the system database again;
// the user then chooses a vendor afresh, from the restored list.
void restoreData(AppContext& context, MainWindow& mainWindow);

// On exit, with the databases closed: keeps the last `BackupsKept` (setting, default 5)
// automatic backups in `BackupFolder` (setting, default the "Backups" folder inside the data
// folder). A failure is told, and the exit goes on.
void backUpOnExit(AppContext& context);

// The folder and the number the settings give, with their defaults.
QString backupFolder(const AppContext& context);
int backupsKept(const AppContext& context);

} // namespace BackupCommands
} // namespace ordwell

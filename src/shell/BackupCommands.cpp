#include "BackupCommands.h"

#include "app/AppContext.h"
#include "app/VendorSession.h"
#include "common/WaitCursor.h"
#include "reports/ShippedReports.h"
#include "shell/MainWindow.h"
#include "store/Backup.h"
#include "store/Store.h"

#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QMdiArea>

namespace ordwell::BackupCommands {

namespace {

const QString BackUpTitle = QStringLiteral("Back Up Data");
const QString RestoreTitle = QStringLiteral("Restore Data");
const QString ArchiveFilter = QStringLiteral("Ordwell backups (*.tar.gz)");

QString withSuffix(const QString& path) {
    if (path.endsWith(Backup::FileSuffix, Qt::CaseInsensitive) || path.endsWith(QStringLiteral(".tgz")))
        return path;
    return path + Backup::FileSuffix;
}

// On a server the data is the server's to back up (pg_dump, its own archiving): a copy of the
// folder would hold none of it.
bool leftToTheServer(AppContext& context, const QString& title) {
    if (!context.store().onServer())
        return false;
    context.prompter().message(
        QStringLiteral("The data is kept on a PostgreSQL server (%1). Backing it up and restoring it is the "
                       "server's business (pg_dump and the server's own archiving), done by its administrator; "
                       "nothing was done here.")
            .arg(context.store().describe()),
        title, MessageIcon::Information);
    return true;
}

} // namespace

QString backupFolder(const AppContext& context) {
    auto settings = context.settings();
    const QString chosen = settings->value(QStringLiteral("Settings/BackupFolder")).toString().trimmed();
    // Inside the data folder by default: always ours to write, private like the data, and it
    // moves with the folder. A folder on another disk is the better choice where there is one.
    if (chosen.isEmpty())
        return QDir(context.dataDir()).filePath(QStringLiteral("Backups"));
    return QDir(context.dataDir()).absoluteFilePath(chosen);
}

int backupsKept(const AppContext& context) {
    auto settings = context.settings();
    bool ok = false;
    const int kept = settings->value(QStringLiteral("Settings/BackupsKept"), 5).toInt(&ok);
    return ok ? kept : 5;
}

void backUpData(AppContext& context) {
    const QString startFolder = context.DesktopPath.isEmpty() ? backupFolder(context) : context.DesktopPath;
    const QString suggested =
        QDir(startFolder)
            .filePath(QStringLiteral("Ordwell backup %1").arg(QDate::currentDate().toString(Qt::ISODate)) +
                      Backup::FileSuffix);
    const auto chosen = context.prompter().saveFile(FileRequest{BackUpTitle, suggested, {ArchiveFilter}, false});
    if (!chosen)
        return;
    const QString archive = withSuffix(*chosen);
    Backup::Outcome written;
    {
        WaitCursor hourglass;
        written = Backup::writeBackup(context.dataDir(), archive);
    }
    if (!written) {
        context.prompter().message(written.message, BackUpTitle, MessageIcon::Critical);
        return;
    }
    context.prompter().message(
        QStringLiteral("The data has been backed up to \"%1\".").arg(QDir::toNativeSeparators(archive)), BackUpTitle,
        MessageIcon::Information);
}

void restoreData(AppContext& context, MainWindow& mainWindow) {
    if (leftToTheServer(context, RestoreTitle))
        return;
    Prompter& prompter = context.prompter();
    // Every window works on the open connections; they must be gone before the files are.
    if (context.OpenWindowCount > 0 || !mainWindow.mdiArea()->subWindowList().isEmpty()) {
        prompter.message(QStringLiteral("Please close every window before restoring data."), RestoreTitle,
                         MessageIcon::Exclamation);
        return;
    }
    const QString folder = backupFolder(context);
    const QString start = QFileInfo(folder).isDir() || context.DesktopPath.isEmpty() ? folder : context.DesktopPath;
    const auto chosen = prompter.openFile(FileRequest{RestoreTitle, start, {ArchiveFilter}, true});
    if (!chosen)
        return;
    Backup::Summary summary;
    if (const Backup::Outcome read = Backup::readSummary(*chosen, summary); !read) {
        prompter.message(read.message, RestoreTitle, MessageIcon::Critical);
        return;
    }
    const QString made = QLocale().toString(summary.created, QLocale::ShortFormat);
    if (!prompter.ask(QStringLiteral("Replace all of the current data by the backup made on %1?\nThe current data "
                                     "is kept until the backup has been checked and put in its place.")
                          .arg(made),
                      RestoreTitle))
        return;

    Backup::Outcome restored;
    bool reopened = false;
    {
        WaitCursor hourglass;
        context.vendorSession().close();
        context.closeSystemDb();
        context.releaseSystemLock();
        restored = Backup::restoreBackup(*chosen, context.dataDir());
        if (context.takeSystemLock() && Store::OpenSystemDatabase(context.dataDir())) {
            ShippedReports::installMissing(context.dataDir());
            reopened = true;
        }
    }
    if (!reopened) {
        prompter.message(
            QStringLiteral("There is a problem with the system database, please check the system database"), QString(),
            MessageIcon::Critical);
        mainWindow.exitProgram();
        return;
    }
    if (!restored) {
        prompter.message(restored.message, RestoreTitle, MessageIcon::Critical);
        return;
    }
    QString text =
        QStringLiteral("The data has been restored from the backup made on %1. Choose a vendor to go on.").arg(made);
    if (!restored.message.isEmpty())
        text += QLatin1Char('\n') + restored.message;
    prompter.message(text, RestoreTitle, MessageIcon::Information);
}

void backUpOnExit(AppContext& context) {
    const int kept = backupsKept(context);
    if (kept <= 0 || context.store().onServer() || !QFileInfo::exists(Store::systemDatabasePath(context.dataDir())))
        return;
    Backup::Outcome outcome;
    {
        WaitCursor hourglass;
        outcome = Backup::keepAutomaticBackup(context.dataDir(), backupFolder(context), kept);
    }
    if (!outcome)
        context.prompter().message(QStringLiteral("The automatic backup could not be made.\n%1").arg(outcome.message),
                                   QString(), MessageIcon::Exclamation);
}

} // namespace ordwell::BackupCommands

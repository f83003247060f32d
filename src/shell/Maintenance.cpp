#include "Maintenance.h"

#include "app/AppContext.h"
#include "app/VendorSession.h"
#include "common/Prompter.h"
#include "shell/MainWindow.h"
#include "store/Compaction.h"
#include "store/Store.h"

namespace ordwell::Maintenance {

void reportCompaction(Prompter& prompter, const Status& outcome) {
    if (outcome) {
        prompter.message(QStringLiteral("Database maintenance completed sucessfully"),
                         QStringLiteral("Maintenance complete"), MessageIcon::Information);
        return;
    }
    QString text = QStringLiteral("Database maintenance failed");
    if (!outcome.message().isEmpty())
        text += QLatin1Char('\n') + outcome.message();
    prompter.message(text, QStringLiteral("Maintenance failed"), MessageIcon::Exclamation);
}

namespace {
// A server keeps its own tables compact (autovacuum); copying files is no business of ours there.
bool leftToTheServer(AppContext& context) {
    if (!context.store().onServer())
        return false;
    context.prompter().message(
        QStringLiteral("The data is kept on a PostgreSQL server (%1). Compacting it is the server's own "
                       "maintenance (VACUUM), which the server runs by itself; nothing was done here.")
            .arg(context.store().describe()),
        QStringLiteral("Maintenance"), MessageIcon::Information);
    return true;
}
} // namespace

void compactSystem(AppContext& context, MainWindow& mainWindow) {
    if (leftToTheServer(context))
        return;
    context.closeSystemDb();
    reportCompaction(context.prompter(),
                     CompactDatabase(Store::systemDatabasePath(context.dataDir()), context.dataDir()));
    // Reopened whatever the outcome: a failed compaction leaves the original file in place.
    if (!Store::OpenSystemDatabase(context.store())) {
        context.prompter().message(
            QStringLiteral("There is a problem with the system database, please check the system database"), QString(),
            MessageIcon::Critical);
        mainWindow.exitProgram();
    }
}

void compactVendor(AppContext& context) {
    VendorSession& session = context.vendorSession();
    if (!session.isOpen() || leftToTheServer(context))
        return;
    session.detachDatabase();
    reportCompaction(context.prompter(),
                     CompactDatabase(Store::vendorDatabasePath(context.dataDir(), session.code()), context.dataDir()));
    // Reopened whatever the outcome: a failed compaction leaves the original file in place.
    const Status reopened = session.attachDatabase();
    if (!reopened) {
        context.prompter().message(
            QStringLiteral("The vendor's database could not be opened again, so the vendor has been closed.\n%1")
                .arg(reopened.message()),
            QString(), MessageIcon::Critical);
        // The main window follows: no-vendor menus, "No Vendor Selected".
        session.close();
    }
}

} // namespace ordwell::Maintenance

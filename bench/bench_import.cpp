// Importing a 100,000-line price list into a vendor that already has 100,000 items (half the
// lines update an item, half add one): the import core alone, the same import through the import
// window as the user waits for it (from the file chooser's Enter to the completion text, the
// window painted), also into an empty catalogue, and the sqlite3 shell loading the same file into
// the same indexed table and upserting it. Each run starts from a fresh copy of the same
// catalogue; the figures are medians of three runs. Prints "<name> <value> <unit>" lines.
#include "BenchProcess.h"
#include "BenchServer.h"
#include "ScaleData.h"
#include "SilentPrompter.h"
#include "app/AppContext.h"
#include "app/VendorSession.h"
#include "catalogue/ImportProgress.h"
#include "catalogue/ItemImport.h"
#include "catalogue/ItemImporter.h"
#include "common/Prompter.h"
#include "common/Sql.h"
#include "settings/OrganisationDetails.h"
#include "shell/MainWindow.h"
#include "shell/MenuWiring.h"
#include "store/Store.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLocale>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>

using namespace ordwell;

namespace {

constexpr int CatalogueItems = 100000;
constexpr int PriceListLines = 100000;
constexpr int Runs = 3;
const QString Vendor = QStringLiteral("BIG");

class NoProgress : public ImportProgress {
public:
    void showLineCount(int) override {}
    void showLine(int) override {}
    void showInfo(const QString&) override {}
    void showResetPrices(const QString&) override {}
};

bool fail(const QString& why) {
    std::fprintf(stderr, "%s\n", qPrintable(why));
    return false;
}

// A fresh data folder holding a copy of the prepared vendor file.
bool freshCopy(const QString& pristine, const QString& dataDir) {
    QDir(dataDir).removeRecursively();
    QDir().mkpath(dataDir);
    return QFile::copy(pristine, QDir(dataDir).filePath(Store::vendorFileName(Vendor)));
}

int itemCount(const QString& dataDir) {
    const QString connection = QStringLiteral("count");
    int count = -1;
    {
        auto db = Store::OpenVendorDatabase(dataDir, Store::vendorFileName(Vendor), connection);
        if (db) {
            QSqlDatabase handle = *db;
            if (auto n = Sql::scalar(handle, QStringLiteral("SELECT count(*) FROM items")))
                count = n->toInt();
            handle.close();
        }
    }
    QSqlDatabase::removeDatabase(connection);
    return count;
}

// The program's own import, as the import window runs it, timed from the file's line count to
// the completion text.
bool runImport(const QString& dataDir, const QString& priceList, const QDate& today, double& seconds,
               const QString& server = {}) {
    SilentPrompter prompter;
    NoProgress progress;
    AppContext context(dataDir, QDir(dataDir).filePath(QStringLiteral("settings.ini")), prompter);
    context.setServer(server);
    if (!context.vendorSession().open(Vendor, QStringLiteral("Big Catalogue Ltd")))
        return fail(QStringLiteral("cannot open the vendor"));
    QElapsedTimer timer;
    timer.start();
    PriceListReader reader(priceList);
    if (!ItemImport::prepare(reader, prompter, progress))
        return fail(QStringLiteral("the price list was refused"));
    const ItemImport::Run run = ItemImport::execute(context.vendorDb(), reader, today, prompter, progress);
    seconds = timer.nsecsElapsed() / 1e9;
    const auto items = Sql::scalar(context.vendorDb(), QStringLiteral("SELECT count(*) FROM items"));
    context.vendorSession().close();
    if (!items || items->toInt() != CatalogueItems + PriceListLines / 2)
        return fail(QStringLiteral("the import left the wrong number of items"));
    if (!run.outcome.completed() || run.outcome.linesStored != PriceListLines)
        return fail(QStringLiteral("the import stopped: %1").arg(run.outcome.message));
    return true;
}

// Chooses the price list the moment the file chooser is asked, as Enter in it would, and starts
// the clock there.
class ChoosingPrompter : public SilentPrompter {
public:
    explicit ChoosingPrompter(QString path) : m_path(std::move(path)) {}
    std::optional<QString> openFile(const FileRequest&) override {
        chosen.start();
        return m_path;
    }
    QElapsedTimer chosen;

private:
    QString m_path;
};

// A system database with the organisation's details, left open as the program keeps it, so the
// main window comes up as it does for a user who has used the program before (not with the
// system defaults window).
bool prepareSystem(const QString& dataDir) {
    if (!Store::CreateSystemDatabase(dataDir))
        return fail(QStringLiteral("cannot make the system database"));
    auto db = Store::OpenSystemDatabase(dataDir);
    if (!db)
        return fail(db.message());
    OrganisationDetails details;
    const char* values[DetailsFieldCount] = {"Head Office",  "", "1 High St",      "", "", "Kent", "CT11AA", "Ann",
                                             "01234 567890", "", "ann@example.org"};
    for (int field = 0; field < DetailsFieldCount; ++field)
        details[field] = QString::fromLatin1(values[field]);
    return OrganisationDetailsStore(*db).save(details) ? true : fail(QStringLiteral("cannot store the details"));
}

// The import from the main window's menu: the chooser, the progress window and everything it
// shows, until the completion text has been painted.
bool runWindowImport(const QString& dataDir, const QString& priceList, int expectedLines, double& seconds) {
    if (!prepareSystem(dataDir))
        return false;
    ChoosingPrompter prompter(priceList);
    AppContext context(dataDir, QDir(dataDir).filePath(QStringLiteral("settings.ini")), prompter);
    bool ok = true;
    {
        MainWindow window(context);
        wireMenus(window, context);
        QSignalSpy ready(&window, &MainWindow::firstActivated);
        window.resize(1000, 700);
        window.show();
        window.activateWindow();
        if (ready.isEmpty() && !ready.wait(5000))
            return fail(QStringLiteral("the main window never became active"));
        if (!context.vendorSession().open(Vendor, QStringLiteral("Big Catalogue Ltd")))
            return fail(QStringLiteral("cannot open the vendor"));
        QCoreApplication::processEvents();

        window.triggerMenu(QStringLiteral("mnuimpitms"));
        auto* info = window.findChild<QLabel*>(QStringLiteral("lblinfo"));
        auto* line = window.findChild<QLabel*>(QStringLiteral("lblcount_0"));
        QCoreApplication::processEvents(); // the final text painted
        seconds = prompter.chosen.isValid() ? prompter.chosen.nsecsElapsed() / 1e9 : 0;
        if (!info || info->text() != ItemImport::CompletedText || !line ||
            line->text() != QString::number(expectedLines) || prompter.shown != 0)
            ok = fail(QStringLiteral("the import window did not complete: %1")
                          .arg(info ? info->text() : QStringLiteral("no window")));
        context.vendorSession().close();
    }
    context.closeSystemDb();
    return ok;
}

// The same load done by the sqlite3 shell in one transaction: the file into a table, then one
// upsert.
bool runShell(const QString& dataDir, const QString& priceList, double& seconds) {
    const QString script =
        QStringLiteral(".bail on\n.mode csv\nBEGIN;\n"
                       "CREATE TEMP TABLE staging (code TEXT, descr TEXT, packqty TEXT, defqty TEXT, price TEXT, "
                       "priceexp TEXT);\n"
                       ".import --schema temp '%1' staging\n"
                       "INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                       "SELECT upper(code), descr, CAST(packqty AS INTEGER), CAST(defqty AS INTEGER), "
                       "CAST(round(CAST(price AS REAL) * 10000) AS INTEGER), priceexp FROM staging WHERE true "
                       "ON CONFLICT (code) DO UPDATE SET descr = excluded.descr, packqty = excluded.packqty, "
                       "defqty = excluded.defqty, price = excluded.price, priceexp = excluded.priceexp;\nCOMMIT;\n")
            .arg(priceList);
    QProcess shell;
    QElapsedTimer timer;
    timer.start();
    shell.start(QStringLiteral("sqlite3"), {QDir(dataDir).filePath(Store::vendorFileName(Vendor))});
    if (!shell.waitForStarted())
        return fail(QStringLiteral("cannot start sqlite3 (is it installed?)"));
    shell.write(script.toUtf8());
    shell.closeWriteChannel();
    shell.waitForFinished(-1);
    seconds = timer.nsecsElapsed() / 1e9;
    if (shell.exitStatus() != QProcess::NormalExit || shell.exitCode() != 0)
        return fail(QStringLiteral("sqlite3 failed: %1").arg(QString::fromLocal8Bit(shell.readAllStandardError())));
    return true;
}

// The same import into a server: a vendor of the same 100,000 items, made afresh for each run
// from one filled through the program's own import.
int serverImport(const QTemporaryDir& root, const QString& priceList, const QDate& today) {
    const QString catalogue = root.filePath(QStringLiteral("catalogue.csv"));
    const QString dataDir = root.filePath(QStringLiteral("server"));
    QDir().mkpath(dataDir);
    if (Status written = ScaleData::writePriceList(catalogue, 0, CatalogueItems, today); !written)
        return fail(written.message()) ? 0 : 1;
    {
        SilentPrompter prompter;
        NoProgress progress;
        AppContext context(dataDir, QDir(dataDir).filePath(QStringLiteral("settings.ini")), prompter);
        context.setServer(bench::server());
        PriceListReader reader(catalogue);
        if (!bench::freshServerVendor(QStringLiteral("SRC")) ||
            !context.vendorSession().open(QStringLiteral("SRC"), QStringLiteral("Source")) ||
            !ItemImport::prepare(reader, prompter, progress) ||
            !ItemImport::execute(context.vendorDb(), reader, today, prompter, progress).outcome.completed())
            return fail(QStringLiteral("cannot fill the catalogue on the server")) ? 0 : 1;
        context.vendorSession().close();
    }
    std::vector<double> server;
    for (int run = 0; run < Runs; ++run) {
        double seconds = 0;
        if (!bench::freshServerVendor(Vendor, QStringLiteral("SRC")) ||
            !runImport(dataDir, priceList, today, seconds, bench::server()))
            return 1;
        server.push_back(seconds);
    }
    std::printf("server_import_100k_s %.3f s\n", bench::median(server));
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    bench::offscreenUnlessChosen();
    QApplication app(argc, argv);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    QTemporaryDir root;
    const QDate today = QDate::currentDate();
    const QString prepared = root.filePath(QStringLiteral("prepared"));
    const QString emptyPrepared = root.filePath(QStringLiteral("empty"));
    const QString priceList = root.filePath(QStringLiteral("pricelist.csv"));
    QDir().mkpath(prepared);
    QDir().mkpath(emptyPrepared);
    if (Status made = ScaleData::makeVendor(prepared, Vendor, CatalogueItems, today); !made) {
        fail(made.message());
        return 1;
    }
    if (Status made = Store::CreateVendorDatabase(emptyPrepared, Vendor); !made) {
        fail(made.message());
        return 1;
    }
    // Items 50,000 to 149,999: the first half are in the catalogue, the second half are new.
    if (Status written = ScaleData::writePriceList(priceList, CatalogueItems / 2, PriceListLines, today); !written) {
        fail(written.message());
        return 1;
    }
    const QString pristine = QDir(prepared).filePath(Store::vendorFileName(Vendor));
    const QString emptyPristine = QDir(emptyPrepared).filePath(Store::vendorFileName(Vendor));
    const int expected = CatalogueItems + PriceListLines / 2;

    std::vector<double> core;
    std::vector<double> window;
    std::vector<double> windowEmpty;
    std::vector<double> shell;
    const QString work = root.filePath(QStringLiteral("work"));
    auto counted = [&work](int items, const char* what) {
        if (itemCount(work) == items)
            return true;
        return fail(QStringLiteral("%1 left the wrong number of items").arg(QLatin1String(what)));
    };
    for (int run = 0; run < Runs; ++run) {
        double seconds = 0;
        if (!freshCopy(pristine, work) || !runImport(work, priceList, today, seconds) ||
            !counted(expected, "the import"))
            return 1;
        core.push_back(seconds);
        if (!freshCopy(pristine, work) || !runWindowImport(work, priceList, PriceListLines, seconds) ||
            !counted(expected, "the import window"))
            return 1;
        window.push_back(seconds);
        if (!freshCopy(emptyPristine, work) || !runWindowImport(work, priceList, PriceListLines, seconds) ||
            !counted(PriceListLines, "the import window"))
            return 1;
        windowEmpty.push_back(seconds);
        if (!freshCopy(pristine, work) || !runShell(work, priceList, seconds) || !counted(expected, "sqlite3"))
            return 1;
        shell.push_back(seconds);
    }
    std::printf("import_100k_s %.3f s\n", bench::median(core));
    std::printf("import_window_100k_s %.3f s\n", bench::median(window));
    std::printf("import_window_empty_100k_s %.3f s\n", bench::median(windowEmpty));
    std::printf("import_sqlite3_shell_100k_s %.3f s\n", bench::median(shell));
    std::printf("import_window_vs_sqlite3_ratio %.2f x\n", bench::median(window) / bench::median(shell));
    return bench::server().isEmpty() ? 0 : serverImport(root, priceList, today);
}

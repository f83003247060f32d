// Importing a 100,000-line price list into a vendor that already has 100,000 items (half the
// lines update an item, half add one) through the import the window runs, against the sqlite3
// shell loading the same file into the same indexed table and upserting it. Each side runs on a
// fresh copy of the same catalogue; the figures are medians of three runs. Prints
// "<name> <value> <unit>" lines.
#include "ScaleData.h"
#include "catalogue/ImportProgress.h"
#include "catalogue/ItemImport.h"
#include "common/Prompter.h"
#include "common/Sql.h"
#include "shell/AppContext.h"
#include "store/Store.h"
#include "vendors/VendorSession.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLocale>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>

using namespace ordwell;

namespace {

constexpr int CatalogueItems = 100000;
constexpr int PriceListLines = 100000;
constexpr int Runs = 3;
const QString Vendor = QStringLiteral("BIG");

class SilentPrompter : public Prompter {
public:
    MessageAnswer message(const QString& text, const QString&, MessageIcon icon, MessageButtons buttons) override {
        if (icon == MessageIcon::Critical || icon == MessageIcon::Exclamation)
            std::fprintf(stderr, "%s\n", qPrintable(text));
        return buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Ok;
    }
    std::optional<QString> openFile(const FileRequest&) override { return std::nullopt; }
};

class NoProgress : public ImportProgress {
public:
    void showLineCount(int) override {}
    void showLine(int) override {}
    void showInfo(const QString&) override {}
    void showResetPrices(const QString&) override {}
};

double median(QList<double> values) {
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

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
bool runImport(const QString& dataDir, const QString& priceList, const QDate& today, double& seconds) {
    SilentPrompter prompter;
    NoProgress progress;
    AppContext context(dataDir, QDir(dataDir).filePath(QStringLiteral("settings.ini")), prompter);
    if (!context.vendorSession().open(Vendor, QStringLiteral("Big Catalogue Ltd")))
        return fail(QStringLiteral("cannot open the vendor"));
    QElapsedTimer timer;
    timer.start();
    if (!ItemImport::prepare(priceList, prompter, progress))
        return fail(QStringLiteral("the price list was refused"));
    const ItemImport::Run run = ItemImport::execute(context.vendorDb(), priceList, today, prompter, progress);
    seconds = timer.nsecsElapsed() / 1e9;
    context.vendorSession().close();
    if (!run.outcome.completed() || run.outcome.linesStored != PriceListLines)
        return fail(QStringLiteral("the import stopped: %1").arg(run.outcome.message));
    return true;
}

// The same load done by the sqlite3 shell: the file into a table, then one upsert.
bool runShell(const QString& dataDir, const QString& priceList, double& seconds) {
    const QString script =
        QStringLiteral(".bail on\n.mode csv\n"
                       "CREATE TEMP TABLE staging (code TEXT, descr TEXT, packqty TEXT, defqty TEXT, price TEXT, "
                       "priceexp TEXT);\n"
                       ".import --schema temp '%1' staging\n"
                       "INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                       "SELECT upper(code), descr, CAST(packqty AS INTEGER), CAST(defqty AS INTEGER), "
                       "CAST(round(CAST(price AS REAL) * 10000) AS INTEGER), priceexp FROM staging WHERE true "
                       "ON CONFLICT (code) DO UPDATE SET descr = excluded.descr, packqty = excluded.packqty, "
                       "defqty = excluded.defqty, price = excluded.price, priceexp = excluded.priceexp;\n")
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

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    QTemporaryDir root;
    const QDate today = QDate::currentDate();
    const QString prepared = root.filePath(QStringLiteral("prepared"));
    const QString priceList = root.filePath(QStringLiteral("pricelist.csv"));
    QDir().mkpath(prepared);
    if (Status made = ScaleData::makeVendor(prepared, Vendor, CatalogueItems, today); !made) {
        fail(made.message());
        return 1;
    }
    // Items 50,000 to 149,999: the first half are in the catalogue, the second half are new.
    if (Status written = ScaleData::writePriceList(priceList, CatalogueItems / 2, PriceListLines, today); !written) {
        fail(written.message());
        return 1;
    }
    const QString pristine = QDir(prepared).filePath(Store::vendorFileName(Vendor));
    const int expected = CatalogueItems + PriceListLines / 2;

    QList<double> ours;
    QList<double> shell;
    const QString work = root.filePath(QStringLiteral("work"));
    for (int run = 0; run < Runs; ++run) {
        double seconds = 0;
        if (!freshCopy(pristine, work) || !runImport(work, priceList, today, seconds))
            return 1;
        if (itemCount(work) != expected) {
            fail(QStringLiteral("the import left the wrong number of items"));
            return 1;
        }
        ours << seconds;
        if (!freshCopy(pristine, work) || !runShell(work, priceList, seconds))
            return 1;
        if (itemCount(work) != expected) {
            fail(QStringLiteral("sqlite3 left the wrong number of items"));
            return 1;
        }
        shell << seconds;
    }
    std::printf("import_100k_s %.3f s\n", median(ours));
    std::printf("import_100k_sqlite3_s %.3f s\n", median(shell));
    std::printf("import_vs_sqlite_ratio %.2f x\n", median(ours) / median(shell));
    return 0;
}

#include "HeadlessImport.h"

#include "ConsolePrompter.h"
#include "ItemImport.h"
#include "app/AppContext.h"
#include "app/VendorSession.h"
#include "common/Sql.h"
#include "store/Store.h"

#include <QDir>
#include <QFileInfo>

namespace ordwell::HeadlessImport {

namespace {

// The console shows only what the window leaves for the user to read at the end.
class ConsoleProgress : public ImportProgress {
public:
    explicit ConsoleProgress(QTextStream& out) : m_out(out) {}
    void showLineCount(int) override {}
    void showLine(int) override {}
    void showInfo(const QString& text) override {
        if (text == ItemImport::CompletedText)
            m_out << text << Qt::endl;
    }
    void showResetPrices(const QString& text) override { m_out << text << Qt::endl; }

private:
    QTextStream& m_out;
};

int refuse(QTextStream& err, const QString& reason) {
    err << reason << Qt::endl;
    return NotStarted;
}

} // namespace

int run(const Options& options, QTextStream& out, QTextStream& err) {
    const QString dataDir = resolveDataDir(options);
    const QString path = QFileInfo(options.importFile).absoluteFilePath();
    if (!QFileInfo(path).isFile())
        return refuse(err, QStringLiteral("The file %1 does not exist.").arg(QDir::toNativeSeparators(path)));
    const QString server = resolveServer(options);
    if (server.isEmpty() && !QFileInfo::exists(Store::systemDatabasePath(dataDir)))
        return refuse(err,
                      QStringLiteral("There is no Ordwell database in %1.").arg(QDir::toNativeSeparators(dataDir)));

    ConsolePrompter prompter(out, err);
    AppContext context(dataDir, options.settingsFile, prompter);
    context.setServer(server);
    // A server is shared by design: only the files are kept from a running copy of the program.
    if (server.isEmpty() && !context.takeSystemLock())
        return refuse(err, QStringLiteral("The database is in use: Ordwell is already running on %1.")
                               .arg(QDir::toNativeSeparators(dataDir)));
    struct Closer {
        AppContext& context;
        ~Closer() {
            context.closeVendorDb();
            context.closeSystemDb();
            context.releaseSystemLock();
        }
    } closer{context};

    auto system = Store::OpenSystemDatabase(context.store());
    if (!system)
        return refuse(err, system.message().section(QLatin1Char('\n'), 0, 0));
    auto vendor = Sql::exec(*system, QStringLiteral("SELECT code, status, vendor FROM vendors WHERE code = ?"),
                            {options.vendorCode.trimmed()});
    if (!vendor)
        return refuse(err, vendor.message());
    if (!vendor.value().next())
        return refuse(err, QStringLiteral("There is no vendor with the code %1.").arg(options.vendorCode));
    const QString code = vendor.value().value(0).toString();
    const QString name = vendor.value().value(2).toString();
    if (vendor.value().value(1).toString() != QLatin1String("A"))
        return refuse(err, QStringLiteral("The vendor %1 has been deactivated.").arg(code));
    vendor.value().finish();

    if (Status opened = context.vendorSession().open(code, name); !opened)
        return refuse(err, opened.message().section(QLatin1Char('\n'), 0, 0));

    ConsoleProgress progress(out);
    PriceListReader priceList(path);
    if (!ItemImport::prepare(priceList, prompter, progress))
        return Stopped;
    const ItemImport::Run result =
        ItemImport::execute(context.vendorDb(), priceList, QDate::currentDate(), prompter, progress);
    return result.outcome.completed() ? Imported : Stopped;
}

} // namespace ordwell::HeadlessImport

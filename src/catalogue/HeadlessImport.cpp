#include "HeadlessImport.h"

#include "ConsolePrompter.h"
#include "ItemImport.h"
#include "app/HeadlessVendor.h"
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
    const QString path = QFileInfo(options.importFile).absoluteFilePath();
    if (!QFileInfo(path).isFile())
        return refuse(err, QStringLiteral("The file %1 does not exist.").arg(QDir::toNativeSeparators(path)));
    ConsolePrompter prompter(out, err);
    HeadlessVendor vendor(options, prompter);
    if (const QString problem = vendor.open(options.vendorCode); !problem.isEmpty())
        return refuse(err, problem);

    ConsoleProgress progress(out);
    PriceListReader priceList(path);
    if (!ItemImport::prepare(priceList, prompter, progress))
        return Stopped;
    const ItemImport::Run result =
        ItemImport::execute(vendor.context().vendorDb(), priceList, QDate::currentDate(), prompter, progress);
    return result.outcome.completed() ? Imported : Stopped;
}

} // namespace ordwell::HeadlessImport

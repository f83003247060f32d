#include "HeadlessPeppol.h"

#include "PeppolOrder.h"
#include "app/HeadlessVendor.h"
#include "catalogue/ConsolePrompter.h"

#include <QDir>
#include <QFileInfo>
#include <QTextStream>

namespace ordwell {

int exportPeppolHeadless(const Options& options) {
    enum ExitCode { Written = 0, Refused = 1, BadArguments = 2 };
    QTextStream out(stdout);
    QTextStream err(stderr);
    if (!options.error.isEmpty()) {
        err << options.error << Qt::endl;
        return BadArguments;
    }
    ConsolePrompter prompter(out, err);
    HeadlessVendor vendor(options, prompter);
    if (const QString problem = vendor.open(options.vendorCode); !problem.isEmpty()) {
        err << problem << Qt::endl;
        return BadArguments;
    }
    const QString orderId = options.exportPeppol.trimmed().toUpper();
    const QString path = QFileInfo(options.peppolOutput).absoluteFilePath();
    if (!QFileInfo(QFileInfo(path).absolutePath()).isDir()) {
        err << QStringLiteral("The folder \"%1\" does not exist.")
                   .arg(QDir::toNativeSeparators(QFileInfo(path).absolutePath()))
            << Qt::endl;
        return BadArguments;
    }
    AppContext& context = vendor.context();
    const auto result = PeppolOrder::exportOrder(context.systemDb(), context.vendorDb(), vendor.name(), path, orderId);
    switch (result.outcome) {
    case OrderExport::Outcome::Exported:
        out << QStringLiteral("The order %1 has been written as a Peppol order to \"%2\".")
                   .arg(orderId, QDir::toNativeSeparators(path))
            << Qt::endl;
        return Written;
    case OrderExport::Outcome::FileExists:
        err << QStringLiteral("The file \"%1\" already exists: nothing was written.")
                   .arg(QDir::toNativeSeparators(path))
            << Qt::endl;
        return Refused;
    case OrderExport::Outcome::Failed:
        break;
    }
    err << result.message << Qt::endl;
    return Refused;
}

} // namespace ordwell

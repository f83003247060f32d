#include "ItemImport.h"

#include "PriceListReader.h"
#include "Revaluation.h"
#include "common/WaitCursor.h"

namespace ordwell::ItemImport {

Result<int> prepare(const QString& path, Prompter& prompter, ImportProgress& progress) {
    const Result<int> lines = [&path] {
        WaitCursor wait;
        return PriceListReader::countLines(path);
    }();
    if (!lines) {
        prompter.message(lines.message(), ItemImporter::IncorrectLineTitle, MessageIcon::Critical);
        return lines;
    }
    progress.showLineCount(*lines);
    progress.showInfo(UploadingText);
    return lines;
}

Run execute(const QSqlDatabase& vendorDb, const QString& path, const QDate& today, Prompter& prompter,
            ImportProgress& progress) {
    Run run;
    ItemImporter importer(vendorDb, today);
    importer.setProgress([&progress](int line) { progress.showLine(line); }, std::chrono::milliseconds(150));
    {
        WaitCursor wait;
        run.outcome = importer.importFile(path);
    }
    switch (run.outcome.stop) {
    case ImportOutcome::Stop::None:
        break;
    case ImportOutcome::Stop::IncorrectLine:
        prompter.message(run.outcome.message, ItemImporter::IncorrectLineTitle, MessageIcon::Critical);
        return run;
    case ImportOutcome::Stop::FileProblem:
        prompter.message(run.outcome.message, ItemImporter::IncorrectLineTitle, MessageIcon::Critical);
        return run;
    case ImportOutcome::Stop::DatabaseProblem:
        prompter.message(run.outcome.message, QString(), MessageIcon::Critical);
        return run;
    }
    if (run.outcome.expiredCount > 0)
        progress.showResetPrices(expiredPricesText(run.outcome.expiredCount));
    progress.showInfo(UpdatingOrdersText);
    run.ordersUpdated = RefreshOrderValues(vendorDb, prompter);
    progress.showInfo(CompletedText);
    return run;
}

} // namespace ordwell::ItemImport

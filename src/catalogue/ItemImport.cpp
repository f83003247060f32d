#include "ItemImport.h"

#include "PriceListReader.h"
#include "common/WaitCursor.h"
#include "orders/Revaluation.h"

namespace ordwell::ItemImport {

Result<int> prepare(PriceListReader& priceList, Prompter& prompter, ImportProgress& progress) {
    const Status opened = [&priceList] {
        WaitCursor wait;
        return priceList.open();
    }();
    if (!opened) {
        prompter.message(opened.message(), ItemImporter::IncorrectLineTitle, MessageIcon::Critical);
        return opened;
    }
    progress.showLineCount(priceList.lineCount());
    progress.showInfo(UploadingText);
    return priceList.lineCount();
}

Run execute(const QSqlDatabase& vendorDb, PriceListReader& priceList, const QDate& today, Prompter& prompter,
            ImportProgress& progress) {
    Run run;
    ItemImporter importer(vendorDb, today);
    importer.setProgress([&progress](int line) { progress.showLine(line); }, std::chrono::milliseconds(150));
    {
        WaitCursor wait;
        run.outcome = importer.importLines(priceList);
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

#pragma once

#include "ImportProgress.h"
#include "ItemImporter.h"
#include "PriceListReader.h"
#include "common/Prompter.h"

#include <QDate>
#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// The import of a chosen price list as the window and the command line both run it: count the
// lines, import them while `progress` follows, then either the incorrect-line message (nothing
// further: no revaluation, no report) or the expired-price report, the revaluation of the open
// orders (with its message) and the completion text.
namespace ItemImport {

inline const QString UploadingText = QStringLiteral("Uploading items");
inline const QString UpdatingOrdersText = QStringLiteral("Updating order prices, please wait");
inline const QString CompletedText = QStringLiteral("The import has completed, please click on Exit");

struct Run {
    ImportOutcome outcome;
    int ordersUpdated = 0;
};

// Step before the import proper: the file read and its lines counted, or the reason it cannot be
// imported (already told to the user through `prompter`). The file is read only here; `execute`
// imports what was read.
Result<int> prepare(PriceListReader& priceList, Prompter& prompter, ImportProgress& progress);

// The import proper of a prepared price list and what follows it. Failures are told through
// `prompter`.
Run execute(const QSqlDatabase& vendorDb, PriceListReader& priceList, const QDate& today, Prompter& prompter,
            ImportProgress& progress);

} // namespace ItemImport
} // namespace ordwell

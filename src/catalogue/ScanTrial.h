#pragma once

#include "catalogue/BarcodeRules.h"
#include "catalogue/ScanReading.h"

#include <QDate>
#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <optional>

namespace ordwell {

// One barcode rule that stripped the code on its way to the item code.
struct RuleStep {
    BarcodeRule rule;
    QString before;
    QString after;
};

// What a sample scan gives, as the barcode rules window's tester shows it: the reading, and for
// codes the rules work on, the rules that stripped it and the item it ends at.
struct ScanTrial {
    ScanReading reading;
    QString code;          // the item code the rules end with ("" for GS1 data)
    QList<RuleStep> steps; // in the order the rules acted
    std::optional<QString> itemDescription;

    // The outcome in a few lines of text.
    QStringList describe() const;
};

// Tries `sample` against the open vendor's catalogue and active rules, resolving codes exactly
// as order entry does (upper-cased first).
Result<ScanTrial> tryScan(ScanReader& reader, const QSqlDatabase& db, const QString& sample, const QDate& today);

} // namespace ordwell

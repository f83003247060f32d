#pragma once

#include "common/Status.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <optional>

namespace ordwell {

// One row of `barcodes`: a scanned code starting with `codestart` has `skipfirst` characters
// dropped from its front and `skiplast` from its end.
struct BarcodeRule {
    int codenum = 0;
    QString codestart;
    int skipfirst = 0;
    int skiplast = 0;
    QString status; // "A" active, "D" deactivated

    bool isActive() const { return status == QLatin1String("A"); }
};

// Reads and writes the open vendor's barcode rules. Rules are never deleted. Every prefix is a
// bound value, so an apostrophe in it is just a character.
namespace BarcodeRules {

inline const QString Active = QStringLiteral("A");
inline const QString Deactivated = QStringLiteral("D");

// All rules, active ones first, each group in the order the rules were made.
Result<QList<BarcodeRule>> load(const QSqlDatabase& db);

// Switches the rule with this prefix between active and deactivated and returns its new
// status; changes nothing (and returns nothing) unless exactly one rule has the prefix.
Result<std::optional<QString>> toggle(const QSqlDatabase& db, const QString& prefix);

// True when no rule, of either status, has this prefix (compared as the database compares
// text: the whole prefix, letters without regard to case).
Result<bool> isNewPrefix(const QSqlDatabase& db, const QString& prefix);

// A new active rule; its number comes from the table's counter.
Result<int> add(const QSqlDatabase& db, const QString& prefix, int skipFirst, int skipLast);

// Rewrites rule `codenum`, which also makes it active again. With `asShown`, only the rule as
// it was shown is rewritten: when someone else changed it in between (another workstation on
// a server), nothing is written and `changedElsewhere` is set.
Status save(const QSqlDatabase& db, int codenum, const QString& prefix, int skipFirst, int skipLast,
            const BarcodeRule* asShown = nullptr, bool* changedElsewhere = nullptr);
inline const QString ChangedElsewhereText =
    QStringLiteral("Someone else has changed this barcode rule since it was shown here. The list now shows the "
                   "rules as they are stored: make your change again if it is still needed.");

// A count of characters to skip as the boxes take it: a whole number from 0 to 99.
std::optional<int> skipCount(const QString& text);

} // namespace BarcodeRules

// The checks of a rule being added or saved, in box order; the first failure is reported.
struct RuleEntryCheck {
    int failedBox = -1; // 0 prefix, 1 skip first, 2 skip last; -1 all good
    QString message;
    QString title;
    QString prefix; // upper-cased
    int skipFirst = 0;
    int skipLast = 0;

    bool ok() const { return failedBox < 0; }
};
RuleEntryCheck ValidateRuleEntry(const QString& prefix, const QString& skipFirst, const QString& skipLast);

} // namespace ordwell

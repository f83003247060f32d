#include "ScanTrial.h"

#include "common/TextChecks.h"
#include "orders/BarcodeResolver.h"

namespace ordwell {

namespace {

// The rules that acted, replayed with the resolver's own strip step. The resolver stops at the
// first code that finds an item, and the same code would have found it earlier, so the replay
// stops where the code first equals the resolved one; without an item every rule had its turn.
QList<RuleStep> replay(const QList<BarcodeRule>& rules, const QString& typed, const Resolution& resolved) {
    QList<RuleStep> steps;
    if (resolved.item && resolved.code == typed)
        return steps;
    QString code = typed;
    for (const BarcodeRule& rule : rules) {
        const auto stripped = BarcodeResolver::strip(rule, code);
        if (!stripped)
            continue;
        steps.append({rule, code, *stripped});
        code = *stripped;
        if (resolved.item && code == resolved.code)
            return steps;
    }
    // An empty catalogue is not searched at all, and the code is left as typed.
    if (code != resolved.code)
        steps.clear();
    return steps;
}

} // namespace

Result<ScanTrial> tryScan(ScanReader& reader, const QSqlDatabase& db, const QString& sample, const QDate& today) {
    ScanTrial trial;
    trial.reading = reader.read(sample, today);
    if (trial.reading.isGs1())
        return trial;
    auto rules = BarcodeResolver::loadActiveRules(db);
    if (!rules)
        return rules.status();
    ItemCatalogue catalogue(db);
    const QString typed = UpperCaseCode(trial.reading.code);
    const Resolution resolved = BarcodeResolver(catalogue, *rules).resolve(typed);
    trial.code = resolved.code;
    trial.steps = replay(*rules, typed, resolved);
    if (resolved.item)
        trial.itemDescription = resolved.item->descr;
    return trial;
}

QStringList ScanTrial::describe() const {
    QStringList lines;
    const ScanReading& r = reading;
    switch (r.kind) {
    case ScanReading::Kind::Gtin:
        lines << QStringLiteral("GTIN %1, check digit right.").arg(r.gtin);
        break;
    case ScanReading::Kind::Misread:
        // Vendors' own codes can be all digits: a misread only when the code finds nothing.
        if (!itemDescription)
            lines << QStringLiteral("Refused: %1").arg(r.refusal);
        break;
    case ScanReading::Kind::Refused:
        lines << QStringLiteral("Refused: %1").arg(r.refusal);
        break;
    case ScanReading::Kind::Gs1: {
        QStringList fields;
        for (const Gs1Field& f : r.fields)
            fields << QStringLiteral("(%1) %2").arg(f.ai, f.value);
        lines << QStringLiteral("GS1 data: %1").arg(fields.join(QLatin1Char(' ')));
        if (!r.gtin.isEmpty())
            lines << (r.quantity ? QStringLiteral("GTIN %1, quantity %2.").arg(r.gtin).arg(*r.quantity)
                                 : QStringLiteral("GTIN %1.").arg(r.gtin));
        break;
    }
    case ScanReading::Kind::Plain:
        break;
    }
    for (const QString& w : r.warnings)
        lines << QStringLiteral("Warning: %1").arg(w);
    if (r.isGs1())
        return lines;
    for (const RuleStep& s : steps)
        lines << QStringLiteral("Rule \"%1\" (skip first %2, skip last %3): %4 becomes %5.")
                     .arg(s.rule.codestart)
                     .arg(s.rule.skipfirst)
                     .arg(s.rule.skiplast)
                     .arg(s.before, s.after);
    if (itemDescription)
        lines << QStringLiteral("Item code %1: %2.").arg(code, *itemDescription);
    else
        lines << QStringLiteral("No item has the code %1.").arg(code);
    return lines;
}

} // namespace ordwell

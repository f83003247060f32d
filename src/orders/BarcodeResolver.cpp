#include "BarcodeResolver.h"

#include "common/TextChecks.h"

namespace ordwell {

BarcodeResolver::BarcodeResolver(ItemCatalogue& catalogue, QList<BarcodeRule> rules)
    : m_catalogue(catalogue), m_rules(std::move(rules)) {}

BarcodeResolver::~BarcodeResolver() = default;

Result<QList<BarcodeRule>> BarcodeResolver::loadActiveRules(const QSqlDatabase& db) {
    auto all = BarcodeRules::load(db);
    if (!all)
        return all.status();
    // Active rules come first, in the order they were made.
    QList<BarcodeRule> rules;
    for (const BarcodeRule& rule : all.value())
        if (rule.isActive())
            rules.append(rule);
    return rules;
}

std::optional<QString> BarcodeResolver::strip(const BarcodeRule& rule, const QString& code) {
    if (rule.codestart.isEmpty() || !code.startsWith(rule.codestart, Qt::CaseSensitive))
        return std::nullopt;
    if (rule.skipfirst >= code.size())
        return std::nullopt;
    const QString rest = code.mid(qMax(0, rule.skipfirst));
    if (rule.skiplast >= rest.size())
        return std::nullopt;
    return rest.left(rest.size() - qMax(0, rule.skiplast));
}

Resolution BarcodeResolver::resolve(const QString& code) const {
    Resolution result{code, m_catalogue.findByCode(code)};
    // Over an empty catalogue nothing can be found, and the code is left as typed.
    if (!result.item && !m_rules.isEmpty() && m_catalogue.isEmpty())
        return result;
    for (const BarcodeRule& rule : m_rules) {
        if (result.item)
            break;
        // A rule that stripped without finding leaves its result for the next rule to test.
        if (auto stripped = strip(rule, result.code)) {
            result.code = *stripped;
            result.item = m_catalogue.findByCode(result.code);
        }
    }
    return result;
}

Resolution BarcodeResolver::resolveScan(const QString& text, const QDate& today) {
    if (!m_reader)
        m_reader = std::make_unique<ScanReader>();
    const ScanReading reading = m_reader->read(text, today);
    switch (reading.kind) {
    case ScanReading::Kind::Gs1: {
        Resolution result{reading.gtin, m_catalogue.findByGtin(reading.gtin)};
        result.warnings = reading.warnings;
        if (result.item)
            result.quantity = reading.quantity;
        else
            result.problem = QStringLiteral("No item has the GTIN %1 read from the case label").arg(reading.gtin);
        return result;
    }
    case ScanReading::Kind::Refused: {
        Resolution result{reading.gtin, std::nullopt};
        result.problem = reading.refusal;
        return result;
    }
    case ScanReading::Kind::Gtin: {
        // A vendor's own all-digit code wins over a product barcode of the same digits.
        Resolution result{reading.code, m_catalogue.findByCode(reading.code)};
        if (!result.item)
            result.item = m_catalogue.findByGtin(reading.gtin);
        if (result.item)
            return result;
        return resolve(reading.code);
    }
    case ScanReading::Kind::Misread: {
        Resolution result = resolve(reading.code);
        if (!result.item)
            result.problem = reading.refusal;
        return result;
    }
    case ScanReading::Kind::Plain:
        break;
    }
    return resolve(UpperCaseCode(reading.code));
}

} // namespace ordwell

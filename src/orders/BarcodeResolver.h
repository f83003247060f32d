#pragma once

#include "catalogue/BarcodeRules.h"
#include "orders/ItemCatalogue.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <optional>

namespace ordwell {

// What became of a typed or scanned code: the code as it stands after the rules (what the
// code box then shows) and the item found, if any.
struct Resolution {
    QString code;
    std::optional<CatalogueItem> item;
};

// Turns a typed or scanned code into a catalogue item: the code itself first, then each
// active rule in the order the rules were made, each working on what the previous one left.
class BarcodeResolver {
public:
    // The active rules in rule-number order.
    static Result<QList<BarcodeRule>> loadActiveRules(const QSqlDatabase& db);

    BarcodeResolver(ItemCatalogue& catalogue, QList<BarcodeRule> rules)
        : m_catalogue(catalogue), m_rules(std::move(rules)) {}

    bool haveRules() const { return !m_rules.isEmpty(); }
    Resolution resolve(const QString& code) const;

    // One rule applied to `code`, or nothing when it does not apply or a length test fails.
    static std::optional<QString> strip(const BarcodeRule& rule, const QString& code);

private:
    ItemCatalogue& m_catalogue;
    QList<BarcodeRule> m_rules;
};

} // namespace ordwell

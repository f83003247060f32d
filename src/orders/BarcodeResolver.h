#pragma once

#include "catalogue/BarcodeRules.h"
#include "catalogue/ScanReading.h"
#include "orders/ItemCatalogue.h"

#include <QStringList>
#include <memory>

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <optional>

namespace ordwell {

// What became of a typed or scanned code: the code as it stands after the rules (what the
// code box then shows) and the item found, if any. A product barcode or GS1 case label may
// also offer a quantity, carry warnings worth a look, or be refused (a misread, a bad field):
// `problem` then says why, and no unknown item may be made of it.
struct Resolution {
    QString code;
    std::optional<CatalogueItem> item;
    std::optional<int> quantity = {};
    QStringList warnings = {};
    QString problem = {};
};

// Turns a typed or scanned code into a catalogue item: the code itself first, then each
// active rule in the order the rules were made, each working on what the previous one left.
class BarcodeResolver {
public:
    // The active rules in rule-number order.
    static Result<QList<BarcodeRule>> loadActiveRules(const QSqlDatabase& db);

    BarcodeResolver(ItemCatalogue& catalogue, QList<BarcodeRule> rules);
    ~BarcodeResolver();

    bool haveRules() const { return !m_rules.isEmpty(); }
    // A code as the user's rules see it: itself, then each rule.
    Resolution resolve(const QString& code) const;
    // Whatever the entry box received: a GS1 element string finds its item by the GTIN it
    // carries; a product barcode is tried as a code first, then as a GTIN, then through the
    // rules; anything else is an upper-cased code. `today` dates the expiry warnings.
    Resolution resolveScan(const QString& text, const QDate& today);

    // One rule applied to `code`, or nothing when it does not apply or a length test fails.
    static std::optional<QString> strip(const BarcodeRule& rule, const QString& code);

private:
    ItemCatalogue& m_catalogue;
    QList<BarcodeRule> m_rules;
    std::unique_ptr<ScanReader> m_reader; // made on the first scan: GS1's tables cost to set up
};

} // namespace ordwell

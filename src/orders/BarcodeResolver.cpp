#include "BarcodeResolver.h"

#include "common/Sql.h"

namespace ordwell {

Result<QList<BarcodeRule>> BarcodeResolver::loadActiveRules(const QSqlDatabase& db) {
    auto query = Sql::exec(
        db, QStringLiteral("SELECT codestart, skipfirst, skiplast FROM barcodes WHERE status = ? ORDER BY codenum"),
        {QStringLiteral("A")});
    if (!query)
        return query.status();
    QList<BarcodeRule> rules;
    while (query.value().next())
        rules.append(BarcodeRule{.codestart = query.value().value(0).toString(),
                                 .skipfirst = query.value().value(1).toInt(),
                                 .skiplast = query.value().value(2).toInt(),
                                 .status = BarcodeRules::Active});
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

} // namespace ordwell

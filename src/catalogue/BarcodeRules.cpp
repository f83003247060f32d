#include "BarcodeRules.h"

#include "common/Sql.h"
#include "common/TextChecks.h"
#include "store/Dialect.h"

#include <QSqlQuery>

namespace ordwell {

namespace BarcodeRules {

Result<QList<BarcodeRule>> load(const QSqlDatabase& db) {
    auto q = Sql::exec(db, QStringLiteral("SELECT codenum, codestart, skipfirst, skiplast, status FROM barcodes "
                                          "ORDER BY status, codenum"));
    if (!q)
        return q.status();
    QList<BarcodeRule> rules;
    while (q.value().next()) {
        const QSqlQuery& r = q.value();
        rules.append(
            {r.value(0).toInt(), r.value(1).toString(), r.value(2).toInt(), r.value(3).toInt(), r.value(4).toString()});
    }
    return rules;
}

Result<std::optional<QString>> toggle(const QSqlDatabase& db, const QString& prefix) {
    Sql::Transaction tx(db);
    auto q = Sql::exec(db, QStringLiteral("SELECT codenum, status FROM barcodes WHERE codestart = ?"), {prefix});
    if (!q)
        return q.status();
    QList<QPair<int, QString>> matches;
    while (q.value().next())
        matches.append({q.value().value(0).toInt(), q.value().value(1).toString()});
    if (matches.size() != 1)
        return std::optional<QString>();
    const QString next = matches[0].second == Active ? Deactivated : Active;
    if (Status s =
            Sql::run(db, QStringLiteral("UPDATE barcodes SET status = ? WHERE codenum = ?"), {next, matches[0].first});
        !s)
        return s;
    if (Status s = tx.commit(); !s)
        return s;
    return std::optional<QString>(next);
}

Result<bool> isNewPrefix(const QSqlDatabase& db, const QString& prefix) {
    auto count = Sql::scalar(db, QStringLiteral("SELECT count(*) FROM barcodes WHERE codestart = ?"), {prefix});
    if (!count)
        return count.status();
    return count->toInt() == 0;
}

Result<int> add(const QSqlDatabase& db, const QString& prefix, int skipFirst, int skipLast) {
    auto q = Sql::exec(
        db, QStringLiteral("INSERT INTO barcodes (codestart, skipfirst, skiplast, status) VALUES (?, ?, ?, ?)"),
        {prefix, skipFirst, skipLast, Active});
    if (!q)
        return q.status();
    return q.value().lastInsertId().toInt();
}

Status save(const QSqlDatabase& db, int codenum, const QString& prefix, int skipFirst, int skipLast,
            const BarcodeRule* asShown, bool* changedElsewhere) {
    QString sql = QStringLiteral("UPDATE barcodes SET codestart = ?, skipfirst = ?, skiplast = ?, status = ? "
                                 "WHERE codenum = ?");
    QVariantList values{prefix, skipFirst, skipLast, Active, codenum};
    if (asShown) {
        sql += Dialects::unchanged(db, {Dialects::exactly(db, QStringLiteral("codestart")), QStringLiteral("skipfirst"),
                                        QStringLiteral("skiplast"), QStringLiteral("status")});
        values << asShown->codestart << asShown->skipfirst << asShown->skiplast << asShown->status;
    }
    auto ran = Sql::exec(db, sql, values);
    if (!ran)
        return ran.status();
    if (asShown && ran->numRowsAffected() == 0) {
        if (changedElsewhere)
            *changedElsewhere = true;
        return Status::fail(ChangedElsewhereText);
    }
    return Status::ok();
}

std::optional<int> skipCount(const QString& text) {
    if (text.isEmpty() || text.size() > 2)
        return std::nullopt;
    for (QChar c : text) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return std::nullopt;
    }
    return text.toInt();
}

} // namespace BarcodeRules

RuleEntryCheck ValidateRuleEntry(const QString& prefix, const QString& skipFirst, const QString& skipLast) {
    RuleEntryCheck check;
    check.prefix = UpperCaseCode(prefix);
    const QString invalidData = QStringLiteral("Invalid data");
    if (check.prefix.isEmpty()) {
        check.failedBox = 0;
        check.message = QStringLiteral("Please enter a valid barcode value");
        check.title = QStringLiteral("Invalid value");
        return check;
    }
    const auto first = BarcodeRules::skipCount(skipFirst);
    if (!first) {
        check.failedBox = 1;
        check.message = QStringLiteral("Please enter a valid number of charaters to skip");
        check.title = invalidData;
        return check;
    }
    const auto last = BarcodeRules::skipCount(skipLast);
    if (!last) {
        check.failedBox = 2;
        check.message =
            QStringLiteral("You have entered an invalid number, please enter a valid number of charaters to skip");
        check.title = invalidData;
        return check;
    }
    check.skipFirst = *first;
    check.skipLast = *last;
    return check;
}

} // namespace ordwell

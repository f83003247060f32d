#include "ItemRepository.h"

#include "common/Dates.h"
#include "common/Sql.h"
#include "store/Dialect.h"

#include <QSqlError>

namespace ordwell {

namespace {
const QString Columns = QStringLiteral("code, descr, packqty, defqty, price, priceexp, gtin, unitcode");
} // namespace

// Prepared on first use and kept for the repository's life.
struct ItemRepository::Statements {
    explicit Statements(const QSqlDatabase& db)
        : count(db), position(db), first(db), last(db), next(db), previous(db), find(db), byDescription(db), exists(db),
          byGtin(db), insert(db), update(db) {}
    QSqlQuery count, position, first, last, next, previous, find, byDescription, exists, byGtin, insert, update;
};

ItemRepository::ItemRepository(QSqlDatabase db)
    : m_db(std::move(db)), m_statements(std::make_unique<Statements>(m_db)) {}

ItemRepository::~ItemRepository() = default;

QSqlQuery& ItemRepository::prepared(QSqlQuery& query, const QString& sql, Status& status) {
    if (query.lastQuery().isEmpty()) {
        query.setForwardOnly(true);
        if (!query.prepare(sql)) {
            Sql::logFailure(query.lastError(), sql);
            status = Status::fail(Sql::describe(query.lastError()));
        }
    }
    return query;
}

namespace {

Status runWith(QSqlQuery& query, const QVariantList& values) {
    for (int i = 0; i < values.size(); ++i)
        query.bindValue(i, values.at(i));
    if (!query.exec()) {
        Sql::logFailure(query.lastError(), query.lastQuery());
        return Status::fail(Sql::describe(query.lastError()));
    }
    return Status::ok();
}

Item itemFrom(const QSqlQuery& query) {
    Item item;
    item.code = query.value(0).toString();
    item.description = query.value(1).toString();
    item.packQty = query.value(2).toInt();
    item.defaultQty = query.value(3).toInt();
    item.price = Money::fromTenThousandths(query.value(4).toLongLong());
    item.priceExpiry = Dates::dateFromStored(query.value(5).toString());
    item.gtin = query.value(6).toString();
    item.unit = query.value(7).toString();
    return item;
}

QVariantList valuesOf(const Item& item) {
    return {item.code,
            item.description,
            item.packQty,
            item.defaultQty,
            item.price.tenThousandths(),
            Dates::toStored(item.priceExpiry),
            Sql::textOrNull(item.gtin),
            Sql::textOrNull(item.unit)};
}

} // namespace

Result<std::optional<Item>> ItemRepository::fetchOne(QSqlQuery& query, const QVariantList& values) {
    if (const Status ran = runWith(query, values); !ran)
        return ran;
    std::optional<Item> item;
    if (query.next())
        item = itemFrom(query);
    query.finish();
    return item;
}

Result<int> ItemRepository::count() {
    Status status;
    QSqlQuery& q = prepared(m_statements->count, QStringLiteral("SELECT COUNT(*) FROM items"), status);
    if (!status)
        return status;
    if (const Status ran = runWith(q, {}); !ran)
        return ran;
    const int n = q.next() ? q.value(0).toInt() : 0;
    q.finish();
    return n;
}

Result<int> ItemRepository::positionOf(const QString& code) {
    Status status;
    QSqlQuery& q =
        prepared(m_statements->position, QStringLiteral("SELECT COUNT(*) FROM items WHERE code < ?"), status);
    if (!status)
        return status;
    if (const Status ran = runWith(q, {code}); !ran)
        return ran;
    const int before = q.next() ? q.value(0).toInt() : 0;
    q.finish();
    return before + 1;
}

Result<std::optional<Item>> ItemRepository::first() {
    Status status;
    QSqlQuery& q = prepared(m_statements->first,
                            QStringLiteral("SELECT %1 FROM items ORDER BY code LIMIT 1").arg(Columns), status);
    if (!status)
        return status;
    return fetchOne(q, {});
}

Result<std::optional<Item>> ItemRepository::last() {
    Status status;
    QSqlQuery& q = prepared(m_statements->last,
                            QStringLiteral("SELECT %1 FROM items ORDER BY code DESC LIMIT 1").arg(Columns), status);
    if (!status)
        return status;
    return fetchOne(q, {});
}

Result<std::optional<Item>> ItemRepository::next(const QString& afterCode) {
    Status status;
    QSqlQuery& q =
        prepared(m_statements->next,
                 QStringLiteral("SELECT %1 FROM items WHERE code > ? ORDER BY code LIMIT 1").arg(Columns), status);
    if (!status)
        return status;
    return fetchOne(q, {afterCode});
}

Result<std::optional<Item>> ItemRepository::previous(const QString& beforeCode) {
    Status status;
    QSqlQuery& q =
        prepared(m_statements->previous,
                 QStringLiteral("SELECT %1 FROM items WHERE code < ? ORDER BY code DESC LIMIT 1").arg(Columns), status);
    if (!status)
        return status;
    return fetchOne(q, {beforeCode});
}

Result<std::optional<Item>> ItemRepository::find(const QString& code) {
    Status status;
    QSqlQuery& q =
        prepared(m_statements->find, QStringLiteral("SELECT %1 FROM items WHERE code = ?").arg(Columns), status);
    if (!status)
        return status;
    return fetchOne(q, {code});
}

Result<std::optional<Item>> ItemRepository::findByDescription(const QString& description) {
    Status status;
    // Exactly the text chosen: descriptions differing only in case are different descriptions.
    QSqlQuery& q = prepared(m_statements->byDescription,
                            QStringLiteral("SELECT %1 FROM items WHERE %2 = ? ORDER BY code LIMIT 1")
                                .arg(Columns, Dialects::exactly(m_db, QStringLiteral("descr"))),
                            status);
    if (!status)
        return status;
    return fetchOne(q, {description});
}

Result<bool> ItemRepository::exists(const QString& code) {
    Status status;
    QSqlQuery& q = prepared(m_statements->exists, QStringLiteral("SELECT 1 FROM items WHERE code = ?"), status);
    if (!status)
        return status;
    if (const Status ran = runWith(q, {code}); !ran)
        return ran;
    const bool found = q.next();
    q.finish();
    return found;
}

Result<std::optional<Item>> ItemRepository::findByGtin(const QString& gtin) {
    Status status;
    QSqlQuery& q =
        prepared(m_statements->byGtin, QStringLiteral("SELECT %1 FROM items WHERE gtin = ?").arg(Columns), status);
    if (!status)
        return status;
    return fetchOne(q, {gtin});
}

Status ItemRepository::insert(const Item& item) {
    Status status;
    QSqlQuery& q = prepared(m_statements->insert,
                            QStringLiteral("INSERT INTO items (%1) VALUES (?, ?, ?, ?, ?, ?, ?, ?)").arg(Columns), status);
    if (!status)
        return status;
    return runWith(q, valuesOf(item));
}

Status ItemRepository::update(const Item& item, const Item& asRead, bool* changedElsewhere) {
    Status status;
    const QStringList compared = {Dialects::exactly(m_db, QStringLiteral("descr")),
                                  QStringLiteral("packqty"),
                                  QStringLiteral("defqty"),
                                  QStringLiteral("price"),
                                  QStringLiteral("priceexp"),
                                  QStringLiteral("gtin"),
                                  QStringLiteral("unitcode")};
    // Only the row as it was read is overwritten: another workstation's change in between is
    // never lost unseen.
    QSqlQuery& q = prepared(m_statements->update,
                            QStringLiteral("UPDATE items SET descr = ?, packqty = ?, defqty = ?, price = ?, "
                                           "priceexp = ?, gtin = ?, unitcode = ? WHERE code = ?") +
                                Dialects::unchanged(m_db, compared),
                            status);
    if (!status)
        return status;
    QVariantList values = valuesOf(item);
    values.append(values.takeFirst());
    QVariantList before = valuesOf(asRead);
    before.removeFirst();
    values += before;
    if (const Status ran = runWith(q, values); !ran)
        return ran;
    if (q.numRowsAffected() == 1)
        return Status::ok();
    const auto stillThere = exists(item.code);
    if (!stillThere)
        return stillThere.status();
    if (!*stillThere)
        return Status::fail(QStringLiteral("The item %1 is no longer in the catalogue.").arg(item.code));
    if (changedElsewhere)
        *changedElsewhere = true;
    return Status::fail(ChangedElsewhereText.arg(item.code));
}

} // namespace ordwell

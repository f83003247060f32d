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
        : count(db, QStringLiteral("SELECT COUNT(*) FROM items")),
          position(db, QStringLiteral("SELECT COUNT(*) FROM items WHERE code < ?")),
          first(db, QStringLiteral("SELECT %1 FROM items ORDER BY code LIMIT 1").arg(Columns)),
          last(db, QStringLiteral("SELECT %1 FROM items ORDER BY code DESC LIMIT 1").arg(Columns)),
          next(db, QStringLiteral("SELECT %1 FROM items WHERE code > ? ORDER BY code LIMIT 1").arg(Columns)),
          previous(db, QStringLiteral("SELECT %1 FROM items WHERE code < ? ORDER BY code DESC LIMIT 1").arg(Columns)),
          find(db, QStringLiteral("SELECT %1 FROM items WHERE code = ?").arg(Columns)),
          // Exactly the text chosen: descriptions differing only in case are different descriptions.
          byDescription(db, QStringLiteral("SELECT %1 FROM items WHERE %2 = ? ORDER BY code LIMIT 1")
                                .arg(Columns, Dialects::exactly(db, QStringLiteral("descr")))),
          exists(db, QStringLiteral("SELECT 1 FROM items WHERE code = ?")),
          byGtin(db, QStringLiteral("SELECT %1 FROM items WHERE gtin = ?").arg(Columns)),
          insert(db, QStringLiteral("INSERT INTO items (%1) VALUES (?, ?, ?, ?, ?, ?, ?, ?)").arg(Columns)),
          // Only the row as it was read is overwritten: another workstation's change in between
          // is never lost unseen.
          update(db, QStringLiteral("UPDATE items SET descr = ?, packqty = ?, defqty = ?, price = ?, priceexp = ?, "
                                    "gtin = ?, unitcode = ? WHERE code = ?") +
                         Dialects::unchanged(db, {Dialects::exactly(db, QStringLiteral("descr")),
                                                  QStringLiteral("packqty"), QStringLiteral("defqty"),
                                                  QStringLiteral("price"), QStringLiteral("priceexp"),
                                                  QStringLiteral("gtin"), QStringLiteral("unitcode")})) {}
    Sql::Statement count, position, first, last, next, previous, find, byDescription, exists, byGtin, insert, update;
};

ItemRepository::ItemRepository(QSqlDatabase db)
    : m_db(std::move(db)), m_statements(std::make_unique<Statements>(m_db)) {}

ItemRepository::~ItemRepository() = default;

namespace {

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

// The first column of the statement's one row, 0 when there is none.
Result<int> firstColumnCount(Sql::Statement& statement, const QVariantList& values) {
    if (const Status ran = statement.exec(values); !ran)
        return ran;
    QSqlQuery& q = statement.query();
    const int n = q.next() ? q.value(0).toInt() : 0;
    q.finish();
    return n;
}

} // namespace

Result<std::optional<Item>> ItemRepository::fetchOne(Sql::Statement& statement, const QVariantList& values) {
    if (const Status ran = statement.exec(values); !ran)
        return ran;
    QSqlQuery& query = statement.query();
    std::optional<Item> item;
    if (query.next())
        item = itemFrom(query);
    query.finish();
    return item;
}

Result<int> ItemRepository::count() {
    return firstColumnCount(m_statements->count, {});
}

Result<int> ItemRepository::positionOf(const QString& code) {
    const auto before = firstColumnCount(m_statements->position, {code});
    if (!before)
        return before.status();
    return *before + 1;
}

Result<std::optional<Item>> ItemRepository::first() {
    return fetchOne(m_statements->first, {});
}

Result<std::optional<Item>> ItemRepository::last() {
    return fetchOne(m_statements->last, {});
}

Result<std::optional<Item>> ItemRepository::next(const QString& afterCode) {
    return fetchOne(m_statements->next, {afterCode});
}

Result<std::optional<Item>> ItemRepository::previous(const QString& beforeCode) {
    return fetchOne(m_statements->previous, {beforeCode});
}

Result<std::optional<Item>> ItemRepository::find(const QString& code) {
    return fetchOne(m_statements->find, {code});
}

Result<std::optional<Item>> ItemRepository::findByDescription(const QString& description) {
    return fetchOne(m_statements->byDescription, {description});
}

Result<bool> ItemRepository::exists(const QString& code) {
    const auto found = firstColumnCount(m_statements->exists, {code});
    if (!found)
        return found.status();
    return *found > 0;
}

Result<std::optional<Item>> ItemRepository::findByGtin(const QString& gtin) {
    return fetchOne(m_statements->byGtin, {gtin});
}

Status ItemRepository::insert(const Item& item) {
    return m_statements->insert.exec(valuesOf(item));
}

Status ItemRepository::update(const Item& item, const Item& asRead, bool* changedElsewhere) {
    Sql::Statement& q = m_statements->update;
    QVariantList values = valuesOf(item);
    values.append(values.takeFirst());
    QVariantList before = valuesOf(asRead);
    before.removeFirst();
    values += before;
    if (const Status ran = q.exec(values); !ran)
        return ran;
    if (q.query().numRowsAffected() == 1)
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

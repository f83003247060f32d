#include "ItemCatalogue.h"

#include "common/Dates.h"
#include "common/Sql.h"

#include <QSqlError>

namespace ordwell {

namespace {
const QString SelectItems = QStringLiteral("SELECT code, descr, packqty, defqty, price FROM items ");
}

ItemCatalogue::ItemCatalogue(QSqlDatabase db)
    : m_db(std::move(db)), m_byCode(m_db, SelectItems + QStringLiteral("WHERE code = ?")),
      m_byDescription(m_db, SelectItems + QStringLiteral("WHERE descr = ? ORDER BY code LIMIT 1")),
      m_byGtin(m_db, SelectItems + QStringLiteral("WHERE gtin = ?")),
      m_any(m_db, QStringLiteral("SELECT 1 FROM items LIMIT 1")) {}

std::optional<CatalogueItem> ItemCatalogue::first(Sql::Statement& statement, const QString& value) {
    QSqlQuery& query = statement.query();
    if (!statement.exec({value}) || !query.next()) {
        query.finish();
        return std::nullopt;
    }
    CatalogueItem item;
    item.code = query.value(0).toString();
    item.descr = query.value(1).toString();
    item.packQty = query.value(2).toInt();
    item.defQty = query.value(3).toInt();
    item.price = Money::fromTenThousandths(query.value(4).toLongLong());
    query.finish();
    return item;
}

std::optional<CatalogueItem> ItemCatalogue::findByCode(const QString& code) {
    if (code.isEmpty())
        return std::nullopt;
    return first(m_byCode, code);
}

std::optional<CatalogueItem> ItemCatalogue::findByGtin(const QString& gtin) {
    if (gtin.isEmpty())
        return std::nullopt;
    return first(m_byGtin, gtin);
}

bool ItemCatalogue::isEmpty() {
    const bool any = m_any.exec() && m_any.query().next();
    m_any.query().finish();
    return !any;
}

std::optional<CatalogueItem> ItemCatalogue::findByDescription(const QString& descr) {
    return first(m_byDescription, descr);
}

Status ItemCatalogue::addUnknownItem(const QString& code, const QString& descr, Money price, int packQty) {
    return Sql::run(
        m_db,
        QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) VALUES (?, ?, ?, ?, ?, ?)"),
        {code, descr, packQty, 1, price.tenThousandths(), Dates::toStored(unknownItemExpiry())});
}

} // namespace ordwell

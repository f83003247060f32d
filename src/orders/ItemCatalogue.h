#pragma once

#include "common/Money.h"
#include "common/Status.h"

#include "common/Sql.h"
#include <QDate>
#include <QSqlDatabase>

#include <QSqlQuery>
#include <QString>
#include <optional>

namespace ordwell {

// What item entry needs of one catalogue item.
struct CatalogueItem {
    QString code;
    QString descr;
    int packQty = 1;
    int defQty = 1;
    Money price;
};

// The open vendor's catalogue as item entry uses it. The look-ups run once per key press of a
// scanner, so their statements are prepared once and reused for as long as the form is open.
class ItemCatalogue {
public:
    explicit ItemCatalogue(QSqlDatabase db);

    // Nothing when no item has exactly this code (a code with a quote simply finds nothing).
    std::optional<CatalogueItem> findByCode(const QString& code);
    // True when the catalogue holds no item at all.
    bool isEmpty();
    // The item carrying this 14-digit GTIN.
    std::optional<CatalogueItem> findByGtin(const QString& gtin);
    // The first item with exactly this description.
    std::optional<CatalogueItem> findByDescription(const QString& descr);

    // An item typed in during order entry: default quantity 1, price expiring 31 December 2010.
    Status addUnknownItem(const QString& code, const QString& descr, Money price, int packQty);

    static QDate unknownItemExpiry() { return QDate(2010, 12, 31); }

private:
    std::optional<CatalogueItem> first(Sql::Statement& statement, const QString& value);

    QSqlDatabase m_db;
    Sql::Statement m_byCode;
    Sql::Statement m_byDescription;
    Sql::Statement m_byGtin;
    Sql::Statement m_any;
};

} // namespace ordwell

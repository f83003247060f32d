#pragma once

#include "common/Money.h"
#include "common/Sql.h"
#include "common/Status.h"

#include <QDate>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <optional>

namespace ordwell {

// One row of a vendor's catalogue.
struct Item {
    QString code;
    QString description;
    int packQty = 0;
    int defaultQty = 0;
    Money price;
    QDate priceExpiry;
    QString gtin; // 14 digits, or empty when the item has no product barcode
    QString unit; // the UN/ECE unit an electronic order counts it in; empty for pieces

    friend bool operator==(const Item&, const Item&) = default;
};

// The catalogue of the open vendor, read one row at a time however large it is: the count
// once, a row's position from the index, and first/last/next/previous by keyset on the code.
// Every statement is prepared once and reused.
class ItemRepository {
public:
    explicit ItemRepository(QSqlDatabase db);
    ~ItemRepository();
    ItemRepository(const ItemRepository&) = delete;
    ItemRepository& operator=(const ItemRepository&) = delete;

    Result<int> count();
    // 1-based position of `code` in code order (where it would stand, when it is not stored).
    Result<int> positionOf(const QString& code);

    // No value when there is no such row.
    Result<std::optional<Item>> first();
    Result<std::optional<Item>> last();
    Result<std::optional<Item>> next(const QString& afterCode);
    Result<std::optional<Item>> previous(const QString& beforeCode);
    Result<std::optional<Item>> find(const QString& code);
    // The first item in code order carrying exactly this description.
    Result<std::optional<Item>> findByDescription(const QString& description);
    Result<bool> exists(const QString& code);
    // The item carrying this 14-digit GTIN.
    Result<std::optional<Item>> findByGtin(const QString& gtin);

    Status insert(const Item& item);
    // Writes everything but the code onto the stored row of that code; refuses when there is none.
    // Writes `item` over the row as `asRead` found it. When another workstation changed the row
    // in between, nothing is written and `changedElsewhere` is set.
    Status update(const Item& item, const Item& asRead, bool* changedElsewhere = nullptr);
    static inline const QString ChangedElsewhereText =
        QStringLiteral("Someone else has changed the item %1 since it was shown here. The window now shows it as "
                       "it is stored: make your changes again if they are still needed.");

private:
    struct Statements;
    Result<std::optional<Item>> fetchOne(Sql::Statement& statement, const QVariantList& values);

    QSqlDatabase m_db;
    std::unique_ptr<Statements> m_statements;
};

} // namespace ordwell

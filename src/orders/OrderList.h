#pragma once

#include "OrderHeadRow.h"
#include "OrderNavigation.h"
#include "common/Status.h"

#include "common/Sql.h"
#include <QList>
#include <QSqlDatabase>

#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <memory>

namespace ordwell {

// A selection list of orders browsed one at a time: grouped by status letter in alphabetical
// order, within a letter by order number. Only the current order is held; every move is one
// indexed look-up on (status, orderid), and the count is taken once when the list opens, so
// the list is as quick with ten thousand orders as with ten. Browsing never writes.
class OrderList {
public:
    OrderList(QSqlDatabase db, OrderListKey key);

    // Counts the orders and stands on the first. An empty list is not a failure.
    Status open();
    void close();
    bool isOpen() const { return m_open; }

    OrderListKey key() const { return m_key; }
    int count() const { return m_count; }
    bool isEmpty() const { return m_count == 0; }
    // 1-based; 0 while the list is empty or closed.
    int position() const { return m_position; }
    const OrderHeadRow& current() const { return m_current; }

    Status first();
    Status previous();
    Status next();
    Status last();

    QString mask() const { return OrderNavigation::navigationMask(m_position, m_count); }
    QString positionText() const { return OrderNavigation::positionText(m_position, m_count); }

private:
    enum class Step { First, Last, After, Before };
    // The order one step away within one letter, or nothing at the letter's end.
    Result<std::optional<OrderHeadRow>> lookUp(Step step, const QString& letter, const QString& orderId);
    Status moveTo(int letterIndex, Step step);

    QSqlDatabase m_db;
    OrderListKey m_key;
    QStringList m_letters;
    QList<int> m_letterCounts;
    std::unique_ptr<Sql::Statement> m_queries[4]; // first, last, after, before; prepared on first use
    bool m_open = false;
    int m_count = 0;
    int m_position = 0;
    int m_letterIndex = -1;
    OrderHeadRow m_current;
};

} // namespace ordwell

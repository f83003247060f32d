#include "OrderList.h"

#include "common/Sql.h"

#include <QSqlError>

namespace ordwell {

OrderList::OrderList(QSqlDatabase db, OrderListKey key)
    : m_db(std::move(db)), m_key(key), m_letters(OrderNavigation::statusesFor(key)) {}

Status OrderList::open() {
    close();
    m_letterCounts.clear();
    m_count = 0;
    for (const QString& letter : m_letters) {
        auto n = Sql::scalar(m_db, QStringLiteral("SELECT COUNT(*) FROM orderhead WHERE status = ?"), {letter});
        if (!n)
            return n.status();
        m_letterCounts << n.value().toInt();
        m_count += m_letterCounts.last();
    }
    const QString select = QStringLiteral("SELECT %1 FROM orderhead WHERE status = ? ").arg(OrderHeadRow::columns());
    const QString texts[4] = {
        select + QStringLiteral("ORDER BY orderid LIMIT 1"),
        select + QStringLiteral("ORDER BY orderid DESC LIMIT 1"),
        select + QStringLiteral("AND orderid > ? ORDER BY orderid LIMIT 1"),
        select + QStringLiteral("AND orderid < ? ORDER BY orderid DESC LIMIT 1"),
    };
    for (int i = 0; i < 4; ++i)
        m_queries[i] = std::make_unique<Sql::Statement>(m_db, texts[i]);
    m_open = true;
    return m_count > 0 ? first() : Status::ok();
}

void OrderList::close() {
    for (auto& statement : m_queries)
        statement.reset();
    m_open = false;
    m_position = 0;
    m_letterIndex = -1;
    m_current = OrderHeadRow();
}

Result<std::optional<OrderHeadRow>> OrderList::lookUp(Step step, const QString& letter, const QString& orderId) {
    Sql::Statement& statement = *m_queries[static_cast<int>(step)];
    const bool relative = step == Step::After || step == Step::Before;
    if (Status ran = relative ? statement.exec({letter, orderId}) : statement.exec({letter}); !ran)
        return ran;
    QSqlQuery& q = statement.query();
    std::optional<OrderHeadRow> row;
    if (q.next())
        row = OrderHeadRow::fromQuery(q);
    q.finish();
    return row;
}

Status OrderList::moveTo(int letterIndex, Step step) {
    auto row = lookUp(step, m_letters.at(letterIndex), m_current.orderId);
    if (!row)
        return row.status();
    if (!row.value())
        return Status::fail(QStringLiteral("The list of orders changed while it was shown."));
    m_current = *row.value();
    m_letterIndex = letterIndex;
    return Status::ok();
}

Status OrderList::first() {
    if (!m_open || m_count == 0)
        return Status::ok();
    int i = 0;
    while (m_letterCounts.at(i) == 0)
        ++i;
    Status s = moveTo(i, Step::First);
    if (s)
        m_position = 1;
    return s;
}

Status OrderList::last() {
    if (!m_open || m_count == 0)
        return Status::ok();
    int i = static_cast<int>(m_letters.size()) - 1;
    while (m_letterCounts.at(i) == 0)
        --i;
    Status s = moveTo(i, Step::Last);
    if (s)
        m_position = m_count;
    return s;
}

Status OrderList::next() {
    if (!m_open || m_position >= m_count)
        return Status::ok();
    auto row = lookUp(Step::After, m_letters.at(m_letterIndex), m_current.orderId);
    if (!row)
        return row.status();
    Status s;
    if (row.value()) {
        m_current = *row.value();
    } else {
        int i = m_letterIndex + 1;
        while (i < m_letters.size() && m_letterCounts.at(i) == 0)
            ++i;
        if (i >= m_letters.size())
            return Status::ok();
        s = moveTo(i, Step::First);
    }
    if (s)
        ++m_position;
    return s;
}

Status OrderList::previous() {
    if (!m_open || m_position <= 1)
        return Status::ok();
    auto row = lookUp(Step::Before, m_letters.at(m_letterIndex), m_current.orderId);
    if (!row)
        return row.status();
    Status s;
    if (row.value()) {
        m_current = *row.value();
    } else {
        int i = m_letterIndex - 1;
        while (i >= 0 && m_letterCounts.at(i) == 0)
            --i;
        if (i < 0)
            return Status::ok();
        s = moveTo(i, Step::Last);
    }
    if (s)
        --m_position;
    return s;
}

} // namespace ordwell

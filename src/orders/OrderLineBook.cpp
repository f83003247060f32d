#include "OrderLineBook.h"

#include "common/Dates.h"
#include "common/Sql.h"
#include "orders/OrderWords.h"

#include <QSqlError>

namespace ordwell {

namespace {
// The date a line not yet received carries.
const QDate NotReceived(1980, 7, 4);
} // namespace

OrderLineBook::OrderLineBook(QSqlDatabase db)
    : m_db(std::move(db)),
      m_insert(m_db, QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, recvdate, status, qty, "
                                    "price, lineval, recvqty) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, 0)")),
      m_update(m_db,
               QStringLiteral("UPDATE orderline SET qty = ?, status = ?, lineval = ? WHERE orderid = ? AND line = ?")),
      m_header(m_db, QStringLiteral("UPDATE orderhead SET totalval = ?, name = ?, reference = ?, note1 = ?, "
                                    "note2 = ? WHERE orderid = ?")) {}

Result<QList<OrderLine>> OrderLineBook::open(const QString& orderId) {
    close();
    auto query = Sql::exec(m_db,
                           QStringLiteral("SELECT l.line, l.code, i.descr, i.packqty, l.qty, l.price, l.lineval, "
                                          "l.recvqty, l.status FROM orderline l LEFT JOIN items i ON i.code = l.code "
                                          "WHERE l.orderid = ? ORDER BY l.line"),
                           {orderId});
    if (!query)
        return query.status();
    QSqlQuery& q = query.value();
    m_orderId = orderId;
    m_open = true;
    m_nextLine = 1;
    int last = 0;
    while (q.next()) {
        OrderLine line;
        line.line = q.value(0).toInt();
        line.code = q.value(1).toString();
        const bool found = !q.value(2).isNull();
        line.descr = found ? q.value(2).toString() : NoItemFound;
        line.packQty = found ? q.value(3).toInt() : 1;
        line.qty = q.value(4).toInt();
        line.price = Money::fromTenThousandths(q.value(5).toLongLong());
        line.lineval = Money::fromTenThousandths(q.value(6).toLongLong());
        line.recvQty = q.value(7).toInt();
        line.status = q.value(8).toString();
        last = line.line;
        if (!m_byCode.contains(line.code))
            m_byCode.insert(line.code, m_lines.size());
        m_lines.append(line);
    }
    m_nextLine = last + 1;
    return m_lines;
}

void OrderLineBook::close() {
    m_open = false;
    m_orderId.clear();
    m_lines.clear();
    m_byCode.clear();
    m_nextLine = 1;
}

const OrderLine* OrderLineBook::findByCode(const QString& code) const {
    const auto at = m_byCode.constFind(code);
    return at == m_byCode.constEnd() ? nullptr : &m_lines.at(*at);
}

Status OrderLineBook::saveHeader(const OrderHeaderFields& header) {
    return m_header.exec({header.total.roundedToPence().tenThousandths(), Sql::textOrNull(header.name),
                          Sql::textOrNull(header.reference), Sql::textOrNull(header.note1),
                          Sql::textOrNull(header.note2), header.orderId});
}

Result<LineChange> OrderLineBook::record(const QString& code, const QString& descr, int packQty, qint64 qty,
                                         Money price, bool editing, OrderHeaderFields header, const QDate& today) {
    if (!m_open)
        return Status::fail(QStringLiteral("No order is open for its lines to be recorded."));
    // The total box always holds two decimals, so every step of it is rounded to pence.
    Money total = header.total.roundedToPence();
    Sql::Transaction tx(m_db);
    LineChange change;
    const auto at = m_byCode.constFind(code);
    if (at == m_byCode.constEnd()) {
        OrderLine line;
        line.line = m_nextLine;
        line.code = code;
        line.descr = descr;
        line.packQty = packQty;
        line.qty = int(qty);
        line.price = price;
        line.lineval = price * qty; // kept to the currency's four decimals
        line.status = OrderStatus::Live;
        const QVariantList values{m_orderId,
                                  line.line,
                                  code,
                                  Dates::toStored(today),
                                  Dates::toStored(NotReceived),
                                  line.status,
                                  line.qty,
                                  price.tenThousandths(),
                                  line.lineval.tenThousandths()};
        if (Status inserted = m_insert.exec(values); !inserted)
            return inserted;
        total = (total + line.lineval).roundedToPence();
        change.line = line;
        change.appended = true;
    } else {
        OrderLine line = m_lines.at(*at);
        total = (total - line.lineval).roundedToPence();
        if (editing && qty == 0) {
            line.qty = 0;
            line.status = OrderStatus::Cancelled;
            line.lineval = Money();
        } else {
            line.qty = editing ? int(qty) : int(line.qty + qty);
            line.status = OrderStatus::Live; // a cancelled line comes back to life
            line.lineval = (line.price * line.qty).roundedToPence();
            total = (total + line.lineval).roundedToPence();
        }
        line.descr = descr;
        line.packQty = packQty;
        if (Status updated =
                m_update.exec({line.qty, line.status, line.lineval.tenThousandths(), m_orderId, line.line});
            !updated)
            return updated;
        change.line = line;
    }
    header.total = total;
    if (Status saved = saveHeader(header); !saved)
        return saved;
    if (Status done = tx.commit(); !done)
        return done;
    // Memory follows only once the database has the change.
    if (change.appended) {
        m_byCode.insert(code, m_lines.size());
        m_lines.append(change.line);
        ++m_nextLine;
    } else {
        m_lines[*at] = change.line;
    }
    change.total = total;
    return change;
}

} // namespace ordwell

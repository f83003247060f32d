#include "Revaluation.h"

#include "common/Money.h"
#include "common/Sql.h"
#include "common/WaitCursor.h"
#include "store/OrderLeases.h"

#include <QSqlQuery>

namespace ordwell {

namespace {

// Amounts are stored as ten-thousandths; "written with two decimals" compares them to the
// penny, rounding half away from zero (integer division truncates towards zero).
const QString LinePence = QStringLiteral("(CASE WHEN orderline.price >= 0 THEN (orderline.price + 50) / 100 "
                                         "ELSE (orderline.price - 50) / 100 END)");
const QString ItemPence =
    QStringLiteral("(CASE WHEN i.price >= 0 THEN (i.price + 50) / 100 ELSE (i.price - 50) / 100 END)");

// Each open line whose item is still catalogued and priced differently, in one statement
// joining the lines to their items and orders (both engines plan it as a join, where a
// look-up per line and column cost a server a second on a large order book).
QString repriceLinesSql(const QSqlDatabase& vendorDb) {
    return QStringLiteral("UPDATE orderline SET price = i.price, lineval = i.price * orderline.qty "
                          "FROM items i, orderhead h "
                          "WHERE i.code = orderline.code AND h.orderid = orderline.orderid "
                          "AND (h.status = 'L' OR h.status = 'E') AND %1 <> %2")
               .arg(ItemPence, LinePence) +
           OrderLeases::notLeasedElsewhere(vendorDb, QStringLiteral("h"));
}

struct OpenTotal {
    QString orderid;
    Money stored;
    Money computed;
};

} // namespace

Result<int> revalueOpenOrders(const QSqlDatabase& vendorDb) {
    Sql::Transaction tx(vendorDb);
    if (!tx.isActive())
        return Status::fail(Sql::describe(vendorDb.lastError()));
    // An order another workstation is working on is left to it: its window holds the lines.
    if (Status repriced =
            Sql::run(vendorDb, repriceLinesSql(vendorDb), OrderLeases::notLeasedElsewhereValues(vendorDb));
        !repriced)
        return repriced;

    // One pass over the open lines, in order and line sequence, carrying each order's running
    // total; an order without lines totals 0.
    auto lines = Sql::exec(vendorDb,
                           QStringLiteral("SELECT h.orderid, h.totalval, l.lineval FROM orderhead h "
                                          "LEFT JOIN orderline l ON l.orderid = h.orderid "
                                          "WHERE (h.status = 'L' OR h.status = 'E')") +
                               OrderLeases::notLeasedElsewhere(vendorDb, QStringLiteral("h")) +
                               QStringLiteral(" ORDER BY h.orderid, l.line"),
                           OrderLeases::notLeasedElsewhereValues(vendorDb));
    if (!lines)
        return lines.status();
    QList<OpenTotal> changed;
    std::optional<OpenTotal> current;
    auto settle = [&changed, &current] {
        if (current && current->computed.roundedToPence() != current->stored.roundedToPence())
            changed.append(*current);
    };
    QSqlQuery& q = lines.value();
    while (q.next()) {
        const QString orderid = q.value(0).toString();
        if (!current || current->orderid != orderid) {
            settle();
            current = OpenTotal{orderid, Money::fromTenThousandths(q.value(1).toLongLong()), Money()};
        }
        if (!q.isNull(2))
            current->computed =
                (current->computed + Money::fromTenThousandths(q.value(2).toLongLong())).roundedToPence();
    }
    settle();
    q.finish();

    Sql::Statement update(vendorDb, QStringLiteral("UPDATE orderhead SET totalval = ? WHERE orderid = ?"));
    for (const OpenTotal& order : changed) {
        if (Status written = update.exec({order.computed.tenThousandths(), order.orderid}); !written)
            return written;
    }
    if (Status committed = tx.commit(); !committed)
        return committed;
    return int(changed.size());
}

QString ordersUpdatedText(int count) {
    if (count == 1)
        return QStringLiteral("1 order value has been updated");
    if (count > 1)
        return QStringLiteral("%1 order values have been updated").arg(count);
    return {};
}

int RefreshOrderValues(const QSqlDatabase& vendorDb, Prompter& prompter) {
    Result<int> count = [&vendorDb] {
        WaitCursor wait;
        return revalueOpenOrders(vendorDb);
    }();
    if (!count) {
        prompter.message(
            QStringLiteral("The values of the open orders could not be brought up to date.\n%1").arg(count.message()),
            OrdersUpdateTitle, MessageIcon::Critical);
        return 0;
    }
    if (*count > 0)
        prompter.message(ordersUpdatedText(*count), OrdersUpdateTitle, MessageIcon::Information);
    return *count;
}

} // namespace ordwell

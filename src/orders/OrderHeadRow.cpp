#include "OrderHeadRow.h"

#include "common/Dates.h"
#include "common/Sql.h"

#include <QSqlQuery>

namespace ordwell {

QString OrderHeadRow::orderDateText() const {
    return Dates::shortDate(orderDate);
}

QString OrderHeadRow::totalText() const {
    return total.toString();
}

QString OrderHeadRow::columns() {
    return QStringLiteral("orderid, orderdate, name, reference, status, totalval, printdate, reprintdate, "
                          "reprintcount, recvdate, note1, note2");
}

OrderHeadRow OrderHeadRow::fromQuery(const QSqlQuery& query) {
    OrderHeadRow row;
    row.orderId = query.value(0).toString();
    row.orderDate = Dates::dateFromStored(query.value(1).toString());
    row.name = query.value(2).toString();
    row.reference = query.value(3).toString();
    row.status = query.value(4).toString();
    row.total = Money::fromTenThousandths(query.value(5).toLongLong());
    row.printDate = Dates::dateFromStored(query.value(6).toString());
    row.reprintDate = Dates::dateFromStored(query.value(7).toString());
    row.reprintCount = query.value(8).toInt();
    row.recvDate = Dates::dateFromStored(query.value(9).toString());
    row.note1 = query.value(10).toString();
    row.note2 = query.value(11).toString();
    return row;
}

Result<std::optional<OrderHeadRow>> OrderHeadRow::read(const QSqlDatabase& db, const QString& orderId) {
    auto query = Sql::exec(db, QStringLiteral("SELECT %1 FROM orderhead WHERE orderid = ?").arg(columns()), {orderId});
    if (!query)
        return query.status();
    if (!query.value().next())
        return std::optional<OrderHeadRow>();
    return std::optional<OrderHeadRow>(fromQuery(query.value()));
}

} // namespace ordwell

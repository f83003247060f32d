#pragma once

#include "common/Money.h"
#include "common/Status.h"

#include <QDate>
#include <QSqlDatabase>
#include <QString>
#include <optional>

class QSqlQuery;

namespace ordwell {

// One `orderhead` row as the lists, recovery, printing and export read it. Text fields
// without a value come back empty.
struct OrderHeadRow {
    QString orderId;
    QDate orderDate;
    QString name;
    QString reference;
    QString status;
    Money total;
    QDate printDate;
    QDate reprintDate;
    int reprintCount = 0;
    QDate recvDate;
    QString note1;
    QString note2;

    // The order date in the regional short form, as the header and the export show it.
    QString orderDateText() const;
    // The total with two decimals and the regional grouping: "1,234.50".
    QString totalText() const;

    // The column list every reader selects, in the order fromQuery expects.
    static QString columns();
    // The row the query stands on, its columns selected through columns().
    static OrderHeadRow fromQuery(const QSqlQuery& query);
    // The order with this number, or nothing when there is none.
    static Result<std::optional<OrderHeadRow>> read(const QSqlDatabase& db, const QString& orderId);
};

} // namespace ordwell

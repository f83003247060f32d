#pragma once

#include "common/Money.h"
#include "common/Status.h"

#include <QDate>
#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// The header texts the user can change, with the total the screen shows.
struct OrderHeaderFields {
    QString orderId;
    QString name;
    QString reference;
    QString note1;
    QString note2;
    Money total;
};

// One orderhead row as read back.
struct OrderHeaderRow {
    QString orderId;
    QDate orderDate;
    QString name;
    QString reference;
    QString note1;
    QString note2;
    QString status;
    Money total;
};

// Order numbers and order headers of the open vendor's database. Status changes are
// OrderTransitions' alone.
class OrderRepository {
public:
    explicit OrderRepository(QSqlDatabase db) : m_db(std::move(db)) {}

    // The vendor's code followed by the counter's digits. The counter is advanced and written
    // back before anything else, so a number once given is never given again.
    Result<QString> NextOrderNumber(const QString& vendorCode) const;

    // The new order's row: live, total 0.00, no reprints.
    Status insertNewOrder(const QString& orderId, const QDate& orderDate) const;
    // Writes the editable texts and the total; never the number, date or status.
    Status updateHeader(const OrderHeaderFields& header) const;

    Result<OrderHeaderRow> readHeader(const QString& orderId) const;

private:
    QSqlDatabase m_db;
};

} // namespace ordwell

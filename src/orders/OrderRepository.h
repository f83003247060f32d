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

// Order numbers, order headers and order-wide status changes of the open vendor's database.
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

    // The stored status letter, or empty text when there is no such order.
    Result<QString> ReadOrderStatus(const QString& orderId) const;
    Result<OrderHeaderRow> readHeader(const QString& orderId) const;

    // Sets the order's letter with what goes with it: "C" zeroes the total, "E" stores
    // `shownTotal`, "P" stamps the print date and "R" the received date (today).
    Status SetOrderStatus(const QString& orderId, const QString& letter, Money shownTotal = {},
                          const QDate& today = QDate::currentDate()) const;
    // Every line of the order not cancelled takes the letter (and on "R" its full quantity as
    // received), all in one transaction.
    Status SetLineStatus(const QString& orderId, const QString& letter) const;

private:
    QSqlDatabase m_db;
};

} // namespace ordwell

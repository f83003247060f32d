#pragma once

#include "common/Money.h"

#include <QSqlDatabase>
#include <QString>

namespace ordwell::test {

// Vendor databases filled with known orders, written the way the program stores them.
class ReportFixture {
public:
    // Creates the system database in `dataDir` if needed, lists the vendor there and creates
    // its database with its own `vendor` row.
    ReportFixture(const QString& dataDir, const QString& code, const QString& name);
    ~ReportFixture();
    ReportFixture(const ReportFixture&) = delete;
    ReportFixture& operator=(const ReportFixture&) = delete;

    QSqlDatabase db() const;
    QString databasePath() const;

    void addItem(const QString& code, const QString& descr, Money price);
    // totalval is the sum of the lines not cancelled, kept up to date by addLine.
    void addOrder(const QString& orderId, const QString& date, const QString& status, const QString& name = {},
                  const QString& reference = {}, const QString& note1 = {}, const QString& note2 = {},
                  const QString& printDate = {}, const QString& recvDate = {});
    void addLine(const QString& orderId, int line, const QString& code, const QString& status, int qty, Money price,
                 int recvQty = 0);

    // The standard orders the report tests read (vendor ABC's numbers, any vendor code).
    void addStandardOrders();

private:
    QString m_dataDir;
    QString m_code;
    QString m_connection;
};

} // namespace ordwell::test

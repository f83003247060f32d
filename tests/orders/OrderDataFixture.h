#pragma once

#include "common/Money.h"
#include "support/TestSupport.h"

#include <QDate>
#include <QSqlDatabase>
#include <QString>
#include <QVariant>

namespace ordwell::test {

// An open vendor "ABC" (Acme Supplies) with the organisation's details stored, and shorthand
// for putting orders, lines and items straight into its database.
class OrderDataFixture {
public:
    OrderDataFixture();

    AppContext& ctx() { return m_tc.context(); }
    ScriptedPrompter& prompter() { return m_tc.prompter(); }
    QSqlDatabase vendorDb() { return ctx().vendorDb(); }
    QSqlDatabase systemDb() { return ctx().systemDb(); }
    QString desktopDir() { return m_tc.folders().desktopDir(); }
    TestFolders& folders() { return m_tc.folders(); }

    void addItem(const QString& code, const QString& descr, Money price, int pack = 1);
    void removeItem(const QString& code);
    // An order with the given status and total, dated 11 March 2020.
    void addOrder(const QString& orderId, const QString& status, Money total = {}, const QString& note1 = {},
                  const QString& note2 = {});
    void addLine(const QString& orderId, int line, const QString& code, int qty, Money price,
                 const QString& status = QStringLiteral("L"), int received = 0);

    // One stored value, e.g. value("orderhead", "status", "orderid", "ABC1000000").
    QVariant value(const QString& table, const QString& column, const QString& keyColumn, const QVariant& key);
    QString orderStatus(const QString& orderId);
    // The lines' statuses in line order, e.g. "LLC".
    QString lineStatuses(const QString& orderId);
    QVariant lineValue(const QString& orderId, int line, const QString& column);
    void exec(const QString& sql, const QVariantList& values = {});

private:
    TestContext m_tc;
};

} // namespace ordwell::test

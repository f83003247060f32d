#pragma once

#include "app/VendorSession.h"
#include "common/Money.h"
#include "common/Sql.h"
#include "settings/PeppolParty.h"
#include "store/Store.h"
#include "support/TestSupport.h"

#include <QDate>
#include <QSqlDatabase>
#include <QString>
#include <QVariant>

namespace ordwell::test {

// An open vendor "ABC" (Acme Supplies) with the organisation's details stored, and shorthand
// for putting orders, lines and items straight into its database. Defined here whole, so the
// tests that build the order form's fixture from its source need nothing else.
class OrderDataFixture {
public:
    // `throughSession`: the vendor opened as the vendor window opens it, through its session.
    explicit OrderDataFixture(bool throughSession = false) {
        storeOrganisationDetails(ctx());
        if (!Store::CreateVendorDatabase(ctx().store(), QStringLiteral("ABC")))
            qFatal("cannot create the vendor database");
        if (throughSession) {
            if (!ctx().vendorSession().open(QStringLiteral("ABC"), QStringLiteral("Acme Supplies")))
                qFatal("cannot open the vendor");
        } else {
            if (!Store::OpenVendorDatabase(ctx().store(), Store::vendorFileName(QStringLiteral("ABC"))))
                qFatal("cannot open the vendor database");
            ctx().CurrentVendorCode = QStringLiteral("ABC");
            ctx().CurrentVendorName = QStringLiteral("Acme Supplies");
        }
        exec(QStringLiteral(
                 "INSERT INTO vendor (vendorid, customerid, add1, add2, add3, county, postcode, repname, reptel, "
                 "repemail, contactname, contacttel, contactfax, contactemail, nextord, ordform) "
                 "VALUES ('ABC', 'CUST7', '2 Mill Lane', NULL, 'Leeds', 'Yorks', 'LS11AA', 'Rob Rep', "
                 "'0113 000', NULL, 'Cat', NULL, NULL, 'cat@acme.example', 1000000, ?)"),
             {ctx().dataFile(Store::DefaultOrderFormFileName)});
    }

    AppContext& ctx() { return m_tc.context(); }
    ScriptedPrompter& prompter() { return m_tc.prompter(); }
    QSqlDatabase vendorDb() { return ctx().vendorDb(); }
    QSqlDatabase systemDb() { return ctx().systemDb(); }
    QString desktopDir() { return m_tc.folders().desktopDir(); }
    TestFolders& folders() { return m_tc.folders(); }

    void exec(const QString& sql, const QVariantList& values = {}) {
        if (const Status s = Sql::run(vendorDb(), sql, values); !s)
            qFatal("%s: %s", qPrintable(sql), qPrintable(s.message()));
    }
    void addItem(const QString& code, const QString& descr, Money price, int pack = 1) {
        exec(QStringLiteral(
                 "INSERT INTO items (code, descr, packqty, defqty, price, priceexp) VALUES (?, ?, ?, 1, ?, ?)"),
             {code, descr, pack, price.tenThousandths(), QStringLiteral("2030-12-31")});
    }
    void removeItem(const QString& code) { exec(QStringLiteral("DELETE FROM items WHERE code = ?"), {code}); }
    // An order with the given status and total, dated 11 March 2020.
    void addOrder(const QString& orderId, const QString& status, Money total = {}, const QString& note1 = {},
                  const QString& note2 = {}) {
        exec(QStringLiteral("INSERT INTO orderhead (orderid, orderdate, name, reference, status, totalval, "
                            "reprintcount, note1, note2) VALUES (?, '2020-03-11', 'Ann', 'REF1', ?, ?, 0, ?, ?)"),
             {orderId, status, total.tenThousandths(), Sql::textOrNull(note1), Sql::textOrNull(note2)});
    }
    void addLine(const QString& orderId, int line, const QString& code, int qty, Money price,
                 const QString& status = QStringLiteral("L"), int received = 0) {
        exec(QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, lineval, "
                            "recvqty, recvdate) VALUES (?, ?, ?, '2020-03-11', ?, ?, ?, ?, ?, '1980-07-04')"),
             {orderId, line, code, status, qty, price.tenThousandths(), (price * qty).tenThousandths(), received});
    }

    // The organisation and the vendor ready for electronic (Peppol) orders.
    void giveParties() {
        if (!PeppolPartyStore::save(systemDb(), PeppolSide::Organisation,
                                    {QStringLiteral("0088"), QStringLiteral("5012345000008"),
                                     QStringLiteral("Head Office Ltd"), QStringLiteral("GB"), QStringLiteral("GBP")}) ||
            !PeppolPartyStore::save(vendorDb(), PeppolSide::Vendor,
                                    {QStringLiteral("0088"),
                                     QStringLiteral("7300010000001"),
                                     QStringLiteral("Acme Supplies plc"),
                                     QStringLiteral("GB"),
                                     {}}))
            qFatal("cannot store the Peppol parties");
    }

    // One stored value, e.g. value("orderhead", "status", "orderid", "ABC1000000").
    QVariant value(const QString& table, const QString& column, const QString& keyColumn, const QVariant& key) {
        auto v = Sql::scalar(vendorDb(), QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?").arg(column, table, keyColumn),
                             {key});
        return v ? v.value() : QVariant();
    }
    QString orderStatus(const QString& orderId) {
        return value(QStringLiteral("orderhead"), QStringLiteral("status"), QStringLiteral("orderid"), orderId)
            .toString();
    }
    // The lines' statuses in line order, e.g. "LLC".
    QString lineStatuses(const QString& orderId) {
        auto q = Sql::exec(vendorDb(), QStringLiteral("SELECT status FROM orderline WHERE orderid = ? ORDER BY line"),
                           {orderId});
        QString statuses;
        while (q && q.value().next())
            statuses += q.value().value(0).toString();
        return statuses;
    }
    QVariant lineValue(const QString& orderId, int line, const QString& column) {
        auto v = Sql::scalar(vendorDb(),
                             QStringLiteral("SELECT %1 FROM orderline WHERE orderid = ? AND line = ?").arg(column),
                             {orderId, line});
        return v ? v.value() : QVariant();
    }

private:
    TestContext m_tc;
};

} // namespace ordwell::test

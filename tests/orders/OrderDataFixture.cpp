#include "OrderDataFixture.h"

#include "common/Dates.h"
#include "common/Sql.h"
#include "store/Store.h"

namespace ordwell::test {

OrderDataFixture::OrderDataFixture() {
    storeOrganisationDetails(ctx());
    if (!Store::CreateVendorDatabase(ctx().store(), QStringLiteral("ABC")))
        qFatal("cannot create the vendor database");
    if (!Store::OpenVendorDatabase(ctx().store(), Store::vendorFileName(QStringLiteral("ABC"))))
        qFatal("cannot open the vendor database");
    ctx().CurrentVendorCode = QStringLiteral("ABC");
    ctx().CurrentVendorName = QStringLiteral("Acme Supplies");
    exec(
        QStringLiteral("INSERT INTO vendor (vendorid, customerid, add1, add2, add3, county, postcode, repname, reptel, "
                       "repemail, contactname, contacttel, contactfax, contactemail, nextord, ordform) "
                       "VALUES ('ABC', 'CUST7', '2 Mill Lane', NULL, 'Leeds', 'Yorks', 'LS11AA', 'Rob Rep', "
                       "'0113 000', NULL, 'Cat', NULL, NULL, 'cat@acme.example', 1000000, ?)"),
        {ctx().dataFile(Store::DefaultOrderFormFileName)});
}

void OrderDataFixture::exec(const QString& sql, const QVariantList& values) {
    const Status s = Sql::run(vendorDb(), sql, values);
    if (!s)
        qFatal("%s: %s", qPrintable(sql), qPrintable(s.message()));
}

void OrderDataFixture::addItem(const QString& code, const QString& descr, Money price, int pack) {
    exec(QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) VALUES (?, ?, ?, 1, ?, ?)"),
         {code, descr, pack, price.tenThousandths(), QStringLiteral("2030-12-31")});
}

void OrderDataFixture::removeItem(const QString& code) {
    exec(QStringLiteral("DELETE FROM items WHERE code = ?"), {code});
}

void OrderDataFixture::addOrder(const QString& orderId, const QString& status, Money total, const QString& note1,
                                const QString& note2) {
    exec(QStringLiteral("INSERT INTO orderhead (orderid, orderdate, name, reference, status, totalval, reprintcount, "
                        "note1, note2) VALUES (?, '2020-03-11', 'Ann', 'REF1', ?, ?, 0, ?, ?)"),
         {orderId, status, total.tenThousandths(), Sql::textOrNull(note1), Sql::textOrNull(note2)});
}

void OrderDataFixture::addLine(const QString& orderId, int line, const QString& code, int qty, Money price,
                               const QString& status, int received) {
    exec(QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, lineval, recvqty, "
                        "recvdate) VALUES (?, ?, ?, '2020-03-11', ?, ?, ?, ?, ?, '1980-07-04')"),
         {orderId, line, code, status, qty, price.tenThousandths(), (price * qty).tenThousandths(), received});
}

QVariant OrderDataFixture::value(const QString& table, const QString& column, const QString& keyColumn,
                                 const QVariant& key) {
    auto v =
        Sql::scalar(vendorDb(), QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?").arg(column, table, keyColumn), {key});
    return v ? v.value() : QVariant();
}

QString OrderDataFixture::orderStatus(const QString& orderId) {
    return value(QStringLiteral("orderhead"), QStringLiteral("status"), QStringLiteral("orderid"), orderId).toString();
}

QString OrderDataFixture::lineStatuses(const QString& orderId) {
    auto q = Sql::exec(vendorDb(), QStringLiteral("SELECT status FROM orderline WHERE orderid = ? ORDER BY line"),
                       {orderId});
    QString statuses;
    while (q && q.value().next())
        statuses += q.value().value(0).toString();
    return statuses;
}

QVariant OrderDataFixture::lineValue(const QString& orderId, int line, const QString& column) {
    auto v =
        Sql::scalar(vendorDb(), QStringLiteral("SELECT %1 FROM orderline WHERE orderid = ? AND line = ?").arg(column),
                    {orderId, line});
    return v ? v.value() : QVariant();
}

} // namespace ordwell::test

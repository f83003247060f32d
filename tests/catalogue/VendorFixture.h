#pragma once

#include "common/Dates.h"
#include "common/Money.h"
#include "common/Sql.h"
#include "store/DatabaseFile.h"
#include "store/Store.h"
#include "support/TestSupport.h"

#include <QDate>
#include <QSqlQuery>
#include <QUuid>

namespace ordwell::test {

// A vendor database "TST" in a fresh data folder, open on a connection of its own, with
// helpers that write catalogue and order rows the way the program stores them.
class VendorFixture {
public:
    explicit VendorFixture(const QString& code = QStringLiteral("TST"),
                           const QString& connection = QUuid::createUuid().toString())
        : m_connection(connection) {
        // In the data folder, or on the test server when the run asks for it.
        const Store::StoreLocation where(m_folders.dataDir(), onTestServer() ? testServer() : QString());
        if (where.onServer() && !dropOrdwellSchemas().isEmpty())
            qFatal("cannot clear the test server");
        if (!Store::CreateVendorDatabase(where, code))
            qFatal("cannot create the vendor database");
        auto opened = Store::OpenVendorDatabase(where, Store::vendorFileName(code), m_connection);
        if (!opened)
            qFatal("cannot open the vendor database: %s", qPrintable(opened.message()));
        m_db = *opened;
    }
    ~VendorFixture() {
        m_db = QSqlDatabase();
        DatabaseFile::close(m_connection);
    }

    QSqlDatabase db() const { return m_db; }
    TestFolders& folders() { return m_folders; }

    static qint64 units(const QString& amount) { return Money::parse(amount, QLocale::c())->tenThousandths(); }

    void addItem(const QString& code, const QString& price, const QDate& expiry = QDate(2099, 12, 31),
                 const QString& descr = {}) {
        write(QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) VALUES (?,?,?,?,?,?)"),
              {code, descr.isEmpty() ? QStringLiteral("Item ") + code : descr, 1, 1, units(price),
               Dates::toStored(expiry)});
    }
    void setItemPrice(const QString& code, const QString& price) {
        write(QStringLiteral("UPDATE items SET price = ? WHERE code = ?"), {units(price), code});
    }
    void addOrder(const QString& orderid, const QString& status, const QString& total) {
        write(QStringLiteral("INSERT INTO orderhead (orderid, orderdate, status, totalval) VALUES (?,?,?,?)"),
              {orderid, QStringLiteral("2024-01-02"), status, units(total)});
    }
    void addLine(const QString& orderid, int line, const QString& code, int qty, const QString& price,
                 const QString& lineval) {
        write(QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, lineval, "
                             "recvqty) VALUES (?,?,?,?,?,?,?,?,0)"),
              {orderid, line, code, QStringLiteral("2024-01-02"), QStringLiteral("L"), qty, units(price),
               units(lineval)});
    }

    // A stored amount as two-decimal text, for comparing with what a user would see.
    QString amount(const QString& sql, const QVariantList& values = {}) const {
        auto v = Sql::scalar(m_db, sql, values);
        return v && v->isValid() ? Money::fromTenThousandths(v->toLongLong()).toPlainString()
                                 : QStringLiteral("<none>");
    }
    QString total(const QString& orderid) const {
        return amount(QStringLiteral("SELECT totalval FROM orderhead WHERE orderid = ?"), {orderid});
    }
    QString linePrice(const QString& orderid, int line) const {
        return amount(QStringLiteral("SELECT price FROM orderline WHERE orderid = ? AND line = ?"), {orderid, line});
    }
    QString lineValue(const QString& orderid, int line) const {
        return amount(QStringLiteral("SELECT lineval FROM orderline WHERE orderid = ? AND line = ?"), {orderid, line});
    }
    int count(const QString& table) const {
        return Sql::scalar(m_db, QStringLiteral("SELECT count(*) FROM ") + table)->toInt();
    }

private:
    void write(const QString& sql, const QVariantList& values) {
        const Status s = Sql::run(m_db, sql, values);
        if (!s)
            qFatal("fixture write failed: %s", qPrintable(s.message()));
    }

    TestFolders m_folders;
    QString m_connection;
    QSqlDatabase m_db;
};

} // namespace ordwell::test

#include "ReportFixture.h"

#include "common/Sql.h"
#include "store/DatabaseFile.h"
#include "store/Store.h"

#include <QFileInfo>

namespace ordwell::test {

namespace {
void must(const Status& s, const char* what) {
    if (!s)
        qFatal("fixture: %s: %s", what, qPrintable(s.message()));
}
} // namespace

ReportFixture::ReportFixture(const QString& dataDir, const QString& code, const QString& name)
    : m_dataDir(dataDir), m_code(code), m_connection(QStringLiteral("fixture-") + code) {
    if (!QFileInfo::exists(Store::systemDatabasePath(dataDir)))
        must(Store::CreateSystemDatabase(dataDir), "system database");
    {
        auto sys = DatabaseFile::open(QStringLiteral("fixture-system"), Store::systemDatabasePath(dataDir));
        if (!sys)
            qFatal("fixture: %s", qPrintable(sys.message()));
        must(Sql::run(sys.value(), QStringLiteral("INSERT INTO vendors (vendor, code, status) VALUES (?, ?, 'A')"),
                      {name, code}),
             "vendor list");
    }
    DatabaseFile::close(QStringLiteral("fixture-system"));
    must(Store::CreateVendorDatabase(dataDir, code), "vendor database");
    auto opened = Store::OpenVendorDatabase(dataDir, Store::vendorFileName(code), m_connection);
    if (!opened)
        qFatal("fixture: %s", qPrintable(opened.message()));
    must(Sql::run(db(),
                  QStringLiteral("INSERT INTO vendor (vendorid, customerid, add1, add2, add3, county, postcode, "
                                 "repname, nextord, ordform) VALUES (?, ?, ?, ?, NULL, ?, ?, ?, 1, ?)"),
                  {code, QStringLiteral("CUST-") + code, QStringLiteral("7 Dock Road"), QStringLiteral("Portside"),
                   QStringLiteral("Essex"), QStringLiteral("SS1 9ZZ"), QStringLiteral("Rhona Rep"),
                   QFileInfo(dataDir + QStringLiteral("/ordform.rpt")).absoluteFilePath()}),
         "vendor row");
}

ReportFixture::~ReportFixture() {
    DatabaseFile::close(m_connection);
}

QSqlDatabase ReportFixture::db() const {
    return QSqlDatabase::database(m_connection, false);
}

QString ReportFixture::databasePath() const {
    return Store::vendorDatabasePath(m_dataDir, m_code);
}

void ReportFixture::addItem(const QString& code, const QString& descr, Money price) {
    must(Sql::run(db(),
                  QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                                 "VALUES (?, ?, 1, 1, ?, '2099-12-31')"),
                  {code, descr, price.tenThousandths()}),
         "item");
}

void ReportFixture::addOrder(const QString& orderId, const QString& date, const QString& status, const QString& name,
                             const QString& reference, const QString& note1, const QString& note2,
                             const QString& printDate, const QString& recvDate) {
    must(Sql::run(db(),
                  QStringLiteral("INSERT INTO orderhead (orderid, orderdate, name, reference, status, totalval, "
                                 "printdate, reprintcount, recvdate, note1, note2) "
                                 "VALUES (?, ?, ?, ?, ?, 0, ?, 0, ?, ?, ?)"),
                  {orderId, date, Sql::textOrNull(name), Sql::textOrNull(reference), status, Sql::textOrNull(printDate),
                   Sql::textOrNull(recvDate), Sql::textOrNull(note1), Sql::textOrNull(note2)}),
         "order");
}

void ReportFixture::addLine(const QString& orderId, int line, const QString& code, const QString& status, int qty,
                            Money price, int recvQty) {
    const Money value = price * qty;
    must(Sql::run(db(),
                  QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, lineval, "
                                 "recvqty) VALUES (?, ?, ?, '2024-03-11', ?, ?, ?, ?, ?)"),
                  {orderId, line, code, status, qty, price.tenThousandths(), value.tenThousandths(), recvQty}),
         "line");
    if (status != QLatin1String("C"))
        must(Sql::run(db(), QStringLiteral("UPDATE orderhead SET totalval = totalval + ? WHERE orderid = ?"),
                      {value.tenThousandths(), orderId}),
             "order total");
}

void ReportFixture::addStandardOrders() {
    const QString c = m_code;
    addItem(QStringLiteral("BOLT10"), QStringLiteral("Bolt 10 mm & washer"), Money::fromPence(250));
    addItem(QStringLiteral("NUT10"), QStringLiteral("Nut <M10>"), Money::fromTenThousandths(1250));
    addItem(QStringLiteral("PIN"), QStringLiteral("Split pin"), Money::fromPence(5));
    // 1: exported, one line part received, one cancelled.
    addOrder(c + QStringLiteral("0000001"), QStringLiteral("2024-03-11"), QStringLiteral("X"),
             QStringLiteral("Jo Bloggs"), QStringLiteral("REF-1"), QStringLiteral("Deliver to the back door"),
             QStringLiteral("Ring before noon"), QStringLiteral("2024-03-12"));
    addLine(c + QStringLiteral("0000001"), 1, QStringLiteral("BOLT10"), QStringLiteral("X"), 4, Money::fromPence(250),
            1);
    addLine(c + QStringLiteral("0000001"), 2, QStringLiteral("NUT10"), QStringLiteral("X"), 10,
            Money::fromTenThousandths(1250));
    addLine(c + QStringLiteral("0000001"), 3, QStringLiteral("PIN"), QStringLiteral("C"), 3, Money::fromPence(5));
    // 2: part received.
    addOrder(c + QStringLiteral("0000002"), QStringLiteral("2024-03-12"), QStringLiteral("S"), QStringLiteral("Al"), {},
             {}, {}, QStringLiteral("2024-03-12"));
    addLine(c + QStringLiteral("0000002"), 1, QStringLiteral("BOLT10"), QStringLiteral("S"), 3, Money::fromPence(250),
            1);
    addLine(c + QStringLiteral("0000002"), 2, QStringLiteral("PIN"), QStringLiteral("R"), 7, Money::fromPence(5), 7);
    // 3: received in full; 4: cancelled; 5: printed, not yet exported.
    addOrder(c + QStringLiteral("0000003"), QStringLiteral("2024-03-13"), QStringLiteral("R"), {}, {}, {}, {},
             QStringLiteral("2024-03-13"), QStringLiteral("2024-03-20"));
    addLine(c + QStringLiteral("0000003"), 1, QStringLiteral("PIN"), QStringLiteral("R"), 100, Money::fromPence(5),
            100);
    addOrder(c + QStringLiteral("0000004"), QStringLiteral("2024-03-14"), QStringLiteral("C"));
    addLine(c + QStringLiteral("0000004"), 1, QStringLiteral("BOLT10"), QStringLiteral("C"), 1, Money::fromPence(250));
    addOrder(c + QStringLiteral("0000005"), QStringLiteral("2024-03-15"), QStringLiteral("P"), {}, {}, {}, {},
             QStringLiteral("2024-03-15"));
    addLine(c + QStringLiteral("0000005"), 1, QStringLiteral("NUT10"), QStringLiteral("P"), 8,
            Money::fromTenThousandths(1250));
}

} // namespace ordwell::test

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
                  {code, "CUST-" + code, "7 Dock Road", "Portside", "Essex", "SS1 9ZZ", "Rhona Rep",
                   QFileInfo(dataDir + "/ordform.rpt").absoluteFilePath()}),
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
    const auto id = [this](int n) { return m_code + QStringLiteral("%1").arg(n, 7, 10, QLatin1Char('0')); };
    const Money bolt = Money::fromPence(250), nut = Money::fromTenThousandths(1250), pin = Money::fromPence(5);
    addItem("BOLT10", "Bolt 10 mm & washer", bolt);
    addItem("NUT10", "Nut <M10>", nut);
    addItem("PIN", "Split pin", pin);
    // 1: exported, one line part received, one cancelled.
    addOrder(id(1), "2024-03-11", "X", "Jo Bloggs", "REF-1", "Deliver to the back door", "Ring before noon",
             "2024-03-12");
    addLine(id(1), 1, "BOLT10", "X", 4, bolt, 1);
    addLine(id(1), 2, "NUT10", "X", 10, nut);
    addLine(id(1), 3, "PIN", "C", 3, pin);
    // 2: part received.
    addOrder(id(2), "2024-03-12", "S", "Al", {}, {}, {}, "2024-03-12");
    addLine(id(2), 1, "BOLT10", "S", 3, bolt, 1);
    addLine(id(2), 2, "PIN", "R", 7, pin, 7);
    // 3: received in full; 4: cancelled; 5: printed, not yet exported.
    addOrder(id(3), "2024-03-13", "R", {}, {}, {}, {}, "2024-03-13", "2024-03-20");
    addLine(id(3), 1, "PIN", "R", 100, pin, 100);
    addOrder(id(4), "2024-03-14", "C");
    addLine(id(4), 1, "BOLT10", "C", 1, bolt);
    addOrder(id(5), "2024-03-15", "P", {}, {}, {}, {}, "2024-03-15");
    addLine(id(5), 1, "NUT10", "P", 8, nut);
}

} // namespace ordwell::test

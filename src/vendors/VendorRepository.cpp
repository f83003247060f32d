#include "VendorRepository.h"

#include "common/Sql.h"

namespace ordwell::VendorRepository {

Result<QList<VendorEntry>> activeVendors(const QSqlDatabase& systemDb) {
    auto query =
        Sql::exec(systemDb, QStringLiteral("SELECT vendor, code, status FROM vendors WHERE status = ? ORDER BY code"),
                  {QStringLiteral("A")});
    if (!query)
        return query.status();
    QList<VendorEntry> list;
    QSqlQuery& q = query.value();
    while (q.next())
        list.append({q.value(0).toString(), q.value(1).toString(), q.value(2).toString()});
    return list;
}

Result<bool> codeIsFree(const QSqlDatabase& systemDb, const QString& code) {
    auto count = Sql::scalar(systemDb, QStringLiteral("SELECT count(*) FROM vendors WHERE code = ?"), {code});
    if (!count)
        return count.status();
    return count.value().toInt() == 0;
}

Status addVendor(const QSqlDatabase& systemDb, const QString& name, const QString& code) {
    Sql::Refusal why = Sql::Refusal::None;
    Status s = Sql::run(systemDb, QStringLiteral("INSERT INTO vendors (vendor, code, status) VALUES (?, ?, ?)"),
                        {name, code, QStringLiteral("A")}, &why);
    if (!s && why == Sql::Refusal::Duplicate)
        return Status::fail(
            QStringLiteral("A vendor called \"%1\" already exists, please enter a different company name.").arg(name));
    return s;
}

Status removeVendor(const QSqlDatabase& systemDb, const QString& code) {
    return Sql::run(systemDb, QStringLiteral("DELETE FROM vendors WHERE code = ?"), {code});
}

Status deactivateVendor(const QSqlDatabase& systemDb, const QString& code) {
    return Sql::run(systemDb, QStringLiteral("UPDATE vendors SET status = ? WHERE code = ?"),
                    {QStringLiteral("D"), code});
}

} // namespace ordwell::VendorRepository

#include "OrderLeases.h"

#include "Dialect.h"
#include "common/Sql.h"

#include <QSqlQuery>
#include <QUuid>

namespace ordwell {

OrderLeases::OrderLeases(QSqlDatabase vendorDb, QString workstation, QString holder, int seconds)
    : m_connection(vendorDb.connectionName()), m_workstation(std::move(workstation)), m_holder(std::move(holder)),
      m_seconds(seconds > 0 ? seconds : DefaultSeconds), m_active(Dialects::of(vendorDb) == Dialect::PostgreSQL) {}

Status OrderLeases::take(const QString& orderId) {
    if (!m_active)
        return Status::ok();
    // One statement, so two workstations taking the same order at once cannot both win: the
    // row is claimed when it is free, ours already, or its lease has run out.
    const QString until = Dialects::clockPlusSeconds(db());
    const QString now = Dialects::clockNow(db());
    auto taken = Sql::exec(db(),
                           QStringLiteral("INSERT INTO orderlease (orderid, workstation, holder, expires) "
                                          "VALUES (?, ?, ?, ") +
                               until +
                               QStringLiteral(") ON CONFLICT (orderid) DO UPDATE SET workstation = "
                                              "excluded.workstation, holder = excluded.holder, expires = "
                                              "excluded.expires WHERE orderlease.workstation = excluded.workstation "
                                              "OR orderlease.expires < ") +
                               now,
                           {orderId, m_workstation, m_holder, m_seconds});
    if (!taken)
        return taken.status();
    if (taken->numRowsAffected() == 1)
        return Status::ok();
    auto holder = heldElsewhere(orderId);
    if (!holder)
        return holder.status();
    return Status::fail(heldMessage(orderId, holder->value_or(QStringLiteral("another workstation"))));
}

Status OrderLeases::renewAll() {
    if (!m_active)
        return Status::ok();
    return Sql::run(db(),
                    QStringLiteral("UPDATE orderlease SET expires = ") + Dialects::clockPlusSeconds(db()) +
                        QStringLiteral(" WHERE workstation = ?"),
                    {m_seconds, m_workstation});
}

Status OrderLeases::release(const QString& orderId) {
    if (!m_active)
        return Status::ok();
    return Sql::run(db(), QStringLiteral("DELETE FROM orderlease WHERE orderid = ? AND workstation = ?"),
                    {orderId, m_workstation});
}

Status OrderLeases::releaseAll() {
    if (!m_active)
        return Status::ok();
    return Sql::run(db(), QStringLiteral("DELETE FROM orderlease WHERE workstation = ?"), {m_workstation});
}

Result<std::optional<QString>> OrderLeases::heldElsewhere(const QString& orderId) const {
    if (!m_active)
        return std::optional<QString>();
    auto holder = Sql::scalar(db(),
                              QStringLiteral("SELECT holder FROM orderlease WHERE orderid = ? AND workstation <> ? "
                                             "AND expires >= ") +
                                  Dialects::clockNow(db()),
                              {orderId, m_workstation});
    if (!holder)
        return holder.status();
    return holder->isValid() ? std::optional<QString>(holder->toString()) : std::optional<QString>();
}

QString OrderLeases::notLeasedElsewhere(const QString& alias) const {
    return m_active ? notLeasedElsewhere(db(), alias) : QString();
}

QString OrderLeases::notLeasedElsewhere(const QSqlDatabase& db, const QString& alias) {
    if (Dialects::of(db) != Dialect::PostgreSQL)
        return {};
    return QStringLiteral(" AND NOT EXISTS (SELECT 1 FROM orderlease l WHERE l.orderid = ") + alias +
           QStringLiteral(".orderid AND l.workstation <> ? AND l.expires >= ") + Dialects::clockNow(db) +
           QLatin1Char(')');
}

QVariantList OrderLeases::notLeasedElsewhereValues() const {
    return m_active ? QVariantList{m_workstation} : QVariantList{};
}

QVariantList OrderLeases::notLeasedElsewhereValues(const QSqlDatabase& db) {
    return Dialects::of(db) == Dialect::PostgreSQL ? QVariantList{thisWorkstation()} : QVariantList{};
}

const QString& OrderLeases::thisWorkstation() {
    static const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
    return name;
}

QString OrderLeases::heldMessage(const QString& orderId, const QString& holder) {
    return QStringLiteral("Order %1 is being worked on by %2. It can be used here once they have finished with it, "
                          "or a short while after their program stopped.")
        .arg(orderId, holder);
}

} // namespace ordwell

#pragma once

#include "common/Status.h"

#include <QSqlDatabase>
#include <QString>
#include <optional>

namespace ordwell {

// On a server several workstations share one vendor's orders. The order a workstation is
// building or working on is leased to it: others cannot take it up, recover, cancel, print,
// export or receive it while the lease runs. The holder renews its leases while it runs; one
// that crashes or loses power stops renewing, and its orders are free again once the lease
// has run out. Times are the database's own clock.
//
// On the data folder's files the program runs once at a time (the lock file sees to that),
// so there is nobody to lease to: every call succeeds and nothing is written.
class OrderLeases {
public:
    static constexpr int DefaultSeconds = 120;

    // `workstation` names this run of the program uniquely; `holder` says who and where, for
    // the others' messages ("ann on shop-pc-2").
    OrderLeases(QSqlDatabase vendorDb, QString workstation, QString holder, int seconds = DefaultSeconds);

    bool active() const { return m_active; }
    int seconds() const { return m_seconds; }

    // Takes the order's lease, or renews it if this workstation holds it. Refused, with who
    // has it and where, while another workstation's lease runs.
    Status take(const QString& orderId);
    // Renews every lease this workstation holds; called well within the lease's length.
    Status renewAll();
    Status release(const QString& orderId);
    Status releaseAll();

    // Who holds the order when another workstation does and its lease runs.
    Result<std::optional<QString>> heldElsewhere(const QString& orderId) const;
    // "AND NOT EXISTS (...)" for a query over orderhead aliased `alias`, leaving out orders
    // leased elsewhere; binds this workstation's name (one value, appended last). Empty when
    // leases are not in use.
    QString notLeasedElsewhere(const QString& alias) const;
    QVariantList notLeasedElsewhereValues() const;
    // The same for this run of the program, for work that has no leases object at hand.
    static QString notLeasedElsewhere(const QSqlDatabase& db, const QString& alias);
    static QVariantList notLeasedElsewhereValues(const QSqlDatabase& db);

    // This run of the program's own name among the workstations: made once, never reused.
    static const QString& thisWorkstation();

    static QString heldMessage(const QString& orderId, const QString& holder);

private:
    // By name, so that a connection closed and opened again (compaction) is never held open.
    QSqlDatabase db() const { return QSqlDatabase::database(m_connection, false); }
    QString m_connection;
    QString m_workstation;
    QString m_holder;
    int m_seconds;
    bool m_active;
};

} // namespace ordwell

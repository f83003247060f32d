#pragma once

#include "common/Status.h"

#include <QObject>
#include <QSqlDatabase>
#include <QString>
#include <QTimer>
#include <functional>
#include <memory>

namespace ordwell {

class AppContext;
class OrderLeases;

// The one open vendor: its code, its company name and the connection to its database. Only one
// vendor is open at a time; windows and menus follow the two signals instead of polling state.
// The context's CurrentVendorCode/CurrentVendorName are kept equal to code()/name().
class VendorSession : public QObject {
    Q_OBJECT
public:
    explicit VendorSession(AppContext& context, QObject* parent = nullptr);
    ~VendorSession() override;

    bool isOpen() const { return !m_code.isEmpty(); }
    const QString& code() const { return m_code; }
    const QString& name() const { return m_name; }
    // The open vendor's connection; an invalid database while none is open.
    QSqlDatabase db() const;

    // Closes the open vendor (if any), then opens the database of vendor `code`. `prepare` runs
    // on the freshly opened database before vendorOpened is emitted, so the work that belongs to
    // opening (resetting prices, revaluing orders) is done before anyone shows the vendor.
    // On failure no vendor is open.
    Status open(const QString& code, const QString& name, const std::function<void()>& prepare = {});

    // Closes the open vendor; nothing happens when none is open.
    void close();

    // The orders this workstation works on, leased to it while the vendor is open (on a server;
    // on the files nothing is leased) and renewed well within the lease's length. Null while
    // no vendor is open.
    OrderLeases* leases() const { return m_leases.get(); }

    // For work on the database file itself (compaction): the connection is closed and opened
    // again while the vendor stays the open one. No signal is emitted.
    void detachDatabase();
    Status attachDatabase();

signals:
    void vendorOpened(const QString& code, const QString& name);
    void vendorClosed();

private:
    void setCurrent(const QString& code, const QString& name);

    void startLeases();

    AppContext& m_context;
    QString m_code;
    QString m_name;
    std::unique_ptr<OrderLeases> m_leases;
    QTimer m_renewal;
};

} // namespace ordwell

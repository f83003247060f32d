#include "VendorSession.h"

#include "app/AppContext.h"
#include "common/Sql.h"
#include "store/DatabaseFile.h"
#include "store/Dialect.h"
#include "store/OrderLeases.h"
#include "store/Store.h"

#include <QSettings>
#include <QSysInfo>

namespace ordwell {

VendorSession::VendorSession(AppContext& context, QObject* parent) : QObject(parent), m_context(context) {
    connect(&m_renewal, &QTimer::timeout, this, [this] {
        if (m_leases)
            m_leases->renewAll();
    });
}

VendorSession::~VendorSession() {
    if (m_leases)
        m_leases->releaseAll();
    // Quietly: whoever listens may already be gone.
    DatabaseFile::close(Store::VendorConnection);
}

QSqlDatabase VendorSession::db() const {
    return QSqlDatabase::database(Store::VendorConnection, false);
}

void VendorSession::setCurrent(const QString& code, const QString& name) {
    m_code = code;
    m_name = name;
    m_context.CurrentVendorCode = code;
    m_context.CurrentVendorName = name;
}

Status VendorSession::open(const QString& code, const QString& name, const std::function<void()>& prepare) {
    close();
    const QString trimmed = code.trimmed();
    if (trimmed.isEmpty())
        return Status::fail(QStringLiteral("No vendor code was given."));
    auto opened = Store::OpenVendorDatabase(m_context.store(), Store::vendorFileName(trimmed));
    if (!opened) {
        DatabaseFile::close(Store::VendorConnection);
        return opened.status();
    }
    setCurrent(trimmed, name);
    startLeases();
    if (prepare)
        prepare();
    // The preparation may have given up on the vendor.
    if (!isOpen())
        return Status::fail(QStringLiteral("The vendor was closed while it was being opened."));
    emit vendorOpened(m_code, m_name);
    return Status::ok();
}

void VendorSession::startLeases() {
    const QSqlDatabase vendorDb = db();
    QString who = qEnvironmentVariable("USER");
    if (Dialects::of(vendorDb) == Dialect::PostgreSQL) {
        // Who holds an order, for the others' messages: the server login and this computer.
        const auto login = Sql::scalar(vendorDb, QStringLiteral("SELECT session_user"));
        if (login && login->isValid())
            who = login->toString();
    }
    const int seconds =
        m_context.settings()->value(QStringLiteral("Server/LeaseSeconds"), OrderLeases::DefaultSeconds).toInt();
    m_leases = std::make_unique<OrderLeases>(vendorDb, OrderLeases::thisWorkstation(),
                                             who + QStringLiteral(" on ") + QSysInfo::machineHostName(), seconds);
    if (m_leases->active())
        m_renewal.start(std::chrono::milliseconds(m_leases->seconds() * 1000 / 4));
}

void VendorSession::close() {
    m_renewal.stop();
    if (m_leases) {
        m_leases->releaseAll();
        m_leases.reset();
    }
    const bool wasOpen = isOpen();
    DatabaseFile::close(Store::VendorConnection);
    setCurrent(QString(), QString());
    if (wasOpen)
        emit vendorClosed();
}

void VendorSession::detachDatabase() {
    DatabaseFile::close(Store::VendorConnection);
}

Status VendorSession::attachDatabase() {
    if (!isOpen())
        return Status::fail(QStringLiteral("No vendor is open."));
    auto opened = Store::OpenVendorDatabase(m_context.store(), Store::vendorFileName(m_code));
    if (!opened) {
        DatabaseFile::close(Store::VendorConnection);
        return opened.status();
    }
    return Status::ok();
}

} // namespace ordwell

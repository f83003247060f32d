#include "VendorSession.h"

#include "shell/AppContext.h"
#include "store/DatabaseFile.h"
#include "store/Store.h"

namespace ordwell {

VendorSession::VendorSession(AppContext& context, QObject* parent) : QObject(parent), m_context(context) {}

VendorSession::~VendorSession() {
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
    if (prepare)
        prepare();
    // The preparation may have given up on the vendor.
    if (!isOpen())
        return Status::fail(QStringLiteral("The vendor was closed while it was being opened."));
    emit vendorOpened(m_code, m_name);
    return Status::ok();
}

void VendorSession::close() {
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

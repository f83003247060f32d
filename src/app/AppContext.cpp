#include "AppContext.h"

#include "app/VendorSession.h"
#include "store/DatabaseFile.h"
#include "store/Store.h"

#include <QDir>

namespace ordwell {

AppContext::AppContext(QString dataDir, QString settingsFile, Prompter& prompter)
    : m_dataDir(std::move(dataDir)), m_settingsFile(std::move(settingsFile)), m_prompter(&prompter),
      m_vendorSession(std::make_unique<VendorSession>(*this)) {}

AppContext::~AppContext() = default;

QString AppContext::dataFile(const QString& name) const {
    return QDir(m_dataDir).filePath(name);
}

void AppContext::ApplyMenuMask(const QString& mask) const {
    if (m_windowHost)
        m_windowHost->ApplyMenuMask(mask);
}

void AppContext::ShowStatus(const QString& vendorName) const {
    if (m_windowHost)
        m_windowHost->ShowStatus(vendorName);
}

std::unique_ptr<QSettings> AppContext::settings() const {
    if (!m_settingsFile.isEmpty())
        return std::make_unique<QSettings>(m_settingsFile, QSettings::IniFormat);
    return std::make_unique<QSettings>(QStringLiteral("Ordwell"), QStringLiteral("Ordwell"));
}

QSqlDatabase AppContext::systemDb() const {
    return QSqlDatabase::database(Store::SystemConnection, false);
}

QSqlDatabase AppContext::vendorDb() const {
    return m_vendorSession->db();
}

bool AppContext::hasSystemDb() const {
    return DatabaseFile::isOpen(Store::SystemConnection);
}

bool AppContext::hasVendorDb() const {
    return DatabaseFile::isOpen(Store::VendorConnection);
}

void AppContext::closeSystemDb() {
    DatabaseFile::close(Store::SystemConnection);
}

void AppContext::closeVendorDb() {
    m_vendorSession->close();
}

bool AppContext::takeSystemLock() {
    if (holdsSystemLock())
        return true;
    m_lock = std::make_unique<QLockFile>(dataFile(Store::SystemLockFileName));
    // Age never makes a lock stale: only a lock whose owner process has gone is taken over.
    m_lock->setStaleLockTime(0);
    if (m_lock->tryLock(0))
        return true;
    m_lock.reset();
    return false;
}

void AppContext::releaseSystemLock() {
    if (m_lock)
        m_lock->unlock();
    m_lock.reset();
}

} // namespace ordwell

#include "HeadlessVendor.h"

#include "app/VendorSession.h"
#include "common/Sql.h"
#include "store/Store.h"

#include <QDir>
#include <QFileInfo>

namespace ordwell {

namespace {
QString firstLine(const QString& text) {
    return text.section(QLatin1Char('\n'), 0, 0);
}
} // namespace

HeadlessVendor::HeadlessVendor(const Options& options, Prompter& prompter)
    : m_context(resolveDataDir(options), options.settingsFile, prompter) {
    m_context.setServer(resolveServer(options));
}

HeadlessVendor::~HeadlessVendor() {
    m_context.closeVendorDb();
    m_context.closeSystemDb();
    m_context.releaseSystemLock();
}

QString HeadlessVendor::open(const QString& code) {
    const QString dataDir = QDir::toNativeSeparators(m_context.dataDir());
    const bool onServer = m_context.store().onServer();
    if (!onServer && !QFileInfo::exists(Store::systemDatabasePath(m_context.dataDir())))
        return QStringLiteral("There is no Ordwell database in %1.").arg(dataDir);
    // A server is shared by design: only the files are kept from a running copy of the program.
    if (!onServer && !m_context.takeSystemLock())
        return QStringLiteral("The database is in use: Ordwell is already running on %1.").arg(dataDir);
    auto system = Store::OpenSystemDatabase(m_context.store());
    if (!system)
        return firstLine(system.message());
    auto vendor =
        Sql::exec(*system, QStringLiteral("SELECT code, status, vendor FROM vendors WHERE code = ?"), {code.trimmed()});
    if (!vendor)
        return vendor.message();
    if (!vendor.value().next())
        return QStringLiteral("There is no vendor with the code %1.").arg(code);
    m_code = vendor.value().value(0).toString();
    m_name = vendor.value().value(2).toString();
    const bool active = vendor.value().value(1).toString() == QLatin1String("A");
    vendor.value().finish();
    if (!active)
        return QStringLiteral("The vendor %1 has been deactivated.").arg(m_code);
    if (Status opened = m_context.vendorSession().open(m_code, m_name); !opened)
        return firstLine(opened.message());
    return {};
}

} // namespace ordwell

#pragma once

#include "app/WindowHost.h"
#include "common/Prompter.h"
#include "store/Store.h"

#include <QLockFile>
#include <QSettings>
#include <QSqlDatabase>
#include <QString>
#include <functional>
#include <memory>

namespace ordwell {

class VendorSession;

// What the main window offers every tool window: the menu mask and the status text.
// The program-wide state, one object handed to every form instead of scattered globals.
class AppContext {
public:
    AppContext(QString dataDir, QString settingsFile, Prompter& prompter);
    ~AppContext();
    AppContext(const AppContext&) = delete;
    AppContext& operator=(const AppContext&) = delete;

    // Where the databases, the agreement and the report files live.
    const QString& dataDir() const { return m_dataDir; }
    QString dataFile(const QString& name) const;
    // Where the databases are: the data folder's files unless a server was chosen.
    Store::StoreLocation store() const { return {m_dataDir, m_server}; }
    void setServer(const QString& conninfo) { m_server = conninfo; }

    Prompter& prompter() const { return *m_prompter; }
    void setPrompter(Prompter& prompter) { m_prompter = &prompter; }

    WindowHost* windowHost() const { return m_windowHost; }
    void setWindowHost(WindowHost* host) { m_windowHost = host; }
    // Through the main window when there is one; a no-op before it exists.
    void ApplyMenuMask(const QString& mask) const;
    void ShowStatus(const QString& vendorName) const;

    // Opens the order form in the given mode word ("NEWORDER", "LIVEORDER" ...); the main window
    // installs it, so the vendor session and the menus need not know the form.
    void setOrderFormOpener(std::function<void(const QString&)> opener) { m_orderFormOpener = std::move(opener); }
    void openOrderForm(const QString& modeWord) const {
        if (m_orderFormOpener)
            m_orderFormOpener(modeWord);
    }

    // The per-user settings store: the INI file given at start-up, else the platform's.
    std::unique_ptr<QSettings> settings() const;

    // The open vendor; everything vendor-level works through it.
    VendorSession& vendorSession() const { return *m_vendorSession; }

    QSqlDatabase systemDb() const;
    // The open vendor's connection (the session's).
    QSqlDatabase vendorDb() const;
    bool hasSystemDb() const;
    bool hasVendorDb() const;
    void closeSystemDb();
    // Closes the open vendor through the session.
    void closeVendorDb();

    // The lock beside the system database that keeps a second copy of the program out.
    // False when another running copy (or a lock made by hand) holds it.
    bool takeSystemLock();
    void releaseSystemLock();
    bool holdsSystemLock() const { return m_lock && m_lock->isLocked(); }

    bool DatabaseJustCreated = false;
    QString DesktopPath;
    int OpenWindowCount = 0;
    bool AgreementAccepted = true;
    // Kept equal to the session's code and name by the session; read them, open and close
    // vendors through vendorSession().
    QString CurrentVendorCode;
    QString CurrentVendorName;

private:
    QString m_dataDir;
    QString m_server;
    QString m_settingsFile;
    Prompter* m_prompter;
    WindowHost* m_windowHost = nullptr;
    std::unique_ptr<QLockFile> m_lock;
    std::function<void(const QString&)> m_orderFormOpener;
    std::unique_ptr<VendorSession> m_vendorSession;
};

} // namespace ordwell

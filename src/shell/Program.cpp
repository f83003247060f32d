#include "Program.h"
#include "common/PendingEvents.h"

#include "common/QtPrompter.h"
#include "reports/ShippedReports.h"
#include "shell/FirstRunDialog.h"
#include "shell/MainWindow.h"
#include "shell/MenuWiring.h"
#include "shell/SplashWindow.h"
#include "store/DatabaseFile.h"
#include "store/Store.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>
#include <QThread>

namespace ordwell {

bool installShippedFile(const QString& resourcePath, const QString& targetPath) {
    if (QFileInfo::exists(targetPath))
        return true;
    if (!QFile::copy(resourcePath, targetPath))
        return false;
    // Resource copies arrive read-only; the user's copy is theirs to change.
    QFile::setPermissions(targetPath, QFile::ReadOwner | QFile::WriteOwner);
    return true;
}

Program::Program(Options options, Prompter* prompter) : m_options(std::move(options)) {
    if (!prompter) {
        m_ownPrompter = std::make_unique<QtPrompter>();
        prompter = m_ownPrompter.get();
    }
    m_context = std::make_unique<AppContext>(resolveDataDir(m_options), m_options.settingsFile, *prompter);
    const auto settings = m_context->settings();
    m_context->setServer(resolveServer(m_options, settings->value(QStringLiteral("Server/Connection")).toString()));
}

Program::~Program() {
    delete m_mainWindow.data();
    m_context->closeVendorDb();
    m_context->closeSystemDb();
    m_context->releaseSystemLock();
}

void Program::setStatus(SplashWindow& splash, const QString& text) {
    m_captions.append(text);
    splash.setStatus(text);
    letPendingEventsRun();
}

void Program::pause() const {
    // Blocks start-up but keeps the splash painted.
    QDeadlineTimer deadline(m_options.splashMs);
    while (!deadline.hasExpired()) {
        letPendingEventsRun();
        QThread::msleep(10);
    }
}

bool Program::prepareDataFolder() {
    const QString dir = m_context->dataDir();
    if (!QFileInfo(dir).isDir()) {
        if (!QDir().mkpath(dir)) {
            m_context->prompter().message(
                QStringLiteral("The data folder \"%1\" could not be created.").arg(QDir::toNativeSeparators(dir)),
                QString(), MessageIcon::Critical);
            return false;
        }
        DatabaseFile::restrictToOwner(dir, true);
    }
    // The lock is the first thing written here: without this check a folder that cannot be
    // written to (a read-only mount) would pass for a copy of Ordwell already running.
    if (!QFileInfo(dir).isWritable()) {
        m_context->prompter().message(
            QStringLiteral("Ordwell cannot start because its data folder \"%1\" cannot be written to.")
                .arg(QDir::toNativeSeparators(dir)),
            QString(), MessageIcon::Critical);
        return false;
    }
    return true;
}

bool Program::readAgreement(QStringList& lines) {
    const QString path = m_context->dataFile(QStringLiteral("EULA.txt"));
    installShippedFile(QStringLiteral(":/EULA.txt"), path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        m_context->prompter().message(
            QStringLiteral("The licence agreement \"%1\" could not be read, so Ordwell cannot be set up.\n%2")
                .arg(QDir::toNativeSeparators(path), file.errorString()),
            QString(), MessageIcon::Critical);
        return false;
    }
    QTextStream in(&file);
    while (!in.atEnd())
        lines.append(in.readLine());
    return true;
}

bool Program::showAgreement(SplashWindow& splash, const QStringList& lines) {
    splash.hide();
    FirstRunDialog dialog(lines);
    dialog.exec();
    splash.show();
    return dialog.agreed();
}

bool Program::start() {
    AppContext& ctx = *m_context;
    auto splash = std::make_unique<SplashWindow>(ctx);
    ctx.AgreementAccepted = true;
    splash->ShowAsSplash = true;
    splash->show();
    splash->repaint();
    setStatus(*splash, QStringLiteral("Checking system database..."));

    if (!prepareDataFolder())
        return false;
    // On a server there is no file to lock: several workstations share it by design.
    const bool onServer = ctx.store().onServer();
    bool systemDatabaseExists = false;
    for (;;) {
        const auto exists = Store::SystemDatabaseExists(ctx.store());
        if (exists) {
            systemDatabaseExists = *exists;
            break;
        }
        // Never a silent fall-back to the files: the user retries or quits.
        const MessageAnswer retry =
            ctx.prompter().message(exists.message() + QStringLiteral("\n\nTry again?"),
                                   QStringLiteral("Database Server"), MessageIcon::Critical, MessageButtons::YesNo);
        if (retry != MessageAnswer::Yes) {
            splash->close();
            return false;
        }
    }
    const bool systemDatabaseInUse = !onServer && !ctx.takeSystemLock();
    bool failed = false;

    if (!systemDatabaseExists && !systemDatabaseInUse) {
        pause();
        QStringList lines;
        if (!readAgreement(lines)) {
            failed = true;
        } else if (!showAgreement(*splash, lines)) {
            ctx.AgreementAccepted = false;
        } else {
            setStatus(*splash, QStringLiteral("Creating database..."));
            const Status created = Store::CreateSystemDatabase(ctx.store());
            if (!created) {
                ctx.prompter().message(created.message(), QString(), MessageIcon::Critical);
                failed = true;
            } else {
                setStatus(*splash, QStringLiteral("Creating database defaults..."));
                ctx.DatabaseJustCreated = true;
            }
        }
    }

    if (ctx.AgreementAccepted && !systemDatabaseInUse && !failed) {
        ctx.DesktopPath = resolveDesktopDir(m_options);
        setStatus(*splash, QStringLiteral("Opening the database..."));
        auto db = Store::OpenSystemDatabase(ctx.store());
        if (!db) {
            ctx.prompter().message(
                onServer
                    ? db.message()
                    : QStringLiteral("There is a problem with the system database, please check the system database"),
                QString(), MessageIcon::Critical);
            failed = true;
        } else {
            ShippedReports::installMissing(ctx.dataDir());
            pause();
            m_mainWindow = new MainWindow(ctx);
            wireMenus(*m_mainWindow, ctx);
            m_mainWindow->show();
            m_mainWindow->activateWindow();
        }
    }

    if (systemDatabaseInUse)
        ctx.prompter().message(QStringLiteral("Ordwell is already running."), QString(), MessageIcon::Information);
    if (!ctx.AgreementAccepted || systemDatabaseInUse || failed) {
        ctx.closeSystemDb();
        ctx.releaseSystemLock();
        splash->close();
        CloseAllWindows();
        return false;
    }
    splash->close();
    return true;
}

} // namespace ordwell

#include "TestSupport.h"

#include "common/Sql.h"
#include "settings/OrganisationDetails.h"
#include "shell/MainWindow.h"
#include "shell/MenuWiring.h"
#include "store/DatabaseFile.h"
#include "store/ServerStore.h"
#include "store/Store.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace ordwell::test {

namespace {
QtMessageHandler previousHandler = nullptr;

// The offscreen platform's complaint about size hints is noise in every window test.
void quietHandler(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (message.contains(QLatin1String("propagateSizeHints")) || message.contains(QLatin1String("XDG_RUNTIME_DIR")) ||
        message.contains(QLatin1String("does not support raise()")))
        return;
    if (previousHandler)
        previousHandler(type, context, message);
}
} // namespace

void initTestEnvironment() {
    if (!previousHandler)
        previousHandler = qInstallMessageHandler(quietHandler);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    QApplication::setOrganizationName(QStringLiteral("OrdwellTests"));
    QApplication::setApplicationName(QStringLiteral("OrdwellTests"));
}

void beginStrictTest() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
}

void endStrictTest() {
    const QStringList surprises = ScriptedPrompter::takeAllSurprises();
    if (!surprises.isEmpty())
        QFAIL(qPrintable(surprises.join(QLatin1Char('\n'))));
}

TestFolders::TestFolders() {
    QDir root(m_root.path());
    root.mkpath(QStringLiteral("data"));
    root.mkpath(QStringLiteral("desktop"));
}

QString TestFolders::dataDir() const {
    return QDir(m_root.path()).filePath(QStringLiteral("data"));
}
QString TestFolders::desktopDir() const {
    return QDir(m_root.path()).filePath(QStringLiteral("desktop"));
}
QString TestFolders::settingsFile() const {
    return QDir(m_root.path()).filePath(QStringLiteral("settings.ini"));
}
QString TestFolders::dataFile(const QString& name) const {
    return QDir(dataDir()).filePath(name);
}

Options TestFolders::options() const {
    Options o;
    o.dataDir = dataDir();
    o.desktopDir = desktopDir();
    o.settingsFile = settingsFile();
    o.splashMs = 0;
    return o;
}

bool onTestServer() {
    if (qEnvironmentVariable("ORDWELL_TEST_ENGINE") != QLatin1String("server"))
        return false;
    if (testServer().isEmpty() && qEnvironmentVariableIsSet("ORDWELL_REQUIRE_SERVER"))
        qFatal("ORDWELL_TEST_ENGINE=server, but ORDWELL_TEST_SERVER is not set");
    return !testServer().isEmpty();
}

TestContext::TestContext() {
    m_context = std::make_unique<AppContext>(m_folders.dataDir(), m_folders.settingsFile(), m_prompter);
    m_context->DesktopPath = m_folders.desktopDir();
    if (onTestServer()) {
        m_context->setServer(testServer());
        if (const QString problem = dropOrdwellSchemas(); !problem.isEmpty())
            qFatal("cannot clear the test server: %s", qPrintable(problem));
    }
    const Status created = Store::CreateSystemDatabase(m_context->store());
    if (!created)
        qFatal("cannot create the system database: %s", qPrintable(created.message()));
    if (!Store::OpenSystemDatabase(m_context->store()))
        qFatal("cannot open the system database");
}

TestContext::~TestContext() {
    m_context->closeVendorDb();
    m_context->closeSystemDb();
}

struct ModalAnswerer::Impl {
    QTimer timer;
    QSet<QWidget*> seen;
    int count = 0;
};

ModalAnswerer::ModalAnswerer(std::function<void(QWidget*)> answer) : d(std::make_unique<Impl>()) {
    d->timer.setInterval(20);
    QObject::connect(&d->timer, &QTimer::timeout, [this, answer] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || d->seen.contains(modal) || !modal->isVisible())
            return;
        d->seen.insert(modal);
        QPointer<QWidget> guard(modal);
        QObject::connect(modal, &QObject::destroyed, &d->timer, [this, modal] { d->seen.remove(modal); });
        ++d->count;
        answer(modal);
    });
    d->timer.start();
}

ModalAnswerer::~ModalAnswerer() = default;

int ModalAnswerer::answered() const {
    return d->count;
}

void clickButton(QWidget* dialog, const QString& objectName) {
    auto* button = dialog->findChild<QAbstractButton*>(objectName);
    if (!button) {
        qWarning("no button %s", qPrintable(objectName));
        return;
    }
    button->click();
}

void pressEnter(QWidget* widget) {
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_Return);
}

QByteArray fileContents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

void storeOrganisationDetails(AppContext& context) {
    OrganisationDetails d;
    const char* values[DetailsFieldCount] = {"Head Office",  "", "1 High St",      "", "", "Kent", "CT11AA", "Ann",
                                             "01234 567890", "", "ann@example.org"};
    for (int field = 0; field < DetailsFieldCount; ++field)
        d[field] = QString::fromLatin1(values[field]);
    if (!OrganisationDetailsStore(context.systemDb()).save(d))
        qFatal("cannot store the organisation's details");
}

QStringList labelsHidingTheirText(QWidget* root) {
    QStringList out;
    QList<QLabel*> labels = root->findChildren<QLabel*>();
    if (auto* self = qobject_cast<QLabel*>(root))
        labels.prepend(self);
    for (QLabel* label : labels) {
        if (label->buddy() || label->text().isEmpty())
            continue;
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(label);
        const QString name = face ? face->text(QAccessible::Name) : QString();
        if (name != label->text())
            out << QStringLiteral("%1: %2 / %3").arg(label->objectName(), name, label->text());
    }
    return out;
}

std::unique_ptr<MainWindow> openMainWindow(AppContext& context) {
    auto window = std::make_unique<MainWindow>(context);
    wireMenus(*window, context);
    QSignalSpy ready(window.get(), &MainWindow::firstActivated);
    window->show();
    window->activateWindow();
    if (ready.isEmpty() && !ready.wait(5000))
        qWarning("the main window never became active");
    return window;
}

Finished runHeadless(const QString& executable, const QStringList& arguments) {
    QProcess program;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(QStringLiteral("DISPLAY"));
    env.remove(QStringLiteral("WAYLAND_DISPLAY"));
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    program.setProcessEnvironment(env);
    program.start(executable, arguments);
    if (!program.waitForFinished(30000))
        qWarning("the program did not finish");
    return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1,
            QString::fromUtf8(program.readAllStandardOutput()), QString::fromUtf8(program.readAllStandardError())};
}

QString testServer() {
    return qEnvironmentVariable("ORDWELL_TEST_SERVER");
}

QString dropOrdwellSchemas() {
    const QString connection = QStringLiteral("test-admin");
    QString problem;
    {
        auto db = ServerStore::connect(connection, testServer());
        if (!db)
            return db.message();
        auto schemas = Sql::exec(*db, QStringLiteral("SELECT schema_name FROM information_schema.schemata WHERE "
                                                     "schema_name = 'ordwell' OR schema_name LIKE 'vendor\\_%'"));
        QStringList names;
        while (schemas && schemas.value().next())
            names << schemas.value().value(0).toString();
        for (const QString& name : names) {
            if (const Status dropped =
                    Sql::run(*db, QStringLiteral("DROP SCHEMA ") + name + QStringLiteral(" CASCADE"));
                !dropped)
                problem = dropped.message();
        }
        if (!schemas)
            problem = schemas.message();
    }
    DatabaseFile::close(connection);
    return problem;
}

} // namespace ordwell::test

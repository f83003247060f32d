#pragma once

#include "ScriptedPrompter.h"
#include "app/AppContext.h"
#include "app/Options.h"

#include <QTemporaryDir>
#include <QWidget>
#include <functional>
#include <memory>

class QAbstractButton;
class QLineEdit;

namespace ordwell {
class MainWindow;
}

namespace ordwell::test {

// Fixes the locale every test expects (en_GB) and keeps tests out of the real settings.
void initTestEnvironment();

// Makes the running test function fail on any Qt warning (a test that provokes one on purpose
// says so with QTest::ignoreMessage).
void beginStrictTest();
// Fails the running test function when something was shown that it did not expect: a message
// nothing looked at, a question or file dialog with no answer scripted, or an answer scripted
// for a question that never came.
void endStrictTest();

// The base of every test class: its init() and cleanup() make each test function strict as
// above. A class with an init() or cleanup() of its own calls the two functions from them.
class StrictTest : public QObject {
    Q_OBJECT

private slots:
    void init() { beginStrictTest(); }
    void cleanup() { endStrictTest(); }
};

// A fresh data folder, desktop folder and settings file, removed afterwards.
class TestFolders {
public:
    TestFolders();
    QString dataDir() const;
    QString desktopDir() const;
    QString settingsFile() const;
    QString dataFile(const QString& name) const;
    // Options for starting the whole program on these folders, with no splash pauses.
    Options options() const;

private:
    QTemporaryDir m_root;
};

// An AppContext on fresh folders with the system database created and open, for tests of
// one window or one routine without the start-up routine.
class TestContext {
public:
    TestContext();
    ~TestContext();
    AppContext& context() { return *m_context; }
    ScriptedPrompter& prompter() { return m_prompter; }
    TestFolders& folders() { return m_folders; }

private:
    TestFolders m_folders;
    ScriptedPrompter m_prompter;
    std::unique_ptr<AppContext> m_context;
};

// Finds a child by objectName and type, failing loudly when it is missing.
template <typename T> T* child(QObject* parent, const QString& name) {
    T* found = parent->findChild<T*>(name);
    if (!found)
        qWarning("no child named %s", qPrintable(name));
    return found;
}

// Answers real modal boxes the Qt way: polls for the active modal widget and hands it to
// `answer`, once per box, until stopped or destroyed.
class ModalAnswerer {
public:
    explicit ModalAnswerer(std::function<void(QWidget*)> answer);
    ~ModalAnswerer();
    int answered() const;

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

// Presses a named button of a modal dialog.
void clickButton(QWidget* dialog, const QString& objectName);

// Presses Enter in a line edit the way a user or a scanner would.
void pressEnter(QWidget* widget);

// The whole of a file, or nothing when it cannot be read; and a file written whole.
QByteArray fileContents(const QString& path);
bool writeFile(const QString& path, const QByteArray& content);

// How a run of the real program ended: its exit code (-1 when it crashed or hung) and output.
struct Finished {
    int code = -1;
    QString out;
    QString err;
};
// Runs the program at `executable` with no display at all, as a headless run must work: a
// window would make it fail.
Finished runHeadless(const QString& executable, const QStringList& arguments);

// The PostgreSQL server scripts/test starts (ORDWELL_TEST_SERVER), empty when there is none.
QString testServer();
// True when this run's data is to be on the test server (ORDWELL_TEST_ENGINE=server and a
// server is there); the fixtures then make their databases there instead of in files.
bool onTestServer();
// Drops every schema of Ordwell's from the test server's database, so a test starts from none.
// Empty when done, else why not.
QString dropOrdwellSchemas();

// In initTestCase of a test that needs the server: skipped without one, unless the run
// requires it (scripts/test always starts one; only a bare ctest run goes without).
#define ORDWELL_NEEDS_TEST_SERVER()                                                                                    \
    do {                                                                                                               \
        if (ordwell::test::testServer().isEmpty()) {                                                                   \
            if (qEnvironmentVariableIsSet("ORDWELL_REQUIRE_SERVER"))                                                   \
                QFAIL("ORDWELL_TEST_SERVER is not set");                                                               \
            QSKIP("no test server (run through scripts/test)");                                                        \
        }                                                                                                              \
    } while (false)

// Stores an organisation's details, so the main window does not ask for them first.
void storeOrganisationDetails(AppContext& context);

// Labels under `root` that show a value (no buddy, some text) but whose accessible name is not
// that text, as "objectName: name / text". Empty when a screen reader hears every value.
QStringList labelsHidingTheirText(QWidget* root);

// The main window with its menus wired, shown and past its first activation (which sets the
// menus, or opens the system defaults window while the organisation's details are missing).
std::unique_ptr<MainWindow> openMainWindow(AppContext& context);

} // namespace ordwell::test

#pragma once

#include "app/AppContext.h"
#include "app/Options.h"
#include "common/Prompter.h"
#include "shell/MainWindow.h"

#include <QPointer>
#include <memory>

namespace ordwell {

class SplashWindow;

// The whole program for one run: the start-up routine and what it leaves running. main()
// and the tests start Ordwell the same way.
class Program {
public:
    // With no prompter the real message boxes are used.
    explicit Program(Options options, Prompter* prompter = nullptr);
    ~Program();

    // Runs the start-up routine. True when the main window is up; false when the program
    // ended (agreement declined, database in use, a failure already reported).
    bool start();

    AppContext& context() { return *m_context; }
    MainWindow* mainWindow() const { return m_mainWindow; }
    // The progress texts the splash showed during start-up, in order.
    const QStringList& startupCaptions() const { return m_captions; }

private:
    void setStatus(SplashWindow& splash, const QString& text);
    void pause() const;
    bool prepareDataFolder();
    bool readAgreement(QStringList& lines);
    bool showAgreement(SplashWindow& splash, const QStringList& lines);

    Options m_options;
    std::unique_ptr<Prompter> m_ownPrompter;
    std::unique_ptr<AppContext> m_context;
    QPointer<MainWindow> m_mainWindow;
    QStringList m_captions;
};

// Copies a shipped file from the resources into the data folder unless one is there already.
bool installShippedFile(const QString& resourcePath, const QString& targetPath);

} // namespace ordwell

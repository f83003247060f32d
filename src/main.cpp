#include "app/Options.h"
#include "catalogue/HeadlessImport.h"
#include "orders/HeadlessEmail.h"
#include "orders/HeadlessPeppol.h"
#include "reports/HeadlessReport.h"
#include "shell/HeadlessBackup.h"
#include "shell/Program.h"

#include <QApplication>
#include <QIcon>
#include <QTextStream>

int main(int argc, char* argv[]) {
    // Before any application object: the data folder and the settings are found by these names,
    // by the windowed program and the headless runs alike.
    QCoreApplication::setOrganizationName(QStringLiteral("Ordwell"));
    QCoreApplication::setApplicationName(QStringLiteral("Ordwell"));
    // --help and --version answer without needing a display.
    QStringList rawArguments;
    for (int i = 0; i < argc; ++i)
        rawArguments << QString::fromLocal8Bit(argv[i]);
    const ordwell::Options early = ordwell::parseOptions(rawArguments);
    if (early.showHelp) {
        QTextStream(stdout) << early.helpText;
        return 0;
    }
    if (early.showVersion) {
        QTextStream(stdout) << "Ordwell " << ordwell::versionText() << '\n';
        return 0;
    }
    if (!early.renderReport.isEmpty()) {
        if (!early.error.isEmpty()) {
            QTextStream(stderr) << early.error << '\n';
            return 2;
        }
        return ordwell::renderReportHeadless(argc, argv, early);
    }
    if (!early.emailOrder.isEmpty())
        return ordwell::emailOrderHeadless(argc, argv, early);
    if (!early.exportPeppol.isEmpty() || !early.peppolOutput.isEmpty()) {
        QCoreApplication app(argc, argv);
        return ordwell::exportPeppolHeadless(early);
    }
    if (!early.backupFile.isEmpty() || !early.restoreFile.isEmpty() || !early.copyToServer.isEmpty()) {
        QCoreApplication app(argc, argv);
        QTextStream out(stdout);
        QTextStream err(stderr);
        if (!early.error.isEmpty()) {
            err << early.error << Qt::endl;
            return ordwell::HeadlessBackup::BadArguments;
        }
        return ordwell::HeadlessBackup::run(early, out, err);
    }
    if (!early.importFile.isEmpty() || !early.vendorCode.isEmpty()) {
        // A command-line import needs no display.
        QCoreApplication app(argc, argv);
        QTextStream out(stdout);
        QTextStream err(stderr);
        if (!early.error.isEmpty()) {
            err << early.error << Qt::endl;
            return ordwell::HeadlessImport::NotStarted;
        }
        return ordwell::HeadlessImport::run(early, out, err);
    }

    QApplication app(argc, argv);
    QApplication::setApplicationVersion(ordwell::versionText());
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/images/ordwell-icon.png")));

    // Qt has taken its own options (-style, -platform) out of the arguments by now.
    const ordwell::Options options = ordwell::parseOptions(QApplication::arguments());
    if (!options.error.isEmpty()) {
        QTextStream(stderr) << options.error << "\n\n" << options.helpText;
        return 2;
    }
    ordwell::Program program(options);
    if (!program.start())
        return 0;
    return app.exec();
}

#include "shell/Options.h"
#include "shell/Program.h"

#include <QApplication>
#include <QIcon>
#include <QTextStream>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Ordwell"));
    QApplication::setApplicationName(QStringLiteral("Ordwell"));
    QApplication::setApplicationVersion(ordwell::versionText());
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/images/ordwell-icon.png")));

    const ordwell::Options options = ordwell::parseOptions(QApplication::arguments());
    QTextStream out(stdout);
    if (!options.error.isEmpty()) {
        QTextStream(stderr) << options.error << "\n\n" << options.helpText;
        return 2;
    }
    if (options.showHelp) {
        out << options.helpText;
        return 0;
    }
    if (options.showVersion) {
        out << "Ordwell " << ordwell::versionText() << '\n';
        return 0;
    }
    ordwell::Program program(options);
    if (!program.start())
        return 0;
    return app.exec();
}

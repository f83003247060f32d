#include "Options.h"

#include <QCommandLineParser>
#include <QDir>
#include <QStandardPaths>

namespace ordwell {

QString versionText() {
    return QStringLiteral("%1.%2.%3").arg(ORDWELL_VERSION_MAJOR).arg(ORDWELL_VERSION_MINOR).arg(ORDWELL_VERSION_PATCH);
}

Options parseOptions(const QStringList& arguments) {
    Options options;
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Ordwell: purchase orders for a small organisation."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Show the version."));
    const QCommandLineOption dataDir(QStringLiteral("data-dir"),
                                     QStringLiteral("Folder holding the databases and report files."),
                                     QStringLiteral("DIR"));
    const QCommandLineOption desktopDir(QStringLiteral("desktop-dir"),
                                        QStringLiteral("Folder used as the desktop (exports, file chooser)."),
                                        QStringLiteral("DIR"));
    const QCommandLineOption settings(QStringLiteral("settings"), QStringLiteral("Keep settings in this INI file."),
                                      QStringLiteral("FILE"));
    const QCommandLineOption splash(QStringLiteral("splash-ms"),
                                    QStringLiteral("Milliseconds of each splash pause (default 1000)."),
                                    QStringLiteral("N"), QStringLiteral("1000"));
    const QCommandLineOption vendor(QStringLiteral("vendor"),
                                    QStringLiteral("The vendor (its code) a headless run works on."),
                                    QStringLiteral("CODE"));
    const QCommandLineOption importItems(
        QStringLiteral("import-items"),
        QStringLiteral("Import the price list FILE into the vendor's items without a window, then end "
                       "(exit 0 done, 1 an incorrect line, 2 not started)."),
        QStringLiteral("FILE"));
    const QCommandLineOption renderReport(QStringLiteral("render-report"),
                                          QStringLiteral("Write this report file as a PDF (needs --vendor and --pdf) "
                                                         "and exit, with no window."),
                                          QStringLiteral("FILE"));
    const QCommandLineOption param(QStringLiteral("param"),
                                   QStringLiteral("A value for one of the report's parameters; repeat as needed."),
                                   QStringLiteral("name=value"));
    const QCommandLineOption pdf(QStringLiteral("pdf"), QStringLiteral("The PDF file --render-report writes."),
                                 QStringLiteral("FILE"));
    parser.addOptions(
        {help, version, dataDir, desktopDir, settings, splash, vendor, importItems, renderReport, param, pdf});
    // Qt's own options (-style, -platform) are taken by QApplication before we see them.
    if (!parser.parse(arguments)) {
        options.error = parser.errorText();
    }
    options.helpText = parser.helpText().replace(QStringLiteral("<executable_name>"), QStringLiteral("ordwell"));
    options.showHelp = parser.isSet(help);
    options.showVersion = parser.isSet(version);
    options.dataDir = parser.value(dataDir);
    options.desktopDir = parser.value(desktopDir);
    options.settingsFile = parser.value(settings);
    options.vendorCode = parser.value(vendor);
    options.importFile = parser.value(importItems);
    options.renderReport = parser.value(renderReport);
    options.pdfOutput = parser.value(pdf);
    for (const QString& pair : parser.values(param)) {
        const qsizetype eq = pair.indexOf(QLatin1Char('='));
        if (eq <= 0) {
            if (options.error.isEmpty())
                options.error = QStringLiteral("--param needs name=value, not \"%1\".").arg(pair);
            continue;
        }
        options.reportParameters.append({pair.left(eq), pair.mid(eq + 1)});
    }
    if (options.error.isEmpty() && !options.importFile.isEmpty() && !options.renderReport.isEmpty())
        options.error = QStringLiteral("--import-items and --render-report are used one at a time.");
    if (options.error.isEmpty() && options.renderReport.isEmpty() &&
        options.vendorCode.isEmpty() != options.importFile.isEmpty())
        options.error = QStringLiteral("--vendor and --import-items are used together.");
    if (options.error.isEmpty() && !options.renderReport.isEmpty()) {
        if (options.vendorCode.isEmpty())
            options.error = QStringLiteral("--render-report needs --vendor CODE.");
        else if (options.pdfOutput.isEmpty())
            options.error = QStringLiteral("--render-report needs --pdf FILE.");
    }
    if (options.error.isEmpty() && options.renderReport.isEmpty() &&
        (!options.pdfOutput.isEmpty() || !options.reportParameters.isEmpty()))
        options.error = QStringLiteral("--pdf and --param go with --render-report.");
    bool ok = false;
    const int ms = parser.value(splash).toInt(&ok);
    if (!ok || ms < 0) {
        if (options.error.isEmpty())
            options.error = QStringLiteral("--splash-ms needs a whole number of milliseconds, 0 or more.");
    } else {
        options.splashMs = ms;
    }
    return options;
}

QString resolveDataDir(const Options& options) {
    if (!options.dataDir.isEmpty())
        return QDir(options.dataDir).absolutePath();
    const QString fromEnv = qEnvironmentVariable("ORDWELL_DATA_DIR");
    if (!fromEnv.isEmpty())
        return QDir(fromEnv).absolutePath();
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString resolveDesktopDir(const Options& options) {
    if (!options.desktopDir.isEmpty())
        return QDir(options.desktopDir).absolutePath();
    return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
}

} // namespace ordwell

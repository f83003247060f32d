#include "Options.h"

#include <QCommandLineParser>
#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <memory>

namespace ordwell {

namespace {

QString S(const char* text) {
    return QString::fromLatin1(text);
}

// A value option's last occurrence wins, as with most programs.
QString last(const QStringList& values) {
    return values.isEmpty() ? QString() : values.constLast();
}

QString applySplashMs(Options& options, const QStringList& values) {
    bool ok = false;
    const int ms = last(values).toInt(&ok);
    if (!ok || ms < 0)
        return S("--splash-ms needs a whole number of milliseconds, 0 or more.");
    options.splashMs = ms;
    return {};
}

// Every --param, in order; a pair without a name is refused.
QString applyReportParameters(Options& options, const QStringList& values) {
    for (const QString& pair : values) {
        const qsizetype eq = pair.indexOf(QLatin1Char('='));
        if (eq <= 0)
            return S("--param needs name=value, not \"%1\".").arg(pair);
        options.reportParameters.append({pair.left(eq), pair.mid(eq + 1)});
    }
    return {};
}

// The options that only make sense together, once every option has been read.
QString checkCombinations(const Options& options) {
    if (!options.copyToServer.isEmpty() &&
        (!options.backupFile.isEmpty() || !options.restoreFile.isEmpty() || !options.importFile.isEmpty() ||
         !options.renderReport.isEmpty() || !options.vendorCode.isEmpty() || !options.server.isEmpty() ||
         !options.pdfOutput.isEmpty() || !options.reportParameters.isEmpty()))
        return S("--copy-to-server takes only --data-dir and --settings.");
    const bool backupRun = !options.backupFile.isEmpty() || !options.restoreFile.isEmpty();
    if (!options.backupFile.isEmpty() && !options.restoreFile.isEmpty())
        return S("--backup and --restore are separate runs.");
    if (backupRun &&
        (!options.importFile.isEmpty() || !options.renderReport.isEmpty() || !options.vendorCode.isEmpty() ||
         !options.pdfOutput.isEmpty() || !options.reportParameters.isEmpty()))
        return S("--backup and --restore take only --data-dir and --settings.");
    if (!options.importFile.isEmpty() && !options.renderReport.isEmpty())
        return S("--import-items and --render-report are separate runs.");
    if (!options.exportPeppol.isEmpty()) {
        if (options.vendorCode.isEmpty())
            return S("--export-peppol needs --vendor CODE.");
        if (options.peppolOutput.isEmpty())
            return S("--export-peppol needs --out FILE.");
        if (!options.emailOrder.isEmpty() || !options.importFile.isEmpty() || !options.renderReport.isEmpty() ||
            !options.pdfOutput.isEmpty() || !options.reportParameters.isEmpty())
            return S("--export-peppol takes only --vendor, --out, --data-dir, --server and --settings.");
        return {};
    }
    if (!options.peppolOutput.isEmpty())
        return S("--out goes with --export-peppol.");
    if (!options.emailOrder.isEmpty()) {
        if (options.vendorCode.isEmpty())
            return S("--email-order needs --vendor CODE.");
        if (!options.importFile.isEmpty() || !options.renderReport.isEmpty() || !options.pdfOutput.isEmpty() ||
            !options.reportParameters.isEmpty())
            return S("--email-order takes only --vendor, --data-dir, --server and --settings.");
        return {};
    }
    if (!options.renderReport.isEmpty()) {
        if (options.vendorCode.isEmpty())
            return S("--render-report needs --vendor CODE.");
        if (options.pdfOutput.isEmpty())
            return S("--render-report needs --pdf FILE.");
        return {};
    }
    if (!options.pdfOutput.isEmpty() || !options.reportParameters.isEmpty())
        return S("--pdf and --param go with --render-report.");
    if (options.vendorCode.isEmpty() != options.importFile.isEmpty())
        return S("--vendor and --import-items are used together.");
    return {};
}

void addToParser(QCommandLineParser& parser) {
    for (const OptionSpec& spec : optionTable())
        parser.addOption(QCommandLineOption(spec.names, spec.help, spec.valueName));
}

} // namespace

const std::vector<OptionSpec>& optionTable() {
    // clang-format off
    static const std::vector<OptionSpec> table{
        {{S("h"), S("help")}, {}, S("Show this help."),
         [](Options& o, const QStringList&) { o.showHelp = true; return QString(); }},
        {{S("v"), S("version")}, {}, S("Show the version."),
         [](Options& o, const QStringList&) { o.showVersion = true; return QString(); }},
        {{S("data-dir")}, S("DIR"), S("Folder holding the databases and report files."),
         [](Options& o, const QStringList& v) { o.dataDir = last(v); return QString(); }},
        {{S("desktop-dir")}, S("DIR"), S("Folder used as the desktop (exports, file chooser)."),
         [](Options& o, const QStringList& v) { o.desktopDir = last(v); return QString(); }},
        {{S("settings")}, S("FILE"), S("Keep settings in this INI file."),
         [](Options& o, const QStringList& v) { o.settingsFile = last(v); return QString(); }},
        {{S("server")}, S("CONNINFO"),
         S("Keep the data on this PostgreSQL server (a postgresql:// address or key=value pairs) "
           "instead of the data folder's files."),
         [](Options& o, const QStringList& v) { o.server = last(v); return QString(); }},
        {{S("splash-ms")}, S("N"), S("Milliseconds of each splash pause (default 1000)."), applySplashMs},
        {{S("vendor")}, S("CODE"), S("The vendor (its code) that --import-items or --render-report works on."),
         [](Options& o, const QStringList& v) { o.vendorCode = last(v); return QString(); }},
        {{S("import-items")}, S("FILE"),
         S("Import the price list FILE into the vendor's items without a window, then end "
           "(exit 0 done, 1 an incorrect line, 2 not started)."),
         [](Options& o, const QStringList& v) { o.importFile = last(v); return QString(); }},
        {{S("render-report")}, S("FILE"),
         S("Write this report file as a PDF (needs --vendor and --pdf) and exit, with no window."),
         [](Options& o, const QStringList& v) { o.renderReport = last(v); return QString(); }},
        {{S("param")}, S("name=value"), S("A value for one of the report's parameters; repeat as needed."),
         applyReportParameters},
        {{S("pdf")}, S("FILE"), S("The PDF file --render-report writes."),
         [](Options& o, const QStringList& v) { o.pdfOutput = last(v); return QString(); }},
        {{S("email-order")}, S("NUMBER"),
         S("Render this order of --vendor on the vendor's order form as a PDF, open the mail program on a "
           "message to the vendor with it attached (xdg-email), mark the order sent, and exit."),
         [](Options& o, const QStringList& v) { o.emailOrder = last(v); return QString(); }},
        {{S("export-peppol")}, S("NUMBER"),
         S("Write this order of --vendor as a Peppol BIS Ordering 3 order (UBL 2.1 XML) to the new file given "
           "by --out, mark the order exported, and exit (exit 0 written, 1 refused, 2 bad arguments)."),
         [](Options& o, const QStringList& v) { o.exportPeppol = last(v); return QString(); }},
        {{S("out")}, S("FILE"), S("The XML file --export-peppol writes; it must not exist yet."),
         [](Options& o, const QStringList& v) { o.peppolOutput = last(v); return QString(); }},
        {{S("copy-to-server")}, S("CONNINFO"),
         S("Copy the whole data folder (every vendor, deactivated ones too) into this PostgreSQL server's "
           "database, which must hold no Ordwell data yet; check it against the files, say what was copied, and "
           "exit. The files are left as they were."),
         [](Options& o, const QStringList& v) { o.copyToServer = last(v); return QString(); }},
        {{S("backup")}, S("FILE"),
         S("Write a backup of the data folder (databases, report files, agreement) to the archive FILE "
           "and exit, with no window (exit 0 written, 1 not written, 2 bad arguments)."),
         [](Options& o, const QStringList& v) { o.backupFile = last(v); return QString(); }},
        {{S("restore")}, S("FILE"),
         S("Check the backup archive FILE whole, then put its data in place of the data folder's and exit, "
           "with no window; refused while Ordwell runs (exit 0 restored, 1 refused, 2 bad arguments)."),
         [](Options& o, const QStringList& v) { o.restoreFile = last(v); return QString(); }},
    };
    // clang-format on
    return table;
}

QString helpText() {
    QCommandLineParser parser;
    parser.setApplicationDescription(S("Ordwell: purchase orders for a small organisation."));
    addToParser(parser);
    // Qt names the program after argv[0] (or "<executable_name>" before the application object
    // exists); the help and the manual page name it as a user types it.
    QString text = parser.helpText();
    const qsizetype usageEnd = text.indexOf(S(" [options]"));
    if (text.startsWith(S("Usage: ")) && usageEnd > 0)
        text.replace(7, usageEnd - 7, S("ordwell"));
    return text;
}

Options parseOptions(const QStringList& arguments) {
    Options options;
    QCommandLineParser parser;
    addToParser(parser);
    // Qt's own options (-style, -platform) are taken by QApplication before we see them.
    if (!parser.parse(arguments))
        options.error = parser.errorText();
    for (const OptionSpec& spec : optionTable()) {
        const QString& name = spec.names.constLast();
        if (!parser.isSet(name))
            continue;
        const QStringList values = spec.valueName.isEmpty() ? QStringList() : parser.values(name);
        const QString problem = spec.apply(options, values);
        if (!problem.isEmpty() && options.error.isEmpty())
            options.error = problem;
    }
    if (options.error.isEmpty())
        options.error = checkCombinations(options);
    options.helpText = helpText();
    return options;
}

QString versionText() {
    return QStringLiteral("%1.%2.%3").arg(ORDWELL_VERSION_MAJOR).arg(ORDWELL_VERSION_MINOR).arg(ORDWELL_VERSION_PATCH);
}

QString resolveDataDir(const Options& options) {
    if (!options.dataDir.isEmpty())
        return QDir(options.dataDir).absolutePath();
    const QString fromEnv = qEnvironmentVariable("ORDWELL_DATA_DIR");
    if (!fromEnv.isEmpty())
        return QDir(fromEnv).absolutePath();
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString resolveServer(const Options& options, const QString& fromSettings) {
    if (!options.server.isEmpty())
        return options.server;
    const QString fromEnv = qEnvironmentVariable("ORDWELL_SERVER");
    if (!fromEnv.isEmpty())
        return fromEnv;
    return fromSettings;
}

QString resolveServer(const Options& options) {
    const std::unique_ptr<QSettings> settings =
        options.settingsFile.isEmpty()
            ? std::make_unique<QSettings>(QStringLiteral("Ordwell"), QStringLiteral("Ordwell"))
            : std::make_unique<QSettings>(options.settingsFile, QSettings::IniFormat);
    return resolveServer(options, settings->value(QStringLiteral("Server/Connection")).toString());
}

QString resolveDesktopDir(const Options& options) {
    if (!options.desktopDir.isEmpty())
        return QDir(options.desktopDir).absolutePath();
    return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
}

} // namespace ordwell

#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <utility>

#include <vector>

namespace ordwell {

// How Ordwell was asked to start; filled from the command line by main() and by tests directly.
struct Options {
    QString dataDir;      // empty: ORDWELL_DATA_DIR, else the platform's application data folder
    QString desktopDir;   // empty: the user's desktop
    QString settingsFile; // empty: the platform's settings store; else an INI file
    QString server;       // --server: a PostgreSQL server's connection string
    int splashMs = 1000;  // each of the splash's two pauses
    QString vendorCode;   // --vendor: the vendor a headless run (import or report) works on
    QString importFile;   // --import-items: import this price list without a window, then end
    QString renderReport; // --render-report: a report file to turn into a PDF, with no window
    QList<std::pair<QString, QString>> reportParameters; // --param name=value, in order
    QString pdfOutput;                                   // --pdf: where that PDF goes
    QString backupFile;                                  // --backup: archive the data folder here, then end
    QString restoreFile;                                 // --restore: replace the data by this archive, then end
    QString emailOrder;                                  // --email-order: mail this order of --vendor, then end
    QString exportPeppol; // --export-peppol: write this order of --vendor as XML, then end
    QString peppolOutput; // --out: where that XML goes
    QString copyToServer; // --copy-to-server: copy the data folder there, then end
    bool showHelp = false;
    bool showVersion = false;
    QString helpText;
    QString error; // set when the command line could not be read
};

// One command-line option. The table of these is the only list of options: the parser, --help
// and the manual page are all made from it, so adding an option is adding one row.
struct OptionSpec {
    QStringList names; // short and long names without dashes, e.g. {"h", "help"}
    QString valueName; // empty for a switch; otherwise the placeholder shown in help ("DIR")
    QString help;      // one sentence, shown by --help and in the manual page
    // Stores the option's values (every occurrence, in order; empty for a switch) in the options.
    // Returns an error text when a value cannot be used, else an empty string.
    QString (*apply)(Options& options, const QStringList& values);
};

const std::vector<OptionSpec>& optionTable();

Options parseOptions(const QStringList& arguments);

QString helpText();

// The folders actually used, after the defaults are applied.
QString resolveDataDir(const Options& options);
QString resolveDesktopDir(const Options& options);
// The server the databases are on: --server, else ORDWELL_SERVER, else the one kept in the
// settings (group Server, key Connection); empty for the data folder's files.
QString resolveServer(const Options& options, const QString& fromSettings);
// The same, reading the settings the options name (the INI file of --settings, or the user's).
QString resolveServer(const Options& options);

QString versionText(); // "1.0.0"

} // namespace ordwell

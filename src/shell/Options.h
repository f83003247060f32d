#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <utility>

namespace ordwell {

// How Ordwell was asked to start; filled from the command line by main() and by tests directly.
struct Options {
    QString dataDir;      // empty: ORDWELL_DATA_DIR, else the platform's application data folder
    QString desktopDir;   // empty: the user's desktop
    QString settingsFile; // empty: the platform's settings store; else an INI file
    int splashMs = 1000;  // each of the splash's two pauses
    QString vendorCode;   // --vendor: the vendor a headless run works on
    QString importFile;   // --import-items: import this price list without a window, then end
    QString renderReport; // --render-report: a report file to turn into a PDF, with no window
    QList<std::pair<QString, QString>> reportParameters; // --param name=value, in order
    QString pdfOutput;                                   // --pdf: where that PDF goes
    bool showHelp = false;
    bool showVersion = false;
    QString helpText;
    QString error; // set when the command line could not be read
};

Options parseOptions(const QStringList& arguments);

// The folders actually used, after the defaults are applied.
QString resolveDataDir(const Options& options);
QString resolveDesktopDir(const Options& options);

QString versionText(); // "1.0.0"

} // namespace ordwell

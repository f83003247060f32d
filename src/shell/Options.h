#pragma once

#include <QString>
#include <QStringList>

namespace ordwell {

// How Ordwell was asked to start; filled from the command line by main() and by tests directly.
struct Options {
    QString dataDir;      // empty: ORDWELL_DATA_DIR, else the platform's application data folder
    QString desktopDir;   // empty: the user's desktop
    QString settingsFile; // empty: the platform's settings store; else an INI file
    int splashMs = 1000;  // each of the splash's two pauses
    QString vendorCode;   // --vendor: the vendor a command-line import works on
    QString importFile;   // --import-items: import this price list without a window, then end
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

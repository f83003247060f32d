#pragma once

#include <QString>

namespace ordwell {

// Where an import shows how far it has got: the progress window, or the console when the
// import runs from the command line.
class ImportProgress {
public:
    virtual ~ImportProgress() = default;
    virtual void showLineCount(int count) = 0;             // the lines in the file
    virtual void showLine(int line) = 0;                   // the line being imported
    virtual void showInfo(const QString& text) = 0;        // the status text
    virtual void showResetPrices(const QString& text) = 0; // the expired-price report
};

} // namespace ordwell

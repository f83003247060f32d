#pragma once

#include "common/Status.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

namespace ordwell {

// Reads a price list line by line as text. The file is read whole when it is opened, because
// only all of it tells its encoding: a byte-order mark names UTF-8, UTF-16 or UTF-32; without
// one the file is UTF-8 when all of it is valid UTF-8, and otherwise it is read in the Windows
// code page (windows-1252), which is what spreadsheet programs on Windows save a "CSV" file in.
// Lines end at a line feed; a carriage return before it (Windows line ends) is dropped. A last
// line without a line feed still counts; a file ending in a line feed has no empty line after it.
class PriceListReader {
public:
    explicit PriceListReader(QString path);
    PriceListReader(const PriceListReader&) = delete;
    PriceListReader& operator=(const PriceListReader&) = delete;

    const QString& path() const { return m_path; }

    // Reads and decodes the file: why it cannot be imported (missing, unreadable, or not text in
    // the encoding its byte-order mark names). Nothing is imported from a file that fails here.
    Status open();
    // How many lines the opened file has.
    int lineCount() const { return m_lineCount; }
    // False at the end of the file. The view stays valid while the reader lives.
    bool readLine(QStringView& line);
    bool readLine(QString& line);
    // The number of the line read last.
    int lineNumber() const { return m_lineNumber; }

    static Result<int> countLines(const QString& path);

private:
    QString m_path;
    QString m_text;
    qsizetype m_position = 0;
    int m_lineCount = 0;
    int m_lineNumber = 0;
};

} // namespace ordwell

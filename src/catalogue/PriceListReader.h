#pragma once

#include "common/Status.h"

#include <QFile>
#include <QString>
#include <QStringDecoder>

namespace ordwell {

// Reads a price list line by line as text. The file is UTF-8 unless a byte-order mark says
// otherwise (UTF-16 and UTF-32 are read too; a UTF-8 mark is skipped). Lines end at a line
// feed; a carriage return before it (Windows line ends) is dropped. A last line without a line
// feed still counts; a file ending in a line feed has no empty line after it.
class PriceListReader {
public:
    explicit PriceListReader(QString path);

    Status open();
    // False at the end of the file or when the bytes stop being readable text (see failure()).
    bool readLine(QString& line);
    // Set when text could not be decoded: the message names the file and the line.
    const Status& failure() const { return m_failure; }
    int lineNumber() const { return m_lineNumber; }

    // Reads the whole file once: how many lines it has, or why it cannot be imported (missing,
    // unreadable, not text in a known encoding). Nothing is imported from a file that fails here.
    static Result<int> countLines(const QString& path);

private:
    bool fill();

    QString m_path;
    QFile m_file;
    QStringDecoder m_decoder;
    QString m_buffer;
    qsizetype m_position = 0;
    bool m_started = false;
    bool m_atEnd = false;
    int m_lineNumber = 0;
    Status m_failure;
};

} // namespace ordwell

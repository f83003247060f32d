#include "PriceListReader.h"

#include <QDir>

namespace ordwell {

namespace {
constexpr qint64 ChunkBytes = 256 * 1024;
}

PriceListReader::PriceListReader(QString path) : m_path(std::move(path)), m_file(m_path) {}

Status PriceListReader::open() {
    if (!m_file.open(QIODevice::ReadOnly))
        return Status::fail(QStringLiteral("The file %1 could not be read: %2")
                                .arg(QDir::toNativeSeparators(m_path), m_file.errorString()));
    return Status::ok();
}

bool PriceListReader::fill() {
    if (m_atEnd)
        return false;
    const QByteArray bytes = m_file.read(ChunkBytes);
    if (!m_started) {
        m_started = true;
        // Only a byte-order mark can tell another encoding; without one the file is UTF-8.
        const auto encoding = QStringConverter::encodingForData(bytes);
        m_decoder = QStringDecoder(encoding.value_or(QStringConverter::Utf8));
    }
    if (bytes.isEmpty()) {
        m_atEnd = true;
        return false;
    }
    m_buffer.remove(0, m_position);
    m_position = 0;
    m_buffer += m_decoder.decode(bytes);
    if (m_decoder.hasError()) {
        // Which line: the one the undecodable bytes fall in, counted from those read so far.
        const qsizetype bad = m_buffer.indexOf(QChar(QChar::ReplacementCharacter));
        const int line = m_lineNumber + 1 + int(QStringView(m_buffer).left(bad < 0 ? 0 : bad).count(QLatin1Char('\n')));
        m_failure = Status::fail(
            QStringLiteral("The file %1 cannot be imported: line %2 holds characters that are not UTF-8 text. Save the "
                           "price list as UTF-8 text (for example \"CSV UTF-8\") and run the import again.")
                .arg(QDir::toNativeSeparators(m_path))
                .arg(line));
        m_atEnd = true;
        return false;
    }
    return true;
}

bool PriceListReader::readLine(QString& line) {
    if (!m_failure.isOk())
        return false;
    for (;;) {
        const qsizetype newline = m_buffer.indexOf(QLatin1Char('\n'), m_position);
        if (newline >= 0) {
            qsizetype end = newline;
            if (end > m_position && m_buffer.at(end - 1) == QLatin1Char('\r'))
                --end;
            line = m_buffer.mid(m_position, end - m_position);
            m_position = newline + 1;
            ++m_lineNumber;
            return true;
        }
        if (!fill())
            break;
    }
    if (!m_failure.isOk())
        return false;
    if (m_position < m_buffer.size()) {
        line = m_buffer.mid(m_position);
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        m_position = m_buffer.size();
        ++m_lineNumber;
        return true;
    }
    return false;
}

Result<int> PriceListReader::countLines(const QString& path) {
    PriceListReader reader(path);
    if (Status opened = reader.open(); !opened)
        return opened;
    QString line;
    while (reader.readLine(line)) {
    }
    if (!reader.failure().isOk())
        return reader.failure();
    if (reader.m_file.error() != QFileDevice::NoError)
        return Status::fail(QStringLiteral("The file %1 could not be read: %2")
                                .arg(QDir::toNativeSeparators(path), reader.m_file.errorString()));
    return reader.lineNumber();
}

} // namespace ordwell

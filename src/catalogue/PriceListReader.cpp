#include "PriceListReader.h"

#include <QDir>
#include <QFile>
#include <QStringDecoder>

namespace ordwell {

namespace {

// Bytes 0x80 to 0x9F of windows-1252; the rest of the page is Latin-1. The five bytes the page
// leaves undefined keep their control characters, as Windows itself converts them.
constexpr char16_t Windows1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

Status unreadable(const QString& path, const QString& why) {
    return Status::fail(QStringLiteral("The file %1 could not be read: %2").arg(QDir::toNativeSeparators(path), why));
}

QString fromWindows1252(QByteArrayView bytes) {
    QString text = QString::fromLatin1(bytes);
    for (QChar& c : text) {
        if (c.unicode() >= 0x80 && c.unicode() <= 0x9F)
            c = QChar(Windows1252High[c.unicode() - 0x80]);
    }
    return text;
}

} // namespace

PriceListReader::PriceListReader(QString path) : m_path(std::move(path)) {}

Status PriceListReader::open() {
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return unreadable(m_path, file.errorString());
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return unreadable(m_path, file.errorString());

    m_position = 0;
    m_lineNumber = 0;
    const auto marked = QStringConverter::encodingForData(bytes);
    QStringDecoder decoder(marked.value_or(QStringConverter::Utf8));
    m_text = decoder.decode(bytes);
    if (decoder.hasError()) {
        if (!marked) {
            m_text = fromWindows1252(bytes);
        } else {
            // The mark promised an encoding the bytes do not keep to: say which line breaks it.
            const qsizetype bad = m_text.indexOf(QChar(QChar::ReplacementCharacter));
            const qsizetype line = 1 + QStringView(m_text).left(qMax<qsizetype>(bad, 0)).count(QLatin1Char('\n'));
            m_text.clear();
            return Status::fail(QStringLiteral("The file %1 cannot be imported: line %2 holds characters that are not "
                                               "text in the encoding its byte-order mark names. Save the price list "
                                               "as UTF-8 text (for example \"CSV UTF-8\") and run the import again.")
                                    .arg(QDir::toNativeSeparators(m_path))
                                    .arg(line));
        }
    }
    const qsizetype feeds = m_text.count(QLatin1Char('\n'));
    m_lineCount = int(feeds + (!m_text.isEmpty() && !m_text.endsWith(QLatin1Char('\n')) ? 1 : 0));
    return Status::ok();
}

bool PriceListReader::readLine(QStringView& line) {
    if (m_position >= m_text.size())
        return false;
    qsizetype newline = m_text.indexOf(QLatin1Char('\n'), m_position);
    const qsizetype next = newline < 0 ? m_text.size() : newline + 1;
    qsizetype end = newline < 0 ? m_text.size() : newline;
    if (end > m_position && m_text.at(end - 1) == QLatin1Char('\r'))
        --end;
    line = QStringView(m_text).mid(m_position, end - m_position);
    m_position = next;
    ++m_lineNumber;
    return true;
}

bool PriceListReader::readLine(QString& line) {
    QStringView view;
    if (!readLine(view))
        return false;
    line = view.toString();
    return true;
}

Result<int> PriceListReader::countLines(const QString& path) {
    PriceListReader reader(path);
    if (Status opened = reader.open(); !opened)
        return opened;
    return reader.lineCount();
}

} // namespace ordwell

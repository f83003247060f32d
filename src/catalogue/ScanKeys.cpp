#include "ScanKeys.h"

#include "ScanReading.h"

#include <QElapsedTimer>
#include <QKeySequence>
#include <algorithm>

namespace ordwell {

GroupSeparatorSubstitute GroupSeparatorSubstitute::fromText(const QString& text) {
    GroupSeparatorSubstitute s;
    const QString t = text.trimmed();
    if (t.size() == 1) {
        s.character = t;
    } else if (!t.isEmpty()) {
        const QKeySequence sequence = QKeySequence::fromString(t, QKeySequence::PortableText);
        if (sequence.count() == 1)
            s.key = sequence[0].key();
    }
    return s;
}

GroupSeparatorSubstitute GroupSeparatorSubstitute::fromSettings(QSettings& settings) {
    settings.beginGroup(QStringLiteral("Settings"));
    const QString text = settings.value(SettingsKey).toString();
    settings.endGroup();
    return fromText(text);
}

bool isGroupSeparatorKey(int key, Qt::KeyboardModifiers modifiers, const QString& text,
                         const GroupSeparatorSubstitute& substitute) {
    if (text == QString(GroupSeparator))
        return true;
    // X11 reports Ctrl+] with text "\x1d"; other platforms send only the key and modifier.
    if (key == Qt::Key_BracketRight && (modifiers & Qt::ControlModifier))
        return true;
    if (substitute.key != 0 && key == substitute.key)
        return true;
    return !substitute.character.isEmpty() && text == substitute.character;
}

ScanBurst::ScanBurst(Clock clock) : m_clock(std::move(clock)) {
    if (!m_clock) {
        auto timer = std::make_shared<QElapsedTimer>();
        timer->start();
        m_clock = [timer] { return timer->elapsed(); };
    }
}

void ScanBurst::key() {
    m_times.append(m_clock());
}

bool ScanBurst::enter() {
    m_times.append(m_clock());
    QList<qint64> times;
    times.swap(m_times);
    if (times.size() < MinKeys + 1)
        return false;
    // The middle gap, so one late key (the program busy for a moment) does not undo a scan.
    QList<qint64> gaps;
    for (qsizetype i = 1; i < times.size(); ++i)
        gaps.append(times[i] - times[i - 1]);
    std::nth_element(gaps.begin(), gaps.begin() + gaps.size() / 2, gaps.end());
    return gaps[gaps.size() / 2] <= MaxGapMs;
}

} // namespace ordwell

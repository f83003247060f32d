#pragma once

#include <QSettings>
#include <QString>
#include <Qt>
#include <functional>

namespace ordwell {

// What a keyboard-wedge scanner types for the group separator besides ASCII 29 and Ctrl+]:
// a character ("^") or a key (F8), as set in the settings store under Settings/ScanGroupSeparator.
struct GroupSeparatorSubstitute {
    QString character; // one character, or empty
    int key = 0;       // a Qt::Key such as Qt::Key_F8, or 0

    static inline const QString SettingsKey = QStringLiteral("ScanGroupSeparator");
    // "^" is a character, "F8" a key, empty (or unreadable) means none.
    static GroupSeparatorSubstitute fromText(const QString& text);
    static GroupSeparatorSubstitute fromSettings(QSettings& settings);
};

// True when this key press stands for the group separator: ASCII 29 as text, Ctrl+] however the
// platform reports it, or the scanner's substitute.
bool isGroupSeparatorKey(int key, Qt::KeyboardModifiers modifiers, const QString& text,
                         const GroupSeparatorSubstitute& substitute);

// Tells a scan from typing: a scanner sends its keys and the closing Enter in a burst far faster
// than a person types. The clock gives milliseconds, so tests can drive it by hand.
class ScanBurst {
public:
    using Clock = std::function<qint64()>;
    static constexpr int MinKeys = 4;      // shorter bursts are a typist's quick fingers
    static constexpr qint64 MaxGapMs = 35; // people manage about 100 ms between keys at best

    explicit ScanBurst(Clock clock = {});

    // A key that adds a character.
    void key();
    // Enter: true when the keys since the last Enter (or reset) came as a scan. Starts afresh.
    bool enter();
    void reset() { m_times.clear(); }

private:
    Clock m_clock;
    QList<qint64> m_times;
};

} // namespace ordwell

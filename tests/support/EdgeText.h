#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QString>
#include <QStringList>
#include <QWidget>

// Texts at the edges of a box's length, and typing them the way a keyboard delivers them:
// one key event per character, so a character outside the Basic Multilingual Plane (an emoji)
// arrives as one event carrying two UTF-16 units.
namespace ordwell::test {

// The text's characters, a surrogate pair being one.
inline QStringList characters(const QString& text) {
    QStringList out;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool pair = text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        out << text.mid(i, pair ? 2 : 1);
        if (pair)
            ++i;
    }
    return out;
}

inline void typeText(QWidget* target, const QString& text) {
    for (const QString& one : characters(text)) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, one);
        QApplication::sendEvent(target, &press);
        QKeyEvent release(QEvent::KeyRelease, 0, Qt::NoModifier, one);
        QApplication::sendEvent(target, &release);
    }
}

// `fill` repeated to `length - spare` units, then `last`: with a spare of last's own size
// the text is exactly `length` units long; with less it runs over.
inline QString edgeText(const QString& fill, const QString& last, int length, int spare) {
    QString text;
    while (text.size() + fill.size() <= length - spare)
        text += fill;
    return text + last;
}

// What a box limited to `length` units keeps of `text`: whole characters only.
inline QString keptOf(const QString& text, int length) {
    QString kept;
    for (const QString& one : characters(text)) {
        if (kept.size() + one.size() > length)
            break;
        kept += one;
    }
    return kept;
}

// Strings with no half of a surrogate pair on its own.
inline bool wholeCharacters(const QString& text) {
    for (const QString& one : characters(text)) {
        if (one.size() == 1 && one.at(0).isSurrogate())
            return false;
    }
    return true;
}

} // namespace ordwell::test

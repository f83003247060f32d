#include "TextChecks.h"

namespace ordwell {

QString UpperCaseCode(const QString& text) {
    QString out = text;
    for (QChar& c : out) {
        if (c >= QLatin1Char('a') && c <= QLatin1Char('z'))
            c = QChar(c.unicode() - 'a' + 'A');
    }
    return out;
}

bool IsValidCode(const QString& text, bool allowSpace) {
    for (QChar c : text) {
        const bool digit = c >= QLatin1Char('0') && c <= QLatin1Char('9');
        const bool capital = c >= QLatin1Char('A') && c <= QLatin1Char('Z');
        const bool space = allowSpace && c == QLatin1Char(' ');
        if (!digit && !capital && !space)
            return false;
    }
    return true;
}

bool IsValidPhone(const QString& text) {
    for (QChar c : text) {
        const bool digit = c >= QLatin1Char('0') && c <= QLatin1Char('9');
        if (!digit && c != QLatin1Char('(') && c != QLatin1Char(')') && c != QLatin1Char(' '))
            return false;
    }
    return true;
}

} // namespace ordwell

#include "Money.h"

#include <limits>

namespace ordwell {

namespace {
qint64 roundDiv(qint64 value, qint64 divisor) {
    const qint64 q = value / divisor;
    const qint64 r = value % divisor;
    if (2 * (r < 0 ? -r : r) >= divisor)
        return q + (value < 0 ? -1 : 1);
    return q;
}
} // namespace

std::optional<Money> Money::parse(const QString& input, const QLocale& locale) {
    QString text = input.trimmed();
    if (text.isEmpty())
        return std::nullopt;
    bool negative = false;
    if (text.startsWith(locale.negativeSign()) || text.startsWith(QLatin1Char('-'))) {
        negative = true;
        text.remove(0, 1);
    } else if (text.startsWith(locale.positiveSign()) || text.startsWith(QLatin1Char('+'))) {
        text.remove(0, 1);
    }
    const QString decimal = locale.decimalPoint();
    const QString group = locale.groupSeparator();
    QString whole;
    QString fraction;
    bool seenPoint = false;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isDigit() && c.unicode() < 128) {
            (seenPoint ? fraction : whole).append(c);
        } else if (!seenPoint && QStringView(&c, 1) == decimal) {
            seenPoint = true;
        } else if (!seenPoint && !group.isEmpty() && QStringView(&c, 1) == group && !whole.isEmpty()) {
            continue;
        } else {
            return std::nullopt;
        }
    }
    if (whole.isEmpty() && fraction.isEmpty())
        return std::nullopt;
    if (whole.size() > 14)
        return std::nullopt; // beyond what the stored currency can hold
    qint64 units = whole.isEmpty() ? 0 : whole.toLongLong() * Scale;
    // Only the fifth decimal decides the rounding of the fourth.
    QString frac5 = fraction.left(5).leftJustified(5, QLatin1Char('0'));
    qint64 fracUnits = roundDiv(frac5.toLongLong(), 10);
    units += fracUnits;
    return Money(negative ? -units : units);
}

Money Money::roundedToPence() const {
    return Money(roundDiv(m_units, 100) * 100);
}

QString Money::toString(const QLocale& locale) const {
    const qint64 pence = roundDiv(m_units, 100);
    const qint64 absPence = pence < 0 ? -pence : pence;
    QString whole = locale.toString(absPence / 100);
    QString text = whole + locale.decimalPoint() + QStringLiteral("%1").arg(absPence % 100, 2, 10, QLatin1Char('0'));
    return pence < 0 ? locale.negativeSign() + text : text;
}

QString Money::toPlainString() const {
    const qint64 pence = roundDiv(m_units, 100);
    const qint64 absPence = pence < 0 ? -pence : pence;
    QString text = QStringLiteral("%1.%2").arg(absPence / 100).arg(absPence % 100, 2, 10, QLatin1Char('0'));
    return pence < 0 ? QStringLiteral("-") + text : text;
}

} // namespace ordwell

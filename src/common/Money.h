#pragma once

#include <QLocale>
#include <QString>
#include <QtGlobal>
#include <optional>

namespace ordwell {

// An amount of money held exactly as ten-thousandths of the currency unit, the precision the
// stored currency columns have. No floating point anywhere on the way in or out.
class Money {
public:
    static constexpr qint64 Scale = 10000;

    constexpr Money() = default;
    static constexpr Money fromTenThousandths(qint64 units) { return Money(units); }
    static constexpr Money fromPence(qint64 pence) { return Money(pence * 100); }

    // Reads "1,234.5", "-0.25", "12" in the given locale (grouping optional). More than four
    // decimals are rounded half away from zero. Returns nothing for text that is not a number.
    static std::optional<Money> parse(const QString& text, const QLocale& locale = QLocale());

    constexpr qint64 tenThousandths() const { return m_units; }

    // Two decimals, rounded half away from zero, with the locale's grouping: "1,234.50".
    QString toString(const QLocale& locale = QLocale()) const;
    // Two decimals, no grouping, '.' as separator: for files other programs read.
    QString toPlainString() const;

    Money roundedToPence() const;
    Money operator*(qint64 quantity) const { return Money(m_units * quantity); }
    Money operator+(Money other) const { return Money(m_units + other.m_units); }
    Money operator-(Money other) const { return Money(m_units - other.m_units); }
    Money& operator+=(Money other) {
        m_units += other.m_units;
        return *this;
    }
    friend constexpr bool operator==(Money, Money) = default;
    friend constexpr auto operator<=>(Money, Money) = default;

private:
    constexpr explicit Money(qint64 units) : m_units(units) {}
    qint64 m_units = 0;
};

} // namespace ordwell

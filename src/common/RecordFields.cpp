#include "RecordFields.h"

#include "common/Dates.h"

namespace ordwell {

namespace Fields {

QString format(const FieldValue& value, const QLocale& locale) {
    struct Formatter {
        const QLocale& locale;
        QString operator()(std::monostate) const { return {}; }
        QString operator()(const QString& text) const { return text; }
        QString operator()(int number) const { return QString::number(number); }
        QString operator()(Money money) const { return money.toString(locale); }
        QString operator()(const QDate& date) const {
            return date.isValid() ? Dates::shortDate(date, locale) : QString();
        }
    };
    return std::visit(Formatter{locale}, value);
}

std::optional<FieldValue> parse(FieldKind kind, const QString& text, const QLocale& locale) {
    if (kind == FieldKind::Text)
        return text.isEmpty() ? FieldValue() : FieldValue(text);
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return FieldValue();
    switch (kind) {
    case FieldKind::Number: {
        bool ok = false;
        const int number = trimmed.toInt(&ok);
        if (!ok)
            return std::nullopt;
        return FieldValue(number);
    }
    case FieldKind::Money:
        if (const auto money = Money::parse(trimmed, locale))
            return FieldValue(*money);
        return std::nullopt;
    case FieldKind::Date: {
        const QDate date = Dates::parseShortDate(trimmed, locale);
        if (!date.isValid())
            return std::nullopt;
        return FieldValue(date);
    }
    case FieldKind::Text:
        break;
    }
    return std::nullopt;
}

QString text(const FieldValue& value) {
    const QString* held = std::get_if<QString>(&value);
    return held ? *held : QString();
}

} // namespace Fields

CheckSequence& CheckSequence::check(const std::function<bool()>& failed, FieldProblem problem) {
    if (passing() && failed())
        m_problems.append(std::move(problem));
    return *this;
}

CheckSequence& CheckSequence::alwaysCheck(const std::function<bool()>& failed, FieldProblem problem) {
    if (failed())
        m_problems.append(std::move(problem));
    return *this;
}

std::optional<FieldProblem> CheckSequence::first() const {
    if (m_problems.isEmpty())
        return std::nullopt;
    return m_problems.first();
}

} // namespace ordwell

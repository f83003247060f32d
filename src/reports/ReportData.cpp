#include "ReportData.h"

#include "common/Dates.h"
#include "common/Money.h"

#include <kainjow/mustache.hpp>

#include <cmath>

namespace ordwell {

namespace mustache = kainjow::mustache;

namespace {

std::string escapeHtml(const QString& text) {
    return text.toHtmlEscaped().toStdString();
}

// The helpers take the text their section renders to: "{{#money}}{{lineval}}{{/money}}".
mustache::data moneyHelper(const QLocale& locale) {
    return mustache::lambda2{[locale](const std::string& text, const mustache::renderer& render) -> std::string {
        const QString value = QString::fromStdString(render(text)).trimmed();
        if (value.isEmpty())
            return {};
        // Amounts are stored as whole ten-thousandths; SQL arithmetic may make them real numbers.
        bool ok = false;
        qint64 units = value.toLongLong(&ok);
        if (!ok) {
            const double real = value.toDouble(&ok);
            if (!ok || !std::isfinite(real) || std::fabs(real) > 9.0e17)
                return value.toStdString(); // already escaped by the inner tags
            units = std::llround(real);
        }
        return escapeHtml(Money::fromTenThousandths(units).toString(locale));
    }};
}

mustache::data dateHelper(const QLocale& locale, bool longForm) {
    return mustache::lambda2{
        [locale, longForm](const std::string& text, const mustache::renderer& render) -> std::string {
            const QString value = QString::fromStdString(render(text)).trimmed();
            const QDate date = Dates::dateFromStored(value);
            if (!date.isValid())
                return value.toStdString();
            return escapeHtml(longForm ? Dates::longDate(date, locale) : Dates::shortDate(date, locale));
        }};
}

} // namespace

ReportData::ReportData(std::unique_ptr<Data> data) : m_data(std::move(data)) {}
ReportData::ReportData(ReportData&&) noexcept = default;
ReportData& ReportData::operator=(ReportData&&) noexcept = default;
ReportData::~ReportData() = default;

ReportData ReportData::object() {
    return ReportData(std::make_unique<Data>(Data::type::object));
}

ReportData ReportData::list() {
    return ReportData(std::make_unique<Data>(Data::type::list));
}

void ReportData::set(const std::string& name, const QVariant& value) {
    if (value.isNull()) {
        m_data->set(name, mustache::data(false));
        return;
    }
    switch (value.typeId()) {
    case QMetaType::LongLong:
        m_data->set(name, mustache::data(std::to_string(value.toLongLong())));
        return;
    case QMetaType::Int:
        m_data->set(name, mustache::data(std::to_string(value.toInt())));
        return;
    case QMetaType::Double:
        m_data->set(name, mustache::data(QString::number(value.toDouble(), 'g', 15).toStdString()));
        return;
    default:
        break;
    }
    const QString text = value.toString();
    if (text.isEmpty())
        m_data->set(name, mustache::data(false));
    else
        m_data->set(name, mustache::data(text.toStdString()));
}

void ReportData::set(const std::string& name, ReportData&& child) {
    m_data->set(name, std::move(*child.m_data));
}

void ReportData::append(ReportData&& row) {
    m_data->push_back(std::move(*row.m_data));
}

void ReportData::addHelpers(const QLocale& locale) {
    m_data->set("money", moneyHelper(locale));
    m_data->set("date", dateHelper(locale, false));
    m_data->set("longdate", dateHelper(locale, true));
}

bool ReportData::isList() const {
    return m_data->is_list();
}

std::size_t ReportData::size() const {
    return m_data->is_list() ? m_data->list_value().size() : 0;
}

} // namespace ordwell

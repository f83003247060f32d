#pragma once

#include <QLocale>
#include <QString>
#include <QVariant>
#include <memory>
#include <string>

namespace kainjow::mustache {
template <typename StringType> class basic_data;
}

namespace ordwell {

class ReportTemplate;

// The values a report template sees: an object of named values, or a list of such objects
// (the rows of a query). Empty and missing values count as false in a {{#section}}.
class ReportData {
public:
    static ReportData object();
    static ReportData list();
    ReportData(ReportData&&) noexcept;
    ReportData& operator=(ReportData&&) noexcept;
    ~ReportData();

    // On an object: a value shown with {{name}}; a null or empty value is false.
    void set(const std::string& name, const QVariant& value);
    void set(const QString& name, const QVariant& value) { set(name.toStdString(), value); }
    // On an object: a list or object shown with {{#name}}...{{/name}}.
    void set(const std::string& name, ReportData&& child);
    // On a list: one more row.
    void append(ReportData&& row);

    // The helpers {{#money}}, {{#date}} and {{#longdate}}, formatting in `locale`.
    void addHelpers(const QLocale& locale);

    bool isList() const;
    std::size_t size() const; // rows of a list

private:
    friend class ReportTemplate;
    using Data = kainjow::mustache::basic_data<std::string>;
    explicit ReportData(std::unique_ptr<Data> data);
    std::unique_ptr<Data> m_data;
};

} // namespace ordwell

#pragma once

#include "common/Status.h"

#include <QString>
#include <memory>
#include <optional>

namespace ordwell {

class ReportData;

// One Mustache template of a report (the body, the page header or the page footer), read
// once and filled as often as needed.
class ReportTemplate {
public:
    struct Problem {
        int line = 0; // within the template text, from 1; 0 when not known
        QString reason;
    };

    // Why the text is not a usable template, or nothing when it is.
    static std::optional<Problem> check(const QString& text);

    explicit ReportTemplate(const QString& text);
    ~ReportTemplate();
    ReportTemplate(const ReportTemplate&) = delete;
    ReportTemplate& operator=(const ReportTemplate&) = delete;

    // Fills the template from `data`; `inner`, when given, is looked in first (the page number
    // of a header). Fails with the template's own complaint.
    Result<QString> render(const ReportData& data, const ReportData* inner = nullptr) const;

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

} // namespace ordwell

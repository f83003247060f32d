#include "ReportTemplate.h"

#include "reports/ReportData.h"

#include <kainjow/mustache.hpp>

#include <QRegularExpression>

namespace ordwell {

namespace mustache = kainjow::mustache;

namespace {

// The library reports a byte offset ("Unclosed section "lines" at 120"); people want a line.
ReportTemplate::Problem describe(const std::string& source, const std::string& message) {
    ReportTemplate::Problem problem;
    QString text = QString::fromStdString(message);
    static const QRegularExpression at(QStringLiteral("^(.*) at (\\d+)$"));
    const auto match = at.match(text);
    if (match.hasMatch()) {
        const std::size_t offset = std::min<std::size_t>(match.captured(2).toULongLong(), source.size());
        problem.line = 1 + int(std::count(source.begin(), source.begin() + std::ptrdiff_t(offset), '\n'));
        text = match.captured(1);
    }
    static const QRegularExpression unclosed(QStringLiteral("^Unclosed section \"(.*)\"$"));
    static const QRegularExpression unopened(QStringLiteral("^Unopened section \"(.*)\"$"));
    if (const auto m = unclosed.match(text); m.hasMatch())
        problem.reason = QStringLiteral("{{#%1}} is never closed with {{/%1}}").arg(m.captured(1));
    else if (const auto m2 = unopened.match(text); m2.hasMatch())
        problem.reason = QStringLiteral("{{/%1}} closes a section that was not opened").arg(m2.captured(1));
    else if (text == QLatin1String("Unclosed tag"))
        problem.reason = QStringLiteral("a tag opened with {{ is never closed with }}");
    else if (text.startsWith(QLatin1String("Lambda with render argument")))
        problem.reason = QStringLiteral("money, date and longdate are used as sections, like "
                                        "{{#money}}{{totalval}}{{/money}}");
    else
        problem.reason = text;
    return problem;
}

} // namespace

struct ReportTemplate::Impl {
    std::string source;
    std::unique_ptr<mustache::mustache> compiled;
    explicit Impl(std::string text) : source(std::move(text)), compiled(std::make_unique<mustache::mustache>(source)) {}
};

std::optional<ReportTemplate::Problem> ReportTemplate::check(const QString& text) {
    const std::string source = text.toStdString();
    mustache::mustache compiled(source);
    if (compiled.is_valid())
        return std::nullopt;
    return describe(source, compiled.error_message());
}

ReportTemplate::ReportTemplate(const QString& text) : d(std::make_unique<Impl>(text.toStdString())) {}

ReportTemplate::~ReportTemplate() = default;

Result<QString> ReportTemplate::render(const ReportData& data, const ReportData* inner) const {
    if (!d->compiled->is_valid()) {
        const Problem p = describe(d->source, d->compiled->error_message());
        return Status::fail(p.reason);
    }
    mustache::context<std::string> context(data.m_data.get());
    if (inner)
        context.push(inner->m_data.get());
    const std::string out = d->compiled->render(context);
    if (!d->compiled->is_valid()) {
        // A failed render leaves its complaint behind; the next one starts from a fresh copy.
        const Problem p = describe(d->source, d->compiled->error_message());
        d->compiled = std::make_unique<mustache::mustache>(d->source);
        return Status::fail(p.line > 0 ? QStringLiteral("line %1 of the template: %2").arg(p.line).arg(p.reason)
                                       : p.reason);
    }
    return QString::fromStdString(out);
}

} // namespace ordwell

#include "ReportParser.h"

#include "reports/ReportSql.h"
#include "reports/ReportTemplate.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace ordwell {

QString ReportParseResult::describeError() const {
    if (errorLine > 0)
        return QStringLiteral("line %1: %2").arg(errorLine).arg(error);
    return error;
}

const QStringList& reservedReportNames() {
    static const QStringList names = {
        QStringLiteral("title"),      QStringLiteral("today"), QStringLiteral("vendorcode"),
        QStringLiteral("vendorname"), QStringLiteral("page"),  QStringLiteral("pages"),
        QStringLiteral("money"),      QStringLiteral("date"),  QStringLiteral("longdate")};
    return names;
}

const ReportParameter* ReportDefinition::parameter(const QString& name) const {
    for (const ReportParameter& p : parameters) {
        if (p.name == name)
            return &p;
    }
    return nullptr;
}

QPageLayout ReportDefinition::pageLayout() const {
    return QPageLayout(QPageSize(paper), orientation, marginsMm, QPageLayout::Millimeter);
}

namespace {

struct Failure {
    int line;
    QString reason;
};

enum class SectionKind { Report, Parameter, Query, Header, Footer, Body };

struct Section {
    SectionKind kind;
    QString name;
    QString parent;
    int line = 0;
    QStringList lines;
};

bool isValidName(const QString& name) {
    static const QRegularExpression pattern(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]{0,63}$"));
    return pattern.match(name).hasMatch();
}

// "[query lines in orders]" -> its kind and names; nullopt-like Failure on a bad header.
std::optional<Failure> readSectionHeader(const QString& inner, int line, Section& section) {
    const QStringList words = inner.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return Failure{line, QStringLiteral("an empty section name []")};
    const QString kind = words.first().toLower();
    section.line = line;
    auto simple = [&](SectionKind k) -> std::optional<Failure> {
        if (words.size() != 1)
            return Failure{line, QStringLiteral("[%1] takes no name").arg(kind)};
        section.kind = k;
        return std::nullopt;
    };
    if (kind == QLatin1String("report"))
        return simple(SectionKind::Report);
    if (kind == QLatin1String("header"))
        return simple(SectionKind::Header);
    if (kind == QLatin1String("footer"))
        return simple(SectionKind::Footer);
    if (kind == QLatin1String("body"))
        return simple(SectionKind::Body);
    if (kind == QLatin1String("parameter")) {
        if (words.size() != 2)
            return Failure{line, QStringLiteral("write a parameter section as [parameter name]")};
        section.kind = SectionKind::Parameter;
        section.name = words.at(1);
    } else if (kind == QLatin1String("query")) {
        if (words.size() == 2) {
            section.name = words.at(1);
        } else if (words.size() == 4 && words.at(2).toLower() == QLatin1String("in")) {
            section.name = words.at(1);
            section.parent = words.at(3);
            if (!isValidName(section.parent))
                return Failure{line, QStringLiteral("\"%1\" is not a usable query name").arg(section.parent)};
        } else {
            return Failure{line, QStringLiteral("write a query section as [query name] or [query name in other]")};
        }
        section.kind = SectionKind::Query;
    } else {
        return Failure{line, QStringLiteral("unknown section [%1]; the sections are [report], [parameter name], "
                                            "[query name], [header], [footer] and [body]")
                                 .arg(inner.trimmed())};
    }
    if (!isValidName(section.name))
        return Failure{line, QStringLiteral("\"%1\" is not a usable name (letters, digits and _, "
                                            "starting with a letter)")
                                 .arg(section.name)};
    return std::nullopt;
}

// key = value lines of [report] and [parameter]; blank lines and # or ; comments skipped.
template <typename Apply> std::optional<Failure> readSettings(const Section& section, Apply apply) {
    for (int i = 0; i < section.lines.size(); ++i) {
        const int line = section.line + 1 + i;
        const QString text = section.lines.at(i).trimmed();
        if (text.isEmpty() || text.startsWith(QLatin1Char('#')) || text.startsWith(QLatin1Char(';')))
            continue;
        const qsizetype eq = text.indexOf(QLatin1Char('='));
        if (eq <= 0)
            return Failure{line, QStringLiteral("expected a setting written as name = value")};
        const QString key = text.left(eq).trimmed().toLower();
        const QString value = text.mid(eq + 1).trimmed();
        if (auto failure = apply(key, value, line))
            return failure;
    }
    return std::nullopt;
}

std::optional<bool> readYesNo(const QString& value) {
    const QString v = value.toLower();
    if (v == QLatin1String("yes") || v == QLatin1String("true") || v == QLatin1String("1"))
        return true;
    if (v == QLatin1String("no") || v == QLatin1String("false") || v == QLatin1String("0"))
        return false;
    return std::nullopt;
}

std::optional<Failure> applyReportSetting(ReportDefinition& def, const QString& key, const QString& value, int line) {
    if (key == QLatin1String("title")) {
        def.title = value;
    } else if (key == QLatin1String("paper")) {
        static const QHash<QString, QPageSize::PageSizeId> papers = {
            {QStringLiteral("a3"), QPageSize::A3},       {QStringLiteral("a4"), QPageSize::A4},
            {QStringLiteral("a5"), QPageSize::A5},       {QStringLiteral("letter"), QPageSize::Letter},
            {QStringLiteral("legal"), QPageSize::Legal},
        };
        const auto it = papers.constFind(value.toLower());
        if (it == papers.constEnd())
            return Failure{line, QStringLiteral("unknown paper \"%1\"; use A4, A5, A3, Letter or Legal").arg(value)};
        def.paper = it.value();
    } else if (key == QLatin1String("orientation")) {
        const QString v = value.toLower();
        if (v == QLatin1String("portrait"))
            def.orientation = QPageLayout::Portrait;
        else if (v == QLatin1String("landscape"))
            def.orientation = QPageLayout::Landscape;
        else
            return Failure{line, QStringLiteral("orientation is portrait or landscape, not \"%1\"").arg(value)};
    } else if (key == QLatin1String("margins")) {
        // Millimetres, in the order CSS uses: all; top-bottom left-right; or top right bottom left.
        const QStringList parts = value.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
        QList<double> mm;
        for (const QString& part : parts) {
            bool ok = false;
            const double v = part.toDouble(&ok);
            if (!ok || v < 0 || v > 100)
                return Failure{line, QStringLiteral("margins are millimetres from 0 to 100, not \"%1\"").arg(part)};
            mm.append(v);
        }
        if (mm.size() == 1)
            def.marginsMm = QMarginsF(mm[0], mm[0], mm[0], mm[0]);
        else if (mm.size() == 2)
            def.marginsMm = QMarginsF(mm[1], mm[0], mm[1], mm[0]);
        else if (mm.size() == 4)
            def.marginsMm = QMarginsF(mm[3], mm[0], mm[1], mm[2]);
        else
            return Failure{line, QStringLiteral("margins take one, two or four numbers (top right bottom left)")};
    } else if (key == QLatin1String("font")) {
        // "DejaVu Sans 9", or just "9".
        const qsizetype space = value.lastIndexOf(QLatin1Char(' '));
        bool ok = false;
        const double points = value.mid(space + 1).toDouble(&ok);
        if (!ok || points < 4 || points > 72)
            return Failure{line, QStringLiteral("font is a family and a size in points from 4 to 72, like "
                                                "\"DejaVu Sans 10\"")};
        def.fontPoints = points;
        def.fontFamily = space > 0 ? value.left(space).trimmed() : QString();
    } else {
        return Failure{line, QStringLiteral("unknown setting \"%1\" in [report]; the settings are title, paper, "
                                            "orientation, margins and font")
                                 .arg(key)};
    }
    return std::nullopt;
}

std::optional<Failure> applyParameterSetting(ReportParameter& p, bool& requiredGiven, const QString& key,
                                             const QString& value, int line) {
    if (key == QLatin1String("label")) {
        p.label = value;
    } else if (key == QLatin1String("default")) {
        p.defaultValue = value;
    } else if (key == QLatin1String("required")) {
        const auto yes = readYesNo(value);
        if (!yes)
            return Failure{line, QStringLiteral("required is yes or no, not \"%1\"").arg(value)};
        p.required = *yes;
        requiredGiven = true;
    } else {
        return Failure{line, QStringLiteral("unknown setting \"%1\" in [parameter %2]; the settings are label, "
                                            "default and required")
                                 .arg(key, p.name)};
    }
    return std::nullopt;
}

// A template section's text with the blank lines round it kept out of the page.
ReportTemplateText templateText(const Section& section) {
    ReportTemplateText t;
    t.text = section.lines.join(QLatin1Char('\n'));
    t.firstLine = section.line + 1;
    return t;
}

std::optional<Failure> checkTemplate(const ReportTemplateText& t, const QString& sectionName) {
    const auto problem = ReportTemplate::check(t.text);
    if (!problem)
        return std::nullopt;
    return Failure{problem->line > 0 ? t.firstLine + problem->line - 1 : t.firstLine,
                   QStringLiteral("in [%1]: %2").arg(sectionName, problem->reason)};
}

std::optional<Failure> build(const QList<Section>& sections, ReportDefinition& def) {
    const Section* report = nullptr;
    const Section* header = nullptr;
    const Section* footer = nullptr;
    const Section* body = nullptr;
    QHash<QString, int> names; // every parameter and query name, with its line
    auto claimName = [&](const QString& name, int line) -> std::optional<Failure> {
        if (reservedReportNames().contains(name))
            return Failure{line, QStringLiteral("\"%1\" is a name the report already gives; choose another").arg(name)};
        if (names.contains(name))
            return Failure{line,
                           QStringLiteral("the name \"%1\" is already used on line %2").arg(name).arg(names[name])};
        names.insert(name, line);
        return std::nullopt;
    };
    auto once = [](const Section*& slot, const Section& s, const char* what) -> std::optional<Failure> {
        if (slot)
            return Failure{s.line, QStringLiteral("a second [%1] section (the first is on line %2)")
                                       .arg(QLatin1String(what))
                                       .arg(slot->line)};
        slot = &s;
        return std::nullopt;
    };

    for (const Section& s : sections) {
        std::optional<Failure> failure;
        switch (s.kind) {
        case SectionKind::Report:
            failure = once(report, s, "report");
            if (!failure)
                failure = readSettings(s, [&def](const QString& k, const QString& v, int line) {
                    return applyReportSetting(def, k, v, line);
                });
            break;
        case SectionKind::Parameter: {
            failure = claimName(s.name, s.line);
            if (failure)
                break;
            ReportParameter p;
            p.name = s.name;
            p.label = s.name;
            p.line = s.line;
            bool requiredGiven = false;
            failure = readSettings(s, [&](const QString& k, const QString& v, int line) {
                return applyParameterSetting(p, requiredGiven, k, v, line);
            });
            // A parameter with a default can always be left out.
            if (!requiredGiven && !p.defaultValue.isEmpty())
                p.required = false;
            def.parameters.append(p);
            break;
        }
        case SectionKind::Query: {
            failure = claimName(s.name, s.line);
            if (failure)
                break;
            ReportQuery q;
            q.name = s.name;
            q.parent = s.parent;
            q.line = s.line;
            if (!q.parent.isEmpty()) {
                const bool known = std::any_of(def.queries.cbegin(), def.queries.cend(),
                                               [&q](const ReportQuery& earlier) { return earlier.name == q.parent; });
                if (!known)
                    failure = Failure{s.line, QStringLiteral("query \"%1\" runs in \"%2\", but no query \"%2\" comes "
                                                             "before it")
                                                  .arg(q.name, q.parent)};
            }
            if (failure)
                break;
            const ReportSqlScan scan = scanReportSql(s.lines.join(QLatin1Char('\n')));
            if (!scan.problem.isEmpty()) {
                failure = Failure{s.line, QStringLiteral("in query \"%1\": %2").arg(q.name, scan.problem)};
                break;
            }
            q.sql = scan.statement;
            q.placeholders = scan.placeholders;
            def.queries.append(q);
            break;
        }
        case SectionKind::Header:
            failure = once(header, s, "header");
            break;
        case SectionKind::Footer:
            failure = once(footer, s, "footer");
            break;
        case SectionKind::Body:
            failure = once(body, s, "body");
            break;
        }
        if (failure)
            return failure;
    }

    if (!report)
        return Failure{0, QStringLiteral("the file has no [report] section, so it is not a report definition")};
    if (def.title.isEmpty())
        return Failure{report->line, QStringLiteral("the [report] section needs a title = ... line")};
    if (!body || templateText(*body).isEmpty())
        return Failure{body ? body->line : 0, QStringLiteral("the report has no [body] to print")};

    // A query run once can only be given the report's parameters; one run per row of another
    // query may also use that row's columns, which are known only when it runs.
    for (const ReportQuery& q : def.queries) {
        if (!q.parent.isEmpty())
            continue;
        for (const QString& name : q.placeholders) {
            if (!def.parameter(name))
                return Failure{
                    q.line, QStringLiteral("query \"%1\" uses :%2, but there is no [parameter %2]").arg(q.name, name)};
        }
    }

    def.body = templateText(*body);
    if (auto failure = checkTemplate(def.body, QStringLiteral("body")))
        return failure;
    if (header) {
        def.header = templateText(*header);
        if (auto failure = checkTemplate(def.header, QStringLiteral("header")))
            return failure;
    }
    if (footer) {
        def.footer = templateText(*footer);
        if (auto failure = checkTemplate(def.footer, QStringLiteral("footer")))
            return failure;
    }
    return std::nullopt;
}

} // namespace

ReportParseResult parseReportDefinition(const QString& text) {
    ReportParseResult result;
    QList<Section> sections;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        QString line = lines.at(i);
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        const int number = i + 1;
        const QString right = line.trimmed();
        // A section starts with '[' in the first column; an indented '[' is ordinary text.
        if (line.startsWith(QLatin1Char('[')) && right.endsWith(QLatin1Char(']'))) {
            Section section;
            if (auto failure = readSectionHeader(right.mid(1, right.size() - 2), number, section)) {
                result.errorLine = failure->line;
                result.error = failure->reason;
                return result;
            }
            sections.append(section);
            continue;
        }
        if (sections.isEmpty()) {
            if (right.isEmpty() || right.startsWith(QLatin1Char('#')) || right.startsWith(QLatin1Char(';')))
                continue;
            result.errorLine = number;
            result.error = QStringLiteral("text before the first section; a report file begins with [report]");
            return result;
        }
        sections.last().lines.append(line);
    }
    if (auto failure = build(sections, result.definition)) {
        result.errorLine = failure->line;
        result.error = failure->reason;
        result.definition = ReportDefinition();
        return result;
    }
    result.ok = true;
    return result;
}

} // namespace ordwell

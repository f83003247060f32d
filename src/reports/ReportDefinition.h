#pragma once

#include <QList>
#include <QMap>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QString>
#include <QStringList>

namespace ordwell {

// Values handed to a report by name ("ordnum" -> "ABC0000012").
using ReportParameterValues = QMap<QString, QString>;

// One [parameter NAME] section.
struct ReportParameter {
    QString name;
    QString label;        // how a person would call it; shown in messages
    QString defaultValue; // used when no value is given
    bool required = true; // a required parameter without a value stops the report
    int line = 0;
};

// One [query NAME] or [query NAME in PARENT] section: a single read-only SELECT whose
// ":name" placeholders are bound by name. A query "in" a parent runs once for every row of
// that parent and may also name the parent row's columns.
struct ReportQuery {
    QString name;
    QString parent; // empty for a query run once
    QString sql;
    QStringList placeholders; // the names used, without ':' and without repeats
    int line = 0;             // of the section header
};

// A template section and the file line its text starts on, so that errors can point there.
struct ReportTemplateText {
    QString text;
    int firstLine = 0;
    bool isEmpty() const { return text.trimmed().isEmpty(); }
};

// Everything a report file says, checked and ready to run.
struct ReportDefinition {
    QString title;
    QPageSize::PageSizeId paper = QPageSize::A4;
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    QMarginsF marginsMm{15, 15, 15, 15}; // left, top, right, bottom
    QString fontFamily;                  // empty: the system's default
    double fontPoints = 10;
    QList<ReportParameter> parameters;
    QList<ReportQuery> queries; // in file order; a parent always comes before its children
    ReportTemplateText header;
    ReportTemplateText footer;
    ReportTemplateText body;

    const ReportParameter* parameter(const QString& name) const;
    QPageLayout pageLayout() const;
};

// The names the engine itself gives every template; a parameter or query may not take them.
const QStringList& reservedReportNames();

} // namespace ordwell

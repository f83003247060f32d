#pragma once

#include <QString>
#include <QStringList>

namespace ordwell {

// What a report query's text holds, read the way SQLite reads it (strings, quoted names and
// comments skipped), so that placeholders inside quotes are not mistaken for parameters.
struct ReportSqlScan {
    QString firstKeyword;     // upper case: "SELECT", "WITH", "DELETE" ...
    QStringList placeholders; // ":name" without the colon, first use first, no repeats
    QString statement;        // the text with comments blanked and a final ';' taken off
    QString problem;          // why the text cannot be a report query; empty when it can
};

ReportSqlScan scanReportSql(const QString& sql);

} // namespace ordwell

#pragma once

#include "reports/ReportDefinition.h"

#include <QString>

namespace ordwell {

// What reading a report file gave: a definition, or the line and reason it failed.
struct ReportParseResult {
    bool ok = false;
    ReportDefinition definition;
    int errorLine = 0; // 0: the file as a whole
    QString error;
    QString describeError() const; // "line 12: ..." or the reason alone
};

// Reads the text of a report file. Pure: no files, no database, no widgets; safe on any input.
ReportParseResult parseReportDefinition(const QString& text);

} // namespace ordwell

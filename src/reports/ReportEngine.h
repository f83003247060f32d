#pragma once

#include "common/Status.h"
#include "reports/RenderedReport.h"
#include "reports/ReportDefinition.h"

#include <QString>
#include <memory>

namespace ordwell {

// What to show: which report file, over which vendor's database, with which values.
struct ReportRequest {
    QString reportFile;   // full path of the .rpt file
    QString databaseFile; // the vendor database the queries read
    QString server;       // a server's connection string: the vendor's data there instead
    QString vendorCode;   // {{vendorcode}}
    QString vendorName;   // {{vendorname}}
    ReportParameterValues parameters;
    // A value for a parameter the report does not declare is a mistake, unless the caller
    // hands every report the same standard values (the order form does).
    bool strictParameters = true;
};

// Turns a report file, a vendor database and parameter values into a report ready to paint.
// Every failure comes back as one line that names the file and the problem; nothing is ever
// written to the database.
namespace ReportEngine {

Result<ReportDefinition> load(const QString& reportFile);

Result<std::shared_ptr<RenderedReport>> run(const ReportRequest& request);

// run() and then the PDF file.
Status renderToPdf(const ReportRequest& request, const QString& pdfPath);

} // namespace ReportEngine
} // namespace ordwell

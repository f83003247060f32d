#pragma once

#include "app/AppContext.h"
#include "common/Status.h"
#include "reports/ReportDefinition.h"

#include <QString>

namespace ordwell {

class ReportViewer;

// The report windows: each lives inside the main window, one of each at a time; asking
// again fills the open one afresh. They are opened modeless, do not count themselves in
// OpenWindowCount and leave the menus as they are.

// frmrptoutitm "Outstanding Items" and frmrpordhist "Order History" for the vendor open now.
// A failure is told to the user (naming the report file and the problem); nothing else changes.
void ShowOutstandingItemsReport(AppContext& context);
void ShowOrderHistoryReport(AppContext& context);

// frmprintreport: the order form `reportFile` (the vendor's ordform) over the vendor open now,
// given the values "ordnum", "custadd" and "contdet" (a report may leave some unused).
// Shows nothing and tells nothing on failure: the Status carries a one-line message that
// names the file and the problem, so the caller can tell it and leave the order unprinted.
Status showOrderFormReport(AppContext& context, const QString& reportFile, const ReportParameterValues& parameters);

// The open report window of that objectName, or null.
ReportViewer* findReportViewer(const QString& formName);

} // namespace ordwell

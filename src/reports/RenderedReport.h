#pragma once

#include "common/Status.h"
#include "reports/ReportData.h"
#include "reports/ReportDefinition.h"
#include "reports/ReportTemplate.h"

#include <QPageLayout>
#include <QString>
#include <memory>

class QPagedPaintDevice;

namespace ordwell {

// A report with its data read and its page text filled: ready to be laid out on paper, as
// often and on as many devices (preview, printer, PDF file) as wanted.
class RenderedReport {
public:
    RenderedReport(ReportDefinition definition, QString bodyHtml, ReportData data);
    ~RenderedReport();

    const QString& title() const { return m_definition.title; }
    const QString& bodyHtml() const { return m_bodyHtml; }
    // The paper, orientation and margins the report asks for.
    QPageLayout pageLayout() const { return m_definition.pageLayout(); }

    // Lays the report out on the device's paper and paints every page, the page header and
    // footer included; the device is already open on its first page. Gives the page count.
    Result<int> paint(QPagedPaintDevice& device) const;

    // Writes the report as a PDF file in its own page set-up.
    Status writePdf(const QString& path) const;

private:
    ReportDefinition m_definition;
    QString m_bodyHtml;
    ReportData m_data;
    std::unique_ptr<ReportTemplate> m_header;
    std::unique_ptr<ReportTemplate> m_footer;
};

} // namespace ordwell

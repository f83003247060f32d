#include "RenderedReport.h"

#include "reports/PageBreaker.h"
#include "reports/StackedDocument.h"

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

namespace ordwell {

namespace {

constexpr double GapMm = 4; // between the page header or footer and the body

} // namespace

RenderedReport::RenderedReport(ReportDefinition definition, QString bodyHtml, ReportData data)
    : m_definition(std::move(definition)), m_bodyHtml(std::move(bodyHtml)), m_data(std::move(data)) {
    if (!m_definition.header.isEmpty())
        m_header = std::make_unique<ReportTemplate>(m_definition.header.text);
    if (!m_definition.footer.isEmpty())
        m_footer = std::make_unique<ReportTemplate>(m_definition.footer.text);
}

RenderedReport::~RenderedReport() = default;

Result<int> RenderedReport::paint(QPagedPaintDevice& device) const {
    QFont font;
    if (!m_definition.fontFamily.isEmpty())
        font.setFamily(m_definition.fontFamily);
    font.setPointSizeF(m_definition.fontPoints);

    // The painter's origin is the top left of the area inside the margins.
    const double width = device.width();
    const double height = device.height();
    const double gap = GapMm / 25.4 * device.logicalDpiY();

    auto pageText = [this](const ReportTemplate* tpl, const QString& page, const QString& pages) -> Result<QString> {
        ReportData numbers = ReportData::object();
        numbers.set(std::string("page"), page);
        numbers.set(std::string("pages"), pages);
        return tpl->render(m_data, &numbers);
    };
    // Header and footer are measured with wide numbers; the real ones then always fit.
    auto measure = [&](const ReportTemplate* tpl) -> Result<double> {
        if (!tpl)
            return 0.0;
        auto html = pageText(tpl, QStringLiteral("9999"), QStringLiteral("9999"));
        if (!html)
            return html.status();
        return StackedDocument::layOut(*html, device, font, width)->size().height() + gap;
    };
    const auto headerHeight = measure(m_header.get());
    if (!headerHeight)
        return Status::fail(QStringLiteral("in [header]: ") + headerHeight.message());
    const auto footerHeight = measure(m_footer.get());
    if (!footerHeight)
        return Status::fail(QStringLiteral("in [footer]: ") + footerHeight.message());
    const double bodyHeight = height - *headerHeight - *footerHeight;
    if (bodyHeight < height / 4)
        return Status::fail(QStringLiteral("the page header and footer leave too little room for the report"));

    const StackedDocument body(m_bodyHtml, device, font, width);
    const QList<PageSlice> slices = PageBreaker::paginate(body, bodyHeight);
    const int pages = int(slices.size());

    QPainter painter;
    if (!painter.begin(&device))
        return Status::fail(QStringLiteral("the page could not be drawn on"));
    const QString pagesText = QString::number(pages);
    // Headers and footers without the page number come out the same on every page.
    QString lastHeaderHtml;
    std::unique_ptr<QTextDocument> header;
    QString lastFooterHtml;
    std::unique_ptr<QTextDocument> footer;
    for (int page = 0; page < pages; ++page) {
        if (page > 0)
            device.newPage();
        const QString pageNumber = QString::number(page + 1);
        if (m_header) {
            auto html = pageText(m_header.get(), pageNumber, pagesText);
            if (!html)
                return html.status();
            if (!header || *html != lastHeaderHtml) {
                header = StackedDocument::layOut(*html, device, font, width);
                lastHeaderHtml = *html;
            }
            header->drawContents(&painter);
        }
        const PageSlice& slice = slices.at(page);
        double y = *headerHeight;
        for (const QRectF& band : slice.repeatedHeaders) {
            body.draw(painter, band, y);
            y += band.height();
        }
        body.draw(painter, QRectF(0, slice.top, width, slice.bottom - slice.top), y);
        if (m_footer) {
            auto html = pageText(m_footer.get(), pageNumber, pagesText);
            if (!html)
                return html.status();
            if (!footer || *html != lastFooterHtml) {
                footer = StackedDocument::layOut(*html, device, font, width);
                lastFooterHtml = *html;
            }
            painter.save();
            painter.translate(0, height - *footerHeight + gap);
            footer->drawContents(&painter);
            painter.restore();
        }
    }
    painter.end();
    return pages;
}

Status RenderedReport::writePdf(const QString& path) const {
    const QString shown = QDir::toNativeSeparators(path);
    // Written beside the target and renamed, so a failure never leaves half a file behind.
    const QString temp = path + QStringLiteral(".part");
    {
        QFile probe(temp);
        if (!probe.open(QIODevice::WriteOnly))
            return Status::fail(
                QStringLiteral("The PDF file \"%1\" could not be written: %2").arg(shown, probe.errorString()));
    }
    Result<int> painted = Status::fail(QString());
    {
        QPdfWriter writer(temp);
        writer.setTitle(m_definition.title);
        writer.setCreator(QStringLiteral("Ordwell"));
        writer.setPageLayout(pageLayout());
        painted = paint(writer);
    }
    if (!painted) {
        QFile::remove(temp);
        return Status::fail(painted.message());
    }
    if (!QFileInfo(temp).isFile())
        return Status::fail(QStringLiteral("The PDF file \"%1\" could not be written.").arg(shown));
    QFile::remove(path);
    if (!QFile::rename(temp, path)) {
        QFile::remove(temp);
        return Status::fail(QStringLiteral("The PDF file \"%1\" could not be written.").arg(shown));
    }
    return Status::ok();
}

} // namespace ordwell

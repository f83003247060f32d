#include "ReportViewer.h"

#include "common/FormHelpers.h"
#include "common/WaitCursor.h"
#include "reports/RenderedReport.h"

#include <QAbstractScrollArea>
#include <QBoxLayout>
#include <QDir>
#include <QLabel>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QScrollBar>

namespace ordwell {

namespace {

QPushButton* button(QWidget* parent, QBoxLayout* row, const char* name, const QString& caption,
                    const QString& description) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setAccessibleDescription(description);
    b->setAutoDefault(false);
    pressWithEnter(b);
    row->addWidget(b);
    return b;
}

} // namespace

ReportViewer::ReportViewer(AppContext& context, const QString& formName, const QString& caption, QWidget* parent)
    : QWidget(parent), m_context(context), m_printer(std::make_unique<QPrinter>(QPrinter::HighResolution)) {
    setObjectName(formName);
    setAttribute(Qt::WA_DeleteOnClose);

    auto* layout = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    layout->addLayout(row);
    m_print = button(this, row, "cmdprint", QStringLiteral("&Print..."), QStringLiteral("Print the report"));
    m_savePdf = button(this, row, "cmdsavepdf", QStringLiteral("Save as P&DF..."),
                       QStringLiteral("Write the report to a PDF file"));
    row->addSpacing(12);
    QPushButton* zoomIn = button(this, row, "cmdzoomin", QStringLiteral("&Zoom In"), QStringLiteral("Larger"));
    QPushButton* zoomOut = button(this, row, "cmdzoomout", QStringLiteral("Zoom O&ut"), QStringLiteral("Smaller"));
    QPushButton* fitWidth =
        button(this, row, "cmdfitwidth", QStringLiteral("Fit &Width"), QStringLiteral("Page as wide as the window"));
    row->addSpacing(12);
    m_first = button(this, row, "cmdfirst", QStringLiteral("Fir&st"), QStringLiteral("First page"));
    m_previous = button(this, row, "cmdprevious", QStringLiteral("Pr&evious"), QStringLiteral("Previous page"));
    m_next = button(this, row, "cmdnext", QStringLiteral("Ne&xt"), QStringLiteral("Next page"));
    m_last = button(this, row, "cmdlast", QStringLiteral("L&ast"), QStringLiteral("Last page"));
    row->addSpacing(12);
    m_pageText = new QLabel(this);
    m_pageText->setObjectName(QStringLiteral("lblpage"));
    // The label shows a value: a screen reader reads its text; this says what it is.
    m_pageText->setAccessibleDescription(QStringLiteral("The page shown and the number of pages"));
    row->addWidget(m_pageText);
    row->addStretch(1);

    m_preview = new QPrintPreviewWidget(m_printer.get(), this);
    m_preview->setObjectName(QStringLiteral("CRViewer91"));
    setCaption(caption);
    m_preview->setZoomMode(QPrintPreviewWidget::FitToWidth);
    layout->addWidget(m_preview, 1);

    connect(m_preview, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* printer) {
        if (m_report)
            m_report->paint(*printer);
    });
    connect(m_preview, &QPrintPreviewWidget::previewChanged, this, &ReportViewer::updatePageText);
    // Scrolling moves from page to page too.
    if (auto* view = m_preview->findChild<QAbstractScrollArea*>())
        connect(view->verticalScrollBar(), &QScrollBar::valueChanged, this, &ReportViewer::updatePageText);

    connect(m_print, &QPushButton::clicked, this, &ReportViewer::print);
    connect(m_savePdf, &QPushButton::clicked, this, &ReportViewer::saveAsPdf);
    connect(zoomIn, &QPushButton::clicked, m_preview, [this] { m_preview->zoomIn(1.25); });
    connect(zoomOut, &QPushButton::clicked, m_preview, [this] { m_preview->zoomOut(1.25); });
    connect(fitWidth, &QPushButton::clicked, m_preview, &QPrintPreviewWidget::fitToWidth);
    connect(m_first, &QPushButton::clicked, this, [this] { goToPage(1); });
    connect(m_previous, &QPushButton::clicked, this, [this] { goToPage(currentPage() - 1); });
    connect(m_next, &QPushButton::clicked, this, [this] { goToPage(currentPage() + 1); });
    connect(m_last, &QPushButton::clicked, this, [this] { goToPage(pageCount()); });
    updateButtons();
}

ReportViewer::~ReportViewer() = default;

void ReportViewer::setCaption(const QString& caption) {
    setWindowTitle(caption);
    m_preview->setAccessibleName(caption);
}

QSize ReportViewer::sizeHint() const {
    return {900, 700};
}

void ReportViewer::setReport(std::shared_ptr<RenderedReport> report, const QString& pdfName) {
    WaitCursor wait;
    m_report = std::move(report);
    m_pdfName = pdfName;
    if (m_report)
        m_printer->setPageLayout(m_report->pageLayout());
    // The preview has no pages until it has been asked to draw them.
    m_preview->updatePreview();
    goToPage(1);
    updateButtons();
}

int ReportViewer::pageCount() const {
    return m_preview->pageCount();
}

int ReportViewer::currentPage() const {
    return m_preview->currentPage();
}

void ReportViewer::goToPage(int page) {
    const int pages = pageCount();
    if (pages < 1)
        return;
    m_preview->setCurrentPage(qBound(1, page, pages));
    updatePageText();
}

void ReportViewer::updatePageText() {
    const int pages = pageCount();
    m_pageText->setText(pages > 0 ? QStringLiteral("Page %1 of %2").arg(currentPage()).arg(pages) : QString());
    const bool notFirst = pages > 0 && currentPage() > 1;
    const bool notLast = pages > 0 && currentPage() < pages;
    m_first->setEnabled(notFirst);
    m_previous->setEnabled(notFirst);
    m_next->setEnabled(notLast);
    m_last->setEnabled(notLast);
}

void ReportViewer::updateButtons() {
    m_print->setEnabled(m_report != nullptr);
    m_savePdf->setEnabled(m_report != nullptr);
    updatePageText();
}

void ReportViewer::saveAsPdf() {
    if (!m_report)
        return;
    FileRequest request;
    request.title = QStringLiteral("Save as PDF");
    const QString folder = m_context.DesktopPath.isEmpty() ? QDir::homePath() : m_context.DesktopPath;
    request.startFolder = QDir(folder).filePath(m_pdfName);
    request.filters = {QStringLiteral("PDF files (*.pdf)")};
    request.mustExist = false;
    const auto chosen = m_context.prompter().saveFile(request);
    if (!chosen)
        return;
    QString path = *chosen;
    if (!path.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive))
        path += QStringLiteral(".pdf");
    Status written;
    {
        WaitCursor wait;
        written = m_report->writePdf(path);
    }
    if (!written)
        m_context.prompter().message(written.message(), windowTitle(), MessageIcon::Critical);
}

void ReportViewer::print() {
    if (!m_report)
        return;
    // The printer dialog is the system's own choice of printer, not a message or a file.
    QPrintDialog dialog(m_printer.get(), this);
    dialog.setObjectName(QStringLiteral("dlgPrint"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    WaitCursor wait;
    m_preview->print();
}

} // namespace ordwell

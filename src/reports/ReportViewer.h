#pragma once

#include "app/AppContext.h"

#include <QWidget>
#include <memory>

class QLabel;
class QPrinter;
class QPrintPreviewWidget;
class QPushButton;

namespace ordwell {

class RenderedReport;

// The inside of a report window: the print preview (CRViewer91) with Print..., Save as PDF...,
// zoom and page buttons. Not a tool window: it neither counts itself nor touches the menus.
class ReportViewer : public QWidget {
    Q_OBJECT
public:
    ReportViewer(AppContext& context, const QString& formName, const QString& caption, QWidget* parent = nullptr);
    ~ReportViewer() override;

    // Shows a freshly filled report; `pdfName` is the file name Save as PDF... suggests.
    void setReport(std::shared_ptr<RenderedReport> report, const QString& pdfName);
    const std::shared_ptr<RenderedReport>& report() const { return m_report; }
    // The window's title, which a screen reader also hears as the preview's name.
    void setCaption(const QString& caption);

    QPrintPreviewWidget* preview() const { return m_preview; }
    int pageCount() const;
    int currentPage() const;
    void goToPage(int page);

    // Asks where through the prompter, then writes the PDF; failures are told, not thrown.
    void saveAsPdf();
    void print();

    QSize sizeHint() const override;

private:
    void updatePageText();
    void updateButtons();

    AppContext& m_context;
    std::shared_ptr<RenderedReport> m_report;
    QString m_pdfName;
    std::unique_ptr<QPrinter> m_printer;
    QPrintPreviewWidget* m_preview = nullptr;
    QLabel* m_pageText = nullptr;
    QPushButton* m_print = nullptr;
    QPushButton* m_savePdf = nullptr;
    QPushButton* m_first = nullptr;
    QPushButton* m_previous = nullptr;
    QPushButton* m_next = nullptr;
    QPushButton* m_last = nullptr;
};

} // namespace ordwell

#pragma once

#include <QList>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

class QFont;
class QPaintDevice;
class QPainter;
class QTextDocument;

namespace ordwell {

class PageSurvey;

// A report body laid out as one endless page (a text width and no page size), in parts stacked
// one under the other. Laying out is most of a long report's time and Qt does it on one core:
// here the HTML is cut between its top-level tables and the parts are laid out side by side on
// every core. Each part is a whole document with the body's own style sheet.
class StackedDocument {
public:
    struct Part {
        QTextDocument* document;
        double top; // where the part starts in the whole body
        const PageSurvey* survey;
    };

    // Lays out a document measured as on `device` (only its resolution is read, so the parts
    // may be laid out on other threads).
    StackedDocument(const QString& html, const QPaintDevice& device, const QFont& font, double width,
                    int wantedParts = 0);
    ~StackedDocument();

    const QList<Part>& parts() const { return m_parts; }
    double height() const { return m_height; }
    double width() const { return m_width; }

    // Draws the band [top, bottom) of the whole body with its top at the painter's y.
    void draw(QPainter& painter, const QRectF& band, double y) const;

    // One HTML document as one laid-out QTextDocument, measured as on `device`.
    static std::unique_ptr<QTextDocument> layOut(const QString& html, const QPaintDevice& device, const QFont& font,
                                                 double width);

    // The HTML cut into at most `wanted` documents of about equal length, only straight after a
    // table that nothing else encloses; each piece carries everything before <body>. HTML with
    // no <body>, or with no such place to cut, comes back whole.
    static QStringList split(const QString& html, int wanted);

private:
    std::unique_ptr<QPaintDevice> m_metrics;
    std::vector<std::unique_ptr<QTextDocument>> m_documents;
    std::vector<std::unique_ptr<PageSurvey>> m_surveys;
    QList<Part> m_parts;
    double m_height = 0;
    double m_width = 0;
};

} // namespace ordwell

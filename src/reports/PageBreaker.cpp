#include "PageBreaker.h"

#include "reports/StackedDocument.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintDevice>
#include <QPainter>
#include <QPalette>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextTable>
#include <algorithm>
#include <limits>
#include <vector>

namespace ordwell {

namespace {

// Layout positions are fixed-point inside Qt; this absorbs the rounding on the way to double.
constexpr double Slack = 0.01;
constexpr double Infinity = std::numeric_limits<double>::infinity();

// Something drawn on the page that no cut may pass through: a line of text, or a whole table
// cell (so that a row is never split, even between two paragraphs of one cell).
struct Span {
    double top;
    double bottom;
    bool heading;
};

// A table's header rows, repeated at the top of every page the table runs on to.
struct HeaderRows {
    double top;        // where the table starts
    double contentTop; // where its first text starts
    double bottom;     // where the first body row starts
    double bodyBottom; // where the table's last row ends
};

// A block drawn on its own: its extent and where its layout is drawn from.
struct DrawnBlock {
    double top;
    double bottom;
    QTextBlock block;
    QPointF at;
};

// Kept clear between what is drawn above a table and its header band, so that Qt, drawing the
// band, does not take the line above for one that reaches into it.
constexpr double DrawGap = 0.5;

struct Cut {
    double y;
    bool weak; // straight after a heading: used only when the page has no other
};

// Walks the laid-out document once and notes what must stay whole and where tables begin,
// end and repeat their headers.
class Survey {
public:
    // Walks one laid-out document, in its own coordinates.
    void survey(QTextDocument& document) {
        m_document = &document;
        m_layout = document.documentLayout();
        m_deviceScale = m_layout->paintDevice() ? m_layout->paintDevice()->logicalDpiY() / 96.0 : 1.0;
        frame(document.rootFrame());
    }

    // Adds what another survey found, in a document whose top lies at `top` in the whole body.
    void append(const Survey& other, double top) {
        for (Span span : other.spans) {
            span.top += top;
            span.bottom += top;
            spans.push_back(span);
        }
        for (double edge : other.tableEdges)
            tableEdges.push_back(edge + top);
        for (HeaderRows h : other.headers) {
            h.top += top;
            h.contentTop += top;
            h.bottom += top;
            h.bodyBottom += top;
            headers.push_back(h);
        }
        for (const auto& [from, to] : other.keepTogether)
            keepTogether.emplace_back(from + top, to + top);
    }

    std::vector<Span> spans;
    std::vector<double> tableEdges;  // preferred cuts: just above and just below each table
    std::vector<HeaderRows> headers; // in document order
    // Cuts refused so that a table's header rows stay with its first body row.
    std::vector<std::pair<double, double>> keepTogether;

    // For drawing: the blocks outside table header rows, each where its layout draws it, and
    // the header rows' bands, which Qt draws with their shading.
    std::vector<DrawnBlock> drawn;
    std::vector<QRectF> headerBands;
    // Nothing but text, tables without borders and shading in header rows only: what the blocks
    // and bands above draw completely.
    bool plain = true;

private:
    void note(const QTextBlock& block, const QRectF& rect) {
        const QTextLayout* layout = block.layout();
        const QTextBlockFormat format = block.blockFormat();
        if (block.textList() || format.background().style() != Qt::NoBrush ||
            format.hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth))
            plain = false;
        // An empty block shows nothing; Qt lays one straight before a table over its border.
        if (block.length() <= 1)
            return;
        drawn.push_back({rect.top(), rect.bottom(), block, rect.topLeft() - layout->position()});
        // Where its text ends: the block's rectangle takes in its bottom margin too.
        double textBottom = rect.top();
        if (layout->lineCount() > 0) {
            const QTextLine last = layout->lineAt(layout->lineCount() - 1);
            textBottom += last.y() + last.height();
        }
        drawnBottom = std::max(drawnBottom, textBottom);
    }

    QRectF placed(const QTextBlock& block) const { return m_layout->blockBoundingRect(block); }

    void frame(QTextFrame* frame) {
        for (auto it = frame->begin(); !it.atEnd(); ++it) {
            if (QTextFrame* child = it.currentFrame()) {
                if (auto* table = qobject_cast<QTextTable*>(child)) {
                    this->table(table);
                } else {
                    plain = false;
                    this->frame(child);
                }
            } else {
                lines(it.currentBlock());
            }
        }
    }

    // A paragraph outside tables may be cut between its lines.
    void lines(const QTextBlock& block) {
        if (!block.isVisible())
            return;
        const QRectF rect = placed(block);
        note(block, rect);
        const QTextLayout* layout = block.layout();
        const bool heading = block.blockFormat().headingLevel() > 0;
        if (!layout || layout->lineCount() == 0) {
            spans.push_back({rect.top(), rect.bottom(), heading});
            return;
        }
        for (int i = 0; i < layout->lineCount(); ++i) {
            const QTextLine line = layout->lineAt(i);
            spans.push_back({rect.top() + line.y(), rect.top() + line.y() + line.height(), heading});
        }
    }

    void table(QTextTable* table) {
        // The cells in the order they are stored, so that each cell's blocks, nested tables
        // included, are the ones up to where the next cell starts.
        struct Cell {
            int row;
            int firstPosition;
        };
        const QTextTableFormat format = table->format();
        const int headerRows = format.headerRowCount();
        if (format.border() > 0 || format.background().style() != Qt::NoBrush || !table->childFrames().isEmpty())
            plain = false;
        std::vector<Cell> cells;
        for (int r = 0; r < table->rows(); ++r) {
            for (int c = 0; c < table->columns(); ++c) {
                const QTextTableCell cell = table->cellAt(r, c);
                if (cell.row() != r || cell.column() != c) // the rest of a spanning cell
                    continue;
                cells.push_back({r, cell.firstPosition()});
                const QTextTableCellFormat look = cell.format().toTableCellFormat();
                if ((r >= headerRows && look.background().style() != Qt::NoBrush) || look.topBorder() > 0 ||
                    look.bottomBorder() > 0 || look.leftBorder() > 0 || look.rightBorder() > 0)
                    plain = false;
            }
        }
        if (cells.empty())
            return;
        std::sort(cells.begin(), cells.end(),
                  [](const Cell& a, const Cell& b) { return a.firstPosition < b.firstPosition; });
        const double aboveTable = drawnBottom;
        double top = Infinity;
        double bottom = -Infinity;
        double headerBottom = -Infinity;
        double bodyTop = Infinity;
        QTextBlock block = m_document->findBlock(cells.front().firstPosition);
        for (size_t i = 0; i < cells.size(); ++i) {
            const int next = i + 1 < cells.size() ? cells[i + 1].firstPosition : table->lastPosition() + 1;
            double cellTop = Infinity;
            double cellBottom = -Infinity;
            for (; block.isValid() && block.position() < next; block = block.next()) {
                if (!block.isVisible())
                    continue;
                const QRectF rect = placed(block);
                cellTop = std::min(cellTop, rect.top());
                cellBottom = std::max(cellBottom, rect.bottom());
                if (cells[i].row >= headerRows)
                    note(block, rect);
            }
            if (cellTop > cellBottom)
                continue;
            spans.push_back({cellTop, cellBottom, false});
            top = std::min(top, cellTop);
            bottom = std::max(bottom, cellBottom);
            if (cells[i].row < headerRows)
                headerBottom = std::max(headerBottom, cellBottom);
            else
                bodyTop = std::min(bodyTop, cellTop);
        }
        if (top > bottom)
            return;
        // The text sits inside the cell padding, the cell borders and the spacing between cells;
        // the table's edges are that far out. Qt does not say where a table is (its frame
        // rectangle is offset by the first cell), so this is worked out from the table's format.
        const double inset =
            (format.cellPadding() + format.cellSpacing() + 2 * format.border() + format.padding()) * m_deviceScale;
        tableEdges.push_back(top - inset);
        tableEdges.push_back(bottom + inset);
        if (headerRows > 0 && headerBottom <= bodyTop + Slack && bodyTop < Infinity) {
            headers.push_back({top - inset, top, (headerBottom + bodyTop) / 2, bottom});
            keepTogether.emplace_back(top, bodyTop);
            // Not reaching up to what is drawn above the table, which would be drawn twice.
            const double bandTop = std::max(top - inset, aboveTable + DrawGap);
            const double bandBottom = (headerBottom + bodyTop) / 2;
            if (bandTop < top)
                headerBands.emplace_back(0, bandTop, Infinity, bandBottom - bandTop);
            else
                plain = false;
        } else if (headerRows > 0) {
            plain = false;
        }
    }

    double drawnBottom = -Infinity;

    QTextDocument* m_document = nullptr;
    QAbstractTextDocumentLayout* m_layout = nullptr;
    double m_deviceScale = 1;
};

// The places between spans where a page may end, top to bottom. Header bands are trimmed so
// that they never reach up into what stands above their table.
std::vector<Cut> cutsOf(Survey& survey, double documentHeight) {
    std::vector<Span>& spans = survey.spans;
    std::sort(spans.begin(), spans.end(), [](const Span& a, const Span& b) { return a.top < b.top; });
    std::sort(survey.tableEdges.begin(), survey.tableEdges.end());
    std::sort(survey.keepTogether.begin(), survey.keepTogether.end());

    std::vector<Cut> cuts;
    if (spans.empty())
        return cuts;
    double end = spans.front().bottom;
    bool endsWithHeading = spans.front().heading;
    auto keep = survey.keepTogether.cbegin();
    auto header = survey.headers.begin();
    for (size_t i = 1; i < spans.size(); ++i) {
        const Span& next = spans[i];
        if (next.top >= end - Slack) {
            // A gap (perhaps of no height) with nothing drawn across it: cut at a table's edge
            // when one lies in it, so its borders and shading stay whole, else halfway.
            const double lo = std::min(end, next.top);
            const double hi = next.top;
            while (header != survey.headers.end() && header->contentTop <= hi + Slack) {
                if (lo <= header->contentTop + Slack)
                    header->top = std::max(header->top, lo);
                ++header;
            }
            double y = (lo + hi) / 2;
            auto edge = std::upper_bound(survey.tableEdges.cbegin(), survey.tableEdges.cend(), hi);
            if (edge != survey.tableEdges.cbegin() && *(edge - 1) >= lo)
                y = *(edge - 1);
            while (keep != survey.keepTogether.cend() && keep->second + Slack < y)
                ++keep;
            const bool refused = keep != survey.keepTogether.cend() && keep->first < y;
            if (!refused && y > Slack && y < documentHeight - Slack)
                cuts.push_back({y, endsWithHeading});
        }
        if (next.bottom >= end) {
            end = next.bottom;
            endsWithHeading = next.heading;
        }
    }
    return cuts;
}

// The header rows to draw above a page that starts at `y`.
QList<QRectF> headersAt(const std::vector<HeaderRows>& headers, double y, double width, double bodyHeight) {
    QList<QRectF> bands;
    double height = 0;
    for (const HeaderRows& h : headers) {
        if (h.top >= y)
            break;
        if (h.bottom <= y + Slack && y < h.bodyBottom) {
            bands << QRectF(0, h.top, width, h.bottom - h.top);
            height += h.bottom - h.top;
        }
    }
    // Headers that would crowd out the rows they name are left out.
    if (height > bodyHeight / 2)
        bands.clear();
    return bands;
}

} // namespace

struct PageSurvey::Data {
    Survey survey;
    double tallest = 0; // the tallest drawn block
};

PageSurvey::PageSurvey(QTextDocument& document) : d(std::make_unique<Data>()) {
    Survey& survey = d->survey;
    survey.survey(document);
    std::stable_sort(survey.drawn.begin(), survey.drawn.end(),
                     [](const DrawnBlock& a, const DrawnBlock& b) { return a.top < b.top; });
    for (const DrawnBlock& b : survey.drawn)
        d->tallest = std::max(d->tallest, b.bottom - b.top);
}

PageSurvey::~PageSurvey() = default;

void PageSurvey::draw(QPainter& painter, QTextDocument& document, const QRectF& band) const {
    const Survey& survey = d->survey;
    if (!survey.plain) {
        document.drawContents(&painter, band);
        return;
    }
    // Qt's own drawing of a table works out every cell's borders, page by page, even when it
    // has none: for a long report that is most of the time its pages take. Text and header
    // rows come out the same drawn as below.
    painter.save();
    painter.setClipRect(band);
    for (const QRectF& header : survey.headerBands) {
        const QRectF shown = header.intersected(band);
        if (shown.height() > 0)
            document.drawContents(&painter, shown);
    }
    painter.setPen(QPalette().color(QPalette::Text));
    auto first = std::lower_bound(survey.drawn.cbegin(), survey.drawn.cend(), band.top() - d->tallest,
                                  [](const DrawnBlock& b, double y) { return b.top < y; });
    for (auto it = first; it != survey.drawn.cend() && it->top < band.bottom(); ++it) {
        if (it->bottom > band.top())
            it->block.layout()->draw(&painter, it->at, {}, band);
    }
    painter.restore();
}

double PageSlice::headerHeight() const {
    double height = 0;
    for (const QRectF& band : repeatedHeaders)
        height += band.height();
    return height;
}

namespace {

QList<PageSlice> paginateSurveyed(Survey& survey, double documentHeight, double width, double bodyHeight) {
    const std::vector<Cut> cuts = cutsOf(survey, documentHeight);

    QList<PageSlice> pages;
    if (!(bodyHeight > 0)) // no room to cut into: one page, as tall as it is
        return {PageSlice{0, documentHeight, {}}};
    PageSlice page;
    auto from = cuts.cbegin();
    for (;;) {
        const double limit = page.top + bodyHeight - page.headerHeight();
        if (documentHeight <= limit + Slack) {
            page.bottom = std::max(documentHeight, page.top);
            pages << page;
            return pages;
        }
        while (from != cuts.cend() && from->y <= page.top + Slack)
            ++from;
        const auto to = std::upper_bound(from, cuts.cend(), limit, [](double y, const Cut& c) { return y < c.y; });
        auto chosen = std::find_if(std::make_reverse_iterator(to), std::make_reverse_iterator(from),
                                   [](const Cut& c) { return !c.weak; });
        double y = limit; // nothing fits whole: cut where the page ends
        if (chosen != std::make_reverse_iterator(from))
            y = chosen->y;
        else if (to != from)
            y = (to - 1)->y;
        page.bottom = y;
        pages << page;
        page = PageSlice{y, 0, headersAt(survey.headers, y, width, bodyHeight)};
    }
}

} // namespace

QList<PageSlice> PageBreaker::paginate(const StackedDocument& body, double bodyHeight) {
    Survey survey;
    double width = body.width();
    for (const StackedDocument::Part& part : body.parts()) {
        survey.append(part.survey->d->survey, part.top);
        width = std::max(width, part.document->documentLayout()->documentSize().width());
    }
    return paginateSurveyed(survey, body.height(), width, bodyHeight);
}

} // namespace ordwell

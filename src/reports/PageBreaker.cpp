#include "PageBreaker.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintDevice>
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

struct Cut {
    double y;
    bool weak; // straight after a heading: used only when the page has no other
};

// Walks the laid-out document once and notes what must stay whole and where tables begin,
// end and repeat their headers.
class Survey {
public:
    explicit Survey(QTextDocument& document)
        : m_document(document), m_layout(*document.documentLayout()),
          m_deviceScale(m_layout.paintDevice() ? m_layout.paintDevice()->logicalDpiY() / 96.0 : 1.0) {}

    void frame(QTextFrame* frame) {
        for (auto it = frame->begin(); !it.atEnd(); ++it) {
            if (QTextFrame* child = it.currentFrame()) {
                if (auto* table = qobject_cast<QTextTable*>(child))
                    this->table(table);
                else
                    this->frame(child);
            } else {
                lines(it.currentBlock());
            }
        }
    }

    std::vector<Span> spans;
    std::vector<double> tableEdges;  // preferred cuts: just above and just below each table
    std::vector<HeaderRows> headers; // in document order
    // Cuts refused so that a table's header rows stay with its first body row.
    std::vector<std::pair<double, double>> keepTogether;

private:
    // A paragraph outside tables may be cut between its lines.
    void lines(const QTextBlock& block) {
        if (!block.isVisible())
            return;
        const QRectF rect = m_layout.blockBoundingRect(block);
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
        std::vector<Cell> cells;
        for (int r = 0; r < table->rows(); ++r) {
            for (int c = 0; c < table->columns(); ++c) {
                const QTextTableCell cell = table->cellAt(r, c);
                if (cell.row() == r && cell.column() == c) // not the rest of a spanning cell
                    cells.push_back({r, cell.firstPosition()});
            }
        }
        if (cells.empty())
            return;
        std::sort(cells.begin(), cells.end(),
                  [](const Cell& a, const Cell& b) { return a.firstPosition < b.firstPosition; });
        const int headerRows = table->format().headerRowCount();
        double top = Infinity;
        double bottom = -Infinity;
        double headerBottom = -Infinity;
        double bodyTop = Infinity;
        QTextBlock block = m_document.findBlock(cells.front().firstPosition);
        for (size_t i = 0; i < cells.size(); ++i) {
            const int next = i + 1 < cells.size() ? cells[i + 1].firstPosition : table->lastPosition() + 1;
            double cellTop = Infinity;
            double cellBottom = -Infinity;
            for (; block.isValid() && block.position() < next; block = block.next()) {
                if (!block.isVisible())
                    continue;
                const QRectF rect = m_layout.blockBoundingRect(block);
                cellTop = std::min(cellTop, rect.top());
                cellBottom = std::max(cellBottom, rect.bottom());
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
        const QTextTableFormat format = table->format();
        const double inset =
            (format.cellPadding() + format.cellSpacing() + 2 * format.border() + format.padding()) * m_deviceScale;
        tableEdges.push_back(top - inset);
        tableEdges.push_back(bottom + inset);
        if (headerRows > 0 && headerBottom <= bodyTop + Slack && bodyTop < Infinity) {
            headers.push_back({top - inset, top, (headerBottom + bodyTop) / 2, bottom});
            keepTogether.emplace_back(top, bodyTop);
        }
    }

    QTextDocument& m_document;
    QAbstractTextDocumentLayout& m_layout;
    double m_deviceScale;
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

double PageSlice::headerHeight() const {
    double height = 0;
    for (const QRectF& band : repeatedHeaders)
        height += band.height();
    return height;
}

QList<PageSlice> PageBreaker::paginate(QTextDocument& document, double bodyHeight) {
    const QSizeF size = document.documentLayout()->documentSize();
    const double documentHeight = size.height();
    Survey survey(document);
    survey.frame(document.rootFrame());
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
        page = PageSlice{y, 0, headersAt(survey.headers, y, size.width(), bodyHeight)};
    }
}

} // namespace ordwell

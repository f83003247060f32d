#pragma once

#include <QList>
#include <QRectF>
#include <memory>

class QPainter;
class QTextDocument;

namespace ordwell {

class StackedDocument;

// What page breaks must respect in one laid-out document: the lines and table rows that must
// stay whole, and where tables start, end and repeat their header rows. Made for each part of a
// body on the thread that laid the part out.
class PageSurvey {
public:
    explicit PageSurvey(QTextDocument& document);
    ~PageSurvey();

    // Draws the band of the surveyed document that the clip rectangle `band` covers, in the
    // document's coordinates.
    void draw(QPainter& painter, QTextDocument& document, const QRectF& band) const;

    struct Data;

private:
    friend class PageBreaker;
    std::unique_ptr<Data> d;
};

// One page of a report body: the band of the laid-out document it shows, and the header rows of
// any table that runs on from the page before, to be drawn again above that band.
struct PageSlice {
    double top = 0;                // document y where the page's body starts
    double bottom = 0;             // and where it stops: the next page's top
    QList<QRectF> repeatedHeaders; // in document coordinates, drawn one under the other

    double headerHeight() const;
};

// Cuts a body laid out as one endless page (a text width and no page size) into pages.
// Qt's own paged layout does the same job several times slower on long tables; here the text
// is laid out once and the cuts fall between table rows and between lines, never through one,
// and not straight after a heading or a table's header rows when another cut will do.
class PageBreaker {
public:
    // Always gives at least one page. Only a single row or line taller than `bodyHeight` is
    // cut through, where the page ends.
    static QList<PageSlice> paginate(const StackedDocument& body, double bodyHeight);
};

} // namespace ordwell

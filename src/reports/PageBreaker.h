#pragma once

#include <QList>
#include <QRectF>

class QTextDocument;

namespace ordwell {

// One page of a report body: the band of the laid-out document it shows, and the header rows of
// any table that runs on from the page before, to be drawn again above that band.
struct PageSlice {
    double top = 0;                // document y where the page's body starts
    double bottom = 0;             // and where it stops: the next page's top
    QList<QRectF> repeatedHeaders; // in document coordinates, drawn one under the other

    double headerHeight() const;
};

// Cuts a document laid out as one endless page (a text width and no page size) into pages.
// Qt's own paged layout does the same job several times slower on long tables; here the text
// is laid out once and the cuts fall between table rows and between lines, never through one,
// and not straight after a heading or a table's header rows when another cut will do.
class PageBreaker {
public:
    // Always gives at least one page. Only a single row or line taller than `bodyHeight` is
    // cut through, where the page ends.
    static QList<PageSlice> paginate(QTextDocument& document, double bodyHeight);
};

} // namespace ordwell

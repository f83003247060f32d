// Page breaks of a laid-out report body: pages follow on without gaps and fit, no table row or
// line of text is cut through, headings and table header rows are not left at the foot of a
// page, and a table running on to the next page has its header rows repeated there.
#include "reports/PageBreaker.h"
#include "reports/StackedDocument.h"
#include "support/TestSupport.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextTable>

using namespace ordwell;

namespace {

constexpr double Eps = 0.5;

// Something that must end up whole on one page.
struct Piece {
    double top;
    double bottom;
    bool heading;
    QString what;
};

struct TableRows {
    QList<Piece> rows; // the header row first
    double bottomOfWhatIsAbove = 0;
};

QString words(int count) {
    QString text;
    for (int i = 0; i < count; ++i)
        text += QStringLiteral("word%1 ").arg(i);
    return text;
}

// Month tables of varied length, each under a heading, with taller rows, a cell of two
// paragraphs and now and then a paragraph that wraps.
QString monthTables() {
    QString html = QStringLiteral("<h1>Orders</h1>");
    for (int t = 0; t < 24; ++t) {
        html += QStringLiteral("<h3>Month %1</h3>").arg(t);
        html += QStringLiteral("<table width=\"100%\" cellspacing=\"0\" cellpadding=\"2\"><thead><tr>"
                               "<th>Order</th><th>Contact</th><th align=\"right\">Total</th></tr></thead>");
        const int rows = 3 + (t * 7) % 41;
        for (int r = 0; r < rows; ++r) {
            QString contact = QStringLiteral("Buyer %1").arg(r);
            if (r % 9 == 4)
                contact += QStringLiteral("<br>second line<br>third line");
            const QString total = r % 13 == 6 ? QStringLiteral("<p>1.00</p><p>2.00</p>") : QStringLiteral("3.00");
            html += QStringLiteral("<tr><td>T%1R%2</td><td>%3</td><td align=\"right\">%4</td></tr>")
                        .arg(t)
                        .arg(r)
                        .arg(contact, total);
        }
        html += QStringLiteral("</table>");
        if (t % 5 == 2)
            html += QStringLiteral("<p>%1</p>").arg(words(60));
    }
    return html;
}

// A body laid out as the reports lay it out, in one part or cut into several.
class Body {
public:
    explicit Body(const QString& html, int parts = 1) : m_device(10, 10, QImage::Format_RGB32) {
        // 300 dpi, like paper: table padding and spacing are scaled to the device.
        m_device.setDotsPerMeterX(11811);
        m_device.setDotsPerMeterY(11811);
        m_stack = std::make_unique<StackedDocument>(QStringLiteral("<html><body>%1</body></html>").arg(html), m_device,
                                                    QFont(), 2000, parts);
    }
    const StackedDocument& doc() const { return *m_stack; }
    double height() const { return m_stack->height(); }

    // Every line outside tables, and every whole table row, top to bottom.
    QList<Piece> pieces(QList<TableRows>* tables = nullptr) const {
        QList<Piece> found;
        double above = 0;
        for (const StackedDocument::Part& part : m_stack->parts()) {
            QTextDocument& doc = *part.document;
            auto blockPiece = [&](const QTextBlock& b, const QString& what) {
                const QRectF r = doc.documentLayout()->blockBoundingRect(b).translated(0, part.top);
                return Piece{r.top(), r.bottom(), b.blockFormat().headingLevel() > 0, what};
            };
            for (auto it = doc.rootFrame()->begin(); !it.atEnd(); ++it) {
                if (auto* table = qobject_cast<QTextTable*>(it.currentFrame())) {
                    TableRows rows;
                    rows.bottomOfWhatIsAbove = above;
                    for (int r = 0; r < table->rows(); ++r) {
                        Piece row{1e18, -1e18, false, QStringLiteral("row %1 of a table").arg(r)};
                        for (int c = 0; c < table->columns(); ++c) {
                            const QTextTableCell cell = table->cellAt(r, c);
                            for (QTextBlock b = doc.findBlock(cell.firstPosition());
                                 b.isValid() && b.position() <= cell.lastPosition(); b = b.next()) {
                                const Piece p = blockPiece(b, {});
                                row.top = std::min(row.top, p.top);
                                row.bottom = std::max(row.bottom, p.bottom);
                            }
                        }
                        row.what +=
                            QStringLiteral(" starting ") + table->cellAt(r, 0).firstCursorPosition().block().text();
                        rows.rows << row;
                        found << row;
                        above = std::max(above, row.bottom);
                    }
                    if (tables)
                        *tables << rows;
                } else if (it.currentBlock().isValid() && !it.currentBlock().text().isEmpty()) {
                    const QTextBlock b = it.currentBlock();
                    const Piece block = blockPiece(b, b.text().left(20));
                    for (int i = 0; i < b.layout()->lineCount(); ++i) {
                        const QTextLine line = b.layout()->lineAt(i);
                        found << Piece{block.top + line.y(), block.top + line.y() + line.height(), block.heading,
                                       QStringLiteral("line %1 of \"%2\"").arg(i).arg(block.what)};
                    }
                    above = std::max(above, block.bottom);
                }
            }
        }
        return found;
    }

private:
    QImage m_device;
    std::unique_ptr<StackedDocument> m_stack;
};

// The pages cover the body from top to bottom, in order, and each fits.
void checkPagesFollowOnAndFit(const QList<PageSlice>& pages, double documentHeight, double bodyHeight) {
    QVERIFY(!pages.isEmpty());
    QCOMPARE(pages.first().top, 0.0);
    QVERIFY(qAbs(pages.last().bottom - documentHeight) < Eps);
    for (int i = 0; i < pages.size(); ++i) {
        const PageSlice& p = pages.at(i);
        if (i > 0)
            QCOMPARE(p.top, pages.at(i - 1).bottom);
        QVERIFY2(p.bottom > p.top || pages.size() == 1, qPrintable(QStringLiteral("page %1 is empty").arg(i + 1)));
        QVERIFY2(p.bottom - p.top + p.headerHeight() <= bodyHeight + Eps,
                 qPrintable(QStringLiteral("page %1 is too tall").arg(i + 1)));
    }
}

} // namespace

class TestPageBreaker : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // Laid out whole, and cut into parts laid out side by side: the pages follow the same rules.
    void longReportBreaksBetweenRows_data() {
        QTest::addColumn<double>("bodyHeight");
        QTest::addColumn<int>("parts");
        for (int parts : {1, 7}) {
            QTest::addRow("short pages, %d part(s)", parts) << 700.0 << parts;
            QTest::addRow("A4-like pages, %d part(s)", parts) << 2900.0 << parts;
            QTest::addRow("tall pages, %d part(s)", parts) << 6100.0 << parts;
        }
    }
    void longReportBreaksBetweenRows() {
        QFETCH(double, bodyHeight);
        QFETCH(int, parts);
        Body body(monthTables(), parts);
        QCOMPARE(body.doc().parts().size() > 1, parts > 1);
        QList<TableRows> tables;
        const QList<Piece> pieces = body.pieces(&tables);
        const QList<PageSlice> pages = PageBreaker::paginate(body.doc(), bodyHeight);
        checkPagesFollowOnAndFit(pages, body.height(), bodyHeight);

        for (int i = 1; i < pages.size(); ++i) {
            const double cut = pages.at(i).top;
            const QString where = QStringLiteral("break before page %1 at %2: ").arg(i + 1).arg(cut);
            const Piece* lastAbove = nullptr;
            for (const Piece& p : pieces) {
                QVERIFY2(!(p.top + Eps < cut && cut < p.bottom - Eps), qPrintable(where + p.what + " is cut"));
                if (p.bottom <= cut + Eps && (!lastAbove || p.bottom > lastAbove->bottom))
                    lastAbove = &p;
            }
            QVERIFY(lastAbove);
            QVERIFY2(!lastAbove->heading, qPrintable(where + "a heading is left at the foot of the page"));

            // Inside a table: its header row again at the top, and nothing from above the table.
            const TableRows* running = nullptr;
            for (const TableRows& t : tables) {
                QVERIFY2(!(t.rows.first().top - Eps < cut && cut < t.rows.at(1).top - Eps),
                         qPrintable(where + "a table's header row is left without its first row"));
                if (t.rows.at(1).top - Eps < cut && cut < t.rows.last().bottom - Eps)
                    running = &t;
            }
            const QList<QRectF>& headers = pages.at(i).repeatedHeaders;
            if (!running) {
                QVERIFY2(headers.isEmpty(), qPrintable(where + "headers repeated outside a table"));
                continue;
            }
            QVERIFY2(headers.size() == 1, qPrintable(where + "the table's header row is not repeated"));
            const QRectF& band = headers.first();
            const Piece& header = running->rows.first();
            QVERIFY2(band.top() <= header.top + Eps && band.bottom() >= header.bottom - Eps,
                     qPrintable(where + "the repeated band misses the header row"));
            QVERIFY2(band.bottom() <= running->rows.at(1).top + Eps,
                     qPrintable(where + "the repeated band reaches into the first row"));
            QVERIFY2(band.top() >= running->bottomOfWhatIsAbove - Eps,
                     qPrintable(where + "the repeated band reaches above the table"));
        }
    }

    // A paragraph longer than a page goes on over the next one, broken between its lines.
    void longParagraphBreaksBetweenLines() {
        Body body(QStringLiteral("<h2>Notes</h2><p>%1</p><p>after</p>").arg(words(3000)));
        const double bodyHeight = 1500;
        const QList<PageSlice> pages = PageBreaker::paginate(body.doc(), bodyHeight);
        checkPagesFollowOnAndFit(pages, body.height(), bodyHeight);
        QVERIFY(pages.size() >= 3);
        const QList<Piece> lines = body.pieces();
        for (int i = 1; i < pages.size(); ++i) {
            QVERIFY(pages.at(i).repeatedHeaders.isEmpty());
            for (const Piece& line : lines)
                QVERIFY2(!(line.top + Eps < pages.at(i).top && pages.at(i).top < line.bottom - Eps),
                         qPrintable(line.what));
        }
        // The pages are filled: no more than a line is left over at the foot of any.
        for (int i = 0; i + 1 < pages.size(); ++i)
            QVERIFY(pages.at(i).bottom - pages.at(i).top > bodyHeight - 2 * (lines.at(1).bottom - lines.at(1).top));
    }

    // Only what cannot fit on any page is cut through, and everything after it still is not.
    void rowTallerThanAPage() {
        QString tall;
        for (int i = 0; i < 80; ++i)
            tall += QStringLiteral("line %1<br>").arg(i);
        Body body(QStringLiteral("<table><tr><td>short</td></tr><tr><td>%1</td></tr><tr><td>after 1</td></tr>"
                                 "<tr><td>after 2</td></tr></table>")
                      .arg(tall));
        const double bodyHeight = 1200;
        const QList<PageSlice> pages = PageBreaker::paginate(body.doc(), bodyHeight);
        checkPagesFollowOnAndFit(pages, body.height(), bodyHeight);
        const QList<Piece> rows = body.pieces();
        QCOMPARE(rows.size(), 4);
        QVERIFY(rows.at(1).bottom - rows.at(1).top > 2 * bodyHeight);
        for (int i = 1; i < pages.size(); ++i) {
            const double cut = pages.at(i).top;
            for (int r : {0, 2, 3})
                QVERIFY2(!(rows.at(r).top + Eps < cut && cut < rows.at(r).bottom - Eps), qPrintable(rows.at(r).what));
        }
        // The tall row starts a page of its own rather than sharing one with the first row.
        QVERIFY(pages.at(1).top >= rows.at(0).bottom - Eps && pages.at(1).top <= rows.at(1).top + Eps);
    }

    // A short body is one page; so is any body when the page has no room at all, rather than an
    // endless run of empty pages.
    void onePage_data() {
        QTest::addColumn<QString>("html");
        QTest::addColumn<double>("bodyHeight");
        QTest::newRow("empty") << QString() << 3000.0;
        QTest::newRow("small table") << QStringLiteral(
                                            "<table><thead><tr><th>A</th></tr></thead><tr><td>1</td></tr></table>")
                                     << 3000.0;
        QTest::newRow("no room") << monthTables() << 0.0;
        QTest::newRow("less than none") << monthTables() << -5.0;
    }
    void onePage() {
        QFETCH(QString, html);
        QFETCH(double, bodyHeight);
        Body body(html);
        const QList<PageSlice> pages = PageBreaker::paginate(body.doc(), bodyHeight);
        QCOMPARE(pages.size(), 1);
        QVERIFY(pages.first().repeatedHeaders.isEmpty());
        QCOMPARE(pages.first().bottom, body.height());
    }

    // A body is cut only straight after a table that nothing encloses, and every part is a whole
    // document with the body's head, so that its style sheet still applies.
    void splitOnlyBetweenTopLevelTables() {
        const QString table = QStringLiteral("<table><tr><td>x</td></tr></table>");
        const QString head = QStringLiteral("<html><head><style>h3 { font-size: 10pt; }</style></head><body>");
        const QString tail = QStringLiteral("</body></html>");
        for (const QString& whole : {head + QStringLiteral("<div>") + table + table + QStringLiteral("</div>") + tail,
                                     head + QStringLiteral("<b>") + table + table + tail, table + table + table})
            QCOMPARE(StackedDocument::split(whole, 4), QStringList{whole});

        QString content;
        for (int i = 0; i < 8; ++i)
            content += QStringLiteral("<h3>Month %1</h3>").arg(i) + table + QStringLiteral("<!-- </table> -->");
        const QStringList pieces = StackedDocument::split(head + content + tail, 3);
        QCOMPARE(pieces.size(), 3);
        QString joined;
        for (const QString& piece : pieces) {
            QVERIFY(piece.startsWith(head) && piece.endsWith(tail));
            const QString middle = piece.mid(head.size(), piece.size() - head.size() - tail.size());
            QVERIFY(middle.endsWith(QStringLiteral("</table>")) || &piece == &pieces.last());
            joined += middle;
        }
        QCOMPARE(joined, content);
    }
};

QTEST_MAIN(TestPageBreaker)
#include "tst_pagebreaker.moc"

#include "StackedDocument.h"

#include "reports/PageBreaker.h"

#include <QAbstractEventDispatcher>
#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QFont>
#include <QPaintDevice>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QThread>
#include <QThreadPool>
#include <QtConcurrent/QtConcurrentMap>
#include <algorithm>

namespace ordwell {

namespace {

// Below this much HTML a part is not worth a thread of its own.
constexpr qsizetype MinPartChars = 32 * 1024;

// Answers the questions text layout asks of a paint device (its resolution and size) with the
// real device's answers, read once: safe to share between threads, and it draws nothing.
class MetricsOnly : public QPaintDevice {
public:
    explicit MetricsOnly(const QPaintDevice& device) {
        for (int m = PdmWidth; m <= PdmDevicePixelRatioScaled; ++m)
            m_values[m] = queried(device, PaintDeviceMetric(m));
    }
    QPaintEngine* paintEngine() const override { return nullptr; }

protected:
    int metric(PaintDeviceMetric m) const override {
        return m >= PdmWidth && m <= PdmDevicePixelRatioScaled ? m_values[m] : 0;
    }

private:
    // QPaintDevice::metric is protected; a device answers its public questions through it.
    static int queried(const QPaintDevice& d, PaintDeviceMetric m) {
        switch (m) {
        case PdmWidth:
            return d.width();
        case PdmHeight:
            return d.height();
        case PdmWidthMM:
            return d.widthMM();
        case PdmHeightMM:
            return d.heightMM();
        case PdmNumColors:
            return d.colorCount();
        case PdmDepth:
            return d.depth();
        case PdmDpiX:
            return d.logicalDpiX();
        case PdmDpiY:
            return d.logicalDpiY();
        case PdmPhysicalDpiX:
            return d.physicalDpiX();
        case PdmPhysicalDpiY:
            return d.physicalDpiY();
        case PdmDevicePixelRatio:
            return d.devicePixelRatio();
        case PdmDevicePixelRatioScaled:
            return int(d.devicePixelRatioF() * devicePixelRatioFScale());
        default:
            return 0;
        }
    }
    int m_values[PdmDevicePixelRatioScaled + 1] = {};
};

bool startsWithAt(const QString& text, qsizetype at, QLatin1StringView what) {
    return text.size() - at >= what.size() &&
           QStringView(text).mid(at, what.size()).compare(what, Qt::CaseInsensitive) == 0;
}

// Elements that may enclose a table and are always closed: a cut is made only where none is open.
bool mustClose(QStringView name) {
    static const QLatin1StringView Names[] = {
        QLatin1StringView("table"),  QLatin1StringView("div"),    QLatin1StringView("ul"),
        QLatin1StringView("ol"),     QLatin1StringView("dl"),     QLatin1StringView("blockquote"),
        QLatin1StringView("center"), QLatin1StringView("pre"),    QLatin1StringView("font"),
        QLatin1StringView("span"),   QLatin1StringView("a"),      QLatin1StringView("b"),
        QLatin1StringView("i"),      QLatin1StringView("u"),      QLatin1StringView("s"),
        QLatin1StringView("em"),     QLatin1StringView("strong"), QLatin1StringView("big"),
        QLatin1StringView("small"),  QLatin1StringView("code"),   QLatin1StringView("tt"),
        QLatin1StringView("sub"),    QLatin1StringView("sup"),
    };
    return std::any_of(std::begin(Names), std::end(Names),
                       [&](QLatin1StringView n) { return name.compare(n, Qt::CaseInsensitive) == 0; });
}

// The places straight after a </table> with nothing left open, in [from, to); empty when the
// markup does not balance.
QList<qsizetype> cutPlaces(const QString& html, qsizetype from, qsizetype to) {
    QList<qsizetype> places;
    int open = 0;
    for (qsizetype i = html.indexOf(QLatin1Char('<'), from); i >= 0 && i < to;
         i = html.indexOf(QLatin1Char('<'), i + 1)) {
        if (startsWithAt(html, i, QLatin1StringView("<!--"))) {
            const qsizetype end = html.indexOf(QLatin1StringView("-->"), i + 4);
            if (end < 0 || end >= to)
                return {};
            i = end + 2;
            continue;
        }
        const bool closing = i + 1 < to && html.at(i + 1) == QLatin1Char('/');
        qsizetype n = i + (closing ? 2 : 1);
        const qsizetype nameStart = n;
        while (n < to && html.at(n).isLetterOrNumber())
            ++n;
        const qsizetype end = html.indexOf(QLatin1Char('>'), n);
        if (end < 0 || end >= to)
            return {};
        const QStringView name = QStringView(html).mid(nameStart, n - nameStart);
        const bool selfClosed = html.at(end - 1) == QLatin1Char('/');
        if (!name.isEmpty() && mustClose(name) && !selfClosed) {
            open += closing ? -1 : 1;
            if (open < 0)
                return {};
            if (closing && open == 0 && name.compare(QLatin1StringView("table"), Qt::CaseInsensitive) == 0)
                places << end + 1;
        }
        i = end;
    }
    if (open != 0)
        return {};
    return places;
}

} // namespace

QStringList StackedDocument::split(const QString& html, int wanted) {
    const qsizetype body = html.indexOf(QLatin1StringView("<body"), 0, Qt::CaseInsensitive);
    if (wanted < 2 || body < 0)
        return {html};
    const qsizetype contentStart = html.indexOf(QLatin1Char('>'), body) + 1;
    qsizetype contentEnd = html.lastIndexOf(QLatin1StringView("</body"), -1, Qt::CaseInsensitive);
    if (contentStart <= 0 || contentEnd < contentStart)
        contentEnd = html.size();
    const QList<qsizetype> places = cutPlaces(html, contentStart, contentEnd);
    if (places.isEmpty())
        return {html};

    const QString head = html.left(contentStart);
    const QString tail = html.mid(contentEnd);
    const qsizetype share = std::max<qsizetype>((contentEnd - contentStart) / wanted, 1);
    QStringList pieces;
    qsizetype start = contentStart;
    for (const qsizetype place : places) {
        if (place - start >= share && contentEnd - place >= share / 2 && pieces.size() + 1 < wanted) {
            pieces << head + html.mid(start, place - start) + tail;
            start = place;
        }
    }
    pieces << head + html.mid(start, contentEnd - start) + tail;
    return pieces;
}

std::unique_ptr<QTextDocument> StackedDocument::layOut(const QString& html, const QPaintDevice& device,
                                                       const QFont& font, double width) {
    auto doc = std::make_unique<QTextDocument>();
    doc->setUndoRedoEnabled(false);
    // Measured in the device's own units, so fonts and widths come out right on paper.
    doc->documentLayout()->setPaintDevice(const_cast<QPaintDevice*>(&device));
    doc->setDefaultFont(font);
    doc->setDocumentMargin(0);
    doc->setTextWidth(width);
    doc->setHtml(html);
    // Keep each block's shaped text once it is laid out: otherwise painting a page shapes every
    // line it draws a second time, which for a long report costs as much as its PDF output.
    for (QTextBlock block = doc->begin(); block.isValid(); block = block.next())
        block.layout()->setCacheEnabled(true);
    doc->size(); // lays it out here, on the thread that made it
    return doc;
}

StackedDocument::StackedDocument(const QString& html, const QPaintDevice& device, const QFont& font, double width,
                                 int wantedParts)
    : m_metrics(std::make_unique<MetricsOnly>(device)), m_width(width) {
    if (wantedParts <= 0) {
        const int cores = std::max(1, QThread::idealThreadCount());
        wantedParts = int(std::min<qsizetype>(8 * cores, html.size() / MinPartChars));
    }
    const QStringList pieces = split(html, wantedParts);
    m_documents.resize(std::size_t(pieces.size()));
    m_surveys.resize(std::size_t(pieces.size()));
    const QPaintDevice& metrics = *m_metrics;
    QThread* mainThread = QCoreApplication::instance() ? QCoreApplication::instance()->thread() : nullptr;
    auto layOutPiece = [&](qsizetype i) {
        auto doc = layOut(pieces.at(i), metrics, font, width);
        m_surveys[std::size_t(i)] = std::make_unique<PageSurvey>(*doc);
        QThread* here = QThread::currentThread();
        if (here != mainThread) {
            // The layout ends by starting a zero timer to announce its size: let it fire on this
            // pool thread, which has no other events, and then tie the document to no thread,
            // so that it can be painted here and taken apart on any thread.
            if (QAbstractEventDispatcher* dispatcher = here->eventDispatcher())
                dispatcher->processEvents(QEventLoop::AllEvents);
            doc->moveToThread(nullptr);
        }
        m_documents[std::size_t(i)] = std::move(doc);
    };
    if (pieces.size() == 1) {
        layOutPiece(0);
    } else {
        QList<qsizetype> indexes;
        for (qsizetype i = 0; i < pieces.size(); ++i)
            indexes << i;
        QtConcurrent::blockingMap(indexes, layOutPiece);
    }
    for (std::size_t i = 0; i < m_documents.size(); ++i) {
        m_parts << Part{m_documents[i].get(), m_height, m_surveys[i].get()};
        m_height += m_documents[i]->size().height();
    }
}

StackedDocument::~StackedDocument() {
    // Taking a long report's documents apart takes a good part of a second, and nobody waits
    // for it: those tied to no thread go on the pool, with the device they were measured on.
    struct Remains {
        std::vector<std::unique_ptr<QTextDocument>> documents;
        std::vector<std::unique_ptr<PageSurvey>> surveys;
        std::unique_ptr<QPaintDevice> metrics;
        ~Remains() {
            surveys.clear();
            documents.clear(); // before the device
        }
    };
    auto remains = std::make_shared<Remains>();
    for (auto& doc : m_documents) {
        if (doc->thread() == nullptr)
            remains->documents.push_back(std::move(doc));
    }
    m_parts.clear();
    m_surveys.clear();
    m_documents.clear(); // those of this thread, before the device
    if (remains->documents.empty())
        return;
    remains->metrics = std::move(m_metrics);
    QThreadPool::globalInstance()->start([remains = std::move(remains)]() mutable { remains.reset(); });
}

void StackedDocument::draw(QPainter& painter, const QRectF& band, double y) const {
    for (const Part& part : m_parts) {
        const double bottom = part.top + part.document->size().height();
        if (bottom <= band.top() || part.top >= band.bottom())
            continue;
        painter.save();
        painter.translate(0, y - band.top() + part.top);
        part.survey->draw(painter, *part.document, band.translated(0, -part.top));
        painter.restore();
    }
}

} // namespace ordwell

#include "ItemImporter.h"

#include "ImportLine.h"
#include "PriceListReader.h"
#include "common/Dates.h"
#include "common/Sql.h"

#include <QDir>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QSqlQuery>

namespace ordwell {

namespace {
Q_LOGGING_CATEGORY(lcImport, "ordwell.import", QtWarningMsg)

// One statement for both cases: a new code adds a row, a known one has everything but its code
// overwritten. Codes compare without regard to case, as the key does.
const QString UpsertSql =
    QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) VALUES (?, ?, ?, ?, ?, ?) "
                   "ON CONFLICT (code) DO UPDATE SET descr = excluded.descr, packqty = excluded.packqty, "
                   "defqty = excluded.defqty, price = excluded.price, priceexp = excluded.priceexp");
} // namespace

ItemImporter::ItemImporter(QSqlDatabase vendorDb, QDate today, QLocale locale)
    : m_db(std::move(vendorDb)), m_today(today), m_locale(std::move(locale)) {}

void ItemImporter::setProgress(std::function<void(int)> callback, std::chrono::milliseconds interval) {
    m_progress = std::move(callback);
    m_interval = interval;
}

QString ItemImporter::incorrectLineMessage(const QString& path, const QString& line) {
    return QStringLiteral("An error has been found in ") + QDir::toNativeSeparators(path) +
           QStringLiteral(" the line ") + line +
           QStringLiteral(" is incorrect, please correct this error and re-run the import");
}

QString expiredPricesText(int count) {
    if (count <= 0)
        return {};
    return QStringLiteral("There were %1 expired prices, these items prices have been set to \u00a30.00").arg(count);
}

ImportOutcome ItemImporter::importFile(const QString& path) {
    ImportOutcome outcome;
    auto stopWith = [&outcome](ImportOutcome::Stop stop, const QString& message) {
        outcome.stop = stop;
        outcome.message = message;
        qCInfo(lcImport) << "import stopped after" << outcome.linesStored << "lines:" << message;
        return outcome;
    };

    PriceListReader reader(path);
    if (Status opened = reader.open(); !opened)
        return stopWith(ImportOutcome::Stop::FileProblem, opened.message());

    Sql::Statement upsert(m_db, UpsertSql);

    const QString expiredStored = Dates::toStored(ExpiredPriceDate);
    int pending = 0; // lines written in the open batch
    int expiredPending = 0;
    bool inBatch = false;
    // Makes the open batch permanent; only then do its lines count as stored.
    auto commitBatch = [&]() -> Status {
        if (!inBatch)
            return Status::ok();
        inBatch = false;
        // As a statement, so a failure carries SQLite's result code (a full disk says so).
        if (Status committed = Sql::run(m_db, QStringLiteral("COMMIT")); !committed) {
            m_db.rollback();
            return committed;
        }
        outcome.linesStored += pending;
        outcome.expiredCount += expiredPending;
        pending = 0;
        expiredPending = 0;
        return Status::ok();
    };

    QElapsedTimer sinceShown;
    sinceShown.start();
    QStringView line;
    int lineNumber = 0;
    while (reader.readLine(line)) {
        lineNumber = reader.lineNumber();
        if (m_progress && sinceShown.elapsed() >= m_interval.count()) {
            m_progress(lineNumber);
            sinceShown.restart();
        }
        const Result<ImportedItem> item = parseImportLine(line, m_locale);
        if (!item) {
            qCDebug(lcImport) << "line" << lineNumber << "refused:" << item.message();
            if (Status committed = commitBatch(); !committed)
                return stopWith(ImportOutcome::Stop::DatabaseProblem, committed.message());
            outcome.badLine = line.toString();
            return stopWith(ImportOutcome::Stop::IncorrectLine, incorrectLineMessage(path, outcome.badLine));
        }
        if (!inBatch) {
            if (!m_db.transaction())
                return stopWith(ImportOutcome::Stop::DatabaseProblem, Sql::describe(m_db.lastError()));
            inBatch = true;
        }
        const bool expired = item->expiry < m_today;
        const Status stored = upsert.exec({item->code, item->descr, item->packqty, item->defqty,
                                           expired ? qint64(0) : item->price.tenThousandths(),
                                           expired ? expiredStored : Dates::toStored(item->expiry)});
        if (!stored) {
            // A refused line undoes only itself: the lines before it are kept. A full disk may
            // have undone the whole batch already; either way the line's failure is the cause.
            commitBatch();
            return stopWith(ImportOutcome::Stop::DatabaseProblem,
                            QStringLiteral("The import stopped at line %1 of %2, which could not be stored: %3")
                                .arg(lineNumber)
                                .arg(QDir::toNativeSeparators(path), stored.message()));
        }
        ++pending;
        if (expired)
            ++expiredPending;
        if (pending >= m_batchSize) {
            if (Status committed = commitBatch(); !committed)
                return stopWith(ImportOutcome::Stop::DatabaseProblem, committed.message());
        }
    }
    if (Status committed = commitBatch(); !committed)
        return stopWith(ImportOutcome::Stop::DatabaseProblem, committed.message());
    if (m_progress && lineNumber > 0)
        m_progress(lineNumber);
    return outcome;
}

} // namespace ordwell

#include "ItemImporter.h"

#include "ImportLine.h"
#include "PriceListReader.h"
#include "common/Dates.h"
#include "common/Sql.h"
#include "store/Dialect.h"

#include <QDir>
#include <QElapsedTimer>
#include <QHash>
#include <QLoggingCategory>
#include <QSqlQuery>
#include <algorithm>

namespace ordwell {

namespace {
Q_LOGGING_CATEGORY(lcImport, "ordwell.import", QtWarningMsg)

// One statement per batch, its lines handed over as one JSON array of [code, descr, packqty,
// defqty, price, priceexp, gtin] rows (gtin null when the line gives none, which keeps the
// item's own): binding six values per line through the driver costs more than
// storing the line. A new code adds a row, a known one has everything but its code overwritten;
// codes compare without regard to case, as the key does. Rows are taken in file order, so when
// a code comes twice the later line wins, as it would line by line. ("WHERE true" keeps SQLite
// from reading ON CONFLICT as part of a join.)
const QString UpsertBatchSql =
    QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp, gtin) "
                   "SELECT value ->> 0, value ->> 1, value ->> 2, value ->> 3, value ->> 4, value ->> 5, "
                   "value ->> 6 FROM json_each(?) WHERE true "
                   "ON CONFLICT (code) DO UPDATE SET descr = excluded.descr, packqty = excluded.packqty, "
                   "defqty = excluded.defqty, price = excluded.price, priceexp = excluded.priceexp, "
                   "gtin = coalesce(excluded.gtin, items.gtin)");

// The same on a server. PostgreSQL refuses to update one row twice in one statement, so of the
// lines that give one code (in any case) only the batch's last is kept; the numbers come in as
// JSON text and are cast to their columns.
const QString UpsertBatchServerSql =
    QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp, gtin) "
                   "SELECT DISTINCT ON ((e.value ->> 0)::citext) e.value ->> 0, e.value ->> 1, "
                   "(e.value ->> 2)::integer, (e.value ->> 3)::integer, (e.value ->> 4)::bigint, e.value ->> 5, "
                   "e.value ->> 6 FROM json_array_elements(?::json) WITH ORDINALITY AS e(value, n) "
                   "ORDER BY (e.value ->> 0)::citext, e.n DESC "
                   "ON CONFLICT (code) DO UPDATE SET descr = excluded.descr, packqty = excluded.packqty, "
                   "defqty = excluded.defqty, price = excluded.price, priceexp = excluded.priceexp, "
                   "gtin = coalesce(excluded.gtin, items.gtin)");

// Pages of the catalogue SQLite may keep in memory while the import runs, in KiB. A batch
// rewrites index pages all over the catalogue (descriptions and expiries are in no order);
// with the small default cache those pages would be written out and read back within a batch.
constexpr int ImportCacheKib = 64 * 1024;

// The connection's page cache made larger for as long as the import runs.
class LargerPageCache {
public:
    explicit LargerPageCache(const QSqlDatabase& db) : m_db(db) {
        if (Dialects::of(m_db) != Dialect::SQLite)
            return; // a server keeps its own cache
        const Result<QVariant> size = Sql::scalar(m_db, QStringLiteral("PRAGMA cache_size"));
        if (size && size->isValid()) {
            m_previous = size->toString();
            Sql::run(m_db, QStringLiteral("PRAGMA cache_size = -%1").arg(ImportCacheKib));
        }
    }
    ~LargerPageCache() {
        if (!m_previous.isEmpty())
            Sql::run(m_db, QStringLiteral("PRAGMA cache_size = %1").arg(m_previous));
    }

private:
    const QSqlDatabase& m_db;
    QString m_previous;
};

void appendJsonString(QString& json, const QString& text) {
    json += QLatin1Char('"');
    const bool plain = std::none_of(text.cbegin(), text.cend(), [](QChar c) {
        return c.unicode() < 0x20 || c == QLatin1Char('"') || c == QLatin1Char('\\');
    });
    if (plain) {
        json += text;
        json += QLatin1Char('"');
        return;
    }
    for (QChar c : text) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\')) {
            json += QLatin1Char('\\');
            json += c;
        } else if (c.unicode() < 0x20) {
            json += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        } else {
            json += c;
        }
    }
    json += QLatin1Char('"');
}

// The lines of one batch as the JSON array the batch statement reads.
class Batch {
public:
    void add(const ImportedItem& item, qint64 price, const QDate& expiry) {
        m_json += m_lines == 0 ? QLatin1Char('[') : QLatin1Char(',');
        m_json += QLatin1Char('[');
        appendJsonString(m_json, item.code);
        m_json += QLatin1Char(',');
        appendJsonString(m_json, item.descr);
        m_json += QLatin1Char(',') + QString::number(item.packqty) + QLatin1Char(',') + QString::number(item.defqty) +
                  QLatin1Char(',') + QString::number(price) + QLatin1Char(',');
        if (expiry != m_lastExpiry) {
            m_lastExpiry = expiry;
            m_lastExpiryText = Dates::toStored(expiry);
        }
        appendJsonString(m_json, m_lastExpiryText);
        m_json += QLatin1Char(',');
        if (item.gtin.isEmpty())
            m_json += QStringLiteral("null");
        else
            appendJsonString(m_json, item.gtin);
        m_json += QLatin1Char(']');
        ++m_lines;
    }
    int lines() const { return m_lines; }
    QString take() {
        m_json += QLatin1Char(']');
        m_lines = 0;
        return std::exchange(m_json, QString());
    }

private:
    QString m_json;
    int m_lines = 0;
    QDate m_lastExpiry;
    QString m_lastExpiryText;
};

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
    PriceListReader reader(path);
    if (Status opened = reader.open(); !opened) {
        ImportOutcome outcome;
        outcome.stop = ImportOutcome::Stop::FileProblem;
        outcome.message = opened.message();
        return outcome;
    }
    return importLines(reader);
}

ImportOutcome ItemImporter::importLines(PriceListReader& reader) {
    const QString& path = reader.path();
    ImportOutcome outcome;
    auto stopWith = [&outcome](ImportOutcome::Stop stop, const QString& message) {
        outcome.stop = stop;
        outcome.message = message;
        qCInfo(lcImport) << "import stopped after" << outcome.linesStored << "lines:" << message;
        return outcome;
    };

    const LargerPageCache cache(m_db);
    // One transaction for the whole file: a batch rewrites pages all over the catalogue, and
    // committing each batch would write most of the catalogue again every time.
    Sql::Transaction transaction(m_db);
    if (!transaction.isActive())
        return stopWith(ImportOutcome::Stop::DatabaseProblem, Sql::describe(m_db.lastError()));
    Sql::Statement upsert(m_db, Dialects::of(m_db) == Dialect::PostgreSQL ? UpsertBatchServerSql : UpsertBatchSql);
    // A GTIN belongs to one item: the catalogue's holder, or the line that gave it earlier.
    Sql::Statement gtinHolder(m_db, QStringLiteral("SELECT code FROM items WHERE gtin = ?"));
    QHash<QString, QString> gtinsGiven;
    auto gtinTakenElsewhere = [&](const ImportedItem& item) {
        if (item.gtin.isEmpty())
            return false;
        QString holder = gtinsGiven.value(item.gtin);
        if (holder.isEmpty() && gtinHolder.exec({item.gtin}) && gtinHolder.query().next())
            holder = gtinHolder.query().value(0).toString();
        gtinHolder.query().finish();
        if (!holder.isEmpty() && holder.compare(item.code, Qt::CaseInsensitive) != 0)
            return true;
        gtinsGiven.insert(item.gtin, item.code);
        return false;
    };
    ImportLineParser parser(m_locale);
    Batch batch;
    int written = 0; // lines written, stored only once the transaction is committed
    int expired = 0;
    int firstPending = 0; // the line number of the batch's first line
    auto storeBatch = [&]() -> Status {
        if (batch.lines() == 0)
            return Status::ok();
        const int lines = batch.lines();
        if (Status stored = upsert.exec({batch.take()}); !stored)
            return Status::fail(QStringLiteral("The import stopped at line %1 of %2: lines %1 to %3 could not be "
                                               "stored, so nothing of the file has been imported: %4")
                                    .arg(firstPending)
                                    .arg(QDir::toNativeSeparators(path))
                                    .arg(firstPending + lines - 1)
                                    .arg(stored.message()));
        written += lines;
        return Status::ok();
    };
    // What has been written becomes permanent: the lines before an incorrect one, or the file.
    auto storeAll = [&]() -> Status {
        if (Status stored = storeBatch(); !stored)
            return stored;
        if (Status committed = transaction.commit(); !committed)
            return Status::fail(QStringLiteral("The import of %1 could not be completed, so nothing of the file has "
                                               "been imported: %2")
                                    .arg(QDir::toNativeSeparators(path), committed.message()));
        outcome.linesStored = written;
        outcome.expiredCount = expired;
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
        Result<ImportedItem> item = parser.parse(line);
        if (item && gtinTakenElsewhere(*item))
            item = Status::fail(QStringLiteral("its GTIN belongs to another item"));
        if (!item) {
            qCDebug(lcImport) << "line" << lineNumber << "refused:" << item.message();
            if (Status stored = storeAll(); !stored)
                return stopWith(ImportOutcome::Stop::DatabaseProblem, stored.message());
            outcome.badLine = line.toString();
            return stopWith(ImportOutcome::Stop::IncorrectLine, incorrectLineMessage(path, outcome.badLine));
        }
        if (batch.lines() == 0)
            firstPending = lineNumber;
        const bool hasExpired = item->expiry < m_today;
        batch.add(*item, hasExpired ? 0 : item->price.tenThousandths(), hasExpired ? ExpiredPriceDate : item->expiry);
        if (hasExpired)
            ++expired;
        if (batch.lines() >= m_batchSize) {
            if (Status stored = storeBatch(); !stored)
                return stopWith(ImportOutcome::Stop::DatabaseProblem, stored.message());
        }
    }
    if (Status stored = storeAll(); !stored)
        return stopWith(ImportOutcome::Stop::DatabaseProblem, stored.message());
    if (m_progress && lineNumber > 0)
        m_progress(lineNumber);
    return outcome;
}

} // namespace ordwell

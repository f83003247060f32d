#pragma once

#include "common/Status.h"

#include <QDate>
#include <QLocale>
#include <QSqlDatabase>
#include <QString>
#include <chrono>
#include <functional>

namespace ordwell {

class PriceListReader;

// How an import ended.
struct ImportOutcome {
    enum class Stop { None, IncorrectLine, FileProblem, DatabaseProblem };
    Stop stop = Stop::None;
    int linesStored = 0;  // lines written to the catalogue: all of them before an incorrect line
    int expiredCount = 0; // of those, lines whose price had expired and was stored as 0.00
    QString badLine;      // the incorrect line's text
    QString message;      // what to tell the user when it stopped

    bool completed() const { return stop == Stop::None; }
};

// Loads a price list into the open vendor's catalogue: each line adds an item or overwrites the
// one with its code (the code itself stays). A line whose expiry is before `today` is stored
// with price 0.00 and expiry 11 March 2020, and counted. The first incorrect line stops the
// import: every line before it is stored, none after it is read. The file is one transaction,
// written in statements of many lines each: when storing fails (a full disk), nothing of the
// file is kept and the catalogue stays as it was.
class ItemImporter {
public:
    ItemImporter(QSqlDatabase vendorDb, QDate today, QLocale locale = QLocale());

    // Called with the number of the line being imported, at most once per `interval` (and once
    // for the last line), so a window can redraw without paying for it on every line.
    void setProgress(std::function<void(int)> callback, std::chrono::milliseconds interval);
    // How many lines one statement writes.
    void setBatchSize(int lines) { m_batchSize = lines > 0 ? lines : 1; }

    ImportOutcome importFile(const QString& path);
    // The lines of a price list already opened (and so read) from where it stands.
    ImportOutcome importLines(PriceListReader& priceList);

    static QString incorrectLineMessage(const QString& path, const QString& line);
    static inline const QString IncorrectLineTitle = QStringLiteral("Incorrect File format");
    // The expiry given to prices that had already expired.
    static inline const QDate ExpiredPriceDate = QDate(2020, 3, 11);

private:
    QSqlDatabase m_db;
    QDate m_today;
    QLocale m_locale;
    std::function<void(int)> m_progress;
    std::chrono::milliseconds m_interval{100};
    int m_batchSize = 5000;
};

// "There were N expired prices, these items prices have been set to £0.00"; empty for none.
QString expiredPricesText(int count);

} // namespace ordwell

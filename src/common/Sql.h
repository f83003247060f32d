#pragma once

#include "Status.h"

#include <QLoggingCategory>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <QVariantList>
#include <initializer_list>

namespace ordwell {

// Database failures: warnings for what went wrong, info for writes the data refused.
Q_DECLARE_LOGGING_CATEGORY(lcStore)

namespace Sql {

// Why the database refused or failed, told apart by SQLite's own result code (never by its
// message text, which changes between versions) so callers can say it in the user's words.
enum class Refusal {
    None,
    TooLongOrInvalid, // a CHECK or a column type refused a value
    Missing,          // a required value is NULL
    Duplicate,        // a key is already taken
    Busy,             // another connection holds the file (BUSY, LOCKED)
    DiskFull,         // FULL
    Damaged,          // CORRUPT, NOTADB
    Unavailable,      // the file cannot be opened, written or read (READONLY, CANTOPEN, IOERR, PERM)
    Other
};

// SQLite's result code as the driver reported it (extended where SQLite gave one), 0 for none.
int resultCode(const QSqlError& error);

Refusal classify(const QSqlError& error);

// A plain-language description of a database error, never SQLite's raw text alone.
QString describe(const QSqlError& error);

// Logs a failure through lcStore with its result code and the statement; what the data
// refused is logged as info, everything else as a warning.
void logFailure(const QSqlError& error, const QString& sql);

// Prepares `sql`, binds `values` in order to its '?' placeholders and runs it.
Result<QSqlQuery> exec(const QSqlDatabase& db, const QString& sql, const QVariantList& values = {});

// The same for statements whose rows are not wanted; also reports the refusal kind.
Status run(const QSqlDatabase& db, const QString& sql, const QVariantList& values = {}, Refusal* refusal = nullptr);

// The first column of the first row, or an invalid QVariant when there is no row.
Result<QVariant> scalar(const QSqlDatabase& db, const QString& sql, const QVariantList& values = {});

// Text for a column that may be empty: empty text is stored as NULL, so "no value" has
// one representation.
QVariant textOrNull(const QString& text);

// A statement prepared on its first run and reused after: on hot paths (the import, paging,
// revaluation) preparing again on every call costs more than running the statement.
class Statement {
public:
    Statement(QSqlDatabase db, QString sql);
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    // Binds `values` in order and runs the statement. Rows, if any, are read from query().
    Status exec(std::initializer_list<QVariant> values = {});
    Status exec(const QVariantList& values);
    QSqlQuery& query() { return m_query; }
    const QSqlError& error() const { return m_error; }

private:
    QString m_sql;
    QSqlQuery m_query;
    bool m_prepared = false;
    QSqlError m_error;
};

// A transaction that rolls back unless committed; a user action that writes several rows is
// one of these.
class Transaction {
public:
    explicit Transaction(QSqlDatabase db);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    bool isActive() const { return m_active; }
    Status commit();

private:
    QSqlDatabase m_db;
    bool m_active = false;
};

} // namespace Sql
} // namespace ordwell

#pragma once

#include "Status.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <QVariantList>

namespace ordwell::Sql {

// Why the database refused a write, told apart so callers can say it in the user's words.
enum class Refusal { None, TooLongOrInvalid, Missing, Duplicate, Busy, Other };

Refusal classify(const QSqlError& error);

// A plain-language description of a database error, never SQLite's raw text alone.
QString describe(const QSqlError& error);

// Prepares `sql`, binds `values` in order to its '?' placeholders and runs it.
Result<QSqlQuery> exec(const QSqlDatabase& db, const QString& sql, const QVariantList& values = {});

// The same for statements whose rows are not wanted; also reports the refusal kind.
Status run(const QSqlDatabase& db, const QString& sql, const QVariantList& values = {}, Refusal* refusal = nullptr);

// The first column of the first row, or an invalid QVariant when there is no row.
Result<QVariant> scalar(const QSqlDatabase& db, const QString& sql, const QVariantList& values = {});

// Text for a column that may be empty: empty text is stored as NULL, so "no value" has
// one representation.
QVariant textOrNull(const QString& text);

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

} // namespace ordwell::Sql

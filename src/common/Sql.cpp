#include "Sql.h"

namespace ordwell::Sql {

namespace {
// The column a constraint message names, as " (name)", so the user knows which value to mend.
QString columnNamed(const QString& databaseText) {
    const int open = databaseText.indexOf(QLatin1Char('"'));
    const int close = open < 0 ? -1 : databaseText.indexOf(QLatin1Char('"'), open + 1);
    if (close > open + 1)
        return QStringLiteral(" (%1)").arg(databaseText.mid(open + 1, close - open - 1));
    const int dot = databaseText.lastIndexOf(QLatin1Char('.'));
    if (databaseText.contains(QLatin1String("NOT NULL")) && dot > 0)
        return QStringLiteral(" (%1)").arg(databaseText.mid(dot + 1).section(QLatin1Char(' '), 0, 0));
    return {};
}
} // namespace

Refusal classify(const QSqlError& error) {
    if (!error.isValid())
        return Refusal::None;
    const QString text = error.databaseText() + QLatin1Char(' ') + error.driverText();
    if (text.contains(QLatin1String("UNIQUE constraint failed")) || text.contains(QLatin1String("PRIMARY KEY")))
        return Refusal::Duplicate;
    if (text.contains(QLatin1String("NOT NULL constraint failed")))
        return Refusal::Missing;
    if (text.contains(QLatin1String("CHECK constraint failed")) || text.contains(QLatin1String("cannot store")))
        return Refusal::TooLongOrInvalid;
    if (text.contains(QLatin1String("database is locked")) || text.contains(QLatin1String("database is busy")))
        return Refusal::Busy;
    return Refusal::Other;
}

QString describe(const QSqlError& error) {
    switch (classify(error)) {
    case Refusal::None:
        return {};
    case Refusal::Duplicate:
        return QStringLiteral("The record could not be saved because another record already has the same key.");
    case Refusal::Missing:
        return QStringLiteral("The record could not be saved because a required value is missing%1.")
            .arg(columnNamed(error.databaseText()));
    case Refusal::TooLongOrInvalid:
        return QStringLiteral("The record could not be saved because a value is too long or not valid%1.")
            .arg(columnNamed(error.databaseText()));
    case Refusal::Busy:
        return QStringLiteral("The database is in use by another program. Please try again.");
    case Refusal::Other:
        break;
    }
    QString detail = error.databaseText();
    if (detail.isEmpty())
        detail = error.driverText();
    return QStringLiteral("The database reported an error: %1").arg(detail);
}

Result<QSqlQuery> exec(const QSqlDatabase& db, const QString& sql, const QVariantList& values) {
    QSqlQuery query(db);
    query.setForwardOnly(true);
    if (!query.prepare(sql))
        return Status::fail(describe(query.lastError()));
    for (const QVariant& v : values)
        query.addBindValue(v);
    if (!query.exec())
        return Status::fail(describe(query.lastError()));
    return query;
}

Status run(const QSqlDatabase& db, const QString& sql, const QVariantList& values, Refusal* refusal) {
    QSqlQuery query(db);
    if (!query.prepare(sql)) {
        if (refusal)
            *refusal = classify(query.lastError());
        return Status::fail(describe(query.lastError()));
    }
    for (const QVariant& v : values)
        query.addBindValue(v);
    if (!query.exec()) {
        if (refusal)
            *refusal = classify(query.lastError());
        return Status::fail(describe(query.lastError()));
    }
    if (refusal)
        *refusal = Refusal::None;
    return Status::ok();
}

Result<QVariant> scalar(const QSqlDatabase& db, const QString& sql, const QVariantList& values) {
    auto query = exec(db, sql, values);
    if (!query)
        return query.status();
    if (query.value().next())
        return query.value().value(0);
    return QVariant();
}

QVariant textOrNull(const QString& text) {
    return text.isEmpty() ? QVariant(QMetaType(QMetaType::QString)) : QVariant(text);
}

Transaction::Transaction(QSqlDatabase db) : m_db(std::move(db)) {
    m_active = m_db.transaction();
}

Transaction::~Transaction() {
    if (m_active)
        m_db.rollback();
}

Status Transaction::commit() {
    if (!m_active)
        return Status::fail(
            QStringLiteral("The change could not be started as one step: %1").arg(m_db.lastError().databaseText()));
    m_active = false;
    if (!m_db.commit()) {
        const QSqlError error = m_db.lastError();
        m_db.rollback();
        return Status::fail(describe(error));
    }
    return Status::ok();
}

} // namespace ordwell::Sql

#include "Sql.h"

#include <QHash>

namespace ordwell {

// Warnings by default; QT_LOGGING_RULES="ordwell.store.info=true" also shows what the data refused.
Q_LOGGING_CATEGORY(lcStore, "ordwell.store", QtWarningMsg)

namespace Sql {

namespace {
// SQLite's result codes (sqlite3.h) that call for different words or a different remedy.
namespace ResultCode {
enum : int {
    Perm = 3,
    Busy = 5,
    Locked = 6,
    ReadOnly = 8,
    IoErr = 10,
    Corrupt = 11,
    Full = 13,
    CantOpen = 14,
    Constraint = 19,
    NotADb = 26,
    ConstraintNotNull = Constraint | (5 << 8),
    ConstraintPrimaryKey = Constraint | (6 << 8),
    ConstraintUnique = Constraint | (8 << 8),
};
} // namespace ResultCode

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

int resultCode(const QSqlError& error) {
    if (!error.isValid())
        return 0;
    bool ok = false;
    const int code = error.nativeErrorCode().toInt(&ok);
    return ok ? code : -1;
}

namespace {
// A PostgreSQL server reports a five-character SQLSTATE; SQLite's codes, extended ones
// included, stay below 10000.
bool isSqlState(const QSqlError& error) {
    return error.nativeErrorCode().size() == 5;
}

Refusal classifySqlState(const QString& state) {
    static const QHash<QString, Refusal> exact = {
        {QStringLiteral("23502"), Refusal::Missing},     // not_null_violation
        {QStringLiteral("23505"), Refusal::Duplicate},   // unique_violation
        {QStringLiteral("55P03"), Refusal::Busy},        // lock_not_available
        {QStringLiteral("40001"), Refusal::Busy},        // serialization_failure
        {QStringLiteral("40P01"), Refusal::Busy},        // deadlock_detected
        {QStringLiteral("57014"), Refusal::Busy},        // query_canceled (a lock wait cut short)
        {QStringLiteral("53100"), Refusal::DiskFull},    // disk_full
        {QStringLiteral("XX001"), Refusal::Damaged},     // data_corrupted
        {QStringLiteral("XX002"), Refusal::Damaged},     // index_corrupted
        {QStringLiteral("42501"), Refusal::Unavailable}, // insufficient_privilege
    };
    if (const auto found = exact.constFind(state); found != exact.constEnd())
        return *found;
    // Integrity (23: checks) and data (22: too long, not a number, not a date) refusals.
    if (state.startsWith(QLatin1String("23")) || state.startsWith(QLatin1String("22")))
        return Refusal::TooLongOrInvalid;
    if (state.startsWith(QLatin1String("08")) || state.startsWith(QLatin1String("57")) ||
        state.startsWith(QLatin1String("58")))
        return Refusal::Unavailable; // the connection or the server itself
    return Refusal::Other;
}
} // namespace

Refusal classify(const QSqlError& error) {
    if (!error.isValid())
        return Refusal::None;
    if (isSqlState(error))
        return classifySqlState(error.nativeErrorCode());
    const int code = resultCode(error);
    switch (code & 0xff) {
    case ResultCode::Constraint:
        switch (code) {
        case ResultCode::ConstraintNotNull:
            return Refusal::Missing;
        case ResultCode::ConstraintPrimaryKey:
        case ResultCode::ConstraintUnique:
            return Refusal::Duplicate;
        default:
            return Refusal::TooLongOrInvalid;
        }
    case ResultCode::Busy:
    case ResultCode::Locked:
        return Refusal::Busy;
    case ResultCode::Full:
        return Refusal::DiskFull;
    case ResultCode::Corrupt:
    case ResultCode::NotADb:
        return Refusal::Damaged;
    case ResultCode::Perm:
    case ResultCode::ReadOnly:
    case ResultCode::IoErr:
    case ResultCode::CantOpen:
        return Refusal::Unavailable;
    default:
        return Refusal::Other;
    }
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
    case Refusal::DiskFull:
        return QStringLiteral("The database could not be changed because the disk is full.");
    case Refusal::Damaged:
        return QStringLiteral("The database file is damaged or is not a database.");
    case Refusal::Unavailable:
        return QStringLiteral("The database file could not be read or changed; check that it exists, that it may be "
                              "changed and that the disk is working.");
    case Refusal::Other:
        break;
    }
    QString detail = error.databaseText();
    if (detail.isEmpty())
        detail = error.driverText();
    return QStringLiteral("The database reported an error: %1").arg(detail);
}

void logFailure(const QSqlError& error, const QString& sql) {
    if (!error.isValid())
        return;
    const Refusal kind = classify(error);
    const QString line =
        QStringLiteral("%1 %2 (%3) in: %4")
            .arg(isSqlState(error) ? QStringLiteral("Server SQLSTATE") : QStringLiteral("SQLite result"),
                 isSqlState(error) ? error.nativeErrorCode() : QString::number(resultCode(error)),
                 error.databaseText().isEmpty() ? error.driverText() : error.databaseText(), sql);
    // A value the data refused is the user's to mend, not a fault of the program or the disk.
    if (kind == Refusal::Duplicate || kind == Refusal::Missing || kind == Refusal::TooLongOrInvalid)
        qCInfo(lcStore, "%s", qUtf8Printable(line));
    else
        qCWarning(lcStore, "%s", qUtf8Printable(line));
}

namespace {
// Prepares and runs `sql` on `query`; the error, logged, when either step fails.
QSqlError prepareAndRun(QSqlQuery& query, const QString& sql, const QVariantList& values) {
    // Without values nothing is bound, so the statement runs as it is: a server cannot prepare
    // the schema statements (CREATE, ALTER, SET) at all.
    if (values.isEmpty()) {
        if (query.exec(sql))
            return {};
    } else if (query.prepare(sql)) {
        for (const QVariant& v : values)
            query.addBindValue(v);
        if (query.exec())
            return {};
    }
    logFailure(query.lastError(), sql);
    return query.lastError();
}
} // namespace

Result<QSqlQuery> exec(const QSqlDatabase& db, const QString& sql, const QVariantList& values) {
    QSqlQuery query(db);
    query.setForwardOnly(true);
    if (const QSqlError error = prepareAndRun(query, sql, values); error.isValid())
        return Status::fail(describe(error));
    return query;
}

Status run(const QSqlDatabase& db, const QString& sql, const QVariantList& values, Refusal* refusal) {
    QSqlQuery query(db);
    const QSqlError error = prepareAndRun(query, sql, values);
    if (refusal)
        *refusal = classify(error);
    return error.isValid() ? Status::fail(describe(error)) : Status::ok();
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

Statement::Statement(QSqlDatabase db, QString sql) : m_sql(std::move(sql)), m_query(db) {
    m_query.setForwardOnly(true);
}

Status Statement::exec(std::initializer_list<QVariant> values) {
    return exec(QVariantList(values));
}

Status Statement::exec(const QVariantList& values) {
    m_error = QSqlError();
    if (!m_prepared) {
        m_prepared = m_query.prepare(m_sql);
        if (!m_prepared) {
            m_error = m_query.lastError();
            logFailure(m_error, m_sql);
            return Status::fail(describe(m_error));
        }
    }
    int index = 0;
    for (const QVariant& value : values)
        m_query.bindValue(index++, value);
    if (!m_query.exec()) {
        m_error = m_query.lastError();
        logFailure(m_error, m_sql);
        return Status::fail(describe(m_error));
    }
    return Status::ok();
}

Transaction::Transaction(QSqlDatabase db) : m_db(std::move(db)) {
    m_active = m_db.transaction();
    if (!m_active)
        logFailure(m_db.lastError(), QStringLiteral("BEGIN"));
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
    // Through a statement rather than QSqlDatabase::commit(), whose error carries no result
    // code, so a full disk or a busy file is told as such.
    QSqlQuery commit(m_db);
    if (!commit.exec(QStringLiteral("COMMIT"))) {
        const QSqlError error = commit.lastError();
        logFailure(error, QStringLiteral("COMMIT"));
        m_db.rollback();
        return Status::fail(describe(error));
    }
    return Status::ok();
}

} // namespace Sql
} // namespace ordwell

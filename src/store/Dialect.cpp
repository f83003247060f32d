#include "Dialect.h"

#include "common/Sql.h"

namespace ordwell::Dialects {

Dialect of(const QSqlDatabase& db) {
    return db.driverName() == QLatin1String("QPSQL") ? Dialect::PostgreSQL : Dialect::SQLite;
}

QString exactly(const QSqlDatabase& db, const QString& column) {
    return column + (of(db) == Dialect::PostgreSQL ? QStringLiteral("::text") : QStringLiteral(" COLLATE BINARY"));
}

QString caseBlind(const QSqlDatabase& db, const QString& column) {
    return of(db) == Dialect::PostgreSQL ? column : column + QStringLiteral(" COLLATE NOCASE");
}

QString rowAddress(const QSqlDatabase& db) {
    return of(db) == Dialect::PostgreSQL ? QStringLiteral("ctid") : QStringLiteral("rowid");
}

QString lockingRead(const QSqlDatabase& db) {
    return of(db) == Dialect::PostgreSQL ? QStringLiteral(" FOR UPDATE") : QString();
}

QString clockPlusSeconds(const QSqlDatabase& db) {
    return of(db) == Dialect::PostgreSQL
               ? QStringLiteral("to_char(timezone('UTC', clock_timestamp()) + make_interval(secs => ?), "
                                "'YYYY-MM-DD HH24:MI:SS.MS')")
               : QStringLiteral("strftime('%Y-%m-%d %H:%M:%f', 'now', '+' || ? || ' seconds')");
}

QString clockNow(const QSqlDatabase& db) {
    return of(db) == Dialect::PostgreSQL
               ? QStringLiteral("to_char(timezone('UTC', clock_timestamp()), 'YYYY-MM-DD HH24:MI:SS.MS')")
               : QStringLiteral("strftime('%Y-%m-%d %H:%M:%f', 'now')");
}

QString unchanged(const QSqlDatabase& db, const QStringList& columns) {
    const QString same =
        of(db) == Dialect::PostgreSQL ? QStringLiteral(" IS NOT DISTINCT FROM ?") : QStringLiteral(" IS ?");
    QString sql;
    for (const QString& column : columns)
        sql += QStringLiteral(" AND ") + column + same;
    return sql;
}

Result<bool> hasTable(const QSqlDatabase& db, const QString& table) {
    // A server lists the tables of every schema; only the connection's own counts.
    const QString sql =
        of(db) == Dialect::PostgreSQL
            ? QStringLiteral("SELECT count(*) FROM information_schema.tables WHERE table_schema = current_schema() "
                             "AND table_name = ?")
            : QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE");
    auto found = Sql::scalar(db, sql, {table.toLower()});
    if (!found)
        return found.status();
    return found->toInt() > 0;
}

} // namespace ordwell::Dialects

#include "ServerStore.h"

#include "DatabaseFile.h"
#include "SchemaUpgrade.h"
#include "Schemas.h"
#include "common/Sql.h"

#include <QRegularExpression>
#include <QSqlDriver>
#include <QUrl>
#include <QUrlQuery>

namespace ordwell::ServerStore {

namespace {

// Schema names come from vendor codes, which are letters and digits only; anything else is
// refused rather than quoted into a statement.
bool isPlainName(const QString& name) {
    static const QRegularExpression plain(QStringLiteral("^[a-z][a-z0-9_]{0,62}$"));
    return plain.match(name).hasMatch();
}

QString quotedValue(const QString& value) {
    QString escaped = value;
    escaped.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('\''), QLatin1String("\\'"));
    return QLatin1Char('\'') + escaped + QLatin1Char('\'');
}

Status runAll(const QSqlDatabase& db, const QStringList& statements) {
    for (const QString& statement : statements) {
        if (const Status ran = Sql::run(db, statement); !ran)
            return ran;
    }
    return Status::ok();
}

Result<bool> schemaExists(const QSqlDatabase& db, const QString& schema) {
    auto found = Sql::scalar(
        db, QStringLiteral("SELECT count(*) FROM information_schema.schemata WHERE schema_name = ?"), {schema});
    if (!found)
        return found.status();
    return found->toInt() > 0;
}

Status useSchema(const QSqlDatabase& db, const QString& schema) {
    if (!isPlainName(schema))
        return Status::fail(QStringLiteral("\"%1\" cannot name data on the server.").arg(schema));
    // citext lives in the public schema, beside every schema of ours.
    return Sql::run(db, QStringLiteral("SET search_path TO %1, public").arg(schema));
}

Status createSchema(const QSqlDatabase& db, const QString& schema, const Schema& layout, const QString& what) {
    if (!isPlainName(schema))
        return Status::fail(QStringLiteral("\"%1\" cannot name data on the server.").arg(schema));
    const auto exists = schemaExists(db, schema);
    if (!exists)
        return exists.status();
    if (*exists)
        return Status::fail(QStringLiteral("The server already holds %1.").arg(what));
    Sql::Transaction tx(db);
    Status made = runAll(db, {QStringLiteral("CREATE EXTENSION IF NOT EXISTS citext SCHEMA public"),
                              QStringLiteral("CREATE SCHEMA %1").arg(schema)});
    if (made)
        made = useSchema(db, schema);
    if (made)
        made = runAll(db, layout.createStatements(Dialect::PostgreSQL));
    if (made)
        made = SchemaUpgrade::recordVersion(db, layout.version());
    if (made)
        made = tx.commit();
    if (!made)
        return Status::fail(QStringLiteral("%1 could not be made on the server: %2").arg(what, made.message()));
    return Status::ok();
}

Result<QSqlDatabase> openSchema(const QString& connectionName, const QString& conninfo, const QString& schema,
                                const Schema& layout, const QString& what) {
    Status status;
    {
        auto db = connect(connectionName, conninfo);
        if (!db)
            return db;
        const auto exists = schemaExists(*db, schema);
        if (!exists)
            status = exists.status();
        else if (!*exists)
            status = Status::fail(QStringLiteral("The server (%1) holds no %2.").arg(describe(conninfo), what));
        else
            status = useSchema(*db, schema);
        if (status)
            status = SchemaUpgrade::bringUpToDate(*db, layout, what);
        if (status)
            return db;
    }
    DatabaseFile::close(connectionName);
    return status;
}

} // namespace

QString vendorSchemaName(const QString& code) {
    return QStringLiteral("vendor_") + code.trimmed().toLower();
}

Result<QString> keywordForm(const QString& conninfo) {
    const QString text = conninfo.trimmed();
    if (text.startsWith(QLatin1String("postgresql://")) || text.startsWith(QLatin1String("postgres://"))) {
        const QUrl url(text);
        if (!url.isValid())
            return Status::fail(QStringLiteral("\"%1\" is not a server address: %2").arg(text, url.errorString()));
        QStringList pairs;
        auto add = [&pairs](const char* key, const QString& value) {
            if (!value.isEmpty())
                pairs << QLatin1String(key) + QLatin1Char('=') + quotedValue(value);
        };
        add("host", url.host());
        if (url.port() > 0)
            add("port", QString::number(url.port()));
        add("user", url.userName());
        add("password", url.password());
        add("dbname", url.path().mid(1));
        const QUrlQuery query(url);
        for (const auto& [key, value] : query.queryItems(QUrl::FullyDecoded))
            add(qPrintable(key), value);
        return pairs.join(QLatin1Char(' '));
    }
    static const QRegularExpression pair(QStringLiteral("^\\s*([a-z_]+\\s*=\\s*('([^'\\\\]|\\\\.)*'|\\S+)\\s*)+$"));
    if (text.isEmpty() || !pair.match(text).hasMatch())
        return Status::fail(QStringLiteral("\"%1\" is not a server address. Give a postgresql:// address or "
                                           "key=value pairs such as \"host=shop-server dbname=ordwell\".")
                                .arg(text));
    return text;
}

QString describe(const QString& conninfo) {
    const auto form = keywordForm(conninfo);
    if (!form)
        return conninfo;
    auto valueOf = [&form](const char* key) {
        static const QString pattern = QStringLiteral("(?:^|\\s)%1\\s*=\\s*('((?:[^'\\\\]|\\\\.)*)'|(\\S+))");
        const auto match = QRegularExpression(pattern.arg(QLatin1String(key))).match(*form);
        return match.hasMatch() ? (match.captured(2).isEmpty() ? match.captured(3) : match.captured(2)) : QString();
    };
    QString host = valueOf("host");
    if (host.isEmpty())
        host = QStringLiteral("this computer");
    else if (host.startsWith(QLatin1Char('/')))
        host = QStringLiteral("this computer (%1)").arg(host);
    QString database = valueOf("dbname");
    if (database.isEmpty())
        database = valueOf("user");
    return QStringLiteral("database %1 on %2").arg(database, host);
}

Result<QSqlDatabase> connect(const QString& connectionName, const QString& conninfo) {
    DatabaseFile::close(connectionName);
    const auto form = keywordForm(conninfo);
    if (!form)
        return form.status();
    if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QPSQL")))
        return Status::fail(QStringLiteral("This installation cannot reach a PostgreSQL server: Qt's PostgreSQL "
                                           "driver is missing (Debian package libqt6sql6-psql)."));
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), connectionName);
    // Qt passes these on to libpq, which then reads ~/.pgpass, PGPASSFILE and sslmode itself.
    db.setConnectOptions(*form);
    if (!db.open()) {
        const QString why =
            db.lastError().databaseText().isEmpty() ? db.lastError().driverText() : db.lastError().databaseText();
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(connectionName);
        return Status::fail(
            QStringLiteral("The server could not be reached (%1): %2").arg(describe(conninfo), why.trimmed()));
    }
    // The server's notes ("skipping", "drop cascades") are not for the user's terminal.
    Sql::run(db, QStringLiteral("SET client_min_messages TO warning"));
    // A row another workstation holds is waited for two seconds, as a busy file is, and then
    // refused with a message: never a window frozen behind someone else's transaction.
    Sql::run(db, QStringLiteral("SET lock_timeout TO '2s'"));
    return db;
}

Status createSystem(const QSqlDatabase& db) {
    return createSchema(db, SystemSchema, systemSchema(), QStringLiteral("the organisation's data"));
}

Status createVendor(const QSqlDatabase& db, const QString& code) {
    return createSchema(db, vendorSchemaName(code), vendorSchema(),
                        QStringLiteral("the data of vendor %1").arg(code.trimmed()));
}

Result<QSqlDatabase> openSystem(const QString& connectionName, const QString& conninfo) {
    return openSchema(connectionName, conninfo, SystemSchema, systemSchema(), QStringLiteral("organisation's data"));
}

Result<QSqlDatabase> openVendor(const QString& connectionName, const QString& conninfo, const QString& code) {
    return openSchema(connectionName, conninfo, vendorSchemaName(code), vendorSchema(),
                      QStringLiteral("data of vendor %1").arg(code.trimmed()));
}

} // namespace ordwell::ServerStore

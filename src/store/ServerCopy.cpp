#include "ServerCopy.h"

#include "DatabaseFile.h"
#include "Dialect.h"
#include "SchemaUpgrade.h"
#include "Schemas.h"
#include "ServerStore.h"
#include "Store.h"
#include "common/Sql.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUuid>

namespace ordwell::ServerCopy {

namespace {

// Rows go over as JSON arrays of objects, typed by the server against the table's own columns:
// a few statements for a large catalogue instead of one per row.
constexpr int BatchRows = 5000;

struct TableCount {
    QString table;
    qint64 rows = 0;
};

QJsonValue jsonOf(const QVariant& value) {
    if (value.isNull())
        return QJsonValue::Null;
    switch (value.metaType().id()) {
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::ULongLong:
    case QMetaType::UInt:
        return QJsonValue(value.toLongLong());
    case QMetaType::Double:
        return QJsonValue(value.toDouble());
    default:
        return QJsonValue(value.toString());
    }
}

QString tableName(const TableDef& table) {
    return table.name.toLower();
}

// COUNT(*) and the sum of every money column, the same text on both sides.
QString checkSql(const TableDef& table) {
    QStringList parts{QStringLiteral("COUNT(*)")};
    for (const FieldDef& field : table.fields) {
        if (field.type == QLatin1String("cur"))
            parts << QStringLiteral("COALESCE(SUM(") + field.name.toLower() + QStringLiteral("), 0)");
    }
    return QStringLiteral("SELECT ") + parts.join(QStringLiteral(", ")) + QStringLiteral(" FROM ") + tableName(table);
}

Result<QStringList> checkFigures(const QSqlDatabase& db, const TableDef& table) {
    auto q = Sql::exec(db, checkSql(table));
    if (!q)
        return q.status();
    QStringList figures;
    if (q.value().next()) {
        for (int i = 0; i < q.value().record().count(); ++i)
            figures << QString::number(q.value().value(i).toLongLong());
    }
    return figures;
}

bool fileHasTable(const QSqlDatabase& file, const QString& table) {
    const auto found = Dialects::hasTable(file, table);
    return found && *found;
}

// The rows of one table, in batches; then the counters moved past the copied keys, and the
// figures compared.
Result<qint64> copyTable(const QSqlDatabase& file, const QSqlDatabase& server, const TableDef& table) {
    const QString name = tableName(table);
    if (!fileHasTable(file, name))
        return qint64(0); // a table of a later layout than the file's: nothing to copy
    auto rows = Sql::exec(file, QStringLiteral("SELECT * FROM ") + name);
    if (!rows)
        return rows.status();
    QSqlQuery& q = rows.value();
    QStringList columns;
    for (int i = 0; i < q.record().count(); ++i)
        columns << q.record().fieldName(i).toLower();
    const QString list = columns.join(QStringLiteral(", "));
    const QString insert = QStringLiteral("INSERT INTO ") + name + QStringLiteral(" (") + list +
                           QStringLiteral(") OVERRIDING SYSTEM VALUE SELECT ") + list +
                           QStringLiteral(" FROM json_populate_recordset(NULL::") + name + QStringLiteral(", ?::json)");
    qint64 copied = 0;
    QJsonArray batch;
    auto flush = [&]() -> Status {
        if (batch.isEmpty())
            return Status::ok();
        const QString json = QString::fromUtf8(QJsonDocument(batch).toJson(QJsonDocument::Compact));
        batch = QJsonArray();
        return Sql::run(server, insert, {json});
    };
    while (q.next()) {
        QJsonObject row;
        for (int i = 0; i < columns.size(); ++i)
            row.insert(columns.at(i), jsonOf(q.value(i)));
        batch.append(row);
        ++copied;
        if (batch.size() >= BatchRows) {
            if (Status sent = flush(); !sent)
                return sent;
        }
    }
    if (q.lastError().isValid())
        return Status::fail(Sql::describe(q.lastError()));
    if (Status sent = flush(); !sent)
        return sent;
    for (const FieldDef& field : table.fields) {
        if (!field.autoIncrement)
            continue;
        // The next row added on the server gets a number no copied row has.
        const Status moved = Sql::run(server,
                                      QStringLiteral("SELECT setval(pg_get_serial_sequence(?, ?), COALESCE(MAX(") +
                                          field.name.toLower() + QStringLiteral("), 0) + 1, false) FROM ") + name,
                                      {name, field.name.toLower()});
        if (!moved)
            return moved;
    }
    const auto here = checkFigures(file, table);
    const auto there = checkFigures(server, table);
    if (!here)
        return here.status();
    if (!there)
        return there.status();
    if (*here != *there)
        return Status::fail(QStringLiteral("the table %1 does not add up on the server (%2 in the file, %3 there)")
                                .arg(name, here->join(QLatin1Char('/')), there->join(QLatin1Char('/'))));
    return copied;
}

// One database: its schema made, then every table's rows, in one transaction.
Result<QList<TableCount>> copyDatabase(const QSqlDatabase& file, const QSqlDatabase& server, const QString& schema,
                                       const Schema& layout) {
    const auto version = SchemaUpgrade::storedVersion(file);
    if (!version)
        return version.status();
    if (*version > layout.version())
        return Status::fail(QStringLiteral("it was written by a newer Ordwell than this one"));
    // The file is read from one snapshot, whatever a running program does meanwhile.
    Sql::Transaction reading(file);
    Sql::Transaction writing(server);
    if (!writing.isActive())
        return Status::fail(Sql::describe(server.lastError()));
    if (Status used =
            Sql::run(server, QStringLiteral("SET LOCAL search_path TO ") + schema + QStringLiteral(", public"));
        !used)
        return used;
    QList<TableCount> counts;
    for (const TableDef& table : layout.tables()) {
        if (table.name == QLatin1String("schemaversion"))
            continue; // the server's own, made with the schema
        auto copied = copyTable(file, server, table);
        if (!copied)
            return copied.status();
        counts.append({tableName(table), *copied});
    }
    if (Status committed = writing.commit(); !committed)
        return committed;
    return counts;
}

qint64 countOf(const QList<TableCount>& counts, const char* table) {
    for (const TableCount& c : counts) {
        if (c.table == QLatin1String(table))
            return c.rows;
    }
    return 0;
}

Result<bool> serverHoldsOrdwellData(const QSqlDatabase& server) {
    auto found = Sql::scalar(server,
                             QStringLiteral("SELECT count(*) FROM information_schema.schemata WHERE "
                                            "schema_name = ? OR schema_name LIKE 'vendor\\_%'"),
                             {ServerStore::SystemSchema});
    if (!found)
        return found.status();
    return found->toInt() > 0;
}

// Takes back every schema this copy made.
void dropMade(const QSqlDatabase& server, const QStringList& made) {
    for (const QString& schema : made)
        Sql::run(server, QStringLiteral("DROP SCHEMA IF EXISTS ") + schema + QStringLiteral(" CASCADE"));
}

// The organisation's data, then each vendor's, each file opened read-only in turn; `made`
// names the schemas made, for taking them back after a failure.
Result<QStringList> copyInto(const QSqlDatabase& server, const QString& dataDir, const QString& fileName,
                             QStringList& made) {
    QList<std::pair<QString, QString>> vendors; // code, name and state
    QStringList lines;
    {
        auto file = DatabaseFile::open(fileName, Store::systemDatabasePath(dataDir), true);
        if (!file)
            return file.status();
        if (Status created = ServerStore::createSystem(server); !created)
            return created;
        made << ServerStore::SystemSchema;
        auto copied = copyDatabase(*file, server, ServerStore::SystemSchema, systemSchema());
        if (!copied)
            return Status::fail(QStringLiteral("the organisation's data: ") + copied.message());
        auto list = Sql::exec(*file, QStringLiteral("SELECT code, vendor, status FROM vendors ORDER BY code"));
        if (!list)
            return list.status();
        while (list.value().next()) {
            const QString state =
                list.value().value(2).toString() == QLatin1String("A") ? QString() : QStringLiteral(" (deactivated)");
            vendors.append({list.value().value(0).toString(), list.value().value(1).toString() + state});
        }
        lines << QStringLiteral("The organisation's details and its list of %1 vendors.").arg(vendors.size());
    }
    DatabaseFile::close(fileName);

    const QLocale locale;
    for (const auto& [code, name] : vendors) {
        const QString path = Store::vendorDatabasePath(dataDir, code);
        if (!QFileInfo(path).isFile())
            return Status::fail(
                QStringLiteral("the database of vendor %1, %2, is missing").arg(code, QDir::toNativeSeparators(path)));
        Result<QList<TableCount>> copied = Status::fail(QString());
        {
            auto file = DatabaseFile::open(fileName, path, true);
            if (!file)
                return file.status();
            if (Status created = ServerStore::createVendor(server, code); !created)
                return created;
            made << ServerStore::vendorSchemaName(code);
            copied = copyDatabase(*file, server, ServerStore::vendorSchemaName(code), vendorSchema());
        }
        DatabaseFile::close(fileName);
        if (!copied)
            return Status::fail(QStringLiteral("vendor %1: ").arg(code) + copied.message());
        lines << QStringLiteral("%1 %2: %3 items, %4 barcode rules, %5 orders, %6 order lines.")
                     .arg(code, name, locale.toString(countOf(*copied, "items")),
                          locale.toString(countOf(*copied, "barcodes")), locale.toString(countOf(*copied, "orderhead")),
                          locale.toString(countOf(*copied, "orderline")));
    }
    return lines;
}

} // namespace

Result<QStringList> copyDataFolder(const QString& dataDir, const QString& conninfo) {
    const QString shownDir = QDir::toNativeSeparators(dataDir);
    const QString systemPath = Store::systemDatabasePath(dataDir);
    if (!QFileInfo(systemPath).isFile())
        return Status::fail(QStringLiteral("There is no Ordwell data in %1, so nothing was copied.").arg(shownDir));
    const QString where = ServerStore::describe(conninfo);
    const QString serverName = QStringLiteral("ordwell-copy-server");
    const QString fileName = QStringLiteral("ordwell-copy-file-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    Result<QStringList> result = Status::fail(QString());
    {
        auto server = ServerStore::connect(serverName, conninfo);
        if (!server)
            return server.status();
        const auto holds = serverHoldsOrdwellData(*server);
        if (holds && *holds) {
            result = Status::fail(QStringLiteral("%1 already holds Ordwell data, so nothing was copied there. Copy "
                                                 "into an empty database.")
                                      .arg(where.left(1).toUpper() + where.mid(1)));
        } else {
            QStringList made;
            result = holds ? copyInto(*server, dataDir, fileName, made) : Result<QStringList>(holds.status());
            if (!result) {
                dropMade(*server, made);
                result = Status::fail(QStringLiteral("The data in %1 could not be copied to %2, so nothing was "
                                                     "copied: %3")
                                          .arg(shownDir, where, result.message()));
            }
        }
    }
    DatabaseFile::close(fileName);
    DatabaseFile::close(serverName);
    return result;
}

} // namespace ordwell::ServerCopy

#include "SchemaUpgrade.h"

#include "Dialect.h"
#include "common/Sql.h"

#include <QDir>

namespace ordwell::SchemaUpgrade {

Result<int> storedVersion(const QSqlDatabase& db) {
    const auto recorded = Dialects::hasTable(db, VersionTable);
    if (!recorded)
        return recorded.status();
    if (!*recorded)
        return 1;
    auto version = Sql::scalar(db, QStringLiteral("SELECT max(version) FROM schemaversion"));
    if (!version)
        return version.status();
    // A version table without its row is a file whose upgrade was cut short outside a
    // transaction: nothing of ours writes it so, and guessing would be worse than refusing.
    if (!version->isValid() || version->isNull())
        return Status::fail(QStringLiteral("The data has no recorded version."));
    return version->toInt();
}

Status recordVersion(const QSqlDatabase& db, int version) {
    if (const Status cleared = Sql::run(db, QStringLiteral("DELETE FROM schemaversion")); !cleared)
        return cleared;
    return Sql::run(db, QStringLiteral("INSERT INTO schemaversion (version) VALUES (?)"), {version});
}

Status bringUpToDate(const QSqlDatabase& db, const Schema& schema, const QString& shownName) {
    const QString name = QDir::toNativeSeparators(shownName);
    const auto stored = storedVersion(db);
    if (!stored)
        return Status::fail(
            QStringLiteral("The version of the data in \"%1\" could not be read: %2").arg(name, stored.message()));
    const int from = stored.value();
    if (from > schema.version())
        return Status::fail(QStringLiteral("The data in \"%1\" was written by a newer version of Ordwell (data "
                                           "version %2; this program reads up to version %3). Install the newer "
                                           "program to use it. Nothing has been changed.")
                                .arg(name)
                                .arg(from)
                                .arg(schema.version()));
    if (from == schema.version())
        return Status::ok();

    // DDL is transactional on both engines: a failed step leaves the data as it was.
    Sql::Transaction tx(db);
    if (!tx.isActive())
        return Status::fail(
            QStringLiteral("The data in \"%1\" could not be upgraded: it is in use elsewhere.").arg(name));
    for (int version = from + 1; version <= schema.version(); ++version) {
        for (const QString& statement : schema.upgradeStatements(version, Dialects::of(db))) {
            if (const Status ran = Sql::run(db, statement); !ran)
                return Status::fail(QStringLiteral("The data in \"%1\" could not be upgraded to version %2: %3")
                                        .arg(name)
                                        .arg(version)
                                        .arg(ran.message()));
        }
    }
    if (const Status recorded = recordVersion(db, schema.version()); !recorded)
        return Status::fail(
            QStringLiteral("The data in \"%1\" could not be upgraded: %2").arg(name, recorded.message()));
    if (const Status committed = tx.commit(); !committed)
        return Status::fail(
            QStringLiteral("The data in \"%1\" could not be upgraded: %2").arg(name, committed.message()));
    return Status::ok();
}

} // namespace ordwell::SchemaUpgrade

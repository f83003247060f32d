#include "DatabaseFile.h"

#include "SchemaUpgrade.h"
#include "common/Sql.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlQuery>
#include <QUuid>

namespace ordwell::DatabaseFile {

void restrictToOwner(const QString& path, bool isFolder) {
    QFile::Permissions perms = QFile::ReadOwner | QFile::WriteOwner;
    if (isFolder)
        perms |= QFile::ExeOwner;
    QFile::setPermissions(path, perms);
}

namespace {

QString cannotCreate(const QString& path, const QString& why) {
    return QStringLiteral("The database \"%1\" could not be created.\n%2").arg(QDir::toNativeSeparators(path), why);
}

Status buildInto(const QString& tempPath, const Schema& schema) {
    const QString name = QStringLiteral("ordwell-create-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    Status status;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        db.setDatabaseName(tempPath);
        if (!db.open()) {
            status = Status::fail(db.lastError().text());
        } else {
            Sql::Transaction tx(db);
            for (const QString& statement : schema.createStatements()) {
                status = Sql::run(db, statement);
                if (!status)
                    break;
            }
            if (status)
                status = SchemaUpgrade::recordVersion(db, schema.version());
            if (status)
                status = tx.commit();
            db.close();
        }
    }
    QSqlDatabase::removeDatabase(name);
    return status;
}

} // namespace

Status create(const QString& path, const Schema& schema) {
    if (QFileInfo::exists(path))
        return Status::fail(cannotCreate(path, QStringLiteral("A file of that name already exists.")));
    const QString tempPath = path + QStringLiteral(".creating");
    QFile::remove(tempPath);
    {
        // Make the file first so its rights are owner-only before any data is in it.
        QFile file(tempPath);
        if (!file.open(QIODevice::WriteOnly)) {
            return Status::fail(cannotCreate(path, file.errorString()));
        }
        file.close();
        restrictToOwner(tempPath, false);
    }
    Status built = buildInto(tempPath, schema);
    if (!built) {
        QFile::remove(tempPath);
        return Status::fail(cannotCreate(path, built.message()));
    }
    if (!QFile::rename(tempPath, path)) {
        QFile::remove(tempPath);
        return Status::fail(cannotCreate(path, QStringLiteral("The new file could not be given its name.")));
    }
    return Status::ok();
}

QSqlDatabase addConnection(const QString& connectionName, const QString& path, bool readOnly) {
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName);
    db.setDatabaseName(path);
    QString options = QStringLiteral("QSQLITE_BUSY_TIMEOUT=2000");
    if (readOnly)
        options += QStringLiteral(";QSQLITE_OPEN_READONLY");
    db.setConnectOptions(options);
    return db;
}

Result<QSqlDatabase> open(const QString& connectionName, const QString& path, bool readOnly) {
    close(connectionName);
    if (!QFileInfo(path).isFile())
        return Status::fail(
            QStringLiteral("The database file \"%1\" does not exist.").arg(QDir::toNativeSeparators(path)));
    QSqlDatabase db = addConnection(connectionName, path, readOnly);
    if (!db.open()) {
        Sql::logFailure(db.lastError(), QStringLiteral("open"));
        const QString why = Sql::describe(db.lastError());
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(connectionName);
        return Status::fail(
            QStringLiteral("The database \"%1\" could not be opened: %2").arg(QDir::toNativeSeparators(path), why));
    }
    // SQLite opens any file lazily; reading the catalogue proves it is a database. An emptied
    // file reads as a database without tables, and none of ours is ever without them.
    Sql::Refusal why = Sql::Refusal::None;
    const Status check = Sql::run(db, QStringLiteral("SELECT count(*) FROM sqlite_master"), {}, &why);
    if (!check || Sql::scalar(db, QStringLiteral("SELECT count(*) FROM sqlite_master"))->toInt() == 0) {
        db.close();
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(connectionName);
        // A file another program holds is not a damaged one: say which it is.
        if (why == Sql::Refusal::Busy)
            return Status::fail(QStringLiteral("The database \"%1\" is in use by another program.")
                                    .arg(QDir::toNativeSeparators(path)));
        return Status::fail(
            QStringLiteral("The file \"%1\" is not a usable database.").arg(QDir::toNativeSeparators(path)));
    }
    return db;
}

void close(const QString& connectionName) {
    if (!QSqlDatabase::contains(connectionName))
        return;
    {
        QSqlDatabase db = QSqlDatabase::database(connectionName, false);
        if (db.isOpen())
            db.close();
    }
    QSqlDatabase::removeDatabase(connectionName);
}

bool isOpen(const QString& connectionName) {
    return QSqlDatabase::contains(connectionName) && QSqlDatabase::database(connectionName, false).isOpen();
}

} // namespace ordwell::DatabaseFile

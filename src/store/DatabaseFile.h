#pragma once

#include "FieldScheme.h"
#include "common/Sql.h"
#include "common/Status.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QUuid>
#include <QVariantList>

namespace ordwell {

// Creating, opening and closing one embedded database file through a named connection.
namespace DatabaseFile {

// Builds a new file at `path` with every table of `schema`. The tables are made in a
// temporary file that takes the final name only when complete, so a failure leaves nothing
// behind. Refuses to replace an existing file.
Status create(const QString& path, const Schema& schema);

// Opens the existing file at `path` as connection `connectionName` (replacing any connection
// of that name) and checks that it really is a readable database.
Result<QSqlDatabase> open(const QString& connectionName, const QString& path, bool readOnly = false);

// Registers connection `connectionName` to the file at `path` with the program's usual
// options (a busy wait, optionally read-only), without opening it.
QSqlDatabase addConnection(const QString& connectionName, const QString& path, bool readOnly);

// Closes the named connection and forgets it. Harmless when it is not open.
void close(const QString& connectionName);

bool isOpen(const QString& connectionName);

// Owner-only rights on a file or folder we made.
void restrictToOwner(const QString& path, bool isFolder);

// A short-lived connection of its own to the file at `path` (compaction and backups use them),
// closed and forgotten when it goes out of scope. Opening is lazy in SQLite, so problems show up on the first statement
// instead.
class OwnConnection {
public:
    OwnConnection(const QString& path, bool readOnly)
        : m_name(QStringLiteral("ordwell-own-") + QUuid::createUuid().toString(QUuid::WithoutBraces)) {
        QSqlDatabase db = DatabaseFile::addConnection(m_name, path, readOnly);
        if (!db.open())
            m_openError = db.lastError();
    }
    ~OwnConnection() { DatabaseFile::close(m_name); }
    OwnConnection(const OwnConnection&) = delete;
    OwnConnection& operator=(const OwnConnection&) = delete;

    bool isOpen() const { return !m_openError.isValid(); }
    const QSqlError& openError() const { return m_openError; }
    QSqlDatabase db() const { return QSqlDatabase::database(m_name, false); }

    // Runs one statement; the error, if any, is returned (invalid when it worked).
    QSqlError run(const QString& sql, const QVariantList& values = {}) const {
        QSqlQuery query(db());
        if (query.prepare(sql)) {
            for (const QVariant& v : values)
                query.addBindValue(v);
            if (query.exec())
                return {};
        }
        Sql::logFailure(query.lastError(), sql);
        return query.lastError();
    }

private:
    QString m_name;
    QSqlError m_openError;
};

} // namespace DatabaseFile
} // namespace ordwell

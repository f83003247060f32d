#include "Compaction.h"

#include "DatabaseFile.h"
#include "Store.h"
#include "common/Sql.h"
#include "common/WaitCursor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QMap>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace ordwell {

namespace {

QString native(const QString& path) {
    return QDir::toNativeSeparators(path);
}

// What went wrong with the original file, in words the user can act on.
QString sourceProblem(const QString& path, const QSqlError& error) {
    switch (Sql::classify(error)) {
    case Sql::Refusal::Busy:
        return QStringLiteral("The database \"%1\" is in use by another program. Close it there and try again.")
            .arg(native(path));
    case Sql::Refusal::Damaged:
        return QStringLiteral("The file \"%1\" is damaged or is not a database.").arg(native(path));
    case Sql::Refusal::Unavailable:
        return QStringLiteral("The database \"%1\" could not be opened for compacting; check that it can be read "
                              "and changed, and that the disk is working.")
            .arg(native(path));
    default:
        return QStringLiteral("The database \"%1\" could not be compacted. %2").arg(native(path), Sql::describe(error));
    }
}

QString copyProblem(const QString& tempPath, const QSqlError& error) {
    switch (Sql::classify(error)) {
    case Sql::Refusal::DiskFull:
        return QStringLiteral("There is not enough free disk space for the compacted copy \"%1\".")
            .arg(native(tempPath));
    case Sql::Refusal::Unavailable:
        return QStringLiteral("The compacted copy \"%1\" could not be written.").arg(native(tempPath));
    default:
        return QString();
    }
}

// Everything a faithful copy must have the same of: the catalogue entries and the number of
// rows in each table.
struct Contents {
    QStringList catalogue;
    QMap<QString, qint64> rowCounts;
    QSqlError error;
};

QString quotedName(const QString& name) {
    QString escaped = name;
    escaped.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

Contents readContents(const DatabaseFile::OwnConnection& connection) {
    Contents contents;
    QStringList tables;
    {
        QSqlQuery query(connection.db());
        query.setForwardOnly(true);
        if (!query.exec(QStringLiteral("SELECT type, name, tbl_name, sql FROM sqlite_master ORDER BY type, name"))) {
            contents.error = query.lastError();
            return contents;
        }
        while (query.next()) {
            const QString type = query.value(0).toString();
            const QString name = query.value(1).toString();
            contents.catalogue << QStringList{type, name, query.value(2).toString(), query.value(3).toString()}.join(
                QChar(0x1f));
            if (type == QLatin1String("table"))
                tables << name;
        }
    }
    for (const QString& table : tables) {
        QSqlQuery query(connection.db());
        query.setForwardOnly(true);
        // Table names come from the catalogue, never from a user; they cannot be bound.
        if (!query.exec(QStringLiteral("SELECT count(*) FROM ") + quotedName(table)) || !query.next()) {
            contents.error = query.lastError();
            return contents;
        }
        contents.rowCounts.insert(table, query.value(0).toLongLong());
    }
    return contents;
}

// True when a connection of this program still has the file open: replacing the file under it
// would leave that connection working on a file that no longer has a name.
bool openInThisProgram(const QString& path) {
    const QString target = QFileInfo(path).canonicalFilePath();
    const QStringList names = QSqlDatabase::connectionNames();
    for (const QString& name : names) {
        const QSqlDatabase db = QSqlDatabase::database(name, false);
        if (db.isOpen() && db.driverName() == QLatin1String("QSQLITE") &&
            QFileInfo(db.databaseName()).canonicalFilePath() == target)
            return true;
    }
    return false;
}

// SQLite does not flush what VACUUM INTO writes; the copy must be on the disk before it
// takes the original's name.
bool flushToDisk(const QString& path) {
#ifdef Q_OS_WIN
    HANDLE file = CreateFileW(reinterpret_cast<LPCWSTR>(path.utf16()), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    const bool flushed = FlushFileBuffers(file) != 0;
    CloseHandle(file);
    return flushed;
#else
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY);
    if (fd < 0)
        return false;
    const bool flushed = ::fsync(fd) == 0;
    ::close(fd);
    return flushed;
#endif
}

// Gives `from` the name `to` in one step, replacing the file of that name: there is no moment
// at which `to` is missing. QFile::rename refuses to replace, hence the system calls.
QString replaceFile(const QString& from, const QString& to) {
#ifdef Q_OS_WIN
    if (MoveFileExW(reinterpret_cast<LPCWSTR>(native(from).utf16()), reinterpret_cast<LPCWSTR>(native(to).utf16()),
                    MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return QString();
    return QStringLiteral("Windows error %1").arg(GetLastError());
#else
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        return QString::fromLocal8Bit(std::strerror(errno));
    // Make the new directory entry itself durable.
    const int dir = ::open(QFile::encodeName(QFileInfo(to).absolutePath()).constData(), O_RDONLY);
    if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
    return QString();
#endif
}

void removeTemporary(const QString& tempPath) {
    QFile::remove(tempPath);
    for (const char* suffix : {"-journal", "-wal", "-shm"})
        QFile::remove(tempPath + QLatin1String(suffix));
}

// Makes the verified copy at `tempPath`. Writers are held off the original from before the
// rows are counted until the copy has been checked, so the counts and the copy agree.
Status makeVerifiedCopy(const QString& path, const QString& tempPath) {
    DatabaseFile::OwnConnection guard(path, false);
    if (!guard.isOpen())
        return Status::fail(sourceProblem(path, guard.openError()));
    // BEGIN IMMEDIATE fails while another connection holds a write lock: the file is busy.
    if (QSqlError e = guard.run(QStringLiteral("BEGIN IMMEDIATE")); e.isValid())
        return Status::fail(sourceProblem(path, e));

    Contents original;
    {
        DatabaseFile::OwnConnection source(path, true);
        if (!source.isOpen())
            return Status::fail(sourceProblem(path, source.openError()));
        original = readContents(source);
        if (original.error.isValid())
            return Status::fail(sourceProblem(path, original.error));

        // An empty file of ours first, so the copy is owner-only from its first byte.
        QFile temp(tempPath);
        if (!temp.open(QIODevice::WriteOnly))
            return Status::fail(QStringLiteral("The compacted copy \"%1\" could not be created: %2")
                                    .arg(native(tempPath), temp.errorString()));
        temp.close();
        DatabaseFile::restrictToOwner(tempPath, false);

        if (QSqlError e = source.run(QStringLiteral("VACUUM INTO ?"), {tempPath}); e.isValid()) {
            const QString aboutCopy = copyProblem(tempPath, e);
            return Status::fail(aboutCopy.isEmpty() ? sourceProblem(path, e) : aboutCopy);
        }
    }

    {
        DatabaseFile::OwnConnection copy(tempPath, true);
        QStringList verdict;
        if (copy.isOpen()) {
            QSqlQuery query(copy.db());
            query.setForwardOnly(true);
            if (query.exec(QStringLiteral("PRAGMA integrity_check"))) {
                while (query.next())
                    verdict << query.value(0).toString();
            }
        }
        if (verdict != QStringList{QStringLiteral("ok")})
            return Status::fail(QStringLiteral("The compacted copy did not pass its integrity check."));
        const Contents copied = readContents(copy);
        if (copied.error.isValid() || copied.catalogue != original.catalogue)
            return Status::fail(QStringLiteral("The compacted copy does not have the same tables as the original."));
        for (auto it = original.rowCounts.cbegin(); it != original.rowCounts.cend(); ++it) {
            if (copied.rowCounts.value(it.key(), -1) != it.value())
                return Status::fail(
                    QStringLiteral("The compacted copy does not hold every row of the table \"%1\".").arg(it.key()));
        }
    }

    guard.run(QStringLiteral("ROLLBACK"));
    if (!flushToDisk(tempPath))
        return Status::fail(
            QStringLiteral("The compacted copy \"%1\" could not be written to the disk.").arg(native(tempPath)));
    return Status::ok();
}

} // namespace

Status CompactDatabase(const QString& path, const QString& dataDir) {
    WaitCursor hourglass;
    const QString original = QFileInfo(path).absoluteFilePath();
    const QString tempPath = QFileInfo(QDir(dataDir).filePath(Store::CompactFileName)).absoluteFilePath();
    const QString leftAsItWas = QStringLiteral(" The database file has been left as it was.");

    const bool isTheTemporaryFile =
        original == tempPath || (QFileInfo::exists(original) &&
                                 QFileInfo(original).canonicalFilePath() == QFileInfo(tempPath).canonicalFilePath());
    if (isTheTemporaryFile)
        return Status::fail(
            QStringLiteral("The temporary file \"%1\" cannot itself be compacted.").arg(native(original)));
    // A copy left by an earlier run that was interrupted is of no use any more.
    if (QFileInfo::exists(tempPath)) {
        removeTemporary(tempPath);
        if (QFileInfo::exists(tempPath))
            return Status::fail(QStringLiteral("The temporary file \"%1\" left by an earlier compaction could not be "
                                               "removed.")
                                    .arg(native(tempPath)) +
                                leftAsItWas);
    }
    if (!QFileInfo(original).isFile())
        return Status::fail(QStringLiteral("The database file \"%1\" does not exist.").arg(native(original)));
    if (openInThisProgram(original))
        return Status::fail(QStringLiteral("The database \"%1\" is still open in Ordwell.").arg(native(original)) +
                            leftAsItWas);

    Status copied = makeVerifiedCopy(original, tempPath);
    // With every connection of ours closed, a write-ahead log still beside the original means
    // another program has it open.
    if (copied && QFileInfo::exists(original + QStringLiteral("-wal")))
        copied = Status::fail(QStringLiteral("The database \"%1\" is in use by another program. Close it there and "
                                             "try again.")
                                  .arg(native(original)));
    if (!copied) {
        removeTemporary(tempPath);
        return Status::fail(copied.message() + leftAsItWas);
    }

    const QString renameError = replaceFile(tempPath, original);
    if (!renameError.isEmpty()) {
        removeTemporary(tempPath);
        return Status::fail(QStringLiteral("The compacted copy could not take the place of \"%1\": %2.")
                                .arg(native(original), renameError) +
                            leftAsItWas);
    }
    DatabaseFile::restrictToOwner(original, false);
    removeTemporary(tempPath);
    return Status::ok();
}

} // namespace ordwell

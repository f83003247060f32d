#include "Backup.h"

#include "DatabaseFile.h"
#include "SchemaUpgrade.h"
#include "Schemas.h"
#include "Store.h"
#include "common/Sql.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QMap>
#include <QRegularExpression>
#include <QSaveFile>
#include <QSet>
#include <QSqlQuery>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QThread>
#include <QUuid>

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <tuple>

namespace ordwell::Backup {

namespace {

const QString SystemKind = QStringLiteral("system");
const QString VendorKind = QStringLiteral("vendor");
const QString AgreementName = QStringLiteral("EULA.txt");
constexpr qint64 ManifestLimit = 4 * 1024 * 1024;
constexpr qint64 ChunkSize = 256 * 1024;
// What libarchive's archive_errno() gives for "this is no archive of a format it reads" (its
// own constant is private).
#ifdef EFTYPE
constexpr int UnrecognisedFormat = EFTYPE;
#else
constexpr int UnrecognisedFormat = EILSEQ;
#endif

QString native(const QString& path) {
    return QDir::toNativeSeparators(path);
}

Outcome fail(Problem problem, const QString& message) {
    return Outcome::fail(problem, message);
}

// One file the archive holds, as its manifest describes it.
struct FileRecord {
    QString name;
    qint64 size = 0;
    QString sha256;
    QString kind; // empty for a file that is not a database
    int schemaVersion = 0;
    QMap<QString, qint64> rows;
};

struct Manifest {
    QDateTime created;
    QString programVersion;
    QList<FileRecord> files;
};

bool isVendorFileName(const QString& name) {
    return name.endsWith(QStringLiteral("vendor.mdb")) && name.size() > 10;
}

// The kind of database a file name stands for, empty for the other files a backup holds.
QString kindOf(const QString& name) {
    if (name == Store::SystemFileName)
        return SystemKind;
    return isVendorFileName(name) ? VendorKind : QString();
}

// The names a backup may hold. Anything else (a path, a hidden file, a file of another kind)
// is never written out of an archive.
bool isBackedUpName(const QString& name) {
    if (name.isEmpty() || name.size() > 255 || name.startsWith(QLatin1Char('.')) || name.contains(QLatin1Char('/')) ||
        name.contains(QLatin1Char('\\')) || name.contains(QChar(0)))
        return false;
    return name == Store::SystemFileName || isVendorFileName(name) || name == AgreementName ||
           (name.endsWith(QStringLiteral(".rpt")) && name.size() > 4);
}

// The data folder's files that make up a backup: the system database first.
QStringList filesToBackUp(const QString& dataDir) {
    QStringList names{Store::SystemFileName};
    const QDir dir(dataDir);
    QStringList vendors = dir.entryList({QStringLiteral("*vendor.mdb")}, QDir::Files);
    QStringList reports = dir.entryList({QStringLiteral("*.rpt")}, QDir::Files);
    vendors.sort();
    reports.sort();
    names << vendors << reports;
    if (QFileInfo(dir.filePath(AgreementName)).isFile())
        names << AgreementName;
    names.removeIf([](const QString& name) { return !isBackedUpName(name); });
    return names;
}

int programVersionFor(const QString& kind) {
    return kind == SystemKind ? systemSchema().version() : vendorSchema().version();
}

// A write failed: when the disk has next to no room left, that is the reason to give.
bool diskIsFull(const QString& folder) {
    const QStorageInfo storage(folder);
    return storage.isValid() && storage.bytesAvailable() < 64 * 1024;
}

QString quotedName(const QString& name) {
    QString escaped = name;
    escaped.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

// SQLite's own verdict, the layout version and the rows per table of a database file; an
// empty string when all could be read, else what went wrong.
QString inspectDatabase(const QString& path, FileRecord& record) {
    DatabaseFile::OwnConnection connection(path, true);
    if (!connection.isOpen())
        return Sql::describe(connection.openError());
    QSqlQuery check(connection.db());
    check.setForwardOnly(true);
    QStringList verdict;
    if (check.exec(QStringLiteral("PRAGMA integrity_check"))) {
        while (check.next())
            verdict << check.value(0).toString();
    }
    check.finish();
    if (verdict != QStringList{QStringLiteral("ok")})
        return QStringLiteral("it did not pass its integrity check");
    const auto version = SchemaUpgrade::storedVersion(connection.db());
    if (!version)
        return version.message();
    record.schemaVersion = version.value();
    record.rows.clear();
    QStringList tables;
    {
        QSqlQuery query(connection.db());
        query.setForwardOnly(true);
        if (!query.exec(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name")))
            return Sql::describe(query.lastError());
        while (query.next())
            tables << query.value(0).toString();
    }
    for (const QString& table : tables) {
        QSqlQuery query(connection.db());
        query.setForwardOnly(true);
        // Table names come from the file's own catalogue; they cannot be bound.
        if (!query.exec(QStringLiteral("SELECT count(*) FROM ") + quotedName(table)) || !query.next())
            return Sql::describe(query.lastError());
        record.rows.insert(table, query.value(0).toLongLong());
    }
    return {};
}

// Reads a file through, returning its SHA-256 in hex (empty when it could not be read).
QString fileSha256(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!hash.addData(&file))
        return {};
    return QString::fromLatin1(hash.result().toHex());
}

QJsonObject toJson(const FileRecord& record) {
    QJsonObject object{{QStringLiteral("name"), record.name},
                       {QStringLiteral("size"), record.size},
                       {QStringLiteral("sha256"), record.sha256}};
    if (!record.kind.isEmpty()) {
        object.insert(QStringLiteral("kind"), record.kind);
        object.insert(QStringLiteral("schemaVersion"), record.schemaVersion);
        QJsonObject rows;
        for (auto it = record.rows.cbegin(); it != record.rows.cend(); ++it)
            rows.insert(it.key(), it.value());
        object.insert(QStringLiteral("rows"), rows);
    }
    return object;
}

QByteArray manifestJson(const Manifest& manifest) {
    QJsonArray files;
    for (const FileRecord& record : manifest.files)
        files.append(toJson(record));
    const QJsonObject root{
        {QStringLiteral("format"), FormatMarker},
        {QStringLiteral("formatVersion"), FormatVersion},
        {QStringLiteral("program"), QStringLiteral("Ordwell")},
        {QStringLiteral("programVersion"),
         QStringLiteral("%1.%2.%3").arg(ORDWELL_VERSION_MAJOR).arg(ORDWELL_VERSION_MINOR).arg(ORDWELL_VERSION_PATCH)},
        {QStringLiteral("created"), manifest.created.toUTC().toString(Qt::ISODate)},
        {QStringLiteral("files"), files}};
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

// --- writing ---------------------------------------------------------------------------------

struct ArchiveFree {
    void operator()(archive* a) const { archive_write_free(a); }
};
struct ReadArchiveFree {
    void operator()(archive* a) const { archive_read_free(a); }
};

// Where libarchive's output goes: a QSaveFile, so nothing takes the archive's name until it
// is complete.
struct Sink {
    QSaveFile* file = nullptr;
    bool failed = false;
};

la_ssize_t writeToSink(archive*, void* client, const void* buffer, size_t length) {
    auto* sink = static_cast<Sink*>(client);
    const qint64 written = sink->file->write(static_cast<const char*>(buffer), qint64(length));
    if (written != qint64(length)) {
        sink->failed = true;
        return -1;
    }
    return la_ssize_t(written);
}

// Copies one database consistently into `staging` and describes the copy. VACUUM INTO reads
// inside one transaction, so a writer elsewhere is either wholly in the copy or not at all.
Outcome stageDatabase(const QString& source, const QString& copy, FileRecord& record) {
    DatabaseFile::OwnConnection connection(source, true);
    if (!connection.isOpen())
        return fail(Problem::Failed, QStringLiteral("The database \"%1\" could not be opened: %2")
                                         .arg(native(source), Sql::describe(connection.openError())));
    // A writer that commits again and again can keep the copy from ever getting its read lock
    // within the busy wait; it gets a few more chances before the backup gives up.
    QSqlError error;
    for (int attempt = 0; attempt < 8; ++attempt) {
        if (attempt > 0) {
            QFile::remove(copy);
            QThread::msleep(100);
        }
        QSqlQuery vacuum(connection.db());
        if (vacuum.prepare(QStringLiteral("VACUUM INTO ?"))) {
            vacuum.addBindValue(copy);
            if (vacuum.exec()) {
                error = QSqlError();
                break;
            }
        }
        error = vacuum.lastError();
        if (Sql::classify(error) != Sql::Refusal::Busy)
            break;
    }
    if (error.isValid()) {
        // A full disk is the user's to sort out and is told as such; anything else is ours.
        if (Sql::classify(error) == Sql::Refusal::DiskFull || diskIsFull(QFileInfo(copy).absolutePath()))
            return fail(Problem::DiskFull, QString());
        Sql::logFailure(error, QStringLiteral("VACUUM INTO"));
        return fail(
            Problem::Failed,
            QStringLiteral("The database \"%1\" could not be copied: %2").arg(native(source), Sql::describe(error)));
    }
    if (const QString problem = inspectDatabase(copy, record); !problem.isEmpty())
        return fail(Problem::Failed,
                    QStringLiteral("The copy of the database \"%1\" is not sound: %2.").arg(native(source), problem));
    return Outcome::ok();
}

Outcome addFileToArchive(archive* a, Sink& sink, const QString& path, const QString& name) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(Problem::Failed,
                    QStringLiteral("\"%1\" could not be read: %2").arg(native(path), file.errorString()));
    std::unique_ptr<archive_entry, decltype(&archive_entry_free)> entry(archive_entry_new(), archive_entry_free);
    archive_entry_set_pathname_utf8(entry.get(), name.toUtf8().constData());
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), 0600);
    archive_entry_set_size(entry.get(), file.size());
    archive_entry_set_mtime(entry.get(), QFileInfo(path).lastModified().toSecsSinceEpoch(), 0);
    if (archive_write_header(a, entry.get()) != ARCHIVE_OK)
        return fail(sink.failed ? Problem::DiskFull : Problem::Failed, QString::fromUtf8(archive_error_string(a)));
    while (!file.atEnd()) {
        const QByteArray chunk = file.read(ChunkSize);
        if (chunk.isEmpty())
            return fail(Problem::Failed,
                        QStringLiteral("\"%1\" could not be read: %2").arg(native(path), file.errorString()));
        if (archive_write_data(a, chunk.constData(), size_t(chunk.size())) != la_ssize_t(chunk.size()))
            return fail(sink.failed ? Problem::DiskFull : Problem::Failed, QString::fromUtf8(archive_error_string(a)));
    }
    return Outcome::ok();
}

Outcome writeArchive(const QString& archivePath, const QString& staging, const Manifest& manifest) {
    QSaveFile file(archivePath);
    if (!file.open(QIODevice::WriteOnly))
        return fail(Problem::Failed, file.errorString());
    // The archive holds all the data; it is the owner's alone, like the data folder.
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    Sink sink{&file};
    std::unique_ptr<archive, ArchiveFree> a(archive_write_new());
    archive_write_add_filter_gzip(a.get());
    archive_write_set_format_pax_restricted(a.get());
    archive_write_set_bytes_in_last_block(a.get(), 1);
    if (archive_write_open(a.get(), &sink, nullptr, writeToSink, nullptr) != ARCHIVE_OK)
        return fail(Problem::Failed, QString::fromUtf8(archive_error_string(a.get())));

    const QString manifestPath = QDir(staging).filePath(ManifestName);
    {
        QFile manifestFile(manifestPath);
        if (!manifestFile.open(QIODevice::WriteOnly) || manifestFile.write(manifestJson(manifest)) < 0 ||
            !manifestFile.flush())
            return fail(diskIsFull(staging) ? Problem::DiskFull : Problem::Failed, manifestFile.errorString());
    }
    Outcome added = addFileToArchive(a.get(), sink, manifestPath, ManifestName);
    for (qsizetype i = 0; added && i < manifest.files.size(); ++i) {
        const QString name = manifest.files.at(i).name;
        added = addFileToArchive(a.get(), sink, QDir(staging).filePath(name), name);
    }
    if (added && archive_write_close(a.get()) != ARCHIVE_OK)
        added =
            fail(sink.failed ? Problem::DiskFull : Problem::Failed, QString::fromUtf8(archive_error_string(a.get())));
    if (added && !file.commit())
        added = fail(Problem::Failed, file.errorString());
    if (!added) {
        file.cancelWriting();
        if (added.problem != Problem::DiskFull && diskIsFull(QFileInfo(archivePath).absolutePath()))
            added.problem = Problem::DiskFull;
    }
    return added;
}

// --- reading ---------------------------------------------------------------------------------

QString damaged(const QString& archivePath, const QString& why) {
    return QStringLiteral("The backup \"%1\" is damaged: %2").arg(native(archivePath), why);
}

QString notABackup(const QString& archivePath) {
    return QStringLiteral("The file \"%1\" is not an Ordwell backup.").arg(native(archivePath));
}

QString newerProgram(const QString& archivePath, const QString& what) {
    return QStringLiteral("The backup \"%1\" was made by a newer version of Ordwell (%2). Install the newer "
                          "program to restore it.")
        .arg(native(archivePath), what);
}

// Reads the manifest's description of the files; an empty string when it is sound.
QString readFileRecords(const QJsonArray& files, Manifest& manifest) {
    QSet<QString> seen;
    static const QRegularExpression hex(QStringLiteral("^[0-9a-f]{64}$"));
    for (const QJsonValue& value : files) {
        const QJsonObject object = value.toObject();
        FileRecord record;
        record.name = object.value(QStringLiteral("name")).toString();
        record.size = qint64(object.value(QStringLiteral("size")).toDouble(-1));
        record.sha256 = object.value(QStringLiteral("sha256")).toString();
        record.kind = object.value(QStringLiteral("kind")).toString();
        record.schemaVersion = object.value(QStringLiteral("schemaVersion")).toInt(0);
        const QJsonObject rows = object.value(QStringLiteral("rows")).toObject();
        for (auto it = rows.constBegin(); it != rows.constEnd(); ++it)
            record.rows.insert(it.key(), qint64(it.value().toDouble(-1)));
        if (!isBackedUpName(record.name) || record.size < 0 || !hex.match(record.sha256).hasMatch() ||
            record.kind != kindOf(record.name) || (!record.kind.isEmpty() && record.schemaVersion < 1) ||
            seen.contains(record.name))
            return QStringLiteral("its list of files is not readable");
        seen.insert(record.name);
        manifest.files.append(record);
    }
    if (!seen.contains(Store::SystemFileName))
        return QStringLiteral("it holds no system database");
    return {};
}

// An archive opened for reading, the manifest read from its first entry.
class ArchiveReader {
public:
    explicit ArchiveReader(QString path) : m_path(std::move(path)), m_archive(archive_read_new()) {
        archive_read_support_filter_gzip(m_archive.get());
        archive_read_support_format_tar(m_archive.get());
    }

    archive* get() const { return m_archive.get(); }
    const Manifest& manifest() const { return m_manifest; }

    Outcome openAndReadManifest() {
        if (!QFileInfo(m_path).isFile())
            return fail(Problem::Missing, QStringLiteral("The backup file \"%1\" does not exist.").arg(native(m_path)));
#ifdef Q_OS_WIN
        const int opened = archive_read_open_filename_w(
            m_archive.get(), reinterpret_cast<const wchar_t*>(QDir::toNativeSeparators(m_path).utf16()), 64 * 1024);
#else
        const int opened =
            archive_read_open_filename(m_archive.get(), QFile::encodeName(m_path).constData(), 64 * 1024);
#endif
        if (opened != ARCHIVE_OK) {
            // The format is recognised as the file is opened: a file of no format we read fails here.
            if (archive_errno(get()) == UnrecognisedFormat)
                return fail(Problem::NotABackup, notABackup(m_path));
            return fail(Problem::Failed, QStringLiteral("The backup file \"%1\" could not be read: %2")
                                             .arg(native(m_path), QString::fromUtf8(archive_error_string(get()))));
        }
        archive_entry* entry = nullptr;
        const int header = archive_read_next_header(get(), &entry);
        if (header == ARCHIVE_EOF || (header < ARCHIVE_WARN && archive_errno(get()) == UnrecognisedFormat))
            return fail(Problem::NotABackup, notABackup(m_path));
        if (header < ARCHIVE_WARN)
            return fail(Problem::Damaged, damaged(m_path, QStringLiteral("it could not be read (%1).")
                                                              .arg(QString::fromUtf8(archive_error_string(get())))));
        const qint64 size = archive_entry_size(entry);
        if (QString::fromUtf8(archive_entry_pathname_utf8(entry)) != ManifestName ||
            archive_entry_filetype(entry) != AE_IFREG || size <= 0 || size > ManifestLimit)
            return fail(Problem::NotABackup, notABackup(m_path));
        QByteArray json(size, Qt::Uninitialized);
        if (archive_read_data(get(), json.data(), size_t(size)) != la_ssize_t(size))
            return fail(Problem::Damaged, damaged(m_path, QStringLiteral("its manifest could not be read.")));
        return parseManifest(json);
    }

private:
    Outcome parseManifest(const QByteArray& json) {
        QJsonParseError error;
        const QJsonObject root = QJsonDocument::fromJson(json, &error).object();
        if (error.error != QJsonParseError::NoError) {
            // A manifest that names our format but does not parse was ours once.
            if (json.contains(FormatMarker.toLatin1()))
                return fail(Problem::Damaged, damaged(m_path, QStringLiteral("its manifest is not readable.")));
            return fail(Problem::NotABackup, notABackup(m_path));
        }
        if (root.value(QStringLiteral("format")).toString() != FormatMarker)
            return fail(Problem::NotABackup, notABackup(m_path));
        const int format = root.value(QStringLiteral("formatVersion")).toInt(0);
        m_manifest.programVersion = root.value(QStringLiteral("programVersion")).toString();
        if (format > FormatVersion)
            return fail(Problem::FromNewerProgram,
                        newerProgram(m_path, QStringLiteral("version %1").arg(m_manifest.programVersion)));
        m_manifest.created =
            QDateTime::fromString(root.value(QStringLiteral("created")).toString(), Qt::ISODate).toLocalTime();
        if (format < 1 || !m_manifest.created.isValid())
            return fail(Problem::Damaged, damaged(m_path, QStringLiteral("its manifest is not readable.")));
        if (const QString problem = readFileRecords(root.value(QStringLiteral("files")).toArray(), m_manifest);
            !problem.isEmpty())
            return fail(Problem::Damaged, damaged(m_path, problem + QLatin1Char('.')));
        for (const FileRecord& record : std::as_const(m_manifest.files)) {
            if (!record.kind.isEmpty() && record.schemaVersion > programVersionFor(record.kind))
                return fail(Problem::FromNewerProgram,
                            newerProgram(m_path, QStringLiteral("\"%1\" has data version %2; this program reads up "
                                                                "to version %3")
                                                     .arg(record.name)
                                                     .arg(record.schemaVersion)
                                                     .arg(programVersionFor(record.kind))));
        }
        return Outcome::ok();
    }

    QString m_path;
    std::unique_ptr<archive, ReadArchiveFree> m_archive;
    Manifest m_manifest;
};

// Writes one entry's data to `target`, checking it against its record on the way.
Outcome extractEntry(const QString& archivePath, archive* a, const FileRecord& record, const QString& target) {
    QFile out(target);
    if (!out.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return fail(Problem::Failed,
                    QStringLiteral("\"%1\" could not be created: %2").arg(native(target), out.errorString()));
    out.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    QByteArray buffer(ChunkSize, Qt::Uninitialized);
    qint64 total = 0;
    for (;;) {
        const la_ssize_t got = archive_read_data(a, buffer.data(), size_t(buffer.size()));
        if (got == 0)
            break;
        if (got < 0)
            return fail(Problem::Damaged,
                        damaged(archivePath, QStringLiteral("the file \"%1\" in it could not be read (%2).")
                                                 .arg(record.name, QString::fromUtf8(archive_error_string(a)))));
        hash.addData(QByteArrayView(buffer.constData(), got));
        total += got;
        if (out.write(buffer.constData(), got) != got) {
            if (diskIsFull(QFileInfo(target).absolutePath()))
                return fail(Problem::DiskFull, QString());
            return fail(Problem::Failed,
                        QStringLiteral("\"%1\" could not be written: %2").arg(native(target), out.errorString()));
        }
    }
    if (!out.flush()) {
        if (diskIsFull(QFileInfo(target).absolutePath()))
            return fail(Problem::DiskFull, QString());
        return fail(Problem::Failed,
                    QStringLiteral("\"%1\" could not be written: %2").arg(native(target), out.errorString()));
    }
    if (total != record.size || QString::fromLatin1(hash.result().toHex()) != record.sha256)
        return fail(Problem::Damaged,
                    damaged(archivePath,
                            QStringLiteral("the file \"%1\" in it does not match its checksum.").arg(record.name)));
    return Outcome::ok();
}

// Unpacks the archive into the empty folder `into` and verifies everything in it.
Outcome unpackAndVerify(const QString& archivePath, const QString& into, Manifest* manifestOut = nullptr) {
    ArchiveReader reader(archivePath);
    if (Outcome opened = reader.openAndReadManifest(); !opened)
        return opened;
    const Manifest& manifest = reader.manifest();
    QMap<QString, FileRecord> pending;
    for (const FileRecord& record : manifest.files)
        pending.insert(record.name, record);
    QString last = ManifestName;
    for (;;) {
        archive_entry* entry = nullptr;
        const int header = archive_read_next_header(reader.get(), &entry);
        if (header == ARCHIVE_EOF)
            break;
        if (header < ARCHIVE_WARN)
            return fail(Problem::Damaged,
                        damaged(archivePath, QStringLiteral("it could not be read past \"%1\" (%2).")
                                                 .arg(last, QString::fromUtf8(archive_error_string(reader.get())))));
        const QString name = QString::fromUtf8(archive_entry_pathname_utf8(entry));
        if (!pending.contains(name) || archive_entry_filetype(entry) != AE_IFREG)
            return fail(
                Problem::Damaged,
                damaged(archivePath, QStringLiteral("it holds \"%1\", which its manifest does not list.").arg(name)));
        const FileRecord record = pending.take(name);
        if (archive_entry_size_is_set(entry) && archive_entry_size(entry) != record.size)
            return fail(
                Problem::Damaged,
                damaged(archivePath, QStringLiteral("the file \"%1\" in it does not match its checksum.").arg(name)));
        if (Outcome extracted = extractEntry(archivePath, reader.get(), record, QDir(into).filePath(name)); !extracted)
            return extracted;
        last = name;
    }
    if (!pending.isEmpty())
        return fail(Problem::Damaged,
                    damaged(archivePath, QStringLiteral("it ends before the file \"%1\".").arg(pending.firstKey())));
    for (const FileRecord& record : manifest.files) {
        if (record.kind.isEmpty())
            continue;
        FileRecord found = record;
        const QString problem = inspectDatabase(QDir(into).filePath(record.name), found);
        if (!problem.isEmpty())
            return fail(
                Problem::Damaged,
                damaged(archivePath,
                        QStringLiteral("the database \"%1\" in it is not sound (%2).").arg(record.name, problem)));
        if (found.schemaVersion > programVersionFor(record.kind))
            return fail(Problem::FromNewerProgram,
                        newerProgram(archivePath, QStringLiteral("\"%1\" has data version %2; this program reads up "
                                                                 "to version %3")
                                                      .arg(record.name)
                                                      .arg(found.schemaVersion)
                                                      .arg(programVersionFor(record.kind))));
        if (found.schemaVersion != record.schemaVersion || found.rows != record.rows)
            return fail(Problem::Damaged, damaged(archivePath, QStringLiteral("the database \"%1\" in it does not "
                                                                              "hold what its manifest lists.")
                                                                   .arg(record.name)));
    }
    if (manifestOut)
        *manifestOut = manifest;
    return Outcome::ok();
}

// --- restoring -------------------------------------------------------------------------------

// Files of the current folder that go with it to the restored one: everything a backup never
// holds, except the lock (the program takes a new one) and SQLite's leftovers.
bool carriesOver(const QString& name) {
    if (name == Store::SystemLockFileName || name.endsWith(QStringLiteral(".mdb")) ||
        name.endsWith(QStringLiteral(".rpt")) || name == AgreementName || name.endsWith(QStringLiteral("-journal")) ||
        name.endsWith(QStringLiteral("-wal")) || name.endsWith(QStringLiteral("-shm")) ||
        name.endsWith(QStringLiteral(".creating")))
        return false;
    return true;
}

// Every database of the restored folder opens and reads its version.
QString proveOpens(const QString& dataDir, const Manifest& manifest) {
    for (const FileRecord& record : manifest.files) {
        if (record.kind.isEmpty())
            continue;
        const QString name = QStringLiteral("ordwell-restore-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
        QString problem;
        {
            auto db = DatabaseFile::open(name, QDir(dataDir).filePath(record.name), true);
            if (!db)
                problem = db.message();
            else if (auto version = SchemaUpgrade::storedVersion(*db); !version)
                problem = version.message();
        }
        DatabaseFile::close(name);
        if (!problem.isEmpty())
            return problem;
    }
    return {};
}

QString untouched() {
    return QStringLiteral(" The current data has not been changed.");
}

QString uniqueSibling(const QDir& parent, const QString& base) {
    for (;;) {
        const QString candidate = parent.filePath(base + QUuid::createUuid().toString(QUuid::WithoutBraces).left(8));
        if (!QFileInfo::exists(candidate))
            return candidate;
    }
}

} // namespace

Outcome writeBackup(const QString& dataDir, const QString& archivePath) {
    const QString target = QFileInfo(archivePath).absoluteFilePath();
    const QString folder = QFileInfo(target).absolutePath();
    const QString diskFull =
        QStringLiteral("There is not enough free disk space in \"%1\" for the backup. Nothing has been written.")
            .arg(native(folder));
    if (!QFileInfo(Store::systemDatabasePath(dataDir)).isFile())
        return fail(Problem::Missing,
                    QStringLiteral("There is no Ordwell data in \"%1\" to back up.").arg(native(dataDir)));
    if (!QFileInfo(folder).isDir())
        return fail(Problem::Missing, QStringLiteral("The folder \"%1\" does not exist.").arg(native(folder)));

    // The copies wait beside the archive, on the disk that must hold it anyway.
    QTemporaryDir staging(QDir(folder).filePath(QStringLiteral(".ordwell-backup-XXXXXX")));
    if (!staging.isValid())
        return diskIsFull(folder)
                   ? fail(Problem::DiskFull, diskFull)
                   : fail(Problem::Failed, QStringLiteral("The backup could not be written in \"%1\": %2")
                                               .arg(native(folder), staging.errorString()));
    Manifest manifest;
    manifest.created = QDateTime::currentDateTimeUtc();
    for (const QString& name : filesToBackUp(dataDir)) {
        FileRecord record;
        record.name = name;
        record.kind = kindOf(name);
        const QString source = QDir(dataDir).filePath(name);
        const QString copy = staging.filePath(name);
        if (!record.kind.isEmpty()) {
            Outcome staged = stageDatabase(source, copy, record);
            if (!staged)
                return staged.problem == Problem::DiskFull ? fail(Problem::DiskFull, diskFull) : staged;
        } else if (!QFile::copy(source, copy)) {
            if (diskIsFull(folder))
                return fail(Problem::DiskFull, diskFull);
            return fail(Problem::Failed, QStringLiteral("The file \"%1\" could not be copied.").arg(native(source)));
        }
        record.size = QFileInfo(copy).size();
        record.sha256 = fileSha256(copy);
        manifest.files.append(record);
    }
    Outcome written = writeArchive(target, staging.path(), manifest);
    if (written.problem == Problem::DiskFull)
        return fail(Problem::DiskFull, diskFull);
    if (!written)
        return fail(written.problem,
                    QStringLiteral("The backup \"%1\" could not be written: %2").arg(native(target), written.message));
    return Outcome::ok();
}

Outcome readSummary(const QString& archivePath, Summary& summary) {
    ArchiveReader reader(archivePath);
    Outcome read = reader.openAndReadManifest();
    if (!read)
        return read;
    summary.created = reader.manifest().created;
    summary.programVersion = reader.manifest().programVersion;
    summary.files.clear();
    for (const FileRecord& record : reader.manifest().files)
        summary.files << record.name;
    return read;
}

Outcome checkBackup(const QString& archivePath) {
    QTemporaryDir scratch;
    if (!scratch.isValid())
        return fail(Problem::Failed,
                    QStringLiteral("No temporary folder for checking the backup: %1").arg(scratch.errorString()));
    Outcome checked = unpackAndVerify(archivePath, scratch.path());
    if (checked.problem == Problem::DiskFull)
        checked.message = QStringLiteral("There is not enough free disk space in \"%1\" to check the backup.")
                              .arg(native(QDir::tempPath()));
    return checked;
}

Outcome restoreBackup(const QString& archivePath, const QString& dataDir) {
    const QFileInfo current(dataDir);
    const bool hasCurrent = current.exists();
    const QString live = hasCurrent ? current.canonicalFilePath() : current.absoluteFilePath();
    const QDir parent = QFileInfo(live).absoluteDir();
    if (!parent.exists() && !QDir().mkpath(parent.path()))
        return fail(Problem::Failed,
                    QStringLiteral("The folder \"%1\" could not be created.").arg(native(parent.path())));

    // A running copy of the program keeps the folder; no other copy may start until the swap.
    std::unique_ptr<QLockFile> lock;
    if (hasCurrent) {
        lock = std::make_unique<QLockFile>(QDir(live).filePath(Store::SystemLockFileName));
        lock->setStaleLockTime(0);
        if (!lock->tryLock(0))
            return fail(Problem::InUse, QStringLiteral("The data folder \"%1\" is in use by Ordwell. Close Ordwell "
                                                       "and try again.")
                                                .arg(native(live)) +
                                            untouched());
    }

    const QString baseName = QFileInfo(live).fileName();
    QTemporaryDir staged(parent.filePath(QStringLiteral(".%1-restoring-XXXXXX").arg(baseName)));
    if (!staged.isValid())
        return fail(diskIsFull(parent.path()) ? Problem::DiskFull : Problem::Failed,
                    QStringLiteral("The backup could not be unpacked in \"%1\": %2")
                            .arg(native(parent.path()), staged.errorString()) +
                        untouched());
    Manifest manifest;
    Outcome verified = unpackAndVerify(archivePath, staged.path(), &manifest);
    if (verified.problem == Problem::DiskFull)
        verified.message = QStringLiteral("There is not enough free disk space in \"%1\" to restore the backup.")
                               .arg(native(parent.path()));
    if (!verified) {
        verified.message += untouched();
        return verified;
    }

    // The swap. Released just before it, as the lock file moves away with the old folder.
    if (lock)
        lock->unlock();
    const QString aside =
        hasCurrent ? uniqueSibling(parent, QStringLiteral(".%1-before-restore-").arg(baseName)) : QString();
    // Puts the old folder back after a failed swap, and says where the data is.
    const auto putBack = [&]() -> QString {
        if (!hasCurrent)
            return QString();
        if (QDir().rename(aside, live))
            return untouched();
        return QStringLiteral(" The current data is kept in \"%1\"; move it back to \"%2\" by hand.")
            .arg(native(aside), native(live));
    };
    if (hasCurrent && !QDir().rename(live, aside))
        return fail(Problem::Failed,
                    QStringLiteral("The data folder \"%1\" could not be moved aside.").arg(native(live)) + untouched());
    if (!QDir().rename(staged.path(), live))
        return fail(Problem::Failed,
                    QStringLiteral("The restored data could not be put in place of \"%1\".").arg(native(live)) +
                        putBack());
    staged.setAutoRemove(false);
    if (const QString problem = proveOpens(live, manifest); !problem.isEmpty()) {
        const QString failed = uniqueSibling(parent, QStringLiteral(".%1-failed-restore-").arg(baseName));
        if (QDir().rename(live, failed))
            QDir(failed).removeRecursively();
        return fail(Problem::Failed,
                    QStringLiteral("The restored data could not be opened: %1").arg(problem) + putBack());
    }
    DatabaseFile::restrictToOwner(live, true);
    if (!hasCurrent)
        return Outcome::ok();

    bool allCarried = true;
    const QDir old(aside);
    const QStringList leftBehind = old.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& name : leftBehind) {
        if (!carriesOver(name) || QFileInfo::exists(QDir(live).filePath(name)))
            continue;
        if (!QDir().rename(old.filePath(name), QDir(live).filePath(name)))
            allCarried = false;
    }
    if (!allCarried) {
        Outcome kept;
        kept.message = QStringLiteral("Some files of the old data folder could not be moved to the restored one; "
                                      "they are in \"%1\".")
                           .arg(native(aside));
        return kept;
    }
    QDir(aside).removeRecursively();
    return Outcome::ok();
}

QStringList backedUpFiles(const QString& dataDir) {
    return filesToBackUp(dataDir);
}

} // namespace ordwell::Backup

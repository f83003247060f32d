#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace ordwell {

// One archive (a gzip-compressed tar) of everything in the data folder that makes up the
// user's data: each database copied consistently while the program may be using it, the
// report files, the agreement, and a manifest first of all that lists every file with its
// size, SHA-256, and for a database its kind, layout version and row count per table.
namespace Backup {

inline const QString ManifestName = QStringLiteral("manifest.json");
inline const QString FormatMarker = QStringLiteral("ordwell-backup");
inline constexpr int FormatVersion = 1;
inline const QString FileSuffix = QStringLiteral(".tar.gz");

// Why a backup or a restore did not happen; the message says it in the user's words.
enum class Problem { None, Missing, NotABackup, Damaged, FromNewerProgram, DiskFull, InUse, Failed };

struct Outcome {
    Problem problem = Problem::None;
    QString message;
    explicit operator bool() const { return problem == Problem::None; }
    static Outcome ok() { return {}; }
    static Outcome fail(Problem problem, QString message) { return {problem, std::move(message)}; }
};

// What the manifest of an archive says about it, for asking the user before a restore.
struct Summary {
    QDateTime created;
    QString programVersion;
    QStringList files;
};

// Writes the archive of `dataDir` to `archivePath`. The archive is built under a temporary
// name beside it and takes its name only when complete, replacing a file of that name, so a
// failure leaves no partial archive and an older one in place.
Outcome writeBackup(const QString& dataDir, const QString& archivePath);

// Reads only the manifest: enough to tell an Ordwell backup from any other file, and when it
// was made. Says nothing about whether the rest is sound.
Outcome readSummary(const QString& archivePath, Summary& summary);

// Verifies the whole archive without touching any data folder: the manifest, every file's
// size and checksum, each database's integrity check, and that no database is newer than this
// program can read.
Outcome checkBackup(const QString& archivePath);

// Replaces the data in `dataDir` by the archive's. The archive is unpacked and verified whole
// in a folder beside `dataDir` first; only then is the current folder moved aside and the
// restored one put in its place, and the old one is dropped once every restored database has
// been opened. Any failure on the way puts the current folder back as it was. The program's
// own connections to the folder must be closed and its lock released; while a running copy
// holds the lock the restore is refused. Files in the current folder that a backup never
// holds (other folders, the automatic backups) are carried over to the restored one.
Outcome restoreBackup(const QString& archivePath, const QString& dataDir);

// Keeps an automatic backup of `dataDir` in `folder`, unless the newest one there is already
// younger than every file it would hold, and then removes the oldest automatic backups beyond
// `keep`. Files in `folder` that are not automatic backups are never touched. `made`, when
// given, is set to the archive written (empty when none was needed).
Outcome keepAutomaticBackup(const QString& dataDir, const QString& folder, int keep, QString* made = nullptr);

// The automatic backups in `folder`, oldest first.
QStringList automaticBackups(const QString& folder);

// The data folder's files a backup holds, by name: the system database first.
QStringList backedUpFiles(const QString& dataDir);

} // namespace Backup
} // namespace ordwell

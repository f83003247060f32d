// The backups Ordwell keeps of its own on exit: made only when the data changed since the
// last one, named by when they were made, and only the newest few kept.
#include "Backup.h"

#include "DatabaseFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <tuple>

namespace ordwell::Backup {

QStringList automaticBackups(const QString& folder) {
    static const QRegularExpression pattern(QStringLiteral("^Ordwell-auto-(\\d{8}-\\d{6})(?:-(\\d+))?\\.tar\\.gz$"));
    // Names carry the time they were made (UTC) and a number for a second one in the same
    // second, so they sort in the order they were made whatever their files' dates say.
    QList<std::tuple<QString, int, QString>> found;
    const QStringList names = QDir(folder).entryList({QStringLiteral("Ordwell-auto-*.tar.gz")}, QDir::Files);
    for (const QString& name : names) {
        const QRegularExpressionMatch match = pattern.match(name);
        if (match.hasMatch())
            found.append({match.captured(1), match.captured(2).isEmpty() ? 1 : match.captured(2).toInt(),
                          QDir(folder).filePath(name)});
    }
    std::sort(found.begin(), found.end());
    QStringList paths;
    for (const auto& entry : found)
        paths << std::get<2>(entry);
    return paths;
}

Outcome keepAutomaticBackup(const QString& dataDir, const QString& folder, int keep, QString* made) {
    if (made)
        made->clear();
    if (keep <= 0)
        return Outcome::ok();
    if (!QFileInfo(folder).isDir()) {
        if (!QDir().mkpath(folder))
            return Outcome::fail(
                Problem::Failed,
                QStringLiteral("The backup folder \"%1\" could not be created.").arg(QDir::toNativeSeparators(folder)));
        DatabaseFile::restrictToOwner(folder, true);
    }
    QStringList existing = automaticBackups(folder);
    if (!existing.isEmpty()) {
        QDateTime latestChange;
        for (const QString& name : backedUpFiles(dataDir))
            latestChange = qMax(latestChange, QFileInfo(QDir(dataDir).filePath(name)).lastModified());
        if (latestChange.isValid() && QFileInfo(existing.constLast()).lastModified() >= latestChange)
            return Outcome::ok();
    }
    const QString stamp = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString path = QDir(folder).filePath(QStringLiteral("Ordwell-auto-%1.tar.gz").arg(stamp));
    for (int n = 2; QFileInfo::exists(path); ++n)
        path = QDir(folder).filePath(QStringLiteral("Ordwell-auto-%1-%2.tar.gz").arg(stamp).arg(n));
    Outcome written = writeBackup(dataDir, path);
    if (!written)
        return written;
    if (made)
        *made = path;
    existing = automaticBackups(folder);
    while (existing.size() > keep)
        QFile::remove(existing.takeFirst());
    return Outcome::ok();
}

} // namespace ordwell::Backup

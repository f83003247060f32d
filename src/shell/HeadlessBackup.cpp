#include "HeadlessBackup.h"

#include "store/Backup.h"
#include "store/ServerCopy.h"
#include "store/ServerStore.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace ordwell::HeadlessBackup {

int run(const Options& options, QTextStream& out, QTextStream& err) {
    if (!options.copyToServer.isEmpty())
        return copyToServer(options, out, err);
    const QString dataDir = resolveDataDir(options);
    if (!options.backupFile.isEmpty()) {
        const QString archive = QFileInfo(options.backupFile).absoluteFilePath();
        const Backup::Outcome written = Backup::writeBackup(dataDir, archive);
        if (!written) {
            err << written.message << Qt::endl;
            return Refused;
        }
        out << QStringLiteral("The data in %1 has been backed up to %2.")
                   .arg(QDir::toNativeSeparators(dataDir), QDir::toNativeSeparators(archive))
            << Qt::endl;
        return Done;
    }
    const QString archive = QFileInfo(options.restoreFile).absoluteFilePath();
    Backup::Summary summary;
    Backup::Outcome restored = Backup::readSummary(archive, summary);
    if (restored)
        restored = Backup::restoreBackup(archive, dataDir);
    if (!restored) {
        err << restored.message << Qt::endl;
        return Refused;
    }
    out << QStringLiteral("The data in %1 has been restored from the backup made %2.")
               .arg(QDir::toNativeSeparators(dataDir), QLocale().toString(summary.created, QLocale::ShortFormat))
        << Qt::endl;
    if (!restored.message.isEmpty())
        out << restored.message << Qt::endl;
    return Done;
}

int copyToServer(const Options& options, QTextStream& out, QTextStream& err) {
    if (const auto form = ServerStore::keywordForm(options.copyToServer); !form) {
        err << form.message() << Qt::endl;
        return BadArguments;
    }
    const QString dataDir = resolveDataDir(options);
    const auto copied = ServerCopy::copyDataFolder(dataDir, options.copyToServer);
    if (!copied) {
        err << copied.message() << Qt::endl;
        return Refused;
    }
    out << QStringLiteral("The data in %1 has been copied to %2 and checked against the files:")
               .arg(QDir::toNativeSeparators(dataDir), ServerStore::describe(options.copyToServer))
        << Qt::endl;
    for (const QString& line : *copied)
        out << QStringLiteral("  ") << line << Qt::endl;
    return Done;
}

} // namespace ordwell::HeadlessBackup

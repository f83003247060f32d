#include "ServerReports.h"

#include "Dialect.h"
#include "common/Sql.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace ordwell::ServerReports {

namespace {
bool onServer(const QSqlDatabase& db) {
    return Dialects::of(db) == Dialect::PostgreSQL;
}
} // namespace

Status keep(const QSqlDatabase& vendorDb, const QString& path) {
    if (!onServer(vendorDb))
        return Status::ok();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Status::fail(QStringLiteral("The report file %1 could not be read to keep it on the server: %2")
                                .arg(QDir::toNativeSeparators(path), file.errorString()));
    const QString content = QString::fromUtf8(file.readAll());
    return Sql::run(vendorDb,
                    QStringLiteral("INSERT INTO reportfile (name, content) VALUES (?, ?) "
                                   "ON CONFLICT (name) DO UPDATE SET content = excluded.content"),
                    {QFileInfo(path).fileName(), content});
}

Result<QString> fileFor(const QSqlDatabase& vendorDb, const QString& path, const QString& cacheDir) {
    if (!onServer(vendorDb))
        return path;
    const QString name = QFileInfo(path).fileName();
    auto content = Sql::scalar(vendorDb, QStringLiteral("SELECT content FROM reportfile WHERE name = ?"), {name});
    if (!content)
        return content.status();
    if (!content->isValid())
        return path;
    if (!QDir().mkpath(cacheDir))
        return Status::fail(QStringLiteral("The folder %1 could not be made for the vendor's report.")
                                .arg(QDir::toNativeSeparators(cacheDir)));
    const QString copy = QDir(cacheDir).filePath(name);
    QSaveFile out(copy);
    if (!out.open(QIODevice::WriteOnly) || out.write(content->toString().toUtf8()) < 0 || !out.commit())
        return Status::fail(QStringLiteral("The vendor's report could not be written to %1: %2")
                                .arg(QDir::toNativeSeparators(copy), out.errorString()));
    return copy;
}

} // namespace ordwell::ServerReports

#include "DatabaseDump.h"

#include "store/DatabaseFile.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QUuid>

namespace ordwell::test {

QMap<QString, QStringList> databaseDump(const QString& path) {
    QMap<QString, QStringList> contents;
    const QString name = QUuid::createUuid().toString();
    {
        auto db = DatabaseFile::open(name, path, true);
        if (!db) {
            contents[QStringLiteral("error")] << db.message();
            return contents;
        }
        QSqlQuery catalogue(*db);
        catalogue.exec(QStringLiteral("SELECT type, name, sql FROM sqlite_master ORDER BY type, name"));
        while (catalogue.next()) {
            const QString table = catalogue.value(1).toString();
            contents[QStringLiteral("catalogue")]
                << catalogue.value(0).toString() + table + catalogue.value(2).toString();
            if (catalogue.value(0).toString() != QLatin1String("table"))
                continue;
            QSqlQuery rows(*db);
            rows.exec(QStringLiteral("SELECT * FROM \"%1\"").arg(table));
            QStringList& lines = contents[table];
            while (rows.next()) {
                QStringList fields;
                for (int i = 0; i < rows.record().count(); ++i)
                    fields << (rows.isNull(i) ? QStringLiteral("<null>") : rows.value(i).toString());
                lines << fields.join(QLatin1Char('|'));
            }
            lines.sort();
        }
    }
    DatabaseFile::close(name);
    return contents;
}

QString integrityCheck(const QString& path) {
    const QString name = QUuid::createUuid().toString();
    QString verdict;
    {
        auto db = DatabaseFile::open(name, path, true);
        if (!db)
            return db.message();
        QSqlQuery check(*db);
        if (check.exec(QStringLiteral("PRAGMA integrity_check")) && check.next())
            verdict = check.value(0).toString();
    }
    DatabaseFile::close(name);
    return verdict;
}

} // namespace ordwell::test

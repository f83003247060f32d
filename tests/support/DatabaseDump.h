#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace ordwell::test {

// Every table's rows as sorted text, plus the schema under "catalogue": what "the data is as it
// was" means for a database file. Read through a connection of its own, read-only.
QMap<QString, QStringList> databaseDump(const QString& path);

// SQLite's own verdict on the file: "ok" when it is sound.
QString integrityCheck(const QString& path);

} // namespace ordwell::test

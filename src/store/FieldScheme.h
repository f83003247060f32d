#pragma once

#include "Dialect.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <climits>

namespace ordwell {

// One column: name, defined size, type code ("int", "str", "dat", "cur"), sort code ("asc" or
// "nul"), counter flag and required flag.
struct FieldDef {
    QString name;
    int size = 0;
    QString type;
    QString sort;
    bool autoIncrement = false;
    bool required = false;
    int since = 1; // the schema version that added the column
};

struct IndexDef {
    QString name;
    QStringList columns;
    bool unique = false;
    QString where; // a partial index's condition, on columns only
    int since = 1;
};

struct TableDef {
    QString name;
    QList<FieldDef> fields;
    QString primaryKey; // empty: the table has no key
    QList<IndexDef> indexes;
    int since = 1;
};

// A database's tables described once, the way they are built: AddTable, then its fields,
// then its key. Both kinds of database are written with it, and the SQL comes from here only.
// Later versions of the layout are declared after `Since(n)`: what follows (new tables,
// columns added to a table named with `ExtendTable`, indexes) belongs to version n, so the
// same description both creates a new file and upgrades an older one.
class Schema {
public:
    Schema& Since(int version);
    Schema& ExtendTable(const QString& name);
    Schema& AddTable(const QString& name);
    Schema& AddField(const QString& name, int size, const QString& type, const QString& sort, bool autoIncrement,
                     bool required);
    Schema& AddPrimaryKey(const QString& field);
    // Non-unique index for look-ups; never a key.
    Schema& AddIndex(const QString& name, const QStringList& columns);
    // A rule the data must keep (no two rows share the value), optionally only where
    // `where` holds.
    Schema& AddUniqueIndex(const QString& name, const QStringList& columns, const QString& where = {});

    const QList<TableDef>& tables() const { return m_tables; }
    const TableDef* table(const QString& name) const;
    // The defined size of a column, so a box never takes more than its column holds. 0 when
    // the table or column is unknown.
    int columnLength(const QString& table, const QString& column) const;
    // The newest version declared.
    int version() const { return m_version; }

    // The statements that create every table and index of the newest version, in order.
    QStringList createStatements(Dialect dialect = Dialect::SQLite) const;
    // The statements that take a database of version `version - 1` to `version`.
    QStringList upgradeStatements(int version, Dialect dialect = Dialect::SQLite) const;
    static QString createTableStatement(const TableDef& table, int upToVersion = INT_MAX,
                                        Dialect dialect = Dialect::SQLite);

private:
    QList<TableDef> m_tables;
    int m_version = 1;
    int m_current = 0; // index of the table that fields and keys go to
};

} // namespace ordwell

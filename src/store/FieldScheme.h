#pragma once

#include <QList>
#include <QString>
#include <QStringList>

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
};

struct IndexDef {
    QString name;
    QStringList columns;
};

struct TableDef {
    QString name;
    QList<FieldDef> fields;
    QString primaryKey; // empty: the table has no key
    QList<IndexDef> indexes;
};

// A database's tables described once, the way they are built: AddTable, then its fields,
// then its key. Both kinds of database are written with it, and the SQL comes from here only.
class Schema {
public:
    Schema& AddTable(const QString& name);
    Schema& AddField(const QString& name, int size, const QString& type, const QString& sort, bool autoIncrement,
                     bool required);
    Schema& AddPrimaryKey(const QString& field);
    // Non-unique index for look-ups; never a key.
    Schema& AddIndex(const QString& name, const QStringList& columns);

    const QList<TableDef>& tables() const { return m_tables; }
    const TableDef* table(const QString& name) const;

    // The statements that create every table and index, in order.
    QStringList createStatements() const;
    static QString createTableStatement(const TableDef& table);

private:
    QList<TableDef> m_tables;
};

} // namespace ordwell

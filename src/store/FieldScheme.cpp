#include "FieldScheme.h"

#include <QtGlobal>

namespace ordwell {

Schema& Schema::Since(int version) {
    Q_ASSERT(version > m_version);
    m_version = version;
    return *this;
}

Schema& Schema::ExtendTable(const QString& name) {
    for (int i = 0; i < m_tables.size(); ++i) {
        if (m_tables.at(i).name == name)
            m_current = i;
    }
    Q_ASSERT(m_tables.at(m_current).name == name);
    return *this;
}

Schema& Schema::AddTable(const QString& name) {
    TableDef table;
    table.name = name;
    table.since = m_version;
    m_tables.append(table);
    m_current = int(m_tables.size()) - 1;
    return *this;
}

Schema& Schema::AddField(const QString& name, int size, const QString& type, const QString& sort, bool autoIncrement,
                         bool required) {
    Q_ASSERT(!m_tables.isEmpty());
    TableDef& table = m_tables[m_current];
    // A column added to an older table cannot be required: its existing rows have no value.
    Q_ASSERT(table.since == m_version || !required);
    table.fields.append(FieldDef{name, size, type, sort, autoIncrement, required, m_version});
    return *this;
}

Schema& Schema::AddPrimaryKey(const QString& field) {
    Q_ASSERT(!m_tables.isEmpty() && m_tables.at(m_current).since == m_version);
    m_tables[m_current].primaryKey = field;
    return *this;
}

Schema& Schema::AddIndex(const QString& name, const QStringList& columns) {
    Q_ASSERT(!m_tables.isEmpty());
    m_tables[m_current].indexes.append(IndexDef{name, columns, false, {}, m_version});
    return *this;
}

Schema& Schema::AddUniqueIndex(const QString& name, const QStringList& columns, const QString& where) {
    Q_ASSERT(!m_tables.isEmpty());
    m_tables[m_current].indexes.append(IndexDef{name, columns, true, where, m_version});
    return *this;
}

const TableDef* Schema::table(const QString& name) const {
    for (const TableDef& t : m_tables) {
        if (t.name.compare(name, Qt::CaseInsensitive) == 0)
            return &t;
    }
    return nullptr;
}

namespace {

QString quoted(const QString& identifier) {
    return QLatin1Char('"') + identifier + QLatin1Char('"');
}

// The column text for one field. Text compares without regard to case, as the file
// databases this layout comes from did, so "abc" and "ABC" are the same key.
QString columnDefinition(const FieldDef& f, bool isKey) {
    const QString col = quoted(f.name);
    QString def = col;
    QStringList checks;
    if (f.type == QLatin1String("int")) {
        def += QStringLiteral(" INTEGER");
        checks << QStringLiteral("%1 BETWEEN -2147483648 AND 2147483647").arg(col);
    } else if (f.type == QLatin1String("str")) {
        def += QStringLiteral(" TEXT COLLATE NOCASE");
        if (f.size > 0)
            checks << QStringLiteral("length(%1) <= %2").arg(col).arg(f.size);
        if (f.required)
            checks << QStringLiteral("length(%1) > 0").arg(col);
    } else if (f.type == QLatin1String("dat")) {
        def += QStringLiteral(" TEXT");
        checks << QStringLiteral("%1 IS NULL OR datetime(%1) IS NOT NULL").arg(col);
    } else if (f.type == QLatin1String("cur")) {
        // Ten-thousandths of the unit, the exact range of a 64-bit fixed-point currency.
        def += QStringLiteral(" INTEGER");
    } else {
        def += QStringLiteral(" ANY");
    }
    if (isKey && f.autoIncrement) {
        def += QStringLiteral(" CONSTRAINT PrimaryKey PRIMARY KEY AUTOINCREMENT");
    } else if (f.required) {
        def += QStringLiteral(" NOT NULL");
    }
    for (const QString& check : checks)
        def += QStringLiteral(" CHECK (%1)").arg(check);
    return def;
}

QString indexStatement(const TableDef& table, const IndexDef& index) {
    QStringList cols;
    for (const QString& c : index.columns)
        cols << quoted(c);
    QString sql = QStringLiteral("CREATE %1INDEX %2 ON %3 (%4)")
                      .arg(index.unique ? QStringLiteral("UNIQUE ") : QString(), quoted(index.name), quoted(table.name),
                           cols.join(QLatin1Char(',')));
    if (!index.where.isEmpty())
        sql += QStringLiteral(" WHERE ") + index.where;
    return sql;
}

} // namespace

QString Schema::createTableStatement(const TableDef& table, int upToVersion) {
    QStringList parts;
    bool keyInColumn = false;
    for (const FieldDef& f : table.fields) {
        if (f.since > upToVersion)
            continue;
        const bool isKey = f.name == table.primaryKey;
        parts << columnDefinition(f, isKey);
        if (isKey && f.autoIncrement)
            keyInColumn = true;
    }
    if (!table.primaryKey.isEmpty() && !keyInColumn)
        parts << QStringLiteral("CONSTRAINT PrimaryKey PRIMARY KEY (%1)").arg(quoted(table.primaryKey));
    return QStringLiteral("CREATE TABLE %1 (\n  %2\n) STRICT")
        .arg(quoted(table.name), parts.join(QStringLiteral(",\n  ")));
}

QStringList Schema::createStatements() const {
    QStringList statements;
    for (const TableDef& t : m_tables) {
        statements << createTableStatement(t);
        for (const IndexDef& index : t.indexes)
            statements << indexStatement(t, index);
    }
    return statements;
}

QStringList Schema::upgradeStatements(int version) const {
    QStringList statements;
    for (const TableDef& t : m_tables) {
        if (t.since == version) {
            statements << createTableStatement(t, version);
        } else if (t.since < version) {
            for (const FieldDef& f : t.fields) {
                if (f.since == version)
                    statements << QStringLiteral("ALTER TABLE %1 ADD COLUMN %2")
                                      .arg(quoted(t.name), columnDefinition(f, false));
            }
        }
        for (const IndexDef& index : t.indexes) {
            if (index.since == version)
                statements << indexStatement(t, index);
        }
    }
    return statements;
}

} // namespace ordwell

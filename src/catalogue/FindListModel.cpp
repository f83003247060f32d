#include "FindListModel.h"

#include "common/Sql.h"
#include "store/Dialect.h"

namespace ordwell {

namespace {
QString quoted(const QString& identifier) {
    return QLatin1Char('"') + identifier + QLatin1Char('"');
}
} // namespace

FindListModel::FindListModel(QSqlDatabase db, FindQuery query, QObject* parent)
    : QAbstractListModel(parent), m_db(std::move(db)), m_query(std::move(query)) {}

Status FindListModel::open() {
    const QString table = quoted(m_query.table);
    const QString column = quoted(m_query.column);
    auto count = Sql::scalar(m_db, QStringLiteral("SELECT count(*) FROM %1").arg(table));
    if (!count)
        return count.status();
    auto nulls = Sql::scalar(m_db, QStringLiteral("SELECT count(*) FROM %1 WHERE %2 IS NULL").arg(table, column));
    if (!nulls)
        return nulls.status();
    const QString ordered = Dialects::caseBlind(m_db, column);
    m_blockQuery = std::make_unique<Sql::Statement>(
        m_db, QStringLiteral("SELECT %1 FROM %2 ORDER BY %3 LIMIT ? OFFSET ?").arg(column, table, ordered));
    m_rowQuery = std::make_unique<Sql::Statement>(
        m_db, QStringLiteral("SELECT count(*) FROM %1 WHERE %2 < ?").arg(table, ordered));
    beginResetModel();
    m_blocks.clear();
    m_recent.clear();
    m_count = count->toInt();
    m_nullCount = nulls->toInt();
    endResetModel();
    return Status::ok();
}

int FindListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_count;
}

const QList<QString>& FindListModel::block(int blockIndex) const {
    auto found = m_blocks.find(blockIndex);
    if (found != m_blocks.end()) {
        m_recent.removeOne(blockIndex);
        m_recent.append(blockIndex);
        return *found;
    }
    QList<QString> rows;
    rows.reserve(BlockRows);
    // A failure is logged by the statement; the rows read so far are shown.
    if (m_blockQuery && m_blockQuery->exec({BlockRows, blockIndex * BlockRows})) {
        QSqlQuery& q = m_blockQuery->query();
        while (q.next())
            rows.append(q.isNull(0) ? QString() : q.value(0).toString());
        q.finish();
    }
    if (m_recent.size() >= MaxBlocks)
        m_blocks.remove(m_recent.takeFirst());
    m_recent.append(blockIndex);
    return *m_blocks.insert(blockIndex, rows);
}

QString FindListModel::textAt(int row) const {
    if (row < 0 || row >= m_count)
        return {};
    return block(row / BlockRows).value(row % BlockRows);
}

QVariant FindListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole))
        return {};
    return textAt(index.row());
}

QString FindListModel::detailFor(const QString& text) const {
    if (m_query.detailColumn.isEmpty())
        return {};
    const QString sql = QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ? ORDER BY %4 LIMIT 1")
                            .arg(quoted(m_query.detailColumn), quoted(m_query.table),
                                 Dialects::exactly(m_db, quoted(m_query.column)), quoted(m_query.keyColumn));
    auto value = Sql::scalar(m_db, sql, {text});
    return value && !value->isNull() ? value->toString() : QString();
}

std::optional<QString> FindListModel::entryWithDetail(const QString& value) const {
    if (m_query.detailColumn.isEmpty() || value.isEmpty())
        return std::nullopt;
    const QString sql = QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ? LIMIT 1")
                            .arg(quoted(m_query.column), quoted(m_query.table), quoted(m_query.detailColumn));
    auto entry = Sql::scalar(m_db, sql, {value});
    if (!entry || !entry->isValid())
        return std::nullopt;
    return entry->toString();
}

int FindListModel::rowsHeld() const {
    int rows = 0;
    for (const QList<QString>& b : m_blocks)
        rows += b.size();
    return rows;
}

bool FindListModel::startsWith(int row, const QString& prefix) const {
    return row >= 0 && row < m_count && textAt(row).startsWith(prefix, Qt::CaseInsensitive);
}

int FindListModel::rowOf(const QString& text) const {
    int row = m_count;
    if (m_rowQuery && m_rowQuery->exec({text})) {
        QSqlQuery& q = m_rowQuery->query();
        if (q.next())
            row = m_nullCount + q.value(0).toInt();
        q.finish();
    }
    return row;
}

int FindListModel::rowForPrefix(const QString& prefix, int current) const {
    if (m_count == 0)
        return current;
    // Every entry begins with the empty text, so it picks the second.
    if (prefix.isEmpty())
        return m_count > 1 ? 1 : 0;
    // Compared without regard to case, the entries beginning with the text sit together, from the
    // first one not below it.
    const int first = rowOf(prefix);
    if (!startsWith(first, prefix))
        return current;
    if (first > 0)
        return first;
    // The first entry is chosen only when no later one begins with the text.
    return startsWith(1, prefix) ? 1 : 0;
}

} // namespace ordwell

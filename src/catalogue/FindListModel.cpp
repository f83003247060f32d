#include "FindListModel.h"

#include "common/Sql.h"

#include <QLoggingCategory>

namespace ordwell {

namespace {
Q_LOGGING_CATEGORY(lcFind, "ordwell.find", QtWarningMsg)

QString quoted(const QString& identifier) {
    return QLatin1Char('"') + identifier + QLatin1Char('"');
}
} // namespace

FindListModel::FindListModel(QSqlDatabase db, FindQuery query, QObject* parent)
    : QAbstractListModel(parent), m_db(std::move(db)), m_query(std::move(query)), m_blockQuery(m_db),
      m_lowerBoundQuery(m_db) {}

Status FindListModel::open() {
    const QString table = quoted(m_query.table);
    const QString column = quoted(m_query.column);
    auto count = Sql::scalar(m_db, QStringLiteral("SELECT count(*) FROM %1").arg(table));
    if (!count)
        return count.status();
    // Both run often: prepared once. The order is the column's own (its index).
    m_blockQuery.setForwardOnly(true);
    m_lowerBoundQuery.setForwardOnly(true);
    if (!m_blockQuery.prepare(QStringLiteral("SELECT %1 FROM %2 ORDER BY %1 LIMIT ? OFFSET ?").arg(column, table)) ||
        !m_lowerBoundQuery.prepare(QStringLiteral("SELECT count(*) FROM %2 WHERE %1 < ?").arg(column, table)))
        return Status::fail(Sql::describe(m_blockQuery.lastError().isValid() ? m_blockQuery.lastError()
                                                                             : m_lowerBoundQuery.lastError()));
    beginResetModel();
    m_blocks.clear();
    m_recent.clear();
    m_count = count->toInt();
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
    m_blockQuery.bindValue(0, BlockRows);
    m_blockQuery.bindValue(1, blockIndex * BlockRows);
    if (m_blockQuery.exec()) {
        while (m_blockQuery.next())
            rows.append(m_blockQuery.isNull(0) ? QString() : m_blockQuery.value(0).toString());
    } else {
        qCWarning(lcFind) << "reading the list failed:" << m_blockQuery.lastError().text();
    }
    m_blockQuery.finish();
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

bool FindListModel::startsWith(int row, const QString& prefix) const {
    return row >= 0 && row < m_count && textAt(row).startsWith(prefix, Qt::CaseInsensitive);
}

int FindListModel::rowForPrefix(const QString& prefix, int current) const {
    if (m_count == 0)
        return current;
    // The entries beginning with the text sit together in the column's order, from the first
    // entry not below it.
    m_lowerBoundQuery.bindValue(0, prefix);
    int first = m_count;
    if (m_lowerBoundQuery.exec() && m_lowerBoundQuery.next())
        first = m_lowerBoundQuery.value(0).toInt();
    m_lowerBoundQuery.finish();
    if (!startsWith(first, prefix))
        return current;
    if (first > 0)
        return first;
    return startsWith(1, prefix) ? 1 : 0;
}

} // namespace ordwell

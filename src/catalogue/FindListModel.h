#pragma once

#include "common/Status.h"

#include <QAbstractListModel>
#include <QHash>
#include <QList>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>

namespace ordwell {

// One column of one table, in the order of that column with letters compared without regard to
// case (as the text columns here compare): the list the find window shows. The column should be
// indexed; then the list opens at once however long it is.
struct FindQuery {
    QString table;
    QString column;
};

// A list over a FindQuery that never holds the whole table: the row count is read once and
// rows are read in blocks as the view asks for them, keeping only a bounded number of blocks.
class FindListModel : public QAbstractListModel {
    Q_OBJECT
public:
    FindListModel(QSqlDatabase db, FindQuery query, QObject* parent = nullptr);

    // Reads the row count; the list is empty until this succeeds.
    Status open();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QString textAt(int row) const;

    // The row the typed `prefix` selects: the first entry that begins with it (letters compared
    // without regard to case), the search starting after the first entry and wrapping round to
    // it, so the first entry is chosen only when no later one begins with the text. `current`
    // when no entry begins with it.
    int rowForPrefix(const QString& prefix, int current) const;

    // Rows read from the database so far, for checking that the list stays bounded.
    int rowsHeld() const;

    static constexpr int BlockRows = 256;
    static constexpr int MaxBlocks = 64;

private:
    const QList<QString>& block(int blockIndex) const;
    bool startsWith(int row, const QString& prefix) const;
    int rowOf(const QString& text) const;

    QSqlDatabase m_db;
    FindQuery m_query;
    int m_count = 0;
    int m_nullCount = 0; // null entries sort first and show as empty text
    mutable QSqlQuery m_blockQuery;
    mutable QSqlQuery m_rowQuery;
    mutable QHash<int, QList<QString>> m_blocks;
    mutable QList<int> m_recent; // block indexes, least recently used first
};

} // namespace ordwell

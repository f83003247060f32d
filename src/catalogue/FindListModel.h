#pragma once

#include "common/Status.h"

#include "common/Sql.h"
#include <QAbstractListModel>
#include <QHash>
#include <QList>
#include <QSqlDatabase>

#include <QSqlQuery>
#include <QString>
#include <memory>
#include <optional>

namespace ordwell {

// One column of one table, in the order of that column with letters compared without regard to
// case (as the text columns here compare): the list the find window shows. The column should be
// indexed; then the list opens at once however long it is.
struct FindQuery {
    QString table;
    QString column;
    // Optional: a second column shown for the entry chosen in the list (from its first row in
    // `keyColumn` order), under `detailCaption`. Text typed into the search box that
    // `detailFromTyped` turns into a detail value (a scanned product barcode, say) goes straight
    // to the entry holding it.
    QString detailColumn;
    QString detailCaption;
    QString keyColumn;
    QString (*detailFromTyped)(const QString& typed) = nullptr;
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
    // The detail column's value for the entry `text` (empty when there is none).
    QString detailFor(const QString& text) const;
    // The entry whose detail column holds exactly `value`, if any.
    std::optional<QString> entryWithDetail(const QString& value) const;

    // The row the typed `prefix` selects: the first entry that begins with it (letters compared
    // without regard to case), the search starting after the first entry and wrapping round to
    // it, so the first entry is chosen only when no later one begins with the text. `current`
    // when no entry begins with it.
    int rowForPrefix(const QString& prefix, int current) const;
    // The row where `text` stands (or would stand) in the list.
    int rowOf(const QString& text) const;
    const FindQuery& query() const { return m_query; }

    // Rows read from the database so far, for checking that the list stays bounded.
    int rowsHeld() const;

    static constexpr int BlockRows = 256;
    static constexpr int MaxBlocks = 64;

private:
    const QList<QString>& block(int blockIndex) const;
    bool startsWith(int row, const QString& prefix) const;

    QSqlDatabase m_db;
    FindQuery m_query;
    int m_count = 0;
    int m_nullCount = 0; // null entries sort first and show as empty text
    // Both run often (while scrolling, on every typed character): prepared once. The order is
    // the one the column's index keeps, so nothing is sorted.
    std::unique_ptr<Sql::Statement> m_blockQuery;
    std::unique_ptr<Sql::Statement> m_rowQuery;
    mutable QHash<int, QList<QString>> m_blocks;
    mutable QList<int> m_recent; // block indexes, least recently used first
};

} // namespace ordwell

#pragma once

#include <QList>

namespace ordwell {

// Where a record window stands in the records it browses. The window asks only for the count,
// the position and the four moves, so the records may stay in the database: a list of a few
// rows held in memory and a keyset-paged repository over a million rows both fit.
class RecordCursor {
public:
    virtual ~RecordCursor() = default;

    virtual int count() const = 0;
    // 1-based; 0 when there is no current record.
    virtual int position() const = 0;

    // Each returns false (and stays put) when there is nowhere to go.
    virtual bool first() = 0;
    virtual bool previous() = 0;
    virtual bool next() = 0;
    virtual bool last() = 0;
};

// A cursor over rows small enough to hold at once (the active vendors).
template <typename Row> class ListCursor : public RecordCursor {
public:
    void reset(QList<Row> rows) {
        m_rows = std::move(rows);
        m_index = m_rows.isEmpty() ? -1 : 0;
    }
    const QList<Row>& rows() const { return m_rows; }
    int index() const { return m_index; }
    const Row* current() const { return m_index >= 0 && m_index < m_rows.size() ? &m_rows.at(m_index) : nullptr; }

    bool moveTo(int index) {
        if (index < 0 || index >= m_rows.size())
            return false;
        m_index = index;
        return true;
    }

    int count() const override { return int(m_rows.size()); }
    int position() const override { return m_index + 1; }
    bool first() override { return moveTo(0); }
    bool previous() override { return moveTo(m_index - 1); }
    bool next() override { return moveTo(m_index + 1); }
    bool last() override { return moveTo(int(m_rows.size()) - 1); }

private:
    QList<Row> m_rows;
    int m_index = -1;
};

} // namespace ordwell

#pragma once

#include "catalogue/ItemRepository.h"
#include "common/RecordCursor.h"

#include <QSqlDatabase>
#include <QString>
#include <optional>

namespace ordwell {

// Where the item window stands in the catalogue: the current item, its 1-based position and the
// count. Moves are indexed look-ups, so a catalogue of any size costs the same to browse.
class ItemBrowser : public RecordCursor {
public:
    explicit ItemBrowser(QSqlDatabase db);

    // Counts the items and goes to the first.
    Status open();

    int count() const override { return m_count; }
    int position() const override { return m_position; }
    bool isEmpty() const { return m_count == 0; }
    const std::optional<Item>& current() const { return m_current; }

    // Each answers false and stays where it was when there is nowhere to go or the database
    // failed (lastError() then says why).
    bool first() override;
    bool last() override;
    bool next() override;
    bool previous() override;
    const Status& lastError() const { return m_lastError; }
    // Goes to the item with this code; answers false (and stays) when there is none.
    Result<bool> goTo(const QString& code);
    // Goes to the first item carrying this description; false (and stays) when there is none.
    Result<bool> goToDescription(const QString& description);

    // Stores a new item; the list then stands at its first row again.
    Status add(const Item& item);
    // Stores an edited item and shows it as stored.
    // Saves over the item as it was shown; see ItemRepository::update().
    Status save(const Item& item, bool* changedElsewhere = nullptr);

    // The ten-button enable mask for a position and count.
    static QString navigationMask(int position, int count);

    ItemRepository& repository() { return m_items; }

private:
    bool moveTo(const Result<std::optional<Item>>& found, int position);

    ItemRepository m_items;
    std::optional<Item> m_current;
    int m_count = 0;
    int m_position = 0;
    Status m_lastError;
};

} // namespace ordwell

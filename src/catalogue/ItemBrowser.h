#pragma once

#include "catalogue/ItemRepository.h"

#include <QSqlDatabase>
#include <QString>
#include <optional>

namespace ordwell {

// Where the item window stands in the catalogue: the current item, its 1-based position and the
// count. Moves are indexed look-ups, so a catalogue of any size costs the same to browse.
class ItemBrowser {
public:
    explicit ItemBrowser(QSqlDatabase db);

    // Counts the items and goes to the first.
    Status open();

    int count() const { return m_count; }
    int position() const { return m_position; }
    bool isEmpty() const { return m_count == 0; }
    const std::optional<Item>& current() const { return m_current; }

    Status first();
    Status last();
    Status next();
    Status previous();
    // Goes to the item with this code; answers false (and stays) when there is none.
    Result<bool> goTo(const QString& code);
    // Goes to the first item carrying this description; false (and stays) when there is none.
    Result<bool> goToDescription(const QString& description);

    // Stores a new item; the list then stands at its first row again.
    Status add(const Item& item);
    // Stores an edited item and shows it as stored.
    Status save(const Item& item);

    // "Record 3 of 10", or `emptyText` when there are no items.
    QString positionText(const QString& emptyText = QStringLiteral("There are no items")) const;

    // The ten-button enable mask for a position and count.
    static QString navigationMask(int position, int count);
    QString navigationMask() const { return navigationMask(m_position, m_count); }

    ItemRepository& repository() { return m_items; }

private:
    Status moveTo(const Result<std::optional<Item>>& found, int position);

    ItemRepository m_items;
    std::optional<Item> m_current;
    int m_count = 0;
    int m_position = 0;
};

} // namespace ordwell

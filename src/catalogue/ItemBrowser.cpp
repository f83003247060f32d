#include "ItemBrowser.h"

namespace ordwell {

ItemBrowser::ItemBrowser(QSqlDatabase db) : m_items(std::move(db)) {}

Status ItemBrowser::open() {
    const auto n = m_items.count();
    if (!n)
        return n.status();
    m_count = *n;
    m_current.reset();
    m_position = 0;
    first();
    return m_lastError;
}

bool ItemBrowser::moveTo(const Result<std::optional<Item>>& found, int position) {
    m_lastError = found.status();
    if (!found || !found->has_value())
        return false;
    m_current = found.value();
    m_position = position;
    return true;
}

bool ItemBrowser::first() {
    return moveTo(m_items.first(), 1);
}

bool ItemBrowser::last() {
    return moveTo(m_items.last(), m_count);
}

bool ItemBrowser::next() {
    if (!m_current)
        return first();
    return moveTo(m_items.next(m_current->code), m_position + 1);
}

bool ItemBrowser::previous() {
    if (!m_current)
        return first();
    return moveTo(m_items.previous(m_current->code), m_position - 1);
}

Result<bool> ItemBrowser::goTo(const QString& code) {
    const auto found = m_items.find(code);
    if (!found)
        return found.status();
    if (!found->has_value())
        return false;
    const auto position = m_items.positionOf(found.value()->code);
    if (!position)
        return position.status();
    m_current = found.value();
    m_position = *position;
    return true;
}

Result<bool> ItemBrowser::goToDescription(const QString& description) {
    const auto found = m_items.findByDescription(description);
    if (!found)
        return found.status();
    if (!found->has_value())
        return false;
    return goTo(found.value()->code);
}

Status ItemBrowser::add(const Item& item) {
    if (const Status stored = m_items.insert(item); !stored)
        return stored;
    // Counted again rather than assumed one more, so the figure is always the table's own.
    if (const Status opened = open(); !opened)
        return opened;
    return Status::ok();
}

Status ItemBrowser::save(const Item& item, bool* changedElsewhere) {
    // The item as the user saw it; one not on show is taken as it is stored now.
    Item asRead = item;
    if (m_current && m_current->code.compare(item.code, Qt::CaseInsensitive) == 0) {
        asRead = *m_current;
    } else {
        const auto stored = m_items.find(item.code);
        if (!stored)
            return stored.status();
        if (stored->has_value())
            asRead = **stored;
    }
    bool changed = false;
    if (const Status stored = m_items.update(item, asRead, &changed); !stored) {
        // The item as it is now stored becomes the one shown.
        if (changed)
            goTo(item.code);
        if (changedElsewhere)
            *changedElsewhere = changed;
        return stored;
    }
    const auto shown = goTo(item.code);
    if (!shown)
        return shown.status();
    return Status::ok();
}

QString ItemBrowser::navigationMask(int position, int count) {
    if (count <= 0)
        return QStringLiteral("1000000001");
    if (count == 1)
        return QStringLiteral("1000010001");
    if (position <= 1)
        return QStringLiteral("1000011111");
    if (position >= count)
        return QStringLiteral("1001110011");
    return QStringLiteral("1001111111");
}

} // namespace ordwell

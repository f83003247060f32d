#include "ScanKeyFilter.h"

#include "catalogue/ScanReading.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace ordwell {

ScanKeyFilter::ScanKeyFilter(QLineEdit* box, GroupSeparatorSubstitute substitute, ScanBurst::Clock clock)
    : QObject(box), m_box(box), m_substitute(std::move(substitute)), m_burst(std::move(clock)) {
    box->installEventFilter(this);
}

bool ScanKeyFilter::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_box || event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        m_lastWasScan = m_burst.enter();
        return false;
    }
    if (isGroupSeparatorKey(key->key(), key->modifiers(), key->text(), m_substitute)) {
        m_burst.key();
        if (!m_box->isReadOnly())
            m_box->insert(QString(GroupSeparator));
        return true;
    }
    if (!key->text().isEmpty() && key->text().at(0).isPrint())
        m_burst.key();
    return false;
}

} // namespace ordwell

#include "ToolWindow.h"

#include "app/MenuMasks.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QTimer>

namespace ordwell {

ToolWindow::ToolWindow(AppContext& context, Level level, QWidget* parent)
    : QWidget(parent), m_context(context), m_level(level) {
    setAttribute(Qt::WA_DeleteOnClose);
}

ToolWindow::~ToolWindow() {
    // A window torn down without its exit (the program ending) must not leave the count high.
    if (m_open)
        --m_context.OpenWindowCount;
}

QString ToolWindow::loadMask() const {
    return m_level == Level::System ? MenuMasks::SystemWindow : MenuMasks::VendorWindow;
}

QString ToolWindow::closeMask() const {
    return m_level == Level::System ? MenuMasks::NoVendor : MenuMasks::VendorOpen;
}

void ToolWindow::beginToolWindow() {
    if (m_open)
        return;
    m_open = true;
    ++m_context.OpenWindowCount;
    m_context.ApplyMenuMask(loadMask());
}

void ToolWindow::finishToolWindow() {
    if (m_finishing)
        return;
    m_finishing = true;
    if (m_open) {
        m_open = false;
        --m_context.OpenWindowCount;
    }
    m_context.ApplyMenuMask(closeMask());
    emit toolWindowClosed();
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        sub->setAttribute(Qt::WA_DeleteOnClose);
        sub->close();
    } else {
        close();
    }
}

bool ToolWindow::event(QEvent* event) {
    // The frame is known once the main window has taken the window in, before it is shown.
    if (event->type() == QEvent::ParentChange && !m_watchingActivation) {
        if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget())) {
            m_watchingActivation = true;
            connect(frame, &QMdiSubWindow::aboutToActivate, this, [this] { windowActivated(); });
        }
    }
    return QWidget::event(event);
}

void ToolWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // Shown on its own, outside the main window: nothing will activate it.
    if (!m_watchingActivation) {
        m_watchingActivation = true;
        windowActivated();
    }
}

void ToolWindow::closeEvent(QCloseEvent* event) {
    if (m_finishing || !m_open) {
        event->accept();
        return;
    }
    // The close box stands for the window's own button; it never bypasses it.
    event->ignore();
    QAbstractButton* button = closeBoxButton();
    if (button && button->isEnabled() && button->isVisible()) {
        // After the close event has unwound: the button may close this very window.
        QTimer::singleShot(0, button, [button] {
            if (button->isEnabled())
                button->click();
        });
    }
}

} // namespace ordwell

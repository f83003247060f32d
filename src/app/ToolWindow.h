#pragma once

#include "app/AppContext.h"

#include <QWidget>

class QAbstractButton;

namespace ordwell {

// A working window inside the main window. Every one counts itself in OpenWindowCount while
// open and switches the main menu: the load mask when it opens, the close mask when it leaves
// through its own exit. The main window places it (showToolWindow); the form calls
// finishToolWindow() from its exit button.
class ToolWindow : public QWidget {
    Q_OBJECT
public:
    enum class Level { System, Vendor };

    ToolWindow(AppContext& context, Level level, QWidget* parent = nullptr);
    ~ToolWindow() override;

    Level level() const { return m_level; }
    bool isOpenTool() const { return m_open; }

    // Called once by the host when the window is placed: count, mask.
    void beginToolWindow();

signals:
    void toolWindowClosed();

protected:
    AppContext& context() const { return m_context; }

    // The mask applied while the window is open, and the one applied when it leaves.
    virtual QString loadMask() const;
    virtual QString closeMask() const;

    // The button that the title bar's close box stands for (Exit or Cancel); the close box does
    // nothing while it is disabled or when there is none.
    virtual QAbstractButton* closeBoxButton() const { return nullptr; }

    // The window's own exit: uncount, apply the close mask, close the window for good.
    void finishToolWindow();

    // Called each time the window becomes the active one inside the main window (first when it
    // opens), or once when it is shown on its own: windows that list records read them afresh
    // here, so they never offer one that has gone meanwhile.
    virtual void windowActivated() {}

    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    AppContext& m_context;
    Level m_level;
    bool m_open = false;
    bool m_finishing = false;
    bool m_watchingActivation = false;
};

} // namespace ordwell

#pragma once

#include <QString>
#include <functional>

class QMdiArea;
class QWidget;

namespace ordwell {

class ToolWindow;

// What the windows of every feature need from the main window, without knowing it: masking
// the menus, the status panels, showing and centring sub-windows in the work area, and the
// menu entries' work. The main window is the one implementation; features hold this.
class WindowHost {
public:
    virtual ~WindowHost() = default;

    // One character per masked menu entry, "1" enabled.
    virtual void ApplyMenuMask(const QString& mask) = 0;
    virtual void ShowStatus(const QString& vendorName) = 0;

    // Places a tool window inside the work area and starts its protocol.
    virtual void showToolWindow(ToolWindow* window) = 0;
    // Makes room for a sub-window (within the screen) and centres it in the work area.
    virtual void CentreInMainWindow(QWidget* toolWindow) = 0;
    // The work area the sub-windows live in, and the window itself (its icon, size and state).
    virtual QMdiArea* mdiArea() const = 0;
    virtual QWidget* hostWidget() = 0;
    // The twips-per-pixel factor placement uses on this screen.
    virtual double twipsPerPixel() const = 0;

    // What a menu entry does, by its objectName.
    virtual void setMenuHandler(const QString& entryName, std::function<void()> handler) = 0;
};

} // namespace ordwell

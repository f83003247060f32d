#pragma once

#include "app/AppContext.h"

#include <QHash>
#include <QMainWindow>
#include <QPointer>
#include <functional>

class QAction;
class QLabel;
class QMdiArea;
class QMenu;

namespace ordwell {

class SplashWindow;
class ToolWindow;

// frmMain: the one top-level window. Hosts the tool windows, owns the menu tree and its enable
// masks, the three-panel status bar and the remembered placement.
class MainWindow : public QMainWindow, public WindowHost {
    Q_OBJECT
public:
    explicit MainWindow(AppContext& context, QWidget* parent = nullptr);
    ~MainWindow() override;

    void ApplyMenuMask(const QString& mask) override;
    void ShowStatus(const QString& vendorName) override;

    // Places a tool window inside the main window and starts its protocol.
    void showToolWindow(ToolWindow* window) override;
    // Grows a normal main window, as far as the screen allows, until the whole sub-window fits
    // in the work area, then centres it there.
    void CentreInMainWindow(QWidget* toolWindow) override;

    // What a menu entry does, by its objectName; About and Exit are the window's own.
    void setMenuHandler(const QString& entryName, std::function<void()> handler) override;
    void triggerMenu(const QString& entryName);

    QAction* menuEntry(const QString& name) const;
    // The entries a mask drives, positions 1..18 in order.
    QList<QAction*> maskedEntries() const { return m_maskedEntries; }
    QMdiArea* mdiArea() const override { return m_mdi; }
    QWidget* hostWidget() override { return this; }

    // Ends the program the normal way: vendor and system databases closed, every window shut.
    void exitProgram();

    // The twips-per-pixel factor placement uses on this screen.
    double twipsPerPixel() const override;

signals:
    void firstActivated();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildMenus();
    void buildStatusBar();
    void followVendorSession();
    void makeRoomFor(const QWidget* toolWindow);
    void restorePlacement();
    void savePlacement();
    void onFirstActivation();
    void showAbout();
    void shutDown();
    void updateClock();

    AppContext& m_context;
    QLabel* m_dataPlace = nullptr; // only when the data is on a server
    QMdiArea* m_mdi = nullptr;
    QHash<QString, QAction*> m_entries;
    QList<QAction*> m_maskedEntries;
    QHash<QString, std::function<void()>> m_handlers;
    QLabel* m_panels[3] = {nullptr, nullptr, nullptr};
    QPointer<SplashWindow> m_about;
    bool m_activated = false;
    bool m_exiting = false;
    bool m_sessionEnding = false;
};

// Closes every top-level window, the main window included; the program ends with the last.
void CloseAllWindows();

} // namespace ordwell

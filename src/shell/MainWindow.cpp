#include "MainWindow.h"

#include "app/MenuMasks.h"
#include "app/ToolWindow.h"
#include "app/VendorSession.h"
#include "shell/BackupCommands.h"
#include "shell/SplashWindow.h"
#include "store/Store.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>

namespace ordwell {

namespace {

struct MenuEntry {
    const char* name;
    const char* caption; // "-" is a separator
    const char* shortcut;
    bool masked = true; // driven by the menu masks; the others are always available
};

struct TopMenu {
    const char* name;
    const char* caption;
    QList<MenuEntry> entries;
};

const QList<TopMenu>& menuTree() {
    static const QList<TopMenu> tree = {
        {"mnuFile",
         "&File",
         {{"mnuswven", "&Swich Vendor", "Ctrl+S"},
          {"mnuFileBar1", "-", ""},
          {"mnuBackup", "Back &Up Data...", "", false},
          {"mnuRestore", "&Restore Data...", "", false},
          {"mnuFileBarBackup", "-", ""},
          {"mnuabout", "&About", ""},
          {"mnuFileExit", "E&xit", "Ctrl+X"}}},
        {"mnuOrders",
         "&Orders",
         {{"mnuNewOrd", "Start &New Order", "Ctrl+N"},
          {"mnuLdOrd", "&Load Existing Order", "Ctrl+L"},
          {"mnuFileBar2", "-", ""},
          {"mnuprtord", "&Print Order", "Ctrl+P"},
          {"mnuexpord", "&Export Order", "Ctrl+E"},
          {"mnuFileBar3", "-", ""},
          {"mnuRcvOrd", "&Receive Order", "Ctrl+R"}}},
        {"mnuitems",
         "&Items",
         {{"mnueditms", "&Add/Edit Items", "Ctrl+I"},
          {"mnuimpitms", "&Import Items", ""},
          {"mnuFileBarfour", "-", ""},
          {"mnubarcodes", "&Barcode Rules", "Ctrl+B"}}},
        {"mnuvendors",
         "&Vendors",
         {{"mnuedvend", "&Add/Edit Vendor", "Ctrl+V"}, {"mnudevend", "&Deactivate Vendor", ""}}},
        {"mnureports",
         "&Reports",
         {{"mnurptoutitms", "Outstanding Items", ""}, {"mnurptOrdhist", "Order History", ""}}},
        {"mnumaint",
         "&Maintance",
         {{"mnusysdefault", "&System Defaults", ""},
          {"mnuFileBar4", "-", ""},
          {"mnucompsys", "&Compact System", ""},
          {"mnucompvend", "&Compact Vendor", ""},
          {"mnuFileBar5", "-", ""},
          {"mnudbserver", "&Database Server...", "", false}}},
    };
    return tree;
}

const QString SettingsGroup = QStringLiteral("Settings");

} // namespace

MainWindow::MainWindow(AppContext& context, QWidget* parent) : QMainWindow(parent), m_context(context) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Ordwell"));
    setWindowIcon(QIcon(QStringLiteral(":/images/ordwell-icon.png")));
    m_mdi = new QMdiArea(this);
    m_mdi->setObjectName(QStringLiteral("mdiArea"));
    m_mdi->setAccessibleName(QStringLiteral("Working windows"));
    // On a screen too small for a window, the work area scrolls so that every part is reached.
    m_mdi->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_mdi->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(m_mdi);
    buildMenus();
    buildStatusBar();
    m_context.setWindowHost(this);
    followVendorSession();
    restorePlacement();
    // The desktop session ending is not the user closing the window: that close is let through.
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { m_sessionEnding = true; });
}

MainWindow::~MainWindow() {
    if (m_context.windowHost() == this)
        m_context.setWindowHost(nullptr);
}

void MainWindow::buildMenus() {
    for (const TopMenu& top : menuTree()) {
        QMenu* menu = menuBar()->addMenu(QString::fromLatin1(top.caption));
        menu->setObjectName(QString::fromLatin1(top.name));
        for (const MenuEntry& e : top.entries) {
            const QString name = QString::fromLatin1(e.name);
            QAction* action = nullptr;
            if (qstrcmp(e.caption, "-") == 0) {
                action = menu->addSeparator();
            } else {
                action = menu->addAction(QString::fromLatin1(e.caption));
                if (*e.shortcut)
                    action->setShortcut(QKeySequence(QString::fromLatin1(e.shortcut)));
                if (e.masked)
                    m_maskedEntries.append(action);
                connect(action, &QAction::triggered, this, [this, name] { triggerMenu(name); });
            }
            action->setObjectName(name);
            m_entries.insert(name, action);
        }
    }
}

void MainWindow::followVendorSession() {
    // Panel 1 always names the open vendor. The menus follow the session only while no tool
    // window is open: an open window owns the mask until it leaves (the chooser applies the
    // vendor-open mask itself as it closes).
    VendorSession& session = m_context.vendorSession();
    connect(&session, &VendorSession::vendorOpened, this, [this](const QString&, const QString& name) {
        if (m_exiting)
            return;
        ShowStatus(name);
        if (m_context.OpenWindowCount < 1)
            ApplyMenuMask(MenuMasks::VendorOpen);
    });
    connect(&session, &VendorSession::vendorClosed, this, [this] {
        if (m_exiting)
            return;
        ShowStatus(QString());
        if (m_context.OpenWindowCount < 1)
            ApplyMenuMask(MenuMasks::NoVendor);
    });
}

void MainWindow::buildStatusBar() {
    QStatusBar* bar = statusBar();
    bar->setObjectName(QStringLiteral("sbStatusBar"));
    bar->setSizeGripEnabled(true);
    for (int i = 0; i < 3; ++i) {
        m_panels[i] = new QLabel(bar);
        m_panels[i]->setObjectName(QStringLiteral("sbPanel_%1").arg(i + 1));
        m_panels[i]->setFrameShape(QFrame::StyledPanel);
        m_panels[i]->setFrameShadow(QFrame::Sunken);
        bar->addPermanentWidget(m_panels[i], i == 0 ? 2 : 1);
    }
    // The panels' texts are what a screen reader reads; these only say what each one is.
    m_panels[0]->setAccessibleDescription(QStringLiteral("Open vendor"));
    m_panels[1]->setAccessibleDescription(QStringLiteral("Date"));
    m_panels[2]->setAccessibleDescription(QStringLiteral("Time"));
    // Several workstations may share a server: where this one's data is stays in sight.
    if (const Store::StoreLocation where = m_context.store(); where.onServer()) {
        m_dataPlace = new QLabel(where.describe(), bar);
        m_dataPlace->setObjectName(QStringLiteral("sbDataPlace"));
        m_dataPlace->setFrameShape(QFrame::StyledPanel);
        m_dataPlace->setFrameShadow(QFrame::Sunken);
        m_dataPlace->setAccessibleDescription(QStringLiteral("Where the data is"));
        bar->insertPermanentWidget(0, m_dataPlace, 1);
    }
    updateClock();
    auto* clock = new QTimer(this);
    connect(clock, &QTimer::timeout, this, &MainWindow::updateClock);
    clock->start(1000);
}

void MainWindow::updateClock() {
    const QDateTime now = QDateTime::currentDateTime();
    m_panels[1]->setText(QLocale().toString(now.date(), QLocale::ShortFormat));
    m_panels[2]->setText(QLocale().toString(now.time(), QLocale::ShortFormat));
}

QAction* MainWindow::menuEntry(const QString& name) const {
    return m_entries.value(name);
}

void MainWindow::ApplyMenuMask(const QString& mask) {
    if (mask.size() != MenuMasks::Length)
        m_context.prompter().message(QStringLiteral("The menu option is the wrong length"), QString(),
                                     MessageIcon::None);
    for (int i = 0; i < m_maskedEntries.size() && i < mask.size(); ++i) {
        if (mask.at(i) == QLatin1Char('0'))
            m_maskedEntries.at(i)->setEnabled(false);
        else if (mask.at(i) == QLatin1Char('1'))
            m_maskedEntries.at(i)->setEnabled(true);
    }
}

void MainWindow::ShowStatus(const QString& vendorName) {
    m_panels[0]->setText(vendorName.isEmpty() ? QStringLiteral("No Vendor Selected") : vendorName);
}

void MainWindow::setMenuHandler(const QString& entryName, std::function<void()> handler) {
    m_handlers.insert(entryName, std::move(handler));
}

void MainWindow::triggerMenu(const QString& entryName) {
    QAction* action = m_entries.value(entryName);
    if (action && !action->isEnabled())
        return;
    if (entryName == QLatin1String("mnuabout")) {
        showAbout();
        return;
    }
    if (entryName == QLatin1String("mnuFileExit")) {
        exitProgram();
        return;
    }
    const auto handler = m_handlers.value(entryName);
    if (handler)
        handler();
}

void MainWindow::showToolWindow(ToolWindow* window) {
    QMdiSubWindow* sub = m_mdi->addSubWindow(window);
    sub->setObjectName(window->objectName() + QStringLiteral("_frame"));
    sub->setAttribute(Qt::WA_DeleteOnClose);
    sub->setWindowIcon(windowIcon());
    window->beginToolWindow();
    sub->adjustSize();
    CentreInMainWindow(sub);
    sub->show();
    window->activateWindow();
}

void MainWindow::makeRoomFor(const QWidget* toolWindow) {
    const QSize area = m_mdi->viewport()->size();
    const QSize missing(qMax(0, toolWindow->width() - area.width()), qMax(0, toolWindow->height() - area.height()));
    if (missing.isNull())
        return;
    QRect target(geometry().topLeft(), size() + missing);
    if (const QScreen* shown = screen()) {
        // The frame the window manager adds stays on the screen too.
        const QRect frame = frameGeometry();
        const QMargins decoration(geometry().left() - frame.left(), geometry().top() - frame.top(),
                                  frame.right() - geometry().right(), frame.bottom() - geometry().bottom());
        const QRect screenArea = shown->availableGeometry().marginsRemoved(decoration);
        target.setSize(target.size().boundedTo(screenArea.size()));
        target.moveRight(qMin(target.right(), screenArea.right()));
        target.moveBottom(qMin(target.bottom(), screenArea.bottom()));
        target.moveLeft(qMax(target.left(), screenArea.left()));
        target.moveTop(qMax(target.top(), screenArea.top()));
    }
    setGeometry(target);
    // The work area takes the new size at once, so the window is centred in it.
    layout()->activate();
}

void MainWindow::CentreInMainWindow(QWidget* toolWindow) {
    // Only a normal main window has a meaningful middle to centre in.
    if (isMinimized() || isMaximized() || isFullScreen())
        return;
    makeRoomFor(toolWindow);
    const QSize area = m_mdi->viewport()->size();
    const int left = (area.width() - toolWindow->width()) / 2;
    const int top = (area.height() - toolWindow->height()) / 2;
    toolWindow->move(qMax(0, left), qMax(0, top));
}

double MainWindow::twipsPerPixel() const {
    const int dpi = logicalDpiX() > 0 ? logicalDpiX() : 96;
    return 1440.0 / dpi;
}

void MainWindow::restorePlacement() {
    if (m_context.DatabaseJustCreated) {
        // Fill the screen even where no window manager carries out the maximise.
        if (QScreen* screen = QGuiApplication::primaryScreen())
            setGeometry(screen->availableGeometry());
        setWindowState(windowState() | Qt::WindowMaximized);
        return;
    }
    auto settings = m_context.settings();
    settings->beginGroup(SettingsGroup);
    const double tpp = twipsPerPixel();
    auto read = [&](const char* key, float fallback) {
        bool ok = false;
        float value = settings->value(QString::fromLatin1(key)).toString().toFloat(&ok);
        return (ok ? value : fallback) / tpp;
    };
    const double left = read("MainLeft", 1000);
    const double top = read("MainTop", 1000);
    const double width = read("MainWidth", 6500);
    const double height = read("MainHeight", 6500);
    move(qRound(left), qRound(top));
    resize(qMax(1, int(qRound(width))), qMax(1, int(qRound(height))));
}

void MainWindow::savePlacement() {
    // A minimised window saves nothing, so the last normal placement survives.
    if (isMinimized())
        return;
    auto settings = m_context.settings();
    settings->beginGroup(SettingsGroup);
    const double tpp = twipsPerPixel();
    settings->setValue(QStringLiteral("MainLeft"), QString::number(qRound(x() * tpp)));
    settings->setValue(QStringLiteral("MainTop"), QString::number(qRound(y() * tpp)));
    settings->setValue(QStringLiteral("MainWidth"), QString::number(qRound(width() * tpp)));
    settings->setValue(QStringLiteral("MainHeight"), QString::number(qRound(height() * tpp)));
    settings->sync();
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && !m_activated) {
        m_activated = true;
        // Let the activation finish before a tool window takes the focus.
        QTimer::singleShot(0, this, &MainWindow::onFirstActivation);
    }
}

void MainWindow::onFirstActivation() {
    const bool hasDetails = m_context.hasSystemDb() && Store::HasOrganisationDetails(m_context.systemDb());
    if (!hasDetails || m_context.DatabaseJustCreated) {
        // The system defaults window reads the flag while it loads.
        const auto handler = m_handlers.value(QStringLiteral("mnusysdefault"));
        if (handler)
            handler();
        m_context.DatabaseJustCreated = false;
    } else {
        ApplyMenuMask(MenuMasks::NoVendor);
    }
    ShowStatus(QString());
    emit firstActivated();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (isMinimized())
        return;
    // The vendor's panel gives up half its share to the server's name when there is one.
    m_panels[0]->setMinimumWidth(m_dataPlace ? width() / 4 : width() / 2);
    if (m_dataPlace)
        m_dataPlace->setMinimumWidth(width() / 4);
    m_panels[1]->setMinimumWidth(width() / 4);
    m_panels[2]->setMinimumWidth(width() / 4);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!m_exiting) {
        if (m_context.OpenWindowCount >= 1 && !m_sessionEnding) {
            m_context.prompter().message(QStringLiteral("Please close any active windows before closing the software!"),
                                         QString(), MessageIcon::Exclamation);
            event->ignore();
            return;
        }
        shutDown();
    }
    savePlacement();
    event->accept();
    // The other windows (an About box) go with the main window.
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w != this && w->isVisible())
            w->close();
    }
}

void MainWindow::shutDown() {
    m_exiting = true;
    m_context.vendorSession().close();
    m_context.closeSystemDb();
    // Still holding the lock, so no other copy starts on the data while it is copied.
    BackupCommands::backUpOnExit(m_context);
    m_context.releaseSystemLock();
}

void MainWindow::exitProgram() {
    if (!m_exiting)
        shutDown();
    CloseAllWindows();
}

void MainWindow::showAbout() {
    // One About window: asking again brings it forward.
    if (m_about) {
        m_about->raise();
        m_about->activateWindow();
        return;
    }
    m_about = new SplashWindow(m_context);
    m_about->setAttribute(Qt::WA_DeleteOnClose);
    m_about->ShowAsSplash = false;
    m_about->show();
    m_about->repaint();
    m_about->setStatus(QString());
}

void CloseAllWindows() {
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget* w : windows) {
        if (w->isVisible() || w->isWindow())
            w->close();
    }
}

} // namespace ordwell

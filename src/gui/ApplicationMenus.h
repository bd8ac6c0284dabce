#pragma once

#include <QKeySequence>
#include <QObject>
#include <QUrl>

class QAction;
class QMainWindow;
class QMenu;
class QSystemTrayIcon;

// The application's commands as actions, and the menus that hold them: the menu
// bar (application menu, Shred, Help) and the Dock menu on macOS, which on other
// systems hangs on a system-tray icon together with showing the window and Quit.
class ApplicationMenus : public QObject {
    Q_OBJECT

public:
    struct HelpLink {
        const char* title; // untranslated; ApplicationMenus::tr() gives the menu's text
        const char16_t* url;
    };
    // The Help menu: support by mail, the questions page, the downloads page.
    static const QList<HelpLink>& helpLinks();
    // Shred's shortcut, in the menu and on the main window's button alike.
    static QKeySequence shredShortcut();

    // trayIcon: whether the Dock menu goes on a tray icon (only where there is no Dock).
    ApplicationMenus(QMainWindow& window, bool trayIcon, QObject* parent = nullptr);
    ~ApplicationMenus() override;

    QAction* about() const { return m_about; }
    QAction* settings() const { return m_settings; }
    QAction* quit() const { return m_quit; }
    QAction* preview() const { return m_preview; }
    QAction* shredAndNothing() const { return m_shredAndNothing; }
    QAction* shredAndLogout() const { return m_shredAndLogout; }
    QAction* shredAndShutdown() const { return m_shredAndShutdown; }
    QAction* shredAndRestart() const { return m_shredAndRestart; }
    QAction* showHideWindow() const { return m_showHide; }

    QMenu* dockMenu() const { return m_dockMenu; }
    QSystemTrayIcon* trayIcon() const { return m_tray; }

signals:
    void openUrlRequested(const QUrl& url);
    // The tray icon was clicked, or Show/Hide chosen from its menu.
    void showHideRequested();

private:
    QAction* command(const QString& text, const char* name);
    void buildMenuBar();
    void buildDockMenu(bool trayIcon);

    QMainWindow& m_window;
    QAction* m_about;
    QAction* m_settings;
    QAction* m_quit;
    QAction* m_preview;
    QAction* m_shredAndNothing;
    QAction* m_shredAndLogout;
    QAction* m_shredAndShutdown;
    QAction* m_shredAndRestart;
    QAction* m_showHide = nullptr;
    QMenu* m_dockMenu = nullptr;
    QSystemTrayIcon* m_tray = nullptr;
};

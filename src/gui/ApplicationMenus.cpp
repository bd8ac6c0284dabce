#include "gui/ApplicationMenus.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSystemTrayIcon>

using namespace Qt::StringLiterals;

const QList<ApplicationMenus::HelpLink>& ApplicationMenus::helpLinks()
{
    static const QList<HelpLink> links{
        {u"Vantle X Support", u"mailto:support@orvick.com?subject=Vantle%20X"},
        {u"Frequently Asked Questions", u"https://www.orvick.com/vantle/faq.html"},
        {u"Vantle X Downloads", u"https://www.orvick.com/vantle/downloads.html"},
    };
    return links;
}

ApplicationMenus::ApplicationMenus(QMainWindow& window, bool trayIcon, QObject* parent)
    : QObject(parent)
    , m_window(window)
{
    m_about = command(u"About Vantle X"_s, "about");
    m_about->setMenuRole(QAction::AboutRole);
    m_settings = command(u"Settings…"_s, "settings");
    m_settings->setMenuRole(QAction::PreferencesRole);
    m_settings->setShortcut(QKeySequence(u"Ctrl+,"_s));
    m_quit = command(u"Quit Vantle X"_s, "reallyQuit");
    m_quit->setMenuRole(QAction::QuitRole);
    m_quit->setShortcut(QKeySequence::Quit);

    m_preview = command(u"Preview…"_s, "preview");
    m_shredAndNothing = command(u"Shred"_s, "shredAndNothing");
    m_shredAndLogout = command(u"Shred and Log Out"_s, "shredAndLogout");
    m_shredAndShutdown = command(u"Shred and Shut Down"_s, "shredAndShutdown");
    m_shredAndRestart = command(u"Shred and Restart"_s, "shredAndRestart");

    buildMenuBar();
    buildDockMenu(trayIcon);
}

ApplicationMenus::~ApplicationMenus()
{
    // The tray icon goes before the menu it shows.
    delete m_tray;
    delete m_dockMenu;
}

QAction* ApplicationMenus::command(const QString& text, const char* name)
{
    auto* action = new QAction(text, this);
    action->setObjectName(QLatin1StringView(name));
    return action;
}

void ApplicationMenus::buildMenuBar()
{
    QMenuBar* bar = m_window.menuBar();
    QMenu* application = bar->addMenu(u"&Vantle X"_s);
    application->addAction(m_about);
    application->addSeparator();
    application->addAction(m_settings);
    application->addSeparator();
    application->addAction(m_quit);

    QMenu* shred = bar->addMenu(u"&Shred"_s);
    shred->addAction(m_preview);
    shred->addSeparator();
    shred->addActions({m_shredAndNothing, m_shredAndLogout, m_shredAndShutdown, m_shredAndRestart});

    QMenu* help = bar->addMenu(u"&Help"_s);
    for (const HelpLink& link : helpLinks()) {
        QAction* action = help->addAction(QString::fromUtf16(link.title));
        const QUrl url(QString::fromUtf16(link.url), QUrl::StrictMode);
        connect(action, &QAction::triggered, this, [this, url] { emit openUrlRequested(url); });
    }
}

void ApplicationMenus::buildDockMenu(bool trayIcon)
{
    m_dockMenu = new QMenu;
    m_dockMenu->setObjectName(u"mDockMenu"_s);
    if (trayIcon) {
        m_showHide = command(u"Show Vantle X"_s, "showHideWindow");
        connect(m_showHide, &QAction::triggered, this, &ApplicationMenus::showHideRequested);
        m_dockMenu->addAction(m_showHide);
        m_dockMenu->addSeparator();
        // The title follows the window each time the menu opens.
        connect(m_dockMenu, &QMenu::aboutToShow, this, [this] {
            m_showHide->setText(m_window.isVisible() && !m_window.isMinimized() ? u"Hide Vantle X"_s
                                                                                : u"Show Vantle X"_s);
        });
    }
    m_dockMenu->addActions({m_shredAndNothing, m_shredAndLogout, m_shredAndShutdown, m_shredAndRestart});

    if (!trayIcon) {
#ifdef Q_OS_MACOS
        m_dockMenu->setAsDockMenu();
#endif
        return;
    }
    m_dockMenu->addSeparator();
    m_dockMenu->addAction(m_quit);
    m_tray = new QSystemTrayIcon(QApplication::windowIcon(), this);
    m_tray->setToolTip(u"Vantle X"_s);
    m_tray->setContextMenu(m_dockMenu);
    connect(m_tray, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            emit showHideRequested();
    });
    m_tray->show();
}

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
        {QT_TR_NOOP("Vantle X &Support"), u"mailto:support@orvick.com?subject=Vantle%20X"},
        {QT_TR_NOOP("&Frequently Asked Questions"), u"https://www.orvick.com/vantle/faq.html"},
        {QT_TR_NOOP("Vantle X &Downloads"), u"https://www.orvick.com/vantle/downloads.html"},
    };
    return links;
}

QKeySequence ApplicationMenus::shredShortcut()
{
    return QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S);
}

ApplicationMenus::ApplicationMenus(QMainWindow& window, bool trayIcon, QObject* parent)
    : QObject(parent)
    , m_window(window)
{
    m_about = command(tr("&About Vantle X"), "about");
    m_about->setMenuRole(QAction::AboutRole);
    m_settings = command(tr("S&ettings…"), "settings");
    m_settings->setMenuRole(QAction::PreferencesRole);
    m_settings->setShortcut(QKeySequence(u"Ctrl+,"_s));
    m_quit = command(tr("&Quit Vantle X"), "reallyQuit");
    m_quit->setMenuRole(QAction::QuitRole);
    m_quit->setShortcut(QKeySequence::Quit);

    m_preview = command(tr("Pre&view…"), "preview");
    m_shredAndNothing = command(tr("&Shred"), "shredAndNothing");
    m_shredAndNothing->setShortcut(shredShortcut());
    m_shredAndLogout = command(tr("Shred and &Log Out"), "shredAndLogout");
    m_shredAndShutdown = command(tr("Shred and Shut &Down"), "shredAndShutdown");
    m_shredAndRestart = command(tr("Shred and &Restart"), "shredAndRestart");

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
    QMenu* application = bar->addMenu(tr("&Vantle X"));
    application->addAction(m_about);
    application->addSeparator();
    application->addAction(m_settings);
    application->addSeparator();
    application->addAction(m_quit);

    QMenu* shred = bar->addMenu(tr("&Shred"));
    shred->addAction(m_preview);
    shred->addSeparator();
    shred->addActions({m_shredAndNothing, m_shredAndLogout, m_shredAndShutdown, m_shredAndRestart});

    QMenu* help = bar->addMenu(tr("&Help"));
    for (const HelpLink& link : helpLinks()) {
        QAction* action = help->addAction(tr(link.title));
        const QUrl url(QString::fromUtf16(link.url), QUrl::StrictMode);
        connect(action, &QAction::triggered, this, [this, url] { emit openUrlRequested(url); });
    }
}

void ApplicationMenus::buildDockMenu(bool trayIcon)
{
    m_dockMenu = new QMenu;
    m_dockMenu->setObjectName(u"mDockMenu"_s);
    if (trayIcon) {
        m_showHide = command(tr("S&how Vantle X"), "showHideWindow");
        connect(m_showHide, &QAction::triggered, this, &ApplicationMenus::showHideRequested);
        m_dockMenu->addAction(m_showHide);
        m_dockMenu->addSeparator();
        // The title follows the window each time the menu opens.
        connect(m_dockMenu, &QMenu::aboutToShow, this, [this] {
            m_showHide->setText(m_window.isVisible() && !m_window.isMinimized() ? tr("&Hide Vantle X")
                                                                                : tr("S&how Vantle X"));
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
    m_tray->setToolTip(tr("Vantle X"));
    m_tray->setContextMenu(m_dockMenu);
    connect(m_tray, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            emit showHideRequested();
    });
    m_tray->show();
}

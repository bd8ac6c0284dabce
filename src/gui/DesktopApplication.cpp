#include "gui/DesktopApplication.h"

#include "app/ApplicationModels.h"
#include "app/Controller.h"
#include "app/MakeController.h"
#include "app/RunLock.h"
#include "core/Bundle.h"
#include "gui/AboutBox.h"
#include "gui/AlertSheet.h"
#include "gui/ApplicationMenus.h"
#include "gui/MainWindow.h"
#include "gui/PreviewWindow.h"
#include "gui/QuitSheet.h"
#include "gui/SettingsWindow.h"
#include "gui/WatchPanel.h"
#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"
#include "settings/SettingsDamage.h"
#include "watch/CustomShred.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QIcon>
#include <QSystemTrayIcon>

using namespace Qt::StringLiterals;

namespace {

constexpr bool kHasDock =
#ifdef Q_OS_MACOS
    true;
#else
    false;
#endif

} // namespace

DesktopApplication::DesktopApplication(DesktopPlatform platform, bool startHidden, QObject* parent)
    : QObject(parent)
    , m_platform(std::move(platform))
    , m_startHidden(startHidden)
{
    const ApplicationModels models = ApplicationModels::shared();
    m_window = std::make_unique<MainWindow>(models.defaults, m_platform.beep);
    m_controller = makeController(models, *m_window, m_platform.controller);
    m_settings = std::make_unique<SettingsWindow>(
        SettingsWindow::Models{models.preferences, models.html5, models.profiles, models.plugins, models.customShred},
        m_platform.beep);
    m_menus = std::make_unique<ApplicationMenus>(*m_window, !kHasDock && m_platform.canHideWindows);

    m_preview = std::make_unique<PreviewWindow>(m_window.get());

    connect(m_window.get(), &MainWindow::shredClicked, this, [this] { m_controller->shred(); });
    connect(m_window.get(), &MainWindow::previewClicked, this, &DesktopApplication::preview);
    connect(m_window.get(), &MainWindow::stopClicked, this, [this] { m_controller->stopRun(); });
    connect(m_preview.get(), &PreviewWindow::shredRequested, this, [this] { m_controller->shredAndNothing(); });
    connect(m_controller.get(), &Controller::runFinished, this, [this] {
        if (std::exchange(m_previewing, false)) {
            m_preview->showPlan(m_controller->lastPlan());
            m_preview->show();
            m_preview->raise();
        }
    });
    // A run the watch started while the window was away says its result in a notification.
    connect(m_window.get(), &MainWindow::resultShown, this, [this](const QString& summary) {
        QSystemTrayIcon* tray = m_menus->trayIcon();
        if (tray && (!m_window->isVisible() || m_window->isMinimized()))
            tray->showMessage(tr("Vantle X"), summary, QSystemTrayIcon::Information);
    });
    connect(m_window.get(), &MainWindow::hideRequested, this, &DesktopApplication::hideApplication);
    connect(m_window.get(), &MainWindow::closeRequested, this, &DesktopApplication::windowCloseRequested);
    connect(m_window.get(), &MainWindow::terminationReplied, this, [this](bool terminate) {
        if (terminate)
            finishTermination();
    });

    connect(m_controller.get(), &Controller::runRefused, this, &DesktopApplication::showRunRefused);
    connect(m_controller.get(), &Controller::waitingForOtherRun, this,
            [this](const QString& program, qint64 processId) {
                m_window->setItemText(tr("Waiting for %1 to finish erasing").arg(otherRunName(program, processId)));
            });

    const ApplicationMenus& menus = *m_menus;
    connect(menus.about(), &QAction::triggered, this,
            [this] { AboutBox::show(m_window.get(), m_platform.controller.bundle); });
    connect(menus.settings(), &QAction::triggered, this, [this] { m_settings->showPanel(); });
    connect(menus.quit(), &QAction::triggered, this, &DesktopApplication::reallyQuit);
    connect(menus.preview(), &QAction::triggered, this, &DesktopApplication::preview);
    connect(menus.shredAndNothing(), &QAction::triggered, this, [this] { m_controller->shredAndNothing(); });
    connect(menus.shredAndLogout(), &QAction::triggered, this, [this] { m_controller->shredAndLogout(); });
    connect(menus.shredAndShutdown(), &QAction::triggered, this, [this] { m_controller->shredAndShutdown(); });
    connect(menus.shredAndRestart(), &QAction::triggered, this, [this] { m_controller->shredAndRestart(); });
    connect(&menus, &ApplicationMenus::openUrlRequested, this, [this](const QUrl& url) { m_platform.openUrl(url); });
    connect(&menus, &ApplicationMenus::showHideRequested, this, &DesktopApplication::showHideWindow);

    CustomShred& custom = models.customShred;
    const auto showConfigured = [this, &custom] {
        m_window->watchPanel().setCustomConfiguredCount(int(custom.processes().size()));
    };
    connect(&custom, &CustomShred::processesChanged, this, showConfigured);
    showConfigured();

#ifdef Q_OS_MACOS
    // Coming back to the application (its Dock icon, say) brings the main window back.
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive && !m_terminated)
            m_window->showWindow();
    });
#endif
    // The system's own quit request (the Dock's Quit, the end of the session)
    // takes the same way as the Quit command's final step.
    qApp->installEventFilter(this);
}

DesktopApplication::~DesktopApplication()
{
    qApp->removeEventFilter(this);
}

bool DesktopApplication::acceptDamagedSettings(const QString& settingsPath)
{
    const SettingsDamage::Report damage = SettingsDamage::inspect(settingsPath);
    if (!damage.isDamaged())
        return true;
    {
        RunLock runLock;
        if (runLock.tryLock() != RunLock::Outcome::Busy)
            SettingsDamage::writeToLog(damage);
    }
    const QString kept = damage.keptAs.isEmpty() ? QString() : tr(" It is kept as %1.").arg(damage.keptAs);
    const int answer = AlertSheet::run(
        nullptr, {tr("Vantle"),
                  tr("The settings file could not be read (%1).%2 Vantle erases nothing until you choose the factory "
                     "settings or put the repaired file back in its place.")
                      .arg(damage.reason, kept),
                  {tr("Use Factory Settings"), QMessageBox::AcceptRole},
                  {tr("Quit"), QMessageBox::RejectRole},
                  {}});
    if (answer != AlertSheet::DefaultReturn)
        return false;
    SettingsDamage::confirmFactorySettings(settingsPath);
    return true;
}

QIcon DesktopApplication::applicationIcon(const Bundle& bundle)
{
    QIcon icon;
    const QDir icons(QDir(bundle.resourcePath()).filePath(u"icons"_s));
    for (const QString& file : icons.entryList({u"vantle-*.png"_s}, QDir::Files))
        icon.addFile(icons.filePath(file));
    return icon;
}

void DesktopApplication::start()
{
    m_controller->applicationDidFinishLaunching();
    // A login item asks to start hidden.
    if (m_startHidden)
        hideApplication();
}

bool DesktopApplication::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == qApp && event->type() == QEvent::Quit) {
        terminate();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void DesktopApplication::preview()
{
    if (m_controller->isRunInProgress())
        return;
    m_previewing = true;
    m_controller->preview();
    m_previewing = m_controller->isRunInProgress();
}

void DesktopApplication::reallyQuit()
{
    if (!Preferences::sharedInstance().valueForKey(PreferenceKey::Tarnhold).toBool()) {
        terminate();
        return;
    }
    m_window->showWindow();
    AlertSheet::begin(m_window.get(), QuitSheet::alert(m_platform.canHideWindows),
                      [this](int returnCode) { handleQuitSheet(returnCode); });
}

void DesktopApplication::handleQuitSheet(int returnCode)
{
    if (returnCode == AlertSheet::DefaultReturn)
        hideApplication();
    else if (returnCode == AlertSheet::AlternateReturn)
        terminate();
}

void DesktopApplication::terminate()
{
    if (m_terminated)
        return;
    if (m_controller->applicationShouldTerminate() == Controller::TerminateReply::Later)
        return; // the shredding thread answers when it ends
    finishTermination();
}

void DesktopApplication::finishTermination()
{
    if (m_terminated)
        return;
    m_terminated = true;
    m_window->saveFrame();
    m_controller->applicationWillTerminate();
    m_platform.exitEventLoop();
}

QString DesktopApplication::otherRunName(const QString& program, qint64 processId)
{
    return program.isEmpty() ? tr("another Vantle X process") : tr("%1 (process %2)").arg(program).arg(processId);
}

void DesktopApplication::showRunRefused(const QString& program, qint64 processId)
{
    m_window->showWindow();
    AlertSheet::begin(m_window.get(),
                      {tr("Vantle"),
                       tr("%1 is erasing in this home folder. Nothing was changed: shred again when it has finished.")
                           .arg(otherRunName(program, processId)),
                       {tr("OK"), QMessageBox::AcceptRole},
                       {},
                       {}},
                      [](int) {});
}

void DesktopApplication::hideApplication()
{
    m_settings->hide();
    if (m_platform.canHideWindows)
        m_window->hide();
    else
        m_window->showMinimized();
}

void DesktopApplication::showHideWindow()
{
    if (m_window->isVisible() && !m_window->isMinimized())
        hideApplication();
    else
        m_window->showWindow();
}

void DesktopApplication::windowCloseRequested()
{
    // The watch goes on with the window closed wherever the window can be had
    // back; elsewhere closing it is quitting.
    if (m_platform.canHideWindows)
        m_window->hide();
    else
        reallyQuit();
}

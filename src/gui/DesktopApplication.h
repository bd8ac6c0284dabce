#pragma once

#include "gui/DesktopPlatform.h"

#include <QObject>

#include <memory>

class ApplicationMenus;
class Bundle;
class Controller;
class MainWindow;
class PreviewWindow;
class QIcon;
class SettingsWindow;

// The desktop application: the controller with the main window as its view,
// the settings window, the menus, and quitting (the quit sheet while the
// Tarnhold watch is on, and a quit that waits for a run to finish erasing).
// The shared settings objects must exist before it is made.
//
// Lives on the main thread.
class DesktopApplication : public QObject {
    Q_OBJECT

public:
    DesktopApplication(DesktopPlatform platform, bool startHidden, QObject* parent = nullptr);
    ~DesktopApplication() override;

    // Before the shared settings objects are made: a damaged settings file found
    // at start-up is said in an alert that offers the factory settings or
    // quitting; true when the application may go on.
    static bool acceptDamagedSettings(const QString& settingsPath);

    // The application icon from the bundle's icons folder.
    static QIcon applicationIcon(const Bundle& bundle);

    // The end of launching: the window shows (or not) and the timers start.
    void start();

    Controller& controller() const { return *m_controller; }
    MainWindow& mainWindow() const { return *m_window; }
    SettingsWindow& settingsWindow() const { return *m_settings; }
    ApplicationMenus& menus() const { return *m_menus; }
    PreviewWindow& previewWindow() const { return *m_preview; }

    // Finds what a run would do and shows it in the preview window.
    void preview();

    // The Quit command: at once with the watch off, else after the quit sheet.
    void reallyQuit();
    void handleQuitSheet(int returnCode);
    // Quits unless a run is erasing, in which case the run's end quits.
    void terminate();

    void hideApplication();
    void showHideWindow();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void finishTermination();
    // Another process holds the run lock: a run started here is refused, the watch's waits.
    static QString otherRunName(const QString& program, qint64 processId);
    void showRunRefused(const QString& program, qint64 processId);
    void windowCloseRequested();

    DesktopPlatform m_platform;
    bool m_startHidden;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<Controller> m_controller;
    std::unique_ptr<SettingsWindow> m_settings;
    std::unique_ptr<ApplicationMenus> m_menus;
    std::unique_ptr<PreviewWindow> m_preview;
    bool m_previewing = false;
    bool m_terminated = false;
};

#pragma once

#include "app/ControllerView.h"

#include <QMainWindow>
#include <QTimer>

#include <functional>

class ElidedLabel;
class QProgressBar;
class QPushButton;
class UserDefaults;
class WatchPanel;

// The main window and the controller's view: the Shred, Preview and Stop
// buttons, the progress of a run (bytes, percentage, time left) and the item it
// works on, then the run's result in the item's place, and the watch's display. Its frame is kept in
// the settings under the autosave name "My Window". The confirmation is a sheet
// on it; the quit-browsers alert is modal to the application.
//
// Lives on the main thread, as every call of the controller's view does.
class MainWindow : public QMainWindow, public ControllerView {
    Q_OBJECT

public:
    static constexpr QLatin1StringView kFrameAutosaveName{"My Window"};

    MainWindow(UserDefaults& defaults, std::function<void()> beep, QWidget* parent = nullptr);
    ~MainWindow() override;

    void setProgressValue(double percent) override;
    void setProgressIndeterminate(bool indeterminate) override;
    void setProgressAnimating(bool animating) override;
    void setItemText(const QString& text) override;
    void setWatchStatusText(const QString& text) override;
    void setApplicationLabelColor(WatchedApp application, LabelColor color) override;
    void setCustomRunningCount(int count, LabelColor color) override;
    void setCustomStoppedCount(int count) override;
    void setShredButtonEnabled(bool enabled) override;
    void showWindow() override;
    void hideApplication() override;
    void beginConfirmationSheet(const QString& title, const QString& message,
                                std::function<void(int returnCode)> done) override;
    int runQuitBrowsersAlert(const QString& title, const QString& message) override;
    void replyToApplicationShouldTerminate(bool terminate) override;
    void beep() override;
    void showBytes(quint64 done, quint64 total) override;
    void showResult(const RunResult& result) override;

    WatchPanel& watchPanel() const { return *m_watch; }
    // Stores the frame under its autosave name now.
    void saveFrame();
    // The settings key of the frame.
    static QString frameKey();

signals:
    void shredClicked();
    void previewClicked();
    void stopClicked();
    // A run's result is on the window: a summary, for a notification when it is hidden.
    void resultShown(const QString& summary);
    void hideRequested();
    void terminationReplied(bool terminate);
    // The title bar's close button was used.
    void closeRequested();

protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showProgress();

    UserDefaults& m_defaults;
    std::function<void()> m_beep;
    QPushButton* m_shredButton;
    QPushButton* m_previewButton;
    QPushButton* m_stopButton;
    QProgressBar* m_progress;
    ElidedLabel* m_item;
    WatchPanel* m_watch;
    QTimer m_frameSave;

    ProgressText m_progressText;
    double m_value = 0;
    bool m_indeterminate = false;
    bool m_animating = false;
};

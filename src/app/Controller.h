#pragma once

#include "app/RunLock.h"
#include "app/RunReport.h"
#include "cleaners/CleanerModels.h"
#include "core/ApplicationFlags.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QVariantMap>

#include <atomic>
#include <cstdio>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

class ApplicationQuitter;
class Bundle;
class CommandRunner;
class ControllerView;
class FileAccess;
class Preferences;
class ProfilesManager;
class SessionEnd;
class UserDefaults;

// What the controller works with; owned by whoever builds it.
struct ControllerServices {
    Preferences& preferences;
    UserDefaults& defaults;
    ControllerView& view;
    ApplicationQuitter& quitter;
    SessionEnd& sessionEnd;
    CommandRunner& runner; // ps for the watch, killall for a cleaner
    const Bundle& bundle;
    std::function<void(int milliseconds)> sleepMilliseconds;
    // Finds and reports but changes no file and erases nothing; the run's log
    // lines go to dryRunLog instead of the log file.
    bool dryRun = false;
    FILE* dryRunLog = nullptr;
    // The other settings objects; the run leaves out what a missing one would add.
    CleanerModels models{};
    ProfilesManager* profiles = nullptr;
};

// The application's controller: start-up, the settings timer, the watch, and
// the shred run in its three stages (confirmation on the main thread, the
// finding thread that calls every cleaner, the shredding thread that erases).
//
// Lives on the main thread. The finding and shredding threads touch the view
// only through the main thread. Shared flags are atomic. The path lists and the
// plan pass from the finding thread through the main thread to the shredding
// thread, and the front ends read them, so mListsMutex guards them.
class Controller : public QObject {
    Q_OBJECT

public:
    enum ShutdownStatus : qint16 { None = 0, Logout = 1, Shutdown = 2, Restart = 3 };
    enum class TerminateReply { Now, Later };

    explicit Controller(ControllerServices services, QObject* parent = nullptr);
    ~Controller() override;

    // Front ends that run one command and quit go without the timers.
    void applicationDidFinishLaunching(bool startTimers = true);
    void HandleTimer();

    // The commands that start a run.
    void shred();
    void shredAndNothing();
    void shredAndLogout();
    void shredAndShutdown();
    void shredAndRestart();
    // The end of the confirmation sheet: 1 cancels, anything else goes on.
    void confirmSheetDidEnd(int returnCode);
    // A finding stage without confirmation that changes nothing and writes no
    // log; its plan is in lastPlan() when runFinished comes. Nothing while a run is under way.
    void preview();
    // The shredding stage ends after the item it erases; a run still finding erases nothing.
    void stopRun();

    TerminateReply applicationShouldTerminate();
    void applicationWillTerminate();

    // A run that finds another one erasing in this home waits for it to end
    // instead of being refused; the watch's runs always wait.
    void setWaitForOtherRun(bool wait) { mWaitForOtherRun = wait; }

    // Ten seconds unless a demo or a test asks for quicker polls.
    void setWatchInterval(int milliseconds) { tarnholdTimer.setInterval(milliseconds); }

    // The watch's poll; without a timer it refreshes the state and the display
    // but never starts a run.
    void HandleTarnholdTimer(bool fromTimer);
    void disableProcessDisplay();

    // State, for the front ends and the tests.
    bool isRunInProgress() const { return mAwaitingConfirmation.load() != 0 || mThreadCount.load() != 0; }
    bool isShredding() const { return mThreadCount.load() != 0; }
    bool isWatchTimerActive() const { return mTarnholdTimerOn.load(); }
    qint16 shutdownStatus() const { return mShutdownStatus.load(); }
    const ApplicationFlags& isRunning() const { return mIsRunning; }
    QVariantMap customStatus() const;
    // Paths the last finding stage queued (a dry run keeps them here).
    QStringList foundPaths() const;
    // What the last dry run or preview would erase and rewrite.
    RunPlan lastPlan() const;

    // The thread functions, run on their own threads.
    void HandleFindingThread();
    void HandleThread();

signals:
    // Emitted on the main thread when the finding stage has handed its paths to the shredding thread.
    void shreddingStarted();
    // Emitted on the main thread after every run's shredding stage (or when a run ends early).
    void runFinished();
    // Another process holds the run lock (program and process id, empty and 0
    // when it has not named itself yet): the run waits for it, or is refused
    // having touched nothing.
    void waitingForOtherRun(const QString& program, qint64 processId);
    void runRefused(const QString& program, qint64 processId);

private:
    void startWatchTimer();
    void stopWatchTimer();
    void showTHStatusOnMainThread(const QString& text);
    void showFailedKillOnMainThread(int count);
    void ShredOnMainThread();
    void enableShredButtonOnMainThread();
    void hideOnMainThread();
    void cancelRun();
    bool takeRunLock();
    bool CheckStatus();
    void checkEnabled();
    void callCleaners();
    bool dryRun() const { return mServices.dryRun || mPreview; }
    RunResult result(const EraseTally& erased) const;
    void view(std::function<void(ControllerView&)> call, bool wait = true);

    ControllerServices mServices;
    std::unique_ptr<FileAccess> fileAccessInstance;

    QTimer mTimer;
    QTimer tarnholdTimer;
    std::atomic<bool> mTarnholdTimerOn{false};
    std::atomic<qint16> tarnholdWasRunning{0};

    // Guards mPathArray, mTouchArray, mFoundPaths and mPlan.
    mutable std::mutex mListsMutex;
    // The custom-process status, shared with the custom-process manager through notifications.
    mutable std::mutex mStatusMutex;
    QStringList mPathArray;
    QStringList mTouchArray;
    QStringList mFoundPaths;
    RunPlan mPlan; // of a dry run; only rewrites and applications otherwise
    QElapsedTimer mRunClock;

    ApplicationFlags mWasRunning;
    ApplicationFlags mIsRunning;
    ApplicationFlags mIsEnabled;
    QVariantMap mCustomShredTHStatus;
    std::atomic<qint32> mCustomIsRunning{0};
    std::atomic<qint32> mCustomWasRunning{0};
    std::atomic<qint32> mCustomIsEnabled{0};

    std::atomic<qint16> mThreadCount{0};
    std::atomic<quint8> mAppNeedsToTerminate{0};
    std::atomic<quint8> mAwaitingConfirmation{0};
    std::atomic<qint16> mShutdownStatus{None};
    std::atomic<quint8> mLogoutShutdownRestart{0};
    std::atomic<quint8> mUserDidCancel{0};
    std::atomic<bool> mPreview{false};

    std::thread mFindingThread;
    std::thread mShreddingThread;
    std::atomic<bool> mFindingDone{true};
    std::atomic<bool> mShreddingDone{true};
    std::atomic<bool> mTerminating{false};

    RunLock mRunLock;
    QTimer mRunLockTimer;
    std::atomic<bool> mWaitForOtherRun{false};
    std::atomic<bool> mStartedByWatch{false};
};

#include "app/Controller.h"

#include "app/CleanerDispatch.h"
#include "app/ControllerView.h"
#include "cleaners/CleanerContext.h"
#include "core/Bundle.h"
#include "core/MainThread.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "erase/EraseQueue.h"
#include "erase/FileAccess.h"
#include "log/ActivityLog.h"
#include "platform/ApplicationQuitter.h"
#include "platform/SessionEnd.h"
#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"
#include "settings/ProfilesManager.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString kWatchOff = u"Not enabled. Use preferences to enable..."_s;
const QString kWatchWaiting = u"Enabled and waiting for the first timer event to occur..."_s;

// The categories a run erases, as the confirmation names them.
QString categoryList(const Preferences& preferences)
{
    const QList<std::pair<QLatin1StringView, QString>> labels{
        {PreferenceKey::ShredCache, u"Browser Cache"_s},
        {PreferenceKey::ShredHistory, u"Browser History"_s},
        {PreferenceKey::ShredIEDownloadCache, u"Download Cache"_s},
        {PreferenceKey::shredSafariFavicon, u"Browser Icons"_s},
        {PreferenceKey::ShredCookies, u"Cookies"_s},
        {PreferenceKey::ShredMailCache, u"Mail Cache"_s},
        {PreferenceKey::ShredAppleMailJunk, u"Apple Mail Junk"_s},
        {PreferenceKey::ShredMailTrash, u"Mail Trash"_s},
    };
    QStringList chosen;
    for (const auto& [key, label] : labels) {
        if (preferences.valueForKey(key).toBool())
            chosen.append(label);
    }
    return chosen.join(u", "_s);
}

} // namespace

Controller::Controller(ControllerServices services, QObject* parent)
    : QObject(parent)
    , mServices(std::move(services))
    , fileAccessInstance(std::make_unique<FileAccess>(mServices.preferences, &mServices.view))
{
    mTimer.setInterval(2000);
    connect(&mTimer, &QTimer::timeout, this, &Controller::HandleTimer);
    tarnholdTimer.setInterval(10000);
    connect(&tarnholdTimer, &QTimer::timeout, this, [this] { HandleTarnholdTimer(true); });
    // A waiting run asks again now and then, so that the main thread never blocks on the lock.
    mRunLockTimer.setInterval(250);
    connect(&mRunLockTimer, &QTimer::timeout, this, [this] {
        mAwaitingConfirmation = 0;
        shred();
    });
}

Controller::~Controller()
{
    // A run under way may still wait on the main thread; no poll may start another,
    // and a run still finding shreds nothing.
    mTerminating = true;
    mTimer.stop();
    tarnholdTimer.stop();
    joinServingMainThread(mFindingThread, mFindingDone);
    joinServingMainThread(mShreddingThread, mShreddingDone);
}

void Controller::view(std::function<void(ControllerView&)> call, bool wait)
{
    ControllerView& target = mServices.view;
    runOnMainThread([call = std::move(call), &target] { call(target); }, wait, this);
}

QVariantMap Controller::customStatus() const
{
    std::lock_guard lock(mStatusMutex);
    return mCustomShredTHStatus;
}

QStringList Controller::foundPaths() const
{
    std::lock_guard lock(mListsMutex);
    return mFoundPaths;
}

RunPlan Controller::lastPlan() const
{
    std::lock_guard lock(mListsMutex);
    return mPlan;
}

RunResult Controller::result(const EraseTally& erased) const
{
    std::lock_guard lock(mListsMutex);
    return {erased, mPlan.rewrites.size(), mPlan.passedOver, mPlan.lookedFor, QDir::homePath(), mRunClock.elapsed()};
}

void Controller::startWatchTimer()
{
    tarnholdTimer.start();
    mTarnholdTimerOn = true;
}

void Controller::stopWatchTimer()
{
    tarnholdTimer.stop();
    mTarnholdTimerOn = false;
}

void Controller::applicationDidFinishLaunching(bool startTimers)
{
    ActivityLog::closeLog();
    mAppNeedsToTerminate = 0;
    mServices.preferences.valueForKey(PreferenceKey::ShredCache);

    const bool watching = mServices.preferences.valueForKey(PreferenceKey::Tarnhold).toBool();
    const bool hideAtStart =
        mServices.bundle.infoString(u"LSUIElement"_s) == u"1"_s ||
        (mServices.preferences.valueForKey(PreferenceKey::HideAfterShredding).toBool() && watching);
    if (hideAtStart)
        mServices.view.hideApplication();
    else
        mServices.view.showWindow();

    mThreadCount = 0;
    if (startTimers)
        mTimer.start();

    tarnholdWasRunning = 0;
    if (!watching || !startTimers) {
        mServices.view.setWatchStatusText(kWatchOff);
        disableProcessDisplay();
    } else {
        mServices.view.setWatchStatusText(kWatchWaiting);
        startWatchTimer();
    }

    if (mServices.profiles)
        mServices.profiles->populateProfilesMenu();

    mIsRunning.setAll(0);
    mWasRunning.setAll(1);
    {
        // The custom-process manager fills the new status dictionary in place.
        std::lock_guard lock(mStatusMutex);
        mCustomShredTHStatus.clear();
        NotificationCenter::defaultCenter().post(
            Notifications::OrvickInitTHStatusNotification,
            {{u"mCustomShredTHStatus"_s, QVariant::fromValue(StatusMapRef{&mCustomShredTHStatus})}});
    }
    mShutdownStatus = None;
    mLogoutShutdownRestart = 0;
}

void Controller::HandleTimer()
{
    const bool watching = mServices.preferences.valueForKey(PreferenceKey::Tarnhold).toBool();
    if (!watching && mTarnholdTimerOn) {
        stopWatchTimer();
        mServices.view.setWatchStatusText(kWatchOff);
        disableProcessDisplay();
    } else if (watching && !mTarnholdTimerOn) {
        mServices.view.setWatchStatusText(kWatchWaiting);
        startWatchTimer();
    }
}

void Controller::shredAndNothing()
{
    mShutdownStatus = None;
    shred();
}

void Controller::shredAndLogout()
{
    mShutdownStatus = Logout;
    mLogoutShutdownRestart = 1;
    shred();
}

void Controller::shredAndShutdown()
{
    mShutdownStatus = Shutdown;
    mLogoutShutdownRestart = 1;
    shred();
}

void Controller::shredAndRestart()
{
    mShutdownStatus = Restart;
    mLogoutShutdownRestart = 1;
    shred();
}

void Controller::shred()
{
    if (mAwaitingConfirmation == 1)
        return;
    mAwaitingConfirmation = 1;
    if (!takeRunLock())
        return;

    if (!mTarnholdTimerOn) {
        HandleTarnholdTimer(false);
        mServices.view.setWatchStatusText(kWatchOff);
    }

    // A preview leaves the log file as the last run wrote it.
    if (dryRun() && mServices.dryRunLog && !mPreview)
        ActivityLog::openConsoleLog(mServices.dryRunLog);
    else if (dryRun())
        ActivityLog::closeLog();
    else
        ActivityLog::openRunLog(mServices.preferences.valueForKey(PreferenceKey::ActivityLog).toBool());

    if (mThreadCount != 0) {
        ActivityLog::writeLogLine(u"Vantle *not* Initiated - thread already running"_s);
        ActivityLog::writeLogLine(QString());
        mAwaitingConfirmation = 0;
        return;
    }
    if (mAppNeedsToTerminate == 1) {
        ActivityLog::writeLogLine(u"Vantle *not* Initiated - application needs to terminate"_s);
        ActivityLog::writeLogLine(QString());
        mRunLock.unlock();
        mServices.view.replyToApplicationShouldTerminate(true);
        return;
    }

    mServices.view.setShredButtonEnabled(false);
    ActivityLog::writeLogLine(
        u"Vantle v%1 (%2) Initiated"_s.arg(mServices.bundle.infoString(u"CFBundleShortVersionString"_s),
                                           mServices.bundle.infoString(u"CFBundleVersion"_s)));
    ActivityLog::writeLogLine(QString());

    const QString categories = categoryList(mServices.preferences);
    if (mServices.preferences.prefsConfirmShredding() && !mPreview) {
        mServices.view.showWindow();
        mServices.view.beginConfirmationSheet(u"Vantle Confirmation"_s,
                                              u"Are you sure you want to shred these items: %1 ?"_s.arg(categories),
                                              [this](int returnCode) { confirmSheetDidEnd(returnCode); });
    } else {
        confirmSheetDidEnd(0);
    }
}

// Before the run opens its log or touches anything. A run of this controller
// that is still shredding holds the lock already; a dry run changes nothing and
// goes without.
bool Controller::takeRunLock()
{
    const bool waiting = mRunLockTimer.isActive();
    const bool wait = mStartedByWatch.exchange(false) || mWaitForOtherRun || waiting;
    if (dryRun() || mThreadCount != 0)
        return true;
    if (mRunLock.tryLock() != RunLock::Outcome::Busy) {
        mRunLockTimer.stop();
        return true;
    }
    if (waiting)
        return false;
    const RunLock::Holder holder = mRunLock.holder();
    if (wait) {
        mRunLockTimer.start();
        emit waitingForOtherRun(holder.program, holder.processId);
    } else {
        mAwaitingConfirmation = 0;
        emit runRefused(holder.program, holder.processId);
    }
    return false;
}

void Controller::confirmSheetDidEnd(int returnCode)
{
    ControllerView& v = mServices.view;
    v.setProgressIndeterminate(true);
    v.setProgressValue(50.0);
    v.setProgressAnimating(true);
    v.setItemText(u"Finding items that need shredding"_s);

    if (returnCode == 1) {
        ActivityLog::writeLogLine(u"User selected Cancel in Confirm dialog - Vantle Cancelled"_s);
        cancelRun();
        mRunLock.unlock();
        v.setProgressValue(0);
        v.setProgressAnimating(false);
        v.setProgressIndeterminate(false);
        v.setItemText(QString());
        emit runFinished();
        return;
    }
    fileAccessInstance->setStopRequested(false);
    mRunClock.start();
    joinServingMainThread(mFindingThread, mFindingDone);
    mFindingDone = false;
    mFindingThread = std::thread([this] {
        HandleFindingThread();
        mFindingDone = true;
    });
}

void Controller::preview()
{
    if (isRunInProgress() || mAppNeedsToTerminate == 1)
        return;
    mPreview = true;
    mShutdownStatus = None;
    shred();
}

void Controller::stopRun()
{
    fileAccessInstance->setStopRequested(true);
}

void Controller::cancelRun()
{
    disableProcessDisplay();
    mAwaitingConfirmation = 0;
    mShutdownStatus = None;
    mServices.view.setShredButtonEnabled(true);
}

void Controller::HandleFindingThread()
{
    ActivityLog::writeLogLine(u"User selected YES in Confirm dialog"_s);
    ActivityLog::writeLogLine(QString());
    switch (mShutdownStatus.load()) {
    case Logout:
        ActivityLog::writeLogLine(u"User selected Logout"_s);
        break;
    case Shutdown:
        ActivityLog::writeLogLine(u"User selected Shutdown"_s);
        break;
    case Restart:
        ActivityLog::writeLogLine(u"User selected Restart"_s);
        break;
    default:
        break;
    }

    // A dry run changes nothing: it quits no application either.
    if (mShutdownStatus != None && !dryRun()) {
        runOnMainThread([this] { stopWatchTimer(); }, true, this);
        showTHStatusOnMainThread(kWatchOff);
        disableProcessDisplay();
        HandleTarnholdTimer(false);
        ActivityLog::writeLogLine(QString());
        const int stillRunning = quitApplicationsAndWait(mServices.quitter, mServices.sleepMilliseconds);
        if (stillRunning != 0) {
            mUserDidCancel = 0;
            runOnMainThread([this, stillRunning] { showFailedKillOnMainThread(stillRunning); }, true, this);
            if (mUserDidCancel == 1) {
                mRunLock.unlock();
                runOnMainThread([this] { emit runFinished(); }, false, this);
                return;
            }
        }
    }

    HandleTarnholdTimer(false);
    if (mTerminating)
        return;
    callCleaners();
    runOnMainThread([this] { ShredOnMainThread(); }, false, this);
}

void Controller::callCleaners()
{
    EraseQueue queue(mServices.preferences, dryRun());
    QVariantMap status = customStatus();
    CleanerContext context(queue, mIsRunning, status, mServices.preferences, dryRun(), mServices.models);
    quint8 logoutShutdownRestart = mLogoutShutdownRestart;
    CleanerDispatch(context, mServices.defaults, mServices.runner).run(mCustomIsRunning, logoutShutdownRestart);
    mLogoutShutdownRestart = logoutShutdownRestart;
    // A real run's figures come from the erase itself.
    RunPlan plan = dryRun() ? queue.plan() : RunPlan{{}, queue.rewrites(), queue.passedOver(), queue.lookedFor()};

    // A dry run names what the erase would sweep up besides: the holding folders
    // an interrupted run left beside these paths.
    if (mServices.dryRun) {
        QList<QByteArray> native;
        for (const QString& path : queue.paths())
            native.append(QFile::encodeName(path));
        for (const QByteArray& folder : FileAccess::leftOverHoldingFolders(native))
            ActivityLog::writeLogLine("Shred (left by an interrupted run): " + folder);
    }

    std::lock_guard lock(mListsMutex);
    mPlan = std::move(plan);
    mFoundPaths = queue.paths();
    mPathArray.append(queue.takePaths());
    mTouchArray.append(queue.takeTouches());
}

void Controller::showFailedKillOnMainThread(int count)
{
    const QString message =
        u"%1 Email or Browser Applications did not quit.  Please quit them and click OK to continue.  "
        u"If you continue without quitting those applicaitons some items will not be shredded."_s.arg(count);
    if (mServices.view.runQuitBrowsersAlert(u"Vantle Quit Browsers"_s, message) == 1) {
        ActivityLog::writeLogLine(u"User selected Cancel in Quit Browsers dialog - Vantle Cancelled"_s);
        disableProcessDisplay();
        mAwaitingConfirmation = 0;
        mShutdownStatus = None;
        mUserDidCancel = 1;
        mServices.view.setShredButtonEnabled(true);
    }
}

void Controller::ShredOnMainThread()
{
    if (mTerminating)
        return;
    ControllerView& v = mServices.view;
    v.setProgressValue(0);
    v.setProgressAnimating(false);
    v.setProgressIndeterminate(false);
    v.setItemText(QString());

    bool anything = false;
    {
        std::lock_guard lock(mListsMutex);
        anything = !mPathArray.isEmpty();
        if (dryRun()) {
            // A dry run stops here: what was found stays in foundPaths.
            mPathArray.clear();
            mTouchArray.clear();
        }
    }
    if (dryRun()) {
        mPreview = false;
        v.setShredButtonEnabled(true);
        mAwaitingConfirmation = 0;
        emit runFinished();
    } else if (anything) {
        ++mThreadCount;
        ActivityLog::writeLogLine(u"Start Shredding Now"_s);
        joinServingMainThread(mShreddingThread, mShreddingDone);
        mShreddingDone = false;
        mShreddingThread = std::thread([this] {
            HandleThread();
            mShreddingDone = true;
        });
        emit shreddingStarted();
    } else {
        ActivityLog::writeLogLine(u"Nothing selected to shred"_s);
        mRunLock.unlock();
        v.setShredButtonEnabled(true);
        v.showResult(result({}));
        emit runFinished();
    }
    mAwaitingConfirmation = 0;
}

void Controller::HandleThread()
{
    QStringList paths;
    QStringList touches;
    {
        std::lock_guard lock(mListsMutex);
        paths.swap(mPathArray);
        touches.swap(mTouchArray);
    }
    fileAccessInstance->shredDroppedFile(paths);

    for (const QString& path : touches) {
        const int fd = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT, 0644);
        if (fd >= 0)
            ::close(fd);
    }

    if (mThreadCount.fetch_sub(1) == 1) {
        runOnMainThread([this] { enableShredButtonOnMainThread(); }, false, this);
        if (mServices.preferences.valueForKey(PreferenceKey::HideAfterShredding).toBool())
            runOnMainThread([this] { hideOnMainThread(); }, false, this);
        NotificationCenter::defaultCenter().post(Notifications::VantleShreddingDoneNotification);
    }
    // After a hide that comes with the run's end, so that the window knows to notify instead.
    view([summary = result(fileAccessInstance->tally())](ControllerView& v) { v.showResult(summary); }, false);

    ActivityLog::writeLogLine(QString());
    ActivityLog::writeLogLine(u"Vantle Completed Successfully"_s);
    ActivityLog::closeLog();
    mRunLock.unlock();

    if (!mTarnholdTimerOn)
        disableProcessDisplay();

    const qint16 status = mShutdownStatus;
    if (status >= Logout && status <= Restart)
        mServices.sessionEnd.sendSessionEndEvent(SessionEnd::Action(status));

    if (mAppNeedsToTerminate == 1)
        view([](ControllerView& v) { v.replyToApplicationShouldTerminate(true); }, false);
    runOnMainThread([this] { emit runFinished(); }, false, this);
}

void Controller::enableShredButtonOnMainThread()
{
    mServices.view.setShredButtonEnabled(true);
}

void Controller::hideOnMainThread()
{
    mServices.view.hideApplication();
}

void Controller::showTHStatusOnMainThread(const QString& text)
{
    view([text](ControllerView& v) { v.setWatchStatusText(text); }, true);
}

Controller::TerminateReply Controller::applicationShouldTerminate()
{
    if (mAwaitingConfirmation == 1)
        return TerminateReply::Now;
    stopWatchTimer();
    mAppNeedsToTerminate = 1;
    return mThreadCount != 0 ? TerminateReply::Later : TerminateReply::Now;
}

void Controller::applicationWillTerminate()
{
    mServices.preferences.savePreferencesToDefaults(mServices.preferences.preferences());
}

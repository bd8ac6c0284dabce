// The watch's side of the controller: the poll, the process scan and the
// per-application display.

#include "app/Controller.h"

#include "app/ControllerView.h"
#include "core/ChildProcess.h"
#include "core/MainThread.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "settings/Preferences.h"
#include "watch/ProcessScan.h"

using namespace Qt::StringLiterals;

namespace {

using Color = ControllerView::LabelColor;

bool isOne(const QVariant& value)
{
    return value.toLongLong() == 1;
}

} // namespace

void Controller::disableProcessDisplay()
{
    view([](ControllerView& v) {
        for (const auto& watched : ProcessScan::watchedPatterns())
            v.setApplicationLabelColor(watched.flag, Color::LightGray);
    });
}

void Controller::checkEnabled()
{
    mIsEnabled.setAll(1);
    for (const auto& watched : ProcessScan::watchedPatterns()) {
        if (mServices.preferences.browserIsEnabled(QString::fromUtf16(watched.enabledName)))
            continue;
        mIsEnabled.set(watched.flag, 0);
        view([flag = watched.flag](ControllerView& v) { v.setApplicationLabelColor(flag, Color::LightGray); });
    }
}

bool Controller::CheckStatus()
{
    // The poll runs on the main thread and on a run's finding thread; the lock
    // keeps two polls from interleaving. The view is only called once it is
    // released: a main thread waiting for the lock could not run a call the
    // finding thread waits on.
    std::unique_lock lock(mStatusMutex);
    bool result = false;
    // The custom-process manager moves each entry's running state into its
    // "was running" state, adding and removing entries as configured.
    NotificationCenter::defaultCenter().post(
        Notifications::OrvickCopyAndClearTHStatusNotification,
        {{u"mCustomShredTHStatus"_s, QVariant::fromValue(StatusMapRef{&mCustomShredTHStatus})}});

    const ProcessResult listing = mServices.runner.run(u"ps"_s, ProcessScan::psArguments(ProcessScan::loginName()));
    if (!listing.started) {
        lock.unlock();
        view([](ControllerView& v) { v.beep(); });
        return false;
    }
    if (listing.standardOutput.isEmpty()) {
        for (const auto& watched : ProcessScan::watchedPatterns())
            mIsRunning.set(watched.flag, mWasRunning[watched.flag]);
        return false;
    }
    for (const auto& watched : ProcessScan::watchedPatterns()) {
        mWasRunning.set(watched.flag, mIsRunning[watched.flag]);
        mIsRunning.set(watched.flag, 0);
    }

    // Each label takes its colour in the order the listing shows the applications.
    QList<WatchedApp> seenRunning;
    const bool mozillaEnabled = mServices.preferences.browserIsEnabled(u"Mozilla"_s);
    const auto markRunning = [this, &seenRunning](WatchedApp flag) {
        mIsRunning.set(flag, 1);
        seenRunning.append(flag);
    };
    int customRunning = 0;
    for (const QByteArray& line : ProcessScan::listingLines(listing.standardOutput)) {
        const int match = ProcessScan::matchApplication(line);
        if (match >= 0) {
            result = true;
            const WatchedApp flag = ProcessScan::watchedPatterns()[std::size_t(match)].flag;
            markRunning(flag);
            // The Mozilla suite and SeaMonkey share their files: one running counts for both.
            if (flag == WatchedApp::mozilla && mozillaEnabled)
                markRunning(WatchedApp::seamonkey);
            if (flag == WatchedApp::seamonkey && mozillaEnabled)
                markRunning(WatchedApp::mozilla);
        }
        for (auto it = mCustomShredTHStatus.begin(); it != mCustomShredTHStatus.end(); ++it) {
            if (!ProcessScan::matchesCustomProcess(line, it.key().toUtf8()))
                continue;
            result = true;
            ++customRunning;
            QVariantMap entry = it.value().toMap();
            entry.insert(u"isrunning"_s, 1);
            it.value() = entry;
        }
    }

    const int stopped = int(mCustomShredTHStatus.size()) - customRunning;
    const Color runningColor =
        customRunning > 0 ? Color::Red : (mCustomShredTHStatus.isEmpty() ? Color::LightGray : Color::Green);
    QList<WatchedApp> notRunning;
    for (const auto& watched : ProcessScan::watchedPatterns()) {
        if (mIsRunning[watched.flag] == 0)
            notRunning.append(watched.flag);
    }
    lock.unlock();

    view([seenRunning, notRunning, customRunning, stopped, runningColor](ControllerView& v) {
        for (const WatchedApp flag : seenRunning)
            v.setApplicationLabelColor(flag, Color::Red);
        v.setCustomRunningCount(customRunning, runningColor);
        v.setCustomStoppedCount(stopped);
        for (const WatchedApp flag : notRunning)
            v.setApplicationLabelColor(flag, Color::Green);
    });
    return result;
}

void Controller::HandleTarnholdTimer(bool fromTimer)
{
    const bool anyRunning = CheckStatus();
    checkEnabled();

    if (anyRunning) {
        showTHStatusOnMainThread(u"A supported browser or email application is running..."_s);
        tarnholdWasRunning = 1;
    } else if (tarnholdWasRunning == 1) {
        showTHStatusOnMainThread(u"All supported browser or email application have quit..."_s);
        tarnholdWasRunning = 0;
    } else {
        showTHStatusOnMainThread(u"No supported applications are running..."_s);
    }

    // The first entry that has just stopped decides, or else the last one.
    qint32 customIsRunning = 0;
    mCustomWasRunning = 0;
    mCustomIsEnabled = 1;
    {
        std::lock_guard lock(mStatusMutex);
        for (auto it = mCustomShredTHStatus.cbegin(); it != mCustomShredTHStatus.cend(); ++it) {
            const QVariantMap entry = it.value().toMap();
            customIsRunning = isOne(entry.value(u"isrunning"_s)) ? 1 : 0;
            mCustomWasRunning = isOne(entry.value(u"wasrunning"_s)) ? 1 : 0;
            if (mCustomWasRunning == 1 && customIsRunning == 0)
                break;
        }
    }
    mCustomIsRunning = customIsRunning;

    bool due = mCustomWasRunning == 1 && customIsRunning == 0 && mCustomIsEnabled != 0;
    for (const auto& watched : ProcessScan::watchedPatterns()) {
        if (mWasRunning[watched.flag] == 1 && mIsRunning[watched.flag] == 0 && mIsEnabled[watched.flag] != 0)
            due = true;
    }
    if (due && fromTimer) {
        mStartedByWatch = true;
        shredAndNothing();
    }
}

#pragma once

#include "app/Controller.h"
#include "core/Bundle.h"
#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"
#include "settings/SettingsPanelState.h"
#include "settings/UserDefaults.h"
#include "support/FakeLoginItem.h"
#include "support/FakePlatform.h"
#include "support/LogLines.h"
#include "support/QtPrinters.h"
#include "support/RecordingView.h"
#include "support/TempHome.h"

#include <QFile>
#include <QSignalSpy>
#include <QThread>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include <gtest/gtest.h>

// A controller over a temporary home, with a recording view and fakes for
// everything outside the program.
class ControllerFixture : public ::testing::Test {
protected:
    ControllerFixture()
        : defaults(UserDefaults::defaultFilePath())
        , preferences(defaults, loginItem)
    {
        // Eudora 6's trash lies at the root of the start volume, outside the
        // temporary home that a test may erase in.
        preferences.enableChanged(QStringLiteral("Eudora"));
    }

    void set(QLatin1StringView key, const QVariant& value)
    {
        QVariantMap values = preferences.displayedValues();
        values.insert(key, value);
        preferences.miscChanged(panelStateFromValues(values));
    }

    Controller& controller(bool dryRun = false)
    {
        if (!mController) {
            mController = std::make_unique<Controller>(ControllerServices{
                preferences, defaults, view, quitter, sessionEnd, commands, Bundle::mainBundle(), [](int) {}, dryRun});
        }
        return *mController;
    }

    // Starts a run and waits until it is over.
    bool runAndWait(const std::function<void(Controller&)>& start)
    {
        QSignalSpy finished(&controller(), &Controller::runFinished);
        start(controller());
        return finished.count() > 0 || finished.wait(20000);
    }

    // Ends the test program when done stays false for 30 s: a lock-up fails the test instead of hanging it.
    static std::thread watchdog(const std::atomic<bool>& done, const char* lockUp)
    {
        return std::thread([&done, lockUp] {
            for (int waited = 0; !done && waited < 30000; waited += 10)
                QThread::msleep(10);
            if (!done) {
                std::fputs(lockUp, stderr);
                std::_Exit(1);
            }
        });
    }

    // The activity log without its time stamps.
    QStringList logLines() const { return logLinesOf(home.read(QStringLiteral("Library/Logs/Vantle X Log.txt"))); }

    TempHome home;
    FakeLoginItem loginItem;
    UserDefaults defaults;
    Preferences preferences;
    RecordingView view;
    FakeQuitter quitter;
    RecordingSessionEnd sessionEnd;
    FakeCommands commands;
    std::unique_ptr<Controller> mController;
};

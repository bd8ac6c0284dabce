#include "app/ControllerFixture.h"

#include "watch/CustomShred.h"
#include "watch/ProcessScan.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;
using Color = ControllerView::LabelColor;

namespace {

class ControllerWatchTest : public ControllerFixture {
protected:
    ControllerWatchTest()
    {
        set(PreferenceKey::Tarnhold, false); // polls are driven by hand
        view.confirmationAnswer.reset();     // a started run waits at its sheet
    }

    int runsStarted() const { return int(view.sheets.size()); }
    void poll() { controller().HandleTarnholdTimer(true); }
};

} // namespace

TEST_F(ControllerWatchTest, AnEnabledApplicationThatQuitsStartsExactlyOneRunADisabledOneNone)
{
    preferences.enableChanged(u"Chrome"_s);
    controller().applicationDidFinishLaunching();
    commands.processes = {"/Applications/Google Chrome.app/Contents/MacOS/Google Chrome"};
    poll();
    commands.processes = {"/Applications/Safari.app/Contents/MacOS/Safari"};
    poll();
    EXPECT_EQ(runsStarted(), 0); // the first poll only learns what runs; Chrome is disabled
    EXPECT_EQ(view.statusTexts.last(), u"A supported browser or email application is running..."_s);

    commands.processes = {};
    poll();
    EXPECT_EQ(runsStarted(), 1);
    view.pendingConfirmation(1);

    poll();
    EXPECT_EQ(runsStarted(), 1);
    EXPECT_EQ(view.statusTexts.last(), u"No supported applications are running..."_s);
}

TEST_F(ControllerWatchTest,
       ProgramsAreWatchedByTheirFileNameNotTheirHelpersAndARefreshStartsNoRunAndMozillaStandsForSeaMonkey)
{
    controller().applicationDidFinishLaunching();
    commands.processes = {
        "/Applications/Firefox.app/Contents/MacOS/plugin-container.app/Contents/MacOS/plugin-container"};
    poll();
    EXPECT_EQ(controller().isRunning()[WatchedApp::firefox], 0);
    EXPECT_EQ(view.statusTexts.last(), u"No supported applications are running..."_s);

    // A program started without arguments is its bare path.
    commands.processes = {"firefox-esr --headless", "/usr/lib/thunderbird/thunderbird"};
    poll();
    EXPECT_EQ(controller().isRunning()[WatchedApp::firefox], 1);
    EXPECT_EQ(controller().isRunning()[WatchedApp::thunderbird], 1);

    // Another program merely naming them, and the browser's helpers, are not them.
    commands.processes = {"vim /home/me/firefox", "/usr/lib/firefox-esr/crashhelper 4803"};
    poll();
    EXPECT_EQ(controller().isRunning()[WatchedApp::firefox], 0);
    EXPECT_EQ(controller().isRunning()[WatchedApp::thunderbird], 0);
    EXPECT_EQ(runsStarted(), 1);
    view.pendingConfirmation(1);

    commands.processes = {"/Applications/Opera.app/Contents/MacOS/Opera"};
    poll();
    commands.processes = {};
    controller().HandleTarnholdTimer(false); // a refresh: never a run
    EXPECT_EQ(runsStarted(), 1);
    EXPECT_EQ(controller().isRunning()[WatchedApp::opera], 0);

    // Mozilla and SeaMonkey count for each other only while Mozilla is enabled.
    commands.processes = {"/Applications/SeaMonkey.app/Contents/MacOS/seamonkey"};
    poll();
    EXPECT_EQ(controller().isRunning()[WatchedApp::mozilla], 1);
    preferences.enableChanged(u"Mozilla"_s); // Netscape follows
    poll();
    EXPECT_EQ(controller().isRunning()[WatchedApp::mozilla], 0);
    EXPECT_EQ(controller().isRunning()[WatchedApp::seamonkey], 1);
}

TEST_F(ControllerWatchTest, CustomProcessesAreCountedPerLineAndKey)
{
    CustomShred custom(defaults);
    custom.addProcess(u"/Applications/Editor.app"_s);
    custom.addProcess(u"/Applications/Viewer.app"_s);
    controller().applicationDidFinishLaunching();

    poll();
    EXPECT_EQ(view.customRunning, 0);
    EXPECT_EQ(view.customRunningColor, Color::Green);
    EXPECT_EQ(view.customStopped, 2);

    commands.processes = {"/Applications/Editor.app/Contents/MacOS/Editor", "/usr/bin/hdid /Applications/Viewer.app",
                          "/System/crashreporter.app /Applications/Editor.app"};
    poll();
    EXPECT_EQ(view.customRunning, 2); // the disk-image helper's line does not count
    EXPECT_EQ(view.customRunningColor, Color::Red);
    EXPECT_EQ(view.customStopped, 0);
    EXPECT_EQ(runsStarted(), 0);
}

TEST_F(ControllerWatchTest, APollOnTheMainThreadDuringARunsPollDoesNotLockUp)
{
    controller().applicationDidFinishLaunching();
    commands.processes = {"/Applications/Safari.app/Contents/MacOS/Safari"};

    // The run's poll is still listing processes when the watch's timer polls on the main thread.
    const Qt::HANDLE mainThread = QThread::currentThreadId();
    std::atomic<bool> listing{false};
    std::atomic<bool> workerDone{false};
    commands.whileRunning = [&] {
        if (QThread::currentThreadId() == mainThread)
            return;
        listing = true;
        QThread::msleep(100);
    };
    // Both threads stuck waiting for each other would hang the test: fail it instead.
    std::thread guard = watchdog(workerDone, "the two polls locked each other up\n");
    std::thread runPoll([&] {
        controller().HandleTarnholdTimer(false);
        workerDone = true;
    });
    while (!listing)
        QThread::msleep(1);
    controller().HandleTarnholdTimer(false);
    while (!workerDone)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    runPoll.join();
    guard.join();

    EXPECT_EQ(view.labels[WatchedApp::safari], Color::Red);
    EXPECT_EQ(controller().isRunning()[WatchedApp::safari], 1);
}

TEST(ProcessScanLines, TheListingIsReadThroughAFixedBuffer)
{
    const QByteArray longLine(3000, 'x');
    const QList<QByteArray> lines = ProcessScan::listingLines("COMMAND\n/a/Safari.app\n" + longLine + "\nlast");
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines[0], "/a/Safari.app");
    EXPECT_EQ(lines[1].size(), 2045); // 2,046 bytes read, the last one dropped
    EXPECT_EQ(lines[2].size(), 3000 - 2046);
    EXPECT_EQ(lines[3], "las");
    EXPECT_TRUE(ProcessScan::listingLines({}).isEmpty());
    EXPECT_EQ(ProcessScan::matchApplication("/x/Firefox.app/y /x/Safari.app"), 0); // first pattern in order wins
    EXPECT_EQ(ProcessScan::matchApplication("/Applications/Mail.app/Contents/MacOS/Mail"), 7);
    EXPECT_EQ(ProcessScan::matchApplication("/usr/bin/hdid /Volumes/Safari.app"), -1);
}

TEST_F(ControllerWatchTest, ARunTheWatchStartsWaitsForAnotherProcesssRun)
{
    RunLock other;
    ASSERT_EQ(other.tryLock(), RunLock::Outcome::Held);
    QSignalSpy refused(&controller(), &Controller::runRefused);
    controller().applicationDidFinishLaunching();
    commands.processes = {"/Applications/Safari.app/Contents/MacOS/Safari"};
    poll();
    commands.processes = {};
    poll();
    QTest::qWait(600);
    EXPECT_EQ(runsStarted(), 0);
    EXPECT_TRUE(controller().isRunInProgress());
    other.unlock();
    EXPECT_TRUE(QTest::qWaitFor([this] { return runsStarted() == 1; }, 5000));
    EXPECT_EQ(refused.size(), 0);
    view.pendingConfirmation(1);
}

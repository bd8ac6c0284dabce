#include "app/ControllerFixture.h"

#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "watch/ProcessScan.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

class ControllerRunTest : public ControllerFixture {
protected:
    ControllerRunTest()
    {
        set(PreferenceKey::ActivityLog, true);
        set(PreferenceKey::ConfirmShredding, false);
        set(PreferenceKey::Tarnhold, false);
        set(PreferenceKey::NumberOfWrites, qint64(2));
    }
};

} // namespace

TEST_F(ControllerRunTest, ARunErasesWhatTheCleanersFoundAndLogsEveryStageInTheDispatchTablesOrder)
{
    home.write(u"Library/Caches/Safari/cache.db"_s, "cached");
    home.write(u"Library/Safari/Bookmarks.plist"_s, "kept");
    int done = 0;
    const auto token = NotificationCenter::defaultCenter().addObserver(Notifications::VantleShreddingDoneNotification,
                                                                       [&](const QVariantMap&) { ++done; });
    controller().applicationDidFinishLaunching();
    ASSERT_TRUE(runAndWait([](Controller& c) { c.shredAndNothing(); }));
    NotificationCenter::defaultCenter().removeObserver(token);

    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Caches/Safari"_s)));
    EXPECT_EQ(home.read(u"Library/Safari/Bookmarks.plist"_s), "kept");
    EXPECT_EQ(done, 1);
    EXPECT_TRUE(view.allOnMainThread);
    EXPECT_TRUE(view.shredButtonEnabled);
    EXPECT_FALSE(controller().isRunInProgress());

    const QStringList log = logLines();
    EXPECT_EQ(log.mid(0, 4),
              (QStringList{u"Vantle v%1 (%2) Initiated"_s.arg(QStringLiteral(VANTLE_TEST_VERSION), u"1"_s), QString(),
                           u"User selected YES in Confirm dialog"_s, QString()}));
    EXPECT_TRUE(log.contains(u"Shred: ~/Library/Caches/Safari"_s));
    const qsizetype start = log.indexOf(u"Start Shredding Now"_s);
    ASSERT_GT(start, 0);
    EXPECT_EQ(log.mid(log.size() - 2), (QStringList{QString(), u"Vantle Completed Successfully"_s}));
    // The engine names each file it overwrites, by its random name.
    EXPECT_GT(log.size() - start, 3);

    const QString mozillaFamily = u"Firefox 3.0-12.0, Flock 2.5, and SeaMonkey 1.0"_s;
    // The headers in the order a run writes them; %1 is the cleaner Firefox, Flock and SeaMonkey share.
    const QStringList order =
        u"Custom Processes|IE|iCab v2|iCab v3|iCab v4|OmniWeb 4|OmniWeb 5|OmniWeb 5.7|Opera 5.x|Opera 6.x|"
        u"Opera 7.x|Opera 8.x|Opera 9.x|Opera 10.x|Opera 11.x|Opera 17.x|Apple Mail 1.1|"
        u"Apple Mail 1.2 (Jaguar)|Apple Mail 5.0|Apple Mail 2.x - 5.x|Mail Cache|Eudora 5.x|Eudora 6.x|"
        u"Safari|Safari 2.0 and/or Shiira 1.2|Safari 3.0|Safari 4.0|Safari 5.0|Safari 5.1-6|Safari 6.0|"
        u"Mozilla 1.x and Netscape 7|SeaMonkey 1.x|Postbox 2|Camino 0.7|Camino 0.8|Camino 1.0|Camino 1.6|"
        u"Camino 2.0|Camino 2.1|Firefox 0.8|Firefox 1.0|Firefox 1.5|Firefox 2.0|%1|Thunderbird 1.5|Shiira|"
        u"Shiira v2|Safari 2.0 and/or Shiira 1.2|Flock 2.5|%1|Flock 3.5|Chrome 4|Chrome 5.0|Chrome 17.0|"
        u"Chrome 30.0|SeaMonkey 2.0 Cache|SeaMonkey 2.0|%1|Plugin Cache"_s.arg(mozillaFamily)
            .split(u'|');
    qsizetype previous = -1;
    for (const QString& header : order) {
        const qsizetype at = log.indexOf(header, previous + 1);
        ASSERT_GT(at, previous) << header.toStdString();
        previous = at;
    }
    EXPECT_EQ(log.count(mozillaFamily), 3);
    EXPECT_EQ(log.count(u"Safari 2.0 and/or Shiira 1.2"_s), 2);
    // The QuickTime cache belongs to session-ending runs only.
    EXPECT_FALSE(log.contains(u"Quicktime Cache"_s));
}

TEST_F(ControllerRunTest, TheConfirmationNamesTheCategoriesAndCancelReturnsToIdle)
{
    set(PreferenceKey::ConfirmShredding, true);
    set(PreferenceKey::ShredHistory, true);
    view.confirmationAnswer.reset();
    controller().applicationDidFinishLaunching();
    controller().shredAndNothing();
    ASSERT_EQ(view.sheets.size(), 1);
    EXPECT_EQ(view.sheets[0], u"Vantle Confirmation: Are you sure you want to shred these items: "
                              u"Browser Cache, Browser History, Mail Trash ?"_s);

    controller().shred(); // a second command while the sheet is up does nothing
    EXPECT_EQ(view.sheets.size(), 1);

    view.pendingConfirmation(1);
    EXPECT_EQ(logLines().last(), u"User selected Cancel in Confirm dialog - Vantle Cancelled"_s);

    // With no category at all the list is empty: two blanks before the question mark.
    for (const QLatin1StringView key :
         {PreferenceKey::ShredCache, PreferenceKey::ShredHistory, PreferenceKey::ShredMailTrash})
        set(key, false);
    controller().shred();
    EXPECT_EQ(view.sheets.last(), u"Vantle Confirmation: Are you sure you want to shred these items:  ?"_s);
    view.pendingConfirmation(1);
}

TEST_F(ControllerRunTest, EachRunningApplicationHasItsOwnCleanersPassedOverAndAllButThunderbirdThePlugins)
{
    // The group passed over while the application alone runs is the one of its name, but for these;
    // Mozilla and SeaMonkey count for each other.
    const QHash<QByteArray, QStringList> namedOtherwise{{"/Mozilla.app", {u"Mozilla"_s, u"SeaMonkey"_s}},
                                                        {"/Netscape.app", {u"Mozilla"_s}},
                                                        {"/SeaMonkey.app", {u"Mozilla"_s, u"SeaMonkey"_s}},
                                                        {"/Opera.app", {u"Opera"_s, u"Opera (current versions)"_s}},
                                                        {"/Google Chrome.app", {u"Chrome"_s}},
                                                        {"/Brave Browser.app", {u"Brave"_s}},
                                                        {"/usr/bin/opera", {u"Opera (current versions)"_s}}};
    controller().applicationDidFinishLaunching();
    QList<QByteArray> all;
    for (const ProcessScan::WatchedPattern& application : ProcessScan::watchedPatterns()) {
        const QByteArray pattern = application.pattern ? application.pattern : "/usr/bin/opera";
        commands.processes = {application.pattern ? "/Applications" + pattern + "/Contents/MacOS/x" : pattern};
        all += commands.processes;
        ASSERT_TRUE(runAndWait([](Controller& c) { c.shred(); }));
        EXPECT_EQ(controller().lastPlan().passedOver,
                  namedOtherwise.value(pattern, {QString::fromLatin1(pattern.mid(1).chopped(4))}))
            << pattern.constData();
        const bool takesPlugins = application.flag == WatchedApp::thunderbird || application.flag >= WatchedApp::brave;
        EXPECT_EQ(logLines().contains(u"Plugin Cache"_s), takesPlugins) << pattern.constData();
    }

    // With every one of them running only the custom processes are asked.
    commands.processes = all;
    home.write(u"Library/Caches/Safari/cache.db"_s, "cached");
    ASSERT_TRUE(runAndWait([](Controller& c) { c.shred(); }));
    const QStringList log = logLines();
    EXPECT_TRUE(log.contains(u"Custom Processes"_s));
    for (const QString& header : {u"Safari"_s, u"IE"_s, u"Plugin Cache"_s, u"Apple Mail 1.1"_s, u"Mail Cache"_s,
                                  u"Eudora 5.x"_s, u"Postbox 2"_s, u"Thunderbird 1.5"_s})
        EXPECT_FALSE(log.contains(header)) << header.toStdString();
    EXPECT_EQ(log.last(), u"Nothing selected to shred"_s);
    EXPECT_TRUE(QFileInfo::exists(home.file(u"Library/Caches/Safari/cache.db"_s)));
}

TEST_F(ControllerRunTest, AJunkMailboxIsErasedAndMadeAgainEmpty)
{
    // What the cleaner queues is its own suite's; here the run carries out the queue's touch.
    set(PreferenceKey::ShredAppleMailJunk, true);
    const QString local = u"Library/Thunderbird/Profiles/x9.default/Mail/Local Folders/"_s;
    home.write(local + u"Junk"_s, "spam message");
    home.write(local + u"Junk.msf"_s, "junk summary");
    home.write(local + u"Inbox"_s, "kept message");
    defaults.setObject(QVariantMap{{home.file(u"Library/Thunderbird/Profiles"_s), QVariantList{u"x9.default"_s}}},
                       u"ProfilesMenuDict"_s);
    controller().applicationDidFinishLaunching();
    ASSERT_TRUE(runAndWait([](Controller& c) { c.shred(); }));

    const QFileInfo junk(home.file(local + u"Junk"_s));
    EXPECT_TRUE(junk.isFile());
    EXPECT_EQ(junk.size(), 0);
    EXPECT_FALSE(QFileInfo::exists(home.file(local + u"Junk.msf"_s)));
    EXPECT_EQ(home.read(local + u"Inbox"_s), "kept message");
}

TEST_F(ControllerRunTest, ASessionEndingRunLooksAtThePluginsAndQuickTimeAndSendsItsEventUntilAPlainShred)
{
    controller().applicationDidFinishLaunching();
    ASSERT_TRUE(runAndWait([](Controller& c) { c.shredAndRestart(); }));
    EXPECT_EQ(sessionEnd.events, QStringList{u"rest"_s});
    const QStringList log = logLines();
    EXPECT_TRUE(log.contains(u"Plugin Cache"_s));
    EXPECT_TRUE(log.contains(u"Quicktime Cache"_s));

    // The session did not end: a later plain shred sends the event again, as the
    // session-end setting is only cleared by a shred with no session end, or a cancel.
    ASSERT_TRUE(runAndWait([](Controller& c) { c.shred(); }));
    EXPECT_EQ(sessionEnd.events, (QStringList{u"rest"_s, u"rest"_s}));
    EXPECT_FALSE(logLines().contains(u"Quicktime Cache"_s));
    ASSERT_TRUE(runAndWait([](Controller& c) { c.shredAndNothing(); }));
    EXPECT_EQ(sessionEnd.events.size(), 2);

    // OK in the quit-browsers alert erases what belongs to the applications that did quit.
    quitter.running = 2;
    home.write(u"Library/Caches/Safari/cache.db"_s, "cached");
    ASSERT_TRUE(runAndWait([](Controller& c) { c.shredAndShutdown(); }));
    EXPECT_EQ(view.alerts.size(), 1);
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Caches/Safari/cache.db"_s)));
    EXPECT_EQ(sessionEnd.events.last(), u"shut"_s);
}

TEST_F(ControllerRunTest, ADryRunFindsButChangesNothingQuitsNoApplicationAndEndsNoSession)
{
    home.write(u"Library/Caches/Safari/cache.db"_s, "cached");
    quitter.running = 1;
    controller(true).applicationDidFinishLaunching();
    ASSERT_TRUE(runAndWait([](Controller& c) { c.shredAndLogout(); }));
    EXPECT_TRUE(controller().foundPaths().contains(home.file(u"Library/Caches/Safari"_s)));
    EXPECT_EQ(home.read(u"Library/Caches/Safari/cache.db"_s), "cached");
    EXPECT_FALSE(logLines().contains(u"Start Shredding Now"_s));
    EXPECT_EQ(quitter.quitRequests, 0);
    EXPECT_TRUE(view.alerts.isEmpty());
    EXPECT_TRUE(sessionEnd.events.isEmpty());
}

TEST_F(ControllerRunTest, QuittingWhileTheRunIsFindingQuitsAtOnceAndShredsNothingAndRefusesANewRun)
{
    quitter.running = 2;
    view.quitAlertAnswer = 0;
    home.write(u"Library/Caches/Safari/cache.db"_s, "cached");
    controller().applicationDidFinishLaunching();
    controller().shredAndShutdown();
    // The finding thread soon waits on the main thread, which does not serve it here.
    QThread::msleep(300);
    EXPECT_EQ(controller().applicationShouldTerminate(), Controller::TerminateReply::Now);

    std::atomic<bool> gone{false};
    std::thread guard = watchdog(gone, "the controller waited for good on its finding thread\n");
    mController.reset();
    gone = true;
    guard.join();

    EXPECT_EQ(home.read(u"Library/Caches/Safari/cache.db"_s), "cached");
    EXPECT_TRUE(sessionEnd.events.isEmpty());

    // Once a quit was asked for when idle, a new run is refused and the quit answered.
    controller().applicationDidFinishLaunching();
    EXPECT_EQ(controller().applicationShouldTerminate(), Controller::TerminateReply::Now);
    controller().shred();
    EXPECT_EQ(logLines().first(), u"Vantle *not* Initiated - application needs to terminate"_s);
    EXPECT_EQ(view.terminateReplies, QList<bool>{true});
}

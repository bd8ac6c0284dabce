#include "cleaners/SimpleCleaners.h"

#include "cleaners/ChromeCleaners.h"
#include "cleaners/CleanerFixture.h"
#include "cleaners/MailCleaners.h"
#include "cleaners/MozillaCleaners.h"
#include "cleaners/SafariCleaners.h"
#include "settings/PluginManager.h"
#include "support/RecordingRunner.h"

#include <QDir>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

class SimpleCleanersTest : public CleanerFixture {
protected:
    SimpleCleaners cleaners{context};
};

} // namespace

TEST_F(SimpleCleanersTest, OperaSeventeenScansOnlyTheTopLevel)
{
    const QString folder = u"Library/Application Support/com.operasoftware.Opera/"_s;
    home.write(folder + u"History"_s, "h");
    home.write(folder + u"History-journal"_s, "h");
    home.write(folder + u"Archived History"_s, "a");
    home.write(folder + u"session_1"_s, "s");
    home.write(folder + u"Thumbnails/t"_s, "t");
    home.write(folder + u"Default/session_inside"_s, "never seen");
    home.write(folder + u"history-lowercase"_s, "not history");
    home.write(folder + u"Sessions"_s, "capital S is not a session");
    setAllKeys(true);
    setKey(PreferenceKey::ShredCookies, false);

    const QString full = home.file(folder);
    const QStringList scanned = lines(u"Shred: "_s, full,
                                      {u"History"_s, u"History-journal"_s, u"session_1"_s, u"Thumbnails"_s,
                                       u"Archived History"_s, u"Archived History-journal"_s});
    EXPECT_EQ(
        run([&] { cleaners.Opera170(); }),
        (QStringList{u"Opera 17.x"_s, u"Shred: ~/Library/Caches/com.operasoftware.Opera/Cache"_s,
                     u"Shred: ~/Library/Application Support/com.operasoftware.Opera/GPUCache"_s} +
         scanned +
         QStringList{u"Skip: ~/Library/Application Support/com.operasoftware.Opera/Default/Cookies"_s,
                     u"Skip: ~/Library/Application Support/com.operasoftware.Opera/Cookies-journal"_s, QString()}));
    EXPECT_EQ(paths.size(), 8);
    EXPECT_FALSE(paths.join(u'|').contains(u"session_inside"_s));

    // A missing folder scans as empty.
    QDir(home.file(folder)).removeRecursively();
    queue.takePaths();
    setAllKeys(false);
    EXPECT_EQ(run([&] { cleaners.Opera170(); }).size(), 8);
    EXPECT_TRUE(paths.isEmpty());
}

// Every cleaner of an application turned off in the preferences.
TEST_F(SimpleCleanersTest, TheCleanersOfADisabledApplicationSayOnlyTheirHeaderAndWhyAndTakeNothing)
{
    RecordingRunner runner;
    ChromeCleaners chrome{context};
    MozillaCleaners mozilla{context, defaults, chrome};
    SafariCleaners safari{context, &runner};
    MailCleaners mail{context, defaults};
    setAllKeys(true);
    const struct {
        QString application;
        QStringList header;
        std::function<void()> clean;
    } cases[]{
        {u"Opera"_s, {u"Opera 17.x"_s}, [&] { cleaners.Opera170(); }},
        {u"Chrome"_s, {u"Chrome 4"_s}, [&] { chrome.Chrome40(); }},
        {u"Chrome"_s, {u"Chrome 5.0"_s}, [&] { chrome.Chrome50(); }},
        {u"SeaMonkey 2"_s,
         {u"Firefox 3.0-12.0, Flock 2.5, and SeaMonkey 1.0"_s},
         [&] { mozilla.Firefox30Flock25SeaMonkey20(u"SeaMonkey 2"_s, u"~/Library/Application Support/Firefox"_s); }},
        {u"Safari"_s, {u"Safari 2.0 and/or Shiira 1.2"_s}, [&] { safari.Safari20Shiira12(); }},
        {u"Safari"_s, {u"Safari 4.0"_s}, [&] { safari.Safari40(); }},
        {u"Safari"_s, {u"Safari 5.1-6"_s}, [&] { safari.Safari51(); }},
        {u"Apple Mail"_s, {u"Apple Mail 1.2 (Jaguar)"_s}, [&] { mail.AppleMail12(); }},
        {u"Apple Mail"_s, {u"Apple Mail 2.x - 5.x"_s, u""_s}, [&] { mail.AppleMail20to50(); }},
        {u"Postbox"_s, {u"Postbox 2"_s}, [&] { mail.Postbox21(); }},
        {u"Thunderbird"_s, {u"Thunderbird 1.5"_s}, [&] { mail.Thunderbird15(); }},
    };
    for (const auto& c : cases) {
        disable(c.application);
        EXPECT_EQ(run(c.clean), c.header + QStringList({u"Not enabled - check preferences to enable."_s, u""_s}));
        preferences.enableChanged(c.application);
    }
    EXPECT_TRUE(paths.isEmpty());
    EXPECT_TRUE(touches.isEmpty());
    EXPECT_TRUE(runner.calls.isEmpty());
}

TEST_F(SimpleCleanersTest, PluginCacheTakesTheEnabledPluginPaths)
{
    EXPECT_EQ(
        run([&] { cleaners.PluginsCache(); }),
        (QStringList{u"Plugin Cache"_s, u"Skip: Could not find Plugin Manager.  Cannot find Plugin Cache"_s, u""_s}));

    const PluginManager manager(defaults, PluginManager::loadDefaultList());
    context.models.plugins = &manager;
    const QStringList expected = manager.enabledPluginPaths();
    ASSERT_FALSE(expected.isEmpty());
    setAllKeys(false); // no key decides it
    const QStringList lines = run([&] { cleaners.PluginsCache(); });
    EXPECT_EQ(lines, (QStringList{u"Plugin Cache"_s, u"Shred:"_s} + expected + QStringList{u""_s}));
    EXPECT_EQ(paths, expected);
}

TEST_F(SimpleCleanersTest, CustomProcessesThatStoppedHandTheirPathsOver)
{
    customStatus.insert(u"/Applications/Editor.app/Contents/MacOS/Editor"_s, QVariantMap{{u"isrunning"_s, 0}});
    customStatus.insert(u"/usr/bin/busy"_s, QVariantMap{{u"isrunning"_s, 1}});
    customStatus.insert(u"/usr/local/bin/tool"_s, QVariantMap{{u"isrunning"_s, 0}});
    struct Source final : CustomPathSource {
        QStringList asked;
        void handOverPaths(const QString& process, EraseQueue& queue) override
        {
            asked << process;
            queue.erase(u"/tmp/from "_s + process);
        }
    } source;
    context.models.customPaths = &source;
    const QStringList lines = run([&] { cleaners.CustomFiles(); });

    EXPECT_EQ(lines, (QStringList{u"Custom Processes"_s, u"/Applications/Editor.app/Contents/MacOS/Editor"_s, u""_s,
                                  u"/usr/local/bin/tool"_s, u""_s, u""_s}));
    EXPECT_EQ(source.asked,
              (QStringList{u"/Applications/Editor.app/Contents/MacOS/Editor"_s, u"/usr/local/bin/tool"_s}));
    EXPECT_EQ(paths, (QStringList{u"/tmp/from /Applications/Editor.app/Contents/MacOS/Editor"_s,
                                  u"/tmp/from /usr/local/bin/tool"_s}));
}

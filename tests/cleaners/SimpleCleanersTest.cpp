#include "cleaners/SimpleCleaners.h"

#include "cleaners/CleanerFixture.h"
#include "settings/PluginManager.h"

#include <QDir>

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

    disable(u"Opera"_s);
    EXPECT_EQ(run([&] { cleaners.Opera170(); }),
              (QStringList{u"Opera 17.x"_s, u"Not enabled - check preferences to enable."_s, u""_s}));
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

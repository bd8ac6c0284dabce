#include "cleaners/SimpleCleaners.h"

#include "cleaners/CleanerFixture.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "settings/PluginManager.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

class SimpleCleanersTest : public CleanerFixture {
protected:
    SimpleCleaners cleaners{context};
};

} // namespace

TEST_F(SimpleCleanersTest, InternetExplorerWithEverythingOnAndOff)
{
    setAllKeys(true);
    EXPECT_EQ(run([&] { cleaners.IE51(); }), (QStringList{
                                                 u"IE"_s,
                                                 u"Shred: ~/Library/Caches/MS Internet Cache"_s,
                                                 u"Shred: ~/Library/Preferences/MS Internet Cache"_s,
                                                 u"Shred: ~/Library/Preferences/Explorer/History.html"_s,
                                                 u"Shred: ~/Library/Preferences/Explorer/Download Cache"_s,
                                                 u"Shred: ~/Library/Preferences/Explorer/Downloads.html"_s,
                                                 u""_s,
                                             }));
    EXPECT_EQ(paths, expanded({u"~/Library/Caches/MS Internet Cache"_s, u"~/Library/Preferences/MS Internet Cache"_s,
                               u"~/Library/Preferences/Explorer/History.html"_s,
                               u"~/Library/Preferences/Explorer/Download Cache"_s,
                               u"~/Library/Preferences/Explorer/Downloads.html"_s}));

    queue.takePaths();
    setAllKeys(false);
    EXPECT_EQ(run([&] { cleaners.IE51(); }), (QStringList{
                                                 u"IE"_s,
                                                 u"Skip: ~/Library/Caches/MS Internet Cache"_s,
                                                 u"Skip: ~/Preferences/MS Internet Cache"_s,
                                                 u"Skip: ~/Library/Preferences/Explorer/History.html"_s,
                                                 u"Skip: ~/Library/Preferences/Explorer/Download Cache"_s,
                                                 u"Skip: ~/Library/Preferences/Explorer/Downloads.html"_s,
                                                 u""_s,
                                             }));
    EXPECT_TRUE(paths.isEmpty());
}

TEST_F(SimpleCleanersTest, ADisabledApplicationQueuesNothingWhateverTheKeys)
{
    setAllKeys(true);
    disable(u"Opera"_s);
    const QStringList notEnabled{u"Not enabled - check preferences to enable."_s, u""_s};
    const auto header = [](const QString& title) { return QStringList{title}; };
    EXPECT_EQ(run([&] { cleaners.Opera50(); }), header(u"Opera 5.x"_s) + notEnabled);
    EXPECT_EQ(run([&] { cleaners.Opera110(); }), header(u"Opera 11.x"_s) + notEnabled);
    EXPECT_EQ(run([&] { cleaners.Opera170(); }), header(u"Opera 17.x"_s) + notEnabled);
    disable(u"Omniweb"_s);
    EXPECT_EQ(run([&] { cleaners.OmniWeb57(); }), header(u"OmniWeb 5.7"_s) + notEnabled);
    EXPECT_TRUE(paths.isEmpty());

    // Not gated by any application.
    EXPECT_EQ(run([&] { cleaners.QuicktimeCache(); }),
              (QStringList{u"Quicktime Cache"_s, u"Shred: ~/Library/Caches/Quicktime"_s, u""_s}));
    setKey(PreferenceKey::ShredQuicktimeCache, false);
    EXPECT_EQ(run([&] { cleaners.QuicktimeCache(); }),
              (QStringList{u"Quicktime Cache"_s, u"Skip: ~/Library/Caches/Quicktime"_s, u""_s}));
}

TEST_F(SimpleCleanersTest, OmniWebFourHasNothingForItsCache)
{
    setAllKeys(true);
    const QStringList lines = run([&] { cleaners.OmniWeb41(); });
    EXPECT_EQ(lines, (QStringList{
                         u"OmniWeb 4"_s,
                         u"Shred: ~/Library/Application Support/OmniWeb/HistoryIndex.ox"_s,
                         u"Shred: ~/Library/Application Support/OmniWeb/HistoryIndex.ox.lock"_s,
                         u"Shred: ~/Library/Application Support/OmniWeb/HistoryIndex.ox.log"_s,
                         u"Shred: ~/Library/Application Support/OmniWeb/PersistentHistory.plist"_s,
                         u""_s,
                     }));
    EXPECT_EQ(paths.size(), 4);
}

TEST_F(SimpleCleanersTest, ICabFourAsksAgainAfterItsCache)
{
    setAllKeys(true);
    int asked = 0;
    context.setBrowserIsEnabledForTesting([&](const QString& name) {
        EXPECT_EQ(name, u"iCab"_s);
        return ++asked == 1; // enabled at the gate, no longer after the cache
    });
    EXPECT_EQ(run([&] { cleaners.iCab411(); }),
              (QStringList{u"iCab v4"_s, u"Shred: ~/Library/Caches/iCab/Cache.db"_s, u""_s}));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(paths, QStringList{expanded(u"~/Library/Caches/iCab/Cache.db"_s)});

    queue.takePaths();
    context.setBrowserIsEnabledForTesting(nullptr);
    EXPECT_EQ(run([&] { cleaners.iCab411(); }), (QStringList{
                                                    u"iCab v4"_s,
                                                    u"Shred: ~/Library/Caches/iCab/Cache.db"_s,
                                                    u"Shred: ~/Library/Preferences/iCab/iCab 4 Downloads"_s,
                                                    u"Shred: ~/Library/Preferences/iCab/iCab 4 History"_s,
                                                    u"Shred: ~/Library/Preferences/iCab/iCab 4 TopTen"_s,
                                                    u"Shred: ~/Library/Preferences/iCab/iCab 4 Cookies"_s,
                                                    u"Shred: ~/Library/Icons/Webpageicons.db"_s,
                                                    u""_s,
                                                }));
}

TEST_F(SimpleCleanersTest, OperaCacheFoldersEndInTheFlorinSignInUtf8)
{
    setAllKeys(true);
    const QStringList lines = run([&] {
        cleaners.Opera50();
        cleaners.Opera60();
        cleaners.Opera70();
    });
    EXPECT_EQ(lines[1], u"Shred: ~/Library/Preferences/Opera Preferences/Cache \u0192"_s);
    for (const qsizetype index : {0, 4, 10}) {
        ASSERT_LT(index, paths.size());
        EXPECT_TRUE(paths[index].toUtf8().endsWith("Cache \xC6\x92")) << qPrintable(paths[index]);
    }
    EXPECT_EQ(paths[10], expanded(u"~/Library/Caches/Opera Cache/Cache \u0192"_s));
}

TEST_F(SimpleCleanersTest, OperaElevenSkipLinesAndSpeedDial)
{
    setAllKeys(false);
    EXPECT_EQ(run([&] { cleaners.Opera110(); }), (QStringList{
                                                     u"Opera 11.x"_s,
                                                     u"Skip: ~/Library/Opera/typed_history.xml"_s,
                                                     u"Skip: ~/Library/Opera/global_history.dat"_s,
                                                     u"Skip: ~/Library/Opera/Bookmarks.bak"_s,
                                                     u"Skip: ~/Library/Opera/Sessions/autosave.win.bak"_s,
                                                     u"Skip: ~/Library/Opera/cookies4.dat"_s,
                                                     u"Skip: ~/Library/Opera/vlink4.dat"_s,
                                                     u"Skip: ~/Library/Opera/autopera.win"_s,
                                                     u"Skip: ~/Library/Opera/download.dat"_s,
                                                     u"Skip: ~/Library/Opera/speeddial.ini"_s,
                                                     u"Skip: ~/Library/Opera/opthumb.dat"_s,
                                                     u""_s,
                                                 }));
    EXPECT_TRUE(paths.isEmpty());

    setAllKeys(true);
    const QStringList everything = run([&] { cleaners.Opera110(); });
    EXPECT_EQ(everything.size(), 13);
    EXPECT_EQ(paths, expanded({u"~/Library/Opera/typed_history.xml"_s, u"~/Library/Opera/global_history.dat"_s,
                               u"~/Library/Opera/Bookmarks.bak"_s, u"~/Library/Opera/Sessions/autosave.win"_s,
                               u"~/Library/Opera/Sessions/autosave.win.bak"_s, u"~/Library/Opera/cookies4.dat"_s,
                               u"~/Library/Opera/vlink4.dat"_s, u"~/Library/Preferences/Opera Preferences/vlink4.new"_s,
                               u"~/Library/Opera/download.dat"_s, u"~/Library/Opera/speeddial.ini"_s,
                               u"~/Library/Opera/opthumb.dat"_s}));

    // History erased but top sites kept: the speed dial stays.
    queue.takePaths();
    setKey(PreferenceKey::KeepSafariTopSites, true);
    const QStringList keepingTopSites = run([&] { cleaners.Opera110(); });
    EXPECT_EQ(keepingTopSites.mid(10),
              (QStringList{u"Skip: ~/Library/Opera/speeddial.ini"_s, u"Skip: ~/Library/Opera/opthumb.dat"_s, u""_s}));
    EXPECT_EQ(paths.size(), 9);
}

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
    EXPECT_EQ(run([&] { cleaners.Opera170(); }),
              (QStringList{
                  u"Opera 17.x"_s,
                  u"Shred: ~/Library/Caches/com.operasoftware.Opera/Cache"_s,
                  u"Shred: ~/Library/Application Support/com.operasoftware.Opera/GPUCache"_s,
                  u"Shred: "_s + full + u"History"_s,
                  u"Shred: "_s + full + u"History-journal"_s,
                  u"Shred: "_s + full + u"session_1"_s,
                  u"Shred: "_s + full + u"Thumbnails"_s,
                  u"Shred: "_s + full + u"Archived History"_s,
                  u"Shred: "_s + full + u"Archived History-journal"_s,
                  u"Skip: ~/Library/Application Support/com.operasoftware.Opera/Default/Cookies"_s,
                  u"Skip: ~/Library/Application Support/com.operasoftware.Opera/Cookies-journal"_s,
                  u""_s,
              }));
    EXPECT_EQ(paths.size(), 8);
    EXPECT_FALSE(paths.join(u'|').contains(u"session_inside"_s));

    // A missing folder scans as empty.
    QDir(home.file(folder)).removeRecursively();
    queue.takePaths();
    setAllKeys(false);
    EXPECT_EQ(run([&] { cleaners.Opera170(); }).size(), 8);
    EXPECT_TRUE(paths.isEmpty());
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

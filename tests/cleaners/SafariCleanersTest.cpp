#include "cleaners/SafariCleaners.h"

#include "cleaners/CleanerFixture.h"
#include "support/RecordingRunner.h"

using namespace Qt::StringLiterals;

namespace {

class SafariCleanersTest : public CleanerFixture {
protected:
    SafariCleanersTest() { qputenv("TMPDIR", QFile::encodeName(home.file(u"var/folders/ab/cd/T/"_s))); }
    ~SafariCleanersTest() override { qunsetenv("TMPDIR"); }

    RecordingRunner runner;
    SafariCleaners cleaners{context, &runner};
};

} // namespace

TEST_F(SafariCleanersTest, TheSharedCookieFileWaitsForBothBrowsersToQuit)
{
    setAllKeys(true);
    isRunning.set(WatchedApp::shiira, 1);
    EXPECT_EQ(
        run([&] { cleaners.Safari20Shiira12(); }),
        (QStringList{
            u"Safari 2.0 and/or Shiira 1.2"_s,
            u"Cookie shredding skipped - Safari and Shiira share the cookies folder.  You must quit BOTH browsers to shred cookies"_s,
            u""_s}));
    EXPECT_TRUE(paths.isEmpty());

    isRunning.set(WatchedApp::shiira, 0);
    EXPECT_EQ(run([&] { cleaners.Safari20Shiira12(); }),
              (QStringList{u"Safari 2.0 and/or Shiira 1.2"_s, u"Shred: ~/Library/Cookies/Cookies.plist"_s, u""_s}));
    EXPECT_EQ(paths, QStringList{home.file(u"Library/Cookies/Cookies.plist"_s)});
}

TEST_F(SafariCleanersTest, SafariFourTakesTheTemporaryCacheAndKeepsTopSitesWhenAsked)
{
    setAllKeys(true);
    setKey(PreferenceKey::KeepSafariTopSites, true);
    const QString temporaryCache = home.file(u"var/folders/ab/cd/-Caches-/com.apple.Safari"_s);
    EXPECT_EQ(run([&] { cleaners.Safari40(); }),
              (QStringList{u"Safari 4.0"_s, u"Shred: $TMPDIR"_s, temporaryCache,
                           u"Shred: ~/Library/Caches/com.apple.Safari"_s,
                           u"Shred: ~/Library/Caches/Safari Webpage Preview Fetcher"_s,
                           u"Skip: ~/Library/Safari/TopSites.plist"_s, u""_s}));
    EXPECT_EQ(paths.first(), temporaryCache);

    queue.takePaths();
    setKey(PreferenceKey::KeepSafariTopSites, false);
    run([&] { cleaners.Safari40(); });
    EXPECT_EQ(paths.last(), home.file(u"Library/Safari/TopSites.plist"_s));

    setAllKeys(false);
    EXPECT_EQ(run([&] { cleaners.Safari40(); }),
              (QStringList{u"Safari 4.0"_s, u"Skip: $TMPDIR/../-Caches-/com.apple.Safari"_s,
                           u"Skip: ~/Library/Caches/com.apple.Safari"_s,
                           u"Skip: ~/Library/Caches/Safari Webpage Preview Fetcher"_s,
                           u"Skip: ~/Library/Safari/TopSites.plist"_s, u""_s}));

    // Without TMPDIR the temporary folder is /tmp, whose parent is the root.
    qunsetenv("TMPDIR");
    EXPECT_EQ(SafariCleaners::temporaryCacheFolder(u"C/com.apple.Safari"_s), u"/C/com.apple.Safari"_s);
}

TEST_F(SafariCleanersTest, SafariFiveOneStopsTheCookieDaemonAndTakesWindowStates)
{
    const QString state = u"Library/Saved Application State/com.apple.Safari.savedState/"_s;
    home.write(state + u"Window_1.data"_s, "w");
    home.write(state + u"windows.plist"_s, "w");
    home.write(state + u"data.data"_s, "d");
    setAllKeys(true);
    EXPECT_EQ(run([&] { cleaners.Safari51(); }),
              (QStringList{u"Safari 5.1-6"_s, u"Shred: $TMPDIR"_s, home.file(u"var/folders/ab/cd/C/com.apple.Safari"_s),
                           u"Shred: ~/Library/Cookies/Cookies.binarycookies"_s, u""_s}));
    EXPECT_EQ(runner.calls, QList<QStringList>{(QStringList{u"killall"_s, u"cookied"_s})});
    EXPECT_EQ(paths, (QStringList{home.file(u"var/folders/ab/cd/C/com.apple.Safari"_s),
                                  home.file(u"Library/Cookies/Cookies.binarycookies"_s),
                                  home.file(state + u"window_1.data"_s), home.file(state + u"windows.plist"_s)}));

    // With history, cookies and cache all off: header and empty line, and no daemon stopped.
    queue.takePaths();
    runner.calls.clear();
    setAllKeys(false);
    EXPECT_EQ(run([&] { cleaners.Safari51(); }),
              (QStringList{u"Safari 5.1-6"_s, u"Skip: ~/Library/Cookies/Cookies.binarycookies"_s, u""_s}));
    EXPECT_TRUE(runner.calls.isEmpty());
    EXPECT_TRUE(paths.isEmpty());
}

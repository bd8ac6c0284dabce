#include "cleaners/ChromeCleaners.h"

#include "cleaners/CleanerFixture.h"

#include <QDir>
#include <QFileInfo>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString kProfile = u"Library/Application Support/Google/Chrome/Default/"_s;
const QByteArray kPreferences =
    R"({"dns_prefetching":{"host_referral_list":[2,["http://a.example/",["b"]]]},"homepage":"x"})";

class ChromeCleanersTest : public CleanerFixture {
protected:
    QString profile(const QString& name = {}) const { return home.file(kProfile + name); }

    ChromeCleaners cleaners{context};
};

} // namespace

TEST_F(ChromeCleanersTest, ChromeFourTakesHistoryEntriesWholeWithoutDescending)
{
    home.write(kProfile + u"History"_s, "db");
    home.write(kProfile + u"History-journal"_s, "j");
    home.write(kProfile + u"History Index 2013-05"_s, "i");
    home.write(kProfile + u"History Provider Cache/inner"_s, "folder");
    home.write(kProfile + u"Archived History"_s, "a");
    home.write(kProfile + u"Bookmarks"_s, "kept");
    setAllKeys(true);

    const QString cache = home.file(u"Library/Caches/Google/Chrome/Default/Cache"_s);
    const QString chrome = home.file(u"Library/Application Support/Google/Chrome/"_s);
    const QStringList history = u"History|History Index 2013-05|History Provider Cache|History-journal|"
                                u"Archived History|Archived History-journal|Last Session|Last Tabs|"
                                u"Current Session|Current Tabs|Thumbnails|Cookies|Cookies-journal"_s.split(u'|');
    EXPECT_EQ(run([&] { cleaners.Chrome40(); }),
              QStringList{u"Chrome 4"_s} + lines(u"Shred: "_s, cache, {QString()}) +
                  lines(u"Shred: "_s, profile(), history) +
                  lines(u"Shred: "_s, chrome, {u"Safe Browsing Cookies"_s, u"Safe Browsing Cookies-journal"_s}) +
                  QStringList{QString()});
    EXPECT_EQ(paths.size(), 16);
    EXPECT_FALSE(paths.contains(profile(u"Bookmarks"_s)));

    queue.takePaths();
    setAllKeys(false);
    const QStringList skipped = run([&] { cleaners.Chrome40(); });
    EXPECT_EQ(skipped.size(), 18);
    EXPECT_EQ(skipped[2], u"Skip: "_s + profile(u"History"_s));
    EXPECT_TRUE(paths.isEmpty());
}

TEST_F(ChromeCleanersTest, ChromeFiveEditsLocalStateSaysSoInItsOwnWordsAndErasesTheOldCopyALastEditLeft)
{
    const QString localState = u"Library/Application Support/Google/Chrome/Local State"_s;
    home.write(localState, R"({"StartupDNSPrefetchList":["a.example"],"browser":{}})");
    // Left by a run killed after the new settings were written, before the erase:
    // the old ones, host list and all, wait under the old-copy name.
    home.write(localState + u".vantlex"_s, R"({"StartupDNSPrefetchList":["old.example"]})");
    setAllKeys(true);
    EXPECT_EQ(run([&] { cleaners.Chrome50(); }),
              (QStringList{u"Chrome 5.0"_s, u"Shred: "_s + profile(u"Extension Cookies"_s),
                           u"Shred (left by an interrupted run): "_s + home.file(localState + u".vantlex"_s),
                           u"Shred: ~/Library/Application Support/Google/Chrome/Local State"_s,
                           u"Shred: ~/Library/Application Support/Google/Chrome/Default/Visited Links"_s,
                           // Without the keep-list model the storage is left alone.
                           u"Could not get HTML5Manager sharedInstance.  HTML5 shredding skipped."_s, u""_s}));
    EXPECT_EQ(home.read(localState), R"({"browser":{}})");
    // The old copy is set aside beside it and erased, so that the new one can take its name.
    ASSERT_EQ(paths.size(), 4);
    EXPECT_EQ(paths.mid(2), (QStringList{home.file(localState + u".vantlex"_s), profile(u"Visited Links"_s)}));
    const QFileInfo holding(paths[1]);
    EXPECT_TRUE(holding.fileName().startsWith(u"Vantle X Items ("_s)) << qPrintable(paths[1]);
    EXPECT_EQ(holding.absolutePath(), QFileInfo(home.file(localState)).absolutePath());
    EXPECT_EQ(home.read(paths[1] + u"/Local State.vantlex"_s), R"({"StartupDNSPrefetchList":["old.example"]})");

    // A damaged file gets the plain skip line and stays as it is. The old copy the
    // last edit left (never erased here) is erased first, and said so.
    queue.takePaths();
    home.write(localState, "{damaged");
    const QStringList damaged = run([&] { cleaners.Chrome50(); });
    EXPECT_EQ(damaged[2], u"Shred (left by an interrupted run): "_s + home.file(localState + u".vantlex"_s));
    EXPECT_EQ(damaged[3], u"Skip: ~/Library/Application Support/Google/Chrome/Local State"_s);
    EXPECT_EQ(home.read(localState), "{damaged");

    setAllKeys(false);
    EXPECT_EQ(run([&] { cleaners.Chrome50(); }),
              (QStringList{u"Chrome 5.0"_s, u"Skip: "_s + profile(u"Extension Cookies"_s),
                           u"Skip: ~/Library/Application Support/Google/Chrome/Default/Visited Links"_s,
                           u"Could not get HTML5Manager sharedInstance.  HTML5 shredding skipped."_s, u""_s}));
}

TEST_F(ChromeCleanersTest, ChromeSeventeenNeedsTheKeyAndKeepsTopSitesWhenAsked)
{
    home.write(kProfile + u"Preferences"_s, R"({"homepage":"x"})");
    setAllKeys(true);
    setKey(PreferenceKey::KeepSafariTopSites, true);
    EXPECT_EQ(
        run([&] { cleaners.Chrome170(); }),
        (QStringList{u"Chrome 17.0"_s, u"Shred: "_s + profile(u"Favicons"_s),
                     u"Shred: "_s + profile(u"Favicons-journal"_s), u"Shred: "_s + profile(u"shortcuts"_s),
                     u"Shred: "_s + profile(u"Network Action Predictor"_s),
                     u"Skip (dns_prefetching not found): "_s + profile(u"Preferences"_s),
                     u"Skip: "_s + profile(u"Top Sites"_s), u"Skip: "_s + profile(u"Top Sites-journal"_s), u""_s}));
    EXPECT_EQ(home.read(kProfile + u"Preferences"_s), R"({"homepage":"x"})");

    // Killed between the two steps of an edit: the old copy is a second name of
    // the settings themselves, which are edited as usual.
    queue.takePaths();
    home.write(kProfile + u"Preferences"_s, kPreferences);
    ASSERT_EQ(::link(QFile::encodeName(profile(u"Preferences"_s)).constData(),
                     QFile::encodeName(profile(u"Preferences.vantlex"_s)).constData()),
              0);
    setKey(PreferenceKey::KeepSafariTopSites, false);
    const QStringList lines = run([&] { cleaners.Chrome170(); });
    EXPECT_EQ(lines[5], u"Shred: "_s + profile(u"Preferences"_s));
    EXPECT_EQ(home.read(kProfile + u"Preferences"_s), R"({"homepage":"x"})");
    EXPECT_EQ(home.read(kProfile + u"Preferences.vantlex"_s), kPreferences);
    EXPECT_EQ(paths.mid(4), (QStringList{profile(u"Preferences.vantlex"_s), profile(u"Top Sites"_s),
                                         profile(u"Top Sites-journal"_s)}));

    // History off: nothing at all is said about the preferences file.
    setAllKeys(false);
    EXPECT_EQ(run([&] { cleaners.Chrome170(); }).size(), 8);
}

TEST_F(ChromeCleanersTest, ChromeThirtyTakesTheCachesAndTheWindowState)
{
    setAllKeys(true);
    EXPECT_EQ(run([&] { cleaners.Chrome300(); }),
              (QStringList{u"Chrome 30.0"_s, u"Shred: "_s + home.file(u"Library/Caches/Google/Chrome"_s),
                           u"Shred: "_s + home.file(u"Library/Saved Application State/com.google.Chrome.savedState"_s),
                           u""_s}));
}

TEST_F(ChromeCleanersTest, FlockUserDataFolder)
{
    const QString profileDir = u"Library/Application Support/Flock/User Data 2/Default/"_s;
    home.write(profileDir + u"History"_s, "h");
    home.write(profileDir + u"Local State"_s, R"({"StartupDNSPrefetchList":[],"x":1})");
    setAllKeys(true);
    const QString p = home.file(profileDir);
    EXPECT_EQ(run([&] { cleaners.Flock35UserData(u"User Data 2"_s); }),
              lines(u"Shred: "_s, home.file(u"Library/Caches/Flock/User Data 2/Default/Cache"_s), {QString()}) +
                  lines(u"Shred: "_s, p,
                        {u"History"_s, u"Visited Links"_s, u"Archived History"_s, u"Last Session"_s,
                         u"Current Session"_s, u"Last Tabs"_s, u"Current Tabs"_s, u"Local State"_s, u"Thumbnails"_s,
                         u"Cookies"_s, u"Extension Cookies"_s}) +
                  QStringList{u"Could not get HTML5Manager sharedInstance.  HTML5 shredding skipped."_s});
    EXPECT_EQ(home.read(profileDir + u"Local State"_s), R"({"x":1})");
    EXPECT_TRUE(paths.contains(p + u"Local State.vantlex"_s));
}

// Today's Chromium-based browsers on a Linux and a macOS home: the profiles
// Local State lists, and the walk's rules for every current browser (profiles
// in use or not selected, files they share, applications without profiles).
// What a profile's files become is ChromiumProfileItems' own matter.
#include "cleaners/current/CurrentChromium.h"
#include "cleaners/CleanerFixture.h"
#include "settings/ChromiumProfileList.h"
#include "settings/ProfilesManager.h"

#include <QDir>
#include <QFile>

#include <nlohmann/json.hpp>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class CurrentChromiumTest : public CleanerFixture {
protected:
    // A Local State whose profile.info_cache lists the names, in that order.
    void writeLocalState(const QString& userData, const QStringList& names) const
    {
        nlohmann::ordered_json infoCache = nlohmann::ordered_json::object();
        for (const QString& name : names)
            infoCache[name.toStdString()] = {{"name", "Person"}};
        const nlohmann::ordered_json state{{"browser", {{"enabled_labs_experiments", nlohmann::json::array()}}},
                                           {"profile", {{"info_cache", infoCache}}}};
        home.write(userData + u"/Local State"_s, QByteArray::fromStdString(state.dump()));
    }
    // A SingletonLock naming the process as the browser writes it.
    void lock(const QString& userData, qint64 pid) const
    {
        QFile::link(u"build-host-%1"_s.arg(pid), home.file(userData + u"/SingletonLock"_s));
    }
    // The walk's own lines: those the profile's items write name files that exist.
    QStringList walkLines(const std::function<void()>& work)
    {
        QStringList lines = run(work);
        lines.removeIf([](const QString& line) {
            const qsizetype space = line.indexOf(u' ');
            const QFileInfo named(line.mid(space + 1));
            return (line.startsWith(u"Shred: "_s) || line.startsWith(u"Skip: "_s)) &&
                   (named.exists() || named.isSymLink());
        });
        return lines;
    }

    const QString procRoot = home.file(u"proc"_s);
};

ChromiumProfile profileIn(const QString& userData, const QString& caches, const QString& name)
{
    return {userData, userData + u'/' + name, caches + u'/' + name};
}

} // namespace

TEST_F(CurrentChromiumTest, LocalStateListsTheProfilesOfEachLocationOnce)
{
    const QString googleChromeFolder = home.file(u".config/google-chrome"_s);
    for (const QString& folder :
         {u".config/google-chrome/Default"_s, u".config/google-chrome/Profile 1"_s, u".config/escaped"_s, u"abs"_s,
          u".config/chromium/Default"_s, u"Library/Application Support/Chromium/Default"_s})
        makeFolder(folder);
    writeLocalState(u".config/google-chrome"_s,
                    {u"Profile 1"_s, u"Default"_s, u"../escaped"_s, home.file(u"abs"_s), u"Gone"_s});
    home.write(u".config/chromium/Local State"_s, "{\"profile\": {\"info_cache\": ");
    // The Flatpak's folder is a link to the native one.
    QDir().mkpath(home.file(u".var/app/org.chromium.Chromium/config"_s));
    QFile::link(home.file(u".config/chromium"_s), home.file(u".var/app/org.chromium.Chromium/config/chromium"_s));
    // Opera keeps its one profile in the user-data folder; a Local State there changes nothing.
    home.write(u".config/opera/Preferences"_s, "{}");
    writeLocalState(u".config/opera"_s, {u"Default"_s});
    makeFolder(u".config/opera/Default"_s);

    const QString chromeCache = home.file(u".cache/google-chrome"_s);
    const QList<ChromiumProfile> chrome{
        profileIn(googleChromeFolder, chromeCache, u"Profile 1"_s),
        profileIn(googleChromeFolder, chromeCache, u"Default"_s),
        profileIn(home.file(u".config/chromium"_s), home.file(u".cache/chromium"_s), u"Default"_s),
        profileIn(home.file(u"Library/Application Support/Chromium"_s), home.file(u"Library/Caches/Chromium"_s),
                  u"Default"_s)};
    EXPECT_EQ(ChromiumProfileList::current(WatchedApp::chrome), chrome);
    const QString opera = home.file(u".config/opera"_s);
    EXPECT_EQ(ChromiumProfileList::current(WatchedApp::currentOpera),
              (QList<ChromiumProfile>{{opera, opera, home.file(u".cache/opera"_s)}}));
    EXPECT_TRUE(ChromiumProfileList::current(WatchedApp::brave).isEmpty());
}

TEST_F(CurrentChromiumTest, TheWalkPassesOverProfilesInUseOrNotSelectedAndTakesWhatTheyShareOnce)
{
    const QString chrome = home.file(u".config/google-chrome"_s);
    const QString chromium = home.file(u".config/chromium"_s);
    const QString brave = home.file(u"Library/Application Support/BraveSoftware/Brave-Browser"_s);
    const QString opera = home.file(u".config/opera"_s);
    writeLocalState(u".config/google-chrome"_s, {u"Default"_s});
    writeLocalState(u".config/chromium"_s, {u"Default"_s, u"Profile 2"_s});
    writeLocalState(u"Library/Application Support/BraveSoftware/Brave-Browser"_s, {u"Default"_s, u"Profile 1"_s});
    for (const QString& folder :
         {chrome + u"/Default"_s, chromium + u"/Profile 2"_s, brave + u"/Default"_s, brave + u"/Profile 1"_s})
        QDir().mkpath(folder);
    // Shared by the profiles of a user-data folder.
    for (const QString& userData : {chrome, chromium, brave})
        home.write(userData + u"/segmentation_platform/ukm_db"_s, "metrics");
    home.write(chromium + u"/Default/Sessions/Session_1"_s, "tabs");
    home.write(u".config/opera/History"_s, "history");
    // Google Chrome still runs (this process); Chromium's lock outlived its process.
    lock(u".config/google-chrome"_s, ::getpid());
    const pid_t ended = ::fork();
    if (ended == 0)
        ::_exit(0);
    ASSERT_EQ(::waitpid(ended, nullptr, 0), ended);
    lock(u".config/chromium"_s, ended);
    home.write(u"proc/4242/comm"_s, "opera\n");

    ProfilesManager profiles(defaults);
    profiles.populateProfilesMenu(); // a fresh settings store selects every profile
    const ProfilesManager::Menu& menu = profiles.menus()[ProfilesManager::Chrome];
    ASSERT_EQ(menu.titles.value(3), chromium + u"/Profile 2"_s);
    profiles.doProfileMenuItem(ProfilesManager::Chrome, 3);
    setAllKeys(true);

    const QStringList expected{
        u"Chrome (current versions)"_s,
        u"Skip: %1/Default (in use: its lock is held by process %2)"_s.arg(chrome).arg(::getpid()),
        chromium + u"/Default"_s,
        QString(),
        u"Skip: %1/Profile 2 (not selected in the Profiles menu)"_s.arg(chromium),
        QString(),
        u"Brave"_s,
        brave + u"/Default"_s,
        QString(),
        brave + u"/Profile 1"_s,
        QString(),
        QString(),
        u"Opera (current versions)"_s,
        u"Skip: %1 (in use: opera is running)"_s.arg(opera),
        QString()};
    EXPECT_EQ(walkLines([&] {
                  CurrentChromium cleaner(context, defaults, procRoot);
                  for (const WatchedApp application : {WatchedApp::chrome, WatchedApp::vivaldi, WatchedApp::brave,
                                                       WatchedApp::edge, WatchedApp::currentOpera})
                      cleaner.run(application);
              }),
              expected);
    // A shared file goes once, after the profiles, when one of them was erased.
    EXPECT_EQ(paths, (QStringList{chromium + u"/Default/Sessions"_s, chromium + u"/segmentation_platform/ukm_db"_s,
                                  brave + u"/segmentation_platform/ukm_db"_s}));

    disable(u"Chrome"_s);
    EXPECT_EQ(
        walkLines([&] { CurrentChromium(context, defaults, procRoot).run(WatchedApp::chrome); }),
        (QStringList{u"Chrome (current versions)"_s, u"Not enabled - check preferences to enable."_s, QString()}));
}

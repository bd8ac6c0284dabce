#include "settings/ProfilesManager.h"

#include "settings/UserDefaults.h"
#include "support/QtPrinters.h"
#include "support/TempHome.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class ProfilesManagerTest : public ::testing::Test {
protected:
    ProfilesManagerTest()
        : defaults(UserDefaults::defaultFilePath())
        , manager(defaults)
    {
    }

    void makeProfile(const QString& folder, const QString& name) { QDir().mkpath(home.file(folder + u'/' + name)); }
    QString firefox() const { return home.file(u"Library/Application Support/Firefox/Profiles"_s); }
    QStringList selected(const QString& folder) const { return ProfilesManager::selectedProfiles(defaults, folder); }

    TempHome home;
    UserDefaults defaults;
    ProfilesManager manager;
};

const QString kFirefoxFolder = u"Library/Application Support/Firefox/Profiles"_s;

} // namespace

TEST_F(ProfilesManagerTest, TheFirstStartSelectsEveryProfileAMenuItemTogglesOneAndLaterStartsPrune)
{
    makeProfile(kFirefoxFolder, u"ab12cd.default"_s);
    makeProfile(kFirefoxFolder, u"ef34gh.work"_s);
    home.write(kFirefoxFolder + u"/.DS_Store"_s, "finder");
    makeProfile(u"Library/Mozilla/Profiles"_s, u"default"_s);
    makeProfile(u"Library/Application Support/SeaMonkey/Profiles"_s, u"zz.default"_s);

    manager.populateProfilesMenu();

    EXPECT_TRUE(defaults.boolForKey(u"FirstRun"_s));
    EXPECT_EQ(selected(firefox()), (QStringList{u"ab12cd.default"_s, u"ef34gh.work"_s}));
    const ProfilesManager::Menu& menu = manager.menus()[ProfilesManager::Firefox];
    EXPECT_EQ(menu.folder, firefox());
    EXPECT_EQ(menu.titles, (QStringList{u"Firefox"_s, u"ab12cd.default"_s, u"ef34gh.work"_s}));
    ASSERT_EQ(menu.items.size(), 2); // the ordinary file is no profile
    EXPECT_EQ(menu.items[1].tag, 2);
    EXPECT_EQ(manager.menus()[ProfilesManager::Mozilla].titles.first(), u"Netscape/Mozilla/Seamonkey 1"_s);
    EXPECT_TRUE(manager.menus()[ProfilesManager::Thunderbird].titles.isEmpty());

    // A click toggles one profile of that application alone.
    manager.doProfileMenuItem(ProfilesManager::Firefox, 1);
    EXPECT_EQ(selected(firefox()), QStringList{u"ef34gh.work"_s});
    EXPECT_EQ(selected(home.file(u"Library/Application Support/SeaMonkey/Profiles"_s)), QStringList{u"zz.default"_s});

    // A later start forgets a profile gone and leaves a new one unselected.
    manager.doProfileMenuItem(ProfilesManager::Firefox, 1);
    QDir(home.file(kFirefoxFolder + u"/ef34gh.work"_s)).removeRecursively();
    makeProfile(kFirefoxFolder, u"ij56kl.new"_s);
    ProfilesManager restarted(defaults);
    restarted.populateProfilesMenu();
    EXPECT_EQ(selected(firefox()), QStringList{u"ab12cd.default"_s});
    const ProfilesManager::Menu& later = restarted.menus()[ProfilesManager::Firefox];
    ASSERT_EQ(later.items.size(), 2);
    EXPECT_TRUE(later.items[0].checked);
    EXPECT_FALSE(later.items[1].checked);
}

TEST_F(ProfilesManagerTest, AnOldSelectionIsConvertedOnceAndRemoved)
{
    makeProfile(kFirefoxFolder, u"ab12cd.default"_s);
    makeProfile(kFirefoxFolder, u"ef34gh.work"_s);
    makeProfile(u"Library/Thunderbird/Profiles"_s, u"ab12cd.default"_s);
    defaults.setObject(QStringList{u"ab12cd.default"_s, u"gone.profile"_s}, u"ProfilesMenu"_s);

    manager.populateProfilesMenu();

    EXPECT_FALSE(defaults.objectForKey(u"ProfilesMenu"_s).isValid());
    EXPECT_TRUE(defaults.boolForKey(u"FirstRun"_s));
    EXPECT_EQ(selected(firefox()), QStringList{u"ab12cd.default"_s});
    EXPECT_EQ(selected(home.file(u"Library/Thunderbird/Profiles"_s)), QStringList{u"ab12cd.default"_s});
}

TEST_F(ProfilesManagerTest, TodaysChromiumProfilesGetMenusOfTheirOwnSelectedAtTheFirstStart)
{
    home.write(u".config/google-chrome/Local State"_s,
               R"({"profile": {"info_cache": {"Default": {}, "Profile 1": {}}}})");
    makeProfile(u".config/google-chrome"_s, u"Default"_s);
    makeProfile(u".config/google-chrome"_s, u"Profile 1"_s);
    home.write(u".config/opera/Preferences"_s, "{}");

    manager.populateProfilesMenu();

    const QString chrome = home.file(u".config/google-chrome"_s);
    const ProfilesManager::Menu& menu = manager.menus()[ProfilesManager::Chrome];
    EXPECT_TRUE(menu.folder.isEmpty());
    EXPECT_EQ(menu.titles, (QStringList{ProfilesManager::displayName(ProfilesManager::Chrome), chrome + u"/Default"_s,
                                        chrome + u"/Profile 1"_s}));
    ASSERT_EQ(menu.items.size(), 2);
    EXPECT_EQ(menu.items[1].title, u"~/.config/google-chrome/Profile 1"_s);
    EXPECT_TRUE(manager.menus()[ProfilesManager::Vivaldi].titles.isEmpty());
    EXPECT_FALSE(defaults.dictionaryForKey(u"ProfilesMenuDict"_s).contains(QString()));

    // Which profiles the walk takes, CurrentChromiumTest shows; the choice outlives a restart.
    manager.doProfileMenuItem(ProfilesManager::Chrome, 1);
    ProfilesManager restarted(defaults);
    restarted.populateProfilesMenu();
    EXPECT_FALSE(restarted.menus()[ProfilesManager::Chrome].items[0].checked);
    EXPECT_TRUE(restarted.menus()[ProfilesManager::CurrentOpera].items[0].checked);
}

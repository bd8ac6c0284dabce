#include "settings/Preferences.h"

#include "core/PropertyList.h"
#include "settings/ApplicationList.h"
#include "settings/PreferenceKeys.h"
#include "settings/UserDefaults.h"
#include "support/FakeLoginItem.h"
#include "support/TempHome.h"

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

class PreferencesTest : public ::testing::Test {
protected:
    std::unique_ptr<Preferences> open()
    {
        defaults = std::make_unique<UserDefaults>(UserDefaults::defaultFilePath());
        return std::make_unique<Preferences>(*defaults, loginItem);
    }

    void writeSettingsFile(const QVariantMap& values)
    {
        home.write(u".config/com.orvick.vantle.plist"_s, PropertyList::toXml(values));
    }

    TempHome home;
    FakeLoginItem loginItem;
    std::unique_ptr<UserDefaults> defaults;
};

} // namespace

TEST_F(PreferencesTest, WrongTypesConvertAndMissingKeysFallBack)
{
    writeSettingsFile({{u"ShredCache"_s, u"NO"_s}, {u"NumberOfWrites"_s, u"12 passes"_s}});
    const QVariantMap values = open()->preferences();
    EXPECT_EQ(values.value(u"ShredCache"_s), false);
    EXPECT_EQ(values.value(u"NumberOfWrites"_s), qint64(12));
    EXPECT_EQ(values.value(u"ShredMailTrash"_s), true); // absent: factory value
    EXPECT_EQ(values.value(u"ShredCache"_s).typeId(), QMetaType::Bool);
    EXPECT_EQ(values.value(u"NumberOfWrites"_s).typeId(), QMetaType::LongLong);
}

TEST_F(PreferencesTest, StartUpPutsALoginItemForAnotherCopyBackInStep)
{
    writeSettingsFile({{u"HideAfterShredding"_s, true}});
    loginItem.current = u"/Volumes/Old/Vantle X.app"_s;
    open();
    EXPECT_EQ(loginItem.calls, (QStringList{u"remove"_s, u"create /Applications/Vantle X.app hidden"_s}));

    loginItem.calls.clear();
    open(); // now pointing at this copy: nothing to do
    EXPECT_TRUE(loginItem.calls.isEmpty());

    loginItem.current.clear();
    writeSettingsFile({{u"Tarnhold"_s, false}});
    open(); // the watch is off: the login item is left alone at start-up
    EXPECT_TRUE(loginItem.calls.isEmpty());
}

TEST_F(PreferencesTest, ThePanelKeepsTheLoginItemInStepWithTheWatch)
{
    loginItem.current = loginItem.running;
    auto preferences = open();
    auto change = [&](QLatin1StringView key, bool value) {
        QVariantMap values = preferences->displayedValues();
        values.insert(key, value);
        loginItem.calls.clear();
        preferences->miscChanged(panelStateFromValues(values));
        return loginItem.calls;
    };

    EXPECT_EQ(change(PreferenceKey::Tarnhold, false), QStringList{u"remove"_s});
    EXPECT_TRUE(loginItem.current.isEmpty());
    EXPECT_EQ(change(PreferenceKey::Tarnhold, false), QStringList());

    EXPECT_EQ(change(PreferenceKey::HideAfterShredding, true), QStringList{u"setHidden true"_s});
    EXPECT_EQ(change(PreferenceKey::Tarnhold, true), QStringList{u"create /Applications/Vantle X.app hidden"_s});
    EXPECT_EQ(change(PreferenceKey::HideAfterShredding, false), QStringList{u"setHidden false"_s});
    EXPECT_FALSE(loginItem.hidden);
    EXPECT_EQ(change(PreferenceKey::ShredCookies, true), QStringList());
}

TEST_F(PreferencesTest, AHandEditedApplicationListKeepsItsNamesAndOneOfAnotherTypeEnablesEveryApplication)
{
    writeSettingsFile({{u"EnabledBrowsers"_s, QVariantList{u"Mozilla"_s, qint64(3), u"Chrome"_s}}});
    EXPECT_EQ(open()->enabledBrowsers(), (QStringList{u"Mozilla"_s, u"Chrome"_s}));

    writeSettingsFile({{u"EnabledBrowsers"_s, u"Safari"_s}});
    EXPECT_EQ(open()->enabledBrowsers(), ApplicationList::allNames());
}

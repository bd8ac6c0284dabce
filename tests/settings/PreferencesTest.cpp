#include "settings/Preferences.h"

#include "core/PropertyList.h"
#include "settings/ApplicationList.h"
#include "settings/PreferenceKeys.h"
#include "settings/UserDefaults.h"
#include "support/FakeLoginItem.h"
#include "support/TempHome.h"

#include <QFile>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

class PreferencesTest : public ::testing::Test {
protected:
    // Keys stored in the settings file, as another process would read them.
    QStringList storedKeys() const
    {
        QFile file(UserDefaults::defaultFilePath());
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return PropertyList::parse(file.readAll()).value_or(QVariant()).toMap().keys();
    }

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

TEST_F(PreferencesTest, AFreshUserGetsTheFactoryTableAndSavingWritesNoKey)
{
    loginItem.current = loginItem.running;
    auto preferences = open();

    const QVariantMap values = preferences->preferences();
    ASSERT_EQ(values.size(), 19);
    for (const PreferenceDefinition& definition : kPreferenceTable)
        EXPECT_EQ(values.value(definition.key), factoryValue(definition)) << qPrintable(QString(definition.key));

    preferences->commitDisplayedValues();
    EXPECT_TRUE(storedKeys().isEmpty());
    EXPECT_TRUE(preferences->prefsConfirmShredding());
    EXPECT_FALSE(preferences->prefsDoDSanitize());
    EXPECT_FALSE(preferences->prefsNSA());
}

TEST_F(PreferencesTest, RevertToDefaultShowsFactoryValuesStoresThemWithTheNextCommitAndDiscardTakesThemBack)
{
    writeSettingsFile({{u"ShredCookies"_s, true}, {u"OverwritePattern"_s, qint64(4)}});
    auto preferences = open();
    QSignalSpy shown(preferences.get(), &Preferences::displayedValuesChanged);

    preferences->revertToDefault();
    EXPECT_EQ(preferences->preferences(), Preferences::factoryValues());
    EXPECT_EQ(preferences->displayedValues(), Preferences::factoryValues());
    EXPECT_EQ(shown.count(), 1);
    EXPECT_EQ(storedKeys().size(), 2); // nothing written yet

    preferences->commitDisplayedValues();
    EXPECT_TRUE(storedKeys().isEmpty());

    // Discarding puts the committed values back on the panel.
    QVariantMap values = preferences->displayedValues();
    values.insert(u"ShredCookies"_s, true);
    preferences->miscChanged(panelStateFromValues(values));
    preferences->revertToDefault();
    preferences->discardDisplayedValues();
    EXPECT_EQ(preferences->displayedValues(), Preferences::factoryValues());
}

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

TEST_F(PreferencesTest, EveryApplicationIsEnabledUntilAChangeAppliesTheCouplingsAndStoresTheList)
{
    auto preferences = open();
    for (const QString& name : ApplicationList::allNames())
        EXPECT_TRUE(preferences->browserIsEnabled(name)) << qPrintable(name);
    EXPECT_FALSE(preferences->browserIsEnabled(u"safari"_s)); // exact names only
    EXPECT_FALSE(storedKeys().contains(u"EnabledBrowsers"_s));

    // A change applies the couplings and stores the list.
    QSignalSpy changed(preferences.get(), &Preferences::enabledBrowsersChanged);
    preferences->enableChanged(u"Safari"_s);
    EXPECT_EQ(changed.count(), 1);
    preferences.reset();
    QStringList expected = ApplicationList::allNames();
    expected.removeAll(u"Safari"_s);
    expected.removeAll(u"Shiira"_s);
    EXPECT_EQ(open()->enabledBrowsers(), expected);
}

TEST_F(PreferencesTest, AHandEditedApplicationListKeepsItsNamesAndOneOfAnotherTypeEnablesEveryApplication)
{
    writeSettingsFile({{u"EnabledBrowsers"_s, QVariantList{u"Mozilla"_s, qint64(3), u"Chrome"_s}}});
    EXPECT_EQ(open()->enabledBrowsers(), (QStringList{u"Mozilla"_s, u"Chrome"_s}));

    writeSettingsFile({{u"EnabledBrowsers"_s, u"Safari"_s}});
    EXPECT_EQ(open()->enabledBrowsers(), ApplicationList::allNames());
}

TEST_F(PreferencesTest, TheSharedInstanceServesObjectForKey)
{
    writeSettingsFile({{u"ShredHistory"_s, true}});
    EXPECT_EQ(Preferences::objectForKey(u"ShredHistory"_s), true);
    EXPECT_EQ(Preferences::objectForKey(u"NumberOfWrites"_s), qint64(0));
    EXPECT_FALSE(Preferences::objectForKey(u"NoSuchKey"_s).isValid());
}

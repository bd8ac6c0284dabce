#include "settings/PluginManager.h"

#include "core/PropertyList.h"
#include "settings/UserDefaults.h"
#include "support/QtPrinters.h"
#include "support/TempHome.h"

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QVariantMap plugin(const QString& name, bool enabled, const QStringList& paths)
{
    return {{u"name"_s, name}, {u"enabled"_s, enabled}, {u"paths"_s, QVariantList(paths.cbegin(), paths.cend())}};
}

class PluginManagerTest : public ::testing::Test {
protected:
    std::unique_ptr<PluginManager> open()
    {
        defaults = std::make_unique<UserDefaults>(UserDefaults::defaultFilePath());
        return std::make_unique<PluginManager>(*defaults, defaultList);
    }

    QVariantList stored() const
    {
        return PropertyList::parse(home.read(u".config/com.orvick.vantle.plist"_s))
            .value_or(QVariant())
            .toMap()
            .value(u"mPluginArray"_s)
            .toList();
    }

    TempHome home;
    const QVariantList defaultList{
        plugin(u"Flash"_s, true, {u"~/Library/Flash/#SharedObjects"_s, u"/Library/Shared Flash"_s}),
        plugin(u"Java"_s, false, {u"~/Library/Caches/Java"_s})};
    std::unique_ptr<UserDefaults> defaults;
};

} // namespace

TEST_F(PluginManagerTest, FirstStartStoresTheDefaultListAtOnce)
{
    auto manager = open();
    EXPECT_EQ(stored(), defaultList);
    EXPECT_EQ(manager->plugins(), defaultList);

    // Enabled plug-ins only, "~" expanded, absolute paths as they are.
    EXPECT_EQ(manager->enabledPluginPaths(),
              (QStringList{home.file(u"Library/Flash/#SharedObjects"_s), u"/Library/Shared Flash"_s}));

    // Without a default list nothing is stored until the user changes something.
    TempHome other;
    UserDefaults otherDefaults(UserDefaults::defaultFilePath());
    PluginManager empty(otherDefaults, {});
    EXPECT_TRUE(empty.plugins().isEmpty());
    EXPECT_FALSE(otherDefaults.objectForKey(u"mPluginArray"_s).isValid());
}

TEST_F(PluginManagerTest, AUserPluginRenamedToADefaultCountsAsItAndRestoringLeavesTheFlagAlone)
{
    auto manager = open();
    manager->addPlugin();
    ASSERT_EQ(manager->plugins().size(), 3);
    EXPECT_EQ(manager->plugins().last().toMap().value(u"name"_s), u"New Plugin"_s);
    EXPECT_FALSE(manager->setName(0, u"Renamed"_s));
    EXPECT_FALSE(manager->deletePlugin(5));
    ASSERT_TRUE(manager->addPaths(0, {home.file(u"Library/Caches/Extra"_s)}));
    EXPECT_FALSE(manager->deletePath(0, 3));

    ASSERT_TRUE(manager->setName(2, u"Java"_s));
    EXPECT_FALSE(manager->setName(2, u"Other"_s));
    EXPECT_TRUE(manager->deletePlugin(2));
    EXPECT_EQ(manager->plugins().size(), 3); // disabled, not removed
    EXPECT_TRUE(manager->restoreDefault(2));
    const QVariantMap restored = manager->plugins()[2].toMap();
    EXPECT_EQ(restored.value(u"paths"_s).toList(), QVariantList{u"~/Library/Caches/Java"_s});
    EXPECT_EQ(restored.value(u"enabled"_s), false);
    manager->addPlugin();
    EXPECT_FALSE(manager->restoreDefault(3)); // not a default plug-in

    // Reopened: everything was written through.
    manager.reset();
    EXPECT_EQ(open()->plugins(), stored());
}

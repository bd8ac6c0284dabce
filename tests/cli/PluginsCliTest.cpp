#include "cli/CliFixture.h"

using namespace Qt::StringLiterals;

namespace {

class PluginsCliTest : public CliFixture {
protected:
    QVariantList plugins() const { return stored().value(u"mPluginArray"_s).toList(); }
    QVariantMap named(const QString& name) const
    {
        for (const QVariant& entry : plugins()) {
            if (entry.toMap().value(u"name"_s) == name)
                return entry.toMap();
        }
        return {};
    }
};

} // namespace

TEST_F(PluginsCliTest, ManagesDefaultAndOwnPlugins)
{
    const CliRun list = cli({u"plugins"_s, u"list"_s});
    ASSERT_EQ(list.exitCode, 0);
    EXPECT_TRUE(list.out.startsWith(u"Flash Player (enabled, default)\n"_s)) << qPrintable(list.out);
    const qsizetype defaults = plugins().size();
    ASSERT_GT(defaults, 0);

    EXPECT_EQ(cli({u"plugins"_s, u"add"_s, u"Editor cache"_s}).exitCode, 0);
    EXPECT_EQ(cli({u"plugins"_s, u"add"_s, u"Editor cache"_s}).exitCode, 2);
    EXPECT_EQ(cli({u"plugins"_s, u"add-path"_s, u"Editor cache"_s, home.file(u"Library/Caches/Editor"_s)}).exitCode, 0);
    EXPECT_EQ(named(u"Editor cache"_s).value(u"paths"_s).toList(), QVariantList{u"~/Library/Caches/Editor"_s});

    EXPECT_EQ(cli({u"plugins"_s, u"disable"_s, u"Java"_s}).exitCode, 0);
    EXPECT_EQ(named(u"Java"_s).value(u"enabled"_s), false);
    EXPECT_EQ(cli({u"plugins"_s, u"remove"_s, u"Flash Player"_s}).exitCode, 0);
    EXPECT_EQ(named(u"Flash Player"_s).value(u"enabled"_s), false);
    EXPECT_EQ(cli({u"plugins"_s, u"remove"_s, u"Editor cache"_s}).exitCode, 0);
    EXPECT_EQ(plugins().size(), defaults);

    EXPECT_EQ(cli({u"plugins"_s, u"add-path"_s, u"Java"_s, home.file(u"extra"_s)}).exitCode, 0);
    EXPECT_EQ(cli({u"plugins"_s, u"restore"_s, u"Java"_s}).exitCode, 0);
    EXPECT_EQ(named(u"Java"_s).value(u"paths"_s).toList(), QVariantList{u"~/Library/Caches/Java"_s});

    const CliRun unknown = cli({u"plugins"_s, u"enable"_s, u"No such"_s});
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_EQ(unknown.err.count(u'\n'), 2);
}

#include "cli/CliFixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

TEST_F(CliFixture, ProfilesAreListedSelectedAndDeselected)
{
    const QString firefox = u"Library/Application Support/Firefox/Profiles/"_s;
    QDir().mkpath(home.file(firefox + u"ab12cd.default"_s));
    QDir().mkpath(home.file(firefox + u"ef34gh.work"_s));

    CliRun list = cli({u"profiles"_s, u"list"_s});
    ASSERT_EQ(list.exitCode, 0) << qPrintable(list.err);
    EXPECT_TRUE(list.out.contains(u"Firefox (~/Library/Application Support/Firefox/Profiles)\n"
                                  u"    [x] ab12cd.default\n    [x] ef34gh.work\n"_s))
        << qPrintable(list.out);
    EXPECT_TRUE(list.out.contains(u"Thunderbird (~/Library/Thunderbird/Profiles)\n    no profiles\n"_s));

    EXPECT_EQ(cli({u"profiles"_s, u"deselect"_s, u"firefox"_s, u"work"_s}).exitCode, 0);
    EXPECT_EQ(cli({u"profiles"_s, u"deselect"_s, u"firefox"_s, u"work"_s}).exitCode, 0); // already so
    const QVariantMap selection = stored().value(u"ProfilesMenuDict"_s).toMap();
    EXPECT_EQ(selection.value(home.file(firefox.chopped(1))).toList(), QVariantList{u"ab12cd.default"_s});
    EXPECT_TRUE(cli({u"profiles"_s, u"list"_s}).out.contains(u"    [ ] ef34gh.work\n"_s));

    EXPECT_EQ(cli({u"profiles"_s, u"select"_s, u"Firefox"_s, u"ef34gh.work"_s}).exitCode, 0);
    EXPECT_TRUE(cli({u"profiles"_s, u"list"_s}).out.contains(u"    [x] ef34gh.work\n"_s));

    EXPECT_EQ(cli({u"profiles"_s, u"select"_s, u"firefox"_s, u"nope"_s}).exitCode, 2);
    EXPECT_EQ(cli({u"profiles"_s, u"select"_s, u"opera"_s, u"x"_s}).exitCode, 2);
}

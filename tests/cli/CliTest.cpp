#include "cli/CliFixture.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kSettings = u".config/com.orvick.vantle.plist"_s;
const QString kAutostart = u".config/autostart/com.orvick.vantle.desktop"_s;

class CliTest : public CliFixture {
protected:
    void expectRefused(const QStringList& arguments) const
    {
        const QByteArray before = home.read(kSettings);
        const CliRun run = cli(arguments);
        EXPECT_EQ(run.exitCode, 2) << qPrintable(arguments.join(u' '));
        EXPECT_EQ(run.err.count(u'\n'), 1) << qPrintable(run.err);
        EXPECT_TRUE(run.out.isEmpty());
        EXPECT_EQ(home.read(kSettings), before);
    }
};

} // namespace

TEST_F(CliTest, ListShowsEveryKeyWithItsValueAndWhetherItIsTheFactoryValue)
{
    CliRun run = cli({u"prefs"_s, u"list"_s});
    ASSERT_EQ(run.exitCode, 0) << qPrintable(run.err);
    QStringList lines = run.out.trimmed().split(u'\n');
    ASSERT_EQ(lines.size(), 19);
    EXPECT_EQ(lines[0].simplified(), u"ShredCache YES factory"_s);
    EXPECT_EQ(lines[12].simplified(), u"NumberOfWrites 0 factory"_s);
    EXPECT_EQ(lines[16].simplified(), u"shredSafariFavicon NO factory"_s);
    EXPECT_FALSE(run.out.contains(u"changed"_s));
    EXPECT_TRUE(stored().isEmpty());

    ASSERT_EQ(cli({u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"true"_s}).exitCode, 0);
    ASSERT_EQ(cli({u"prefs"_s, u"set"_s, u"NumberOfWrites"_s, u"16"_s}).exitCode, 0);
    lines = cli({u"prefs"_s, u"list"_s}).out.trimmed().split(u'\n');
    EXPECT_EQ(lines[3].simplified(), u"ShredHistory YES changed"_s);
    EXPECT_EQ(lines[12].simplified(), u"NumberOfWrites 16 changed"_s);
    EXPECT_EQ(cli({u"prefs"_s, u"get"_s, u"NumberOfWrites"_s}).out, u"16\n"_s);
}

TEST_F(CliTest, SetThenBackToFactoryAndResetLeaveNoKey)
{
    for (const QString& yes : {u"YES"_s, u"1"_s, u"true"_s}) {
        ASSERT_EQ(cli({u"prefs"_s, u"set"_s, u"ShredCookies"_s, yes}).exitCode, 0);
        EXPECT_EQ(stored().value(u"ShredCookies"_s), true);
        ASSERT_EQ(cli({u"prefs"_s, u"set"_s, u"ShredCookies"_s, u"no"_s}).exitCode, 0);
        EXPECT_FALSE(stored().contains(u"ShredCookies"_s));
    }

    cli({u"prefs"_s, u"set"_s, u"OverwritePattern"_s, u"6"_s});
    cli({u"prefs"_s, u"set"_s, u"ConfirmShredding"_s, u"NO"_s});
    cli({u"apps"_s, u"disable"_s, u"Opera"_s});
    EXPECT_EQ(stored().keys(), (QStringList{u"ConfirmShredding"_s, u"EnabledBrowsers"_s, u"OverwritePattern"_s}));
    ASSERT_EQ(cli({u"prefs"_s, u"reset"_s}).exitCode, 0);
    EXPECT_EQ(stored().keys(), QStringList{u"EnabledBrowsers"_s});  // the application list is not a setting
    EXPECT_EQ(cli({u"prefs"_s, u"get"_s, u"ConfirmShredding"_s}).out, u"YES\n"_s);
}

TEST_F(CliTest, BadKeysValuesAndNamesAreRefusedAndChangeNothing)
{
    cli({u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"YES"_s});
    expectRefused({u"prefs"_s, u"set"_s, u"NoSuchKey"_s, u"YES"_s});
    expectRefused({u"prefs"_s, u"set"_s, u"shredhistory"_s, u"NO"_s});
    expectRefused({u"prefs"_s, u"get"_s, u"NoSuchKey"_s});
    expectRefused({u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"maybe"_s});
    expectRefused({u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"2"_s});
    expectRefused({u"prefs"_s, u"set"_s, u"NumberOfWrites"_s, u"YES"_s});
    expectRefused({u"prefs"_s, u"set"_s, u"NumberOfWrites"_s, u"1"_s});  // the menu's separator
    expectRefused({u"prefs"_s, u"set"_s, u"NumberOfWrites"_s, u"17"_s});
    expectRefused({u"prefs"_s, u"set"_s, u"NumberOfWrites"_s, u"-1"_s});
    expectRefused({u"prefs"_s, u"set"_s, u"OverwritePattern"_s, u"1"_s});
    expectRefused({u"prefs"_s, u"set"_s, u"OverwritePattern"_s, u"7"_s});
    expectRefused({u"apps"_s, u"enable"_s, u"Netscape Navigator"_s});
    EXPECT_EQ(stored().value(u"ShredHistory"_s), true);

    EXPECT_EQ(cli({u"prefs"_s, u"set"_s, u"NumberOfWrites"_s, u"2"_s}).exitCode, 0);
    EXPECT_EQ(cli({u"prefs"_s, u"set"_s, u"OverwritePattern"_s, u"0"_s}).exitCode, 0);
    EXPECT_EQ(cli({u"frobnicate"_s}).exitCode, 2);
    EXPECT_EQ(cli({u"prefs"_s}).exitCode, 2);

    EXPECT_EQ(run({u"--home"_s, home.file(u"absent"_s), u"prefs"_s, u"list"_s}).exitCode, 2);
    EXPECT_FALSE(QFileInfo::exists(home.file(u"absent"_s)));
}

TEST_F(CliTest, AppsFollowTheCouplingsAndAreIdempotent)
{
    CliRun run = cli({u"apps"_s, u"list"_s});
    QStringList lines = run.out.trimmed().split(u'\n');
    ASSERT_EQ(lines.size(), 17);
    EXPECT_EQ(lines.first().simplified(), u"Safari enabled"_s);
    EXPECT_EQ(lines.last().simplified(), u"Shiira enabled"_s);

    EXPECT_EQ(cli({u"apps"_s, u"enable"_s, u"Chrome"_s}).out, QString());  // already enabled: nothing written
    EXPECT_FALSE(stored().contains(u"EnabledBrowsers"_s));

    EXPECT_EQ(cli({u"apps"_s, u"disable"_s, u"shiira"_s}).out, u"Disabled: Safari, Shiira\n"_s);
    lines = cli({u"apps"_s, u"list"_s}).out.trimmed().split(u'\n');
    EXPECT_EQ(lines.first().simplified(), u"Safari disabled"_s);
    EXPECT_EQ(lines.last().simplified(), u"Shiira disabled"_s);

    const QByteArray before = home.read(kSettings);
    EXPECT_EQ(cli({u"apps"_s, u"disable"_s, u"Safari"_s}).exitCode, 0);
    EXPECT_EQ(home.read(kSettings), before);

    EXPECT_EQ(cli({u"apps"_s, u"enable"_s, u"SeaMonkey 2"_s}).exitCode, 0);
    EXPECT_EQ(cli({u"apps"_s, u"disable"_s, u"Netscape"_s}).out, u"Disabled: Mozilla, Netscape\n"_s);
    EXPECT_EQ(stored().value(u"EnabledBrowsers"_s).toList().size(), 13);
}

TEST_F(CliTest, TheLoginItemFollowsTheWatchSettingAndHomeStaysInsideTheGivenFolder)
{
    TempHome otherHome;  // HOME of the child process; --home must win over it
    cli({u"prefs"_s, u"list"_s});
    EXPECT_TRUE(QFileInfo::exists(home.file(kAutostart)));
    EXPECT_TRUE(QDir(otherHome.path()).isEmpty());

    cli({u"prefs"_s, u"set"_s, u"Tarnhold"_s, u"NO"_s});
    EXPECT_FALSE(QFileInfo::exists(home.file(kAutostart)));
    cli({u"prefs"_s, u"list"_s});
    EXPECT_FALSE(QFileInfo::exists(home.file(kAutostart)));

    cli({u"prefs"_s, u"set"_s, u"Tarnhold"_s, u"YES"_s});
    const QString entry = QString::fromUtf8(home.read(kAutostart));
    EXPECT_TRUE(entry.contains(u"\nExec="_s + QFileInfo(QStringLiteral(VANTLE_CLI_PATH)).absolutePath()));
    EXPECT_TRUE(QDir(otherHome.path()).isEmpty());
}

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
        EXPECT_TRUE(run.err.startsWith(u"vantle-cli: "_s)) << qPrintable(run.err);
        EXPECT_TRUE(run.err.endsWith(u"\nTry 'vantle-cli --help'.\n"_s)) << qPrintable(run.err);
        EXPECT_EQ(run.err.count(u'\n'), 2) << qPrintable(run.err);
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
    EXPECT_EQ(stored().keys(), QStringList{u"EnabledBrowsers"_s}); // the application list is not a setting
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
    expectRefused({u"prefs"_s, u"set"_s, u"NumberOfWrites"_s, u"1"_s}); // the menu's separator
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

    EXPECT_EQ(cli({u"apps"_s, u"enable"_s, u"Chrome"_s}).out, QString()); // already enabled: nothing written
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

TEST_F(CliTest, NoCommandCreatesALoginItemAndHomeStaysInsideTheGivenFolder)
{
    TempHome otherHome; // HOME of the child process; --home must win over it
    ASSERT_EQ(cli({u"prefs"_s, u"list"_s}).exitCode, 0);
    cli({u"prefs"_s, u"set"_s, u"Tarnhold"_s, u"NO"_s});
    cli({u"prefs"_s, u"set"_s, u"Tarnhold"_s, u"YES"_s});
    cli({u"shred"_s, u"--yes"_s, u"--quiet"_s});
    EXPECT_FALSE(QFileInfo::exists(home.file(kAutostart)));
    EXPECT_TRUE(QFileInfo::exists(home.file(kSettings)));
    EXPECT_TRUE(QDir(otherHome.path()).isEmpty());

    // An entry a desktop application left stays as it is.
    home.write(kAutostart, "[Desktop Entry]\nExec=/usr/bin/vantle\n");
    cli({u"prefs"_s, u"set"_s, u"Tarnhold"_s, u"NO"_s});
    EXPECT_EQ(home.read(kAutostart), "[Desktop Entry]\nExec=/usr/bin/vantle\n");
}

TEST_F(CliTest, CommandLineConventions)
{
    const CliRun version = run({u"--version"_s});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.out, u"vantle-cli "_s + QStringLiteral(VANTLE_TEST_VERSION) + u'\n');

    for (const QStringList& arguments : {QStringList{u"--help"_s}, QStringList{u"help"_s}}) {
        const CliRun help = run(arguments);
        EXPECT_EQ(help.exitCode, 0);
        for (const QString& part : {u"Usage: vantle-cli"_s, u"\nExamples:\n"_s, u"\nExit status:\n"_s, u"\nFiles:\n"_s,
                                    u"cannot be undone"_s, u"  shred "_s, u"  --home DIR"_s})
            EXPECT_TRUE(help.out.contains(part)) << qPrintable(part);
    }
    EXPECT_TRUE(run({u"prefs"_s, u"--help"_s}).out.contains(u"  reset "_s));

    const CliRun typo = run({u"shrd"_s});
    EXPECT_EQ(typo.exitCode, 2);
    EXPECT_EQ(typo.err, u"vantle-cli: unknown command 'shrd'; did you mean 'shred'?\nTry 'vantle-cli --help'.\n"_s);
    EXPECT_EQ(run({u"prefs"_s, u"lsit"_s}).err.section(u'\n', 0, 0),
              u"vantle-cli: unknown command 'lsit'; did you mean 'list'?"_s);
    EXPECT_EQ(run({u"xyzzy"_s}).err.section(u'\n', 0, 0), u"vantle-cli: unknown command 'xyzzy'"_s);
    const CliRun missing = run({});
    EXPECT_EQ(missing.exitCode, 2);
    EXPECT_TRUE(missing.err.startsWith(u"vantle-cli: "_s));
    EXPECT_TRUE(missing.err.endsWith(u"Try 'vantle-cli --help'.\n"_s));
    EXPECT_EQ(run({u"shred"_s, u"--frobnicate"_s}).exitCode, 2);

    // --home after the command, at either level.
    ASSERT_EQ(run({u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"YES"_s, u"--home"_s, home.path()}).exitCode, 0);
    EXPECT_EQ(stored().value(u"ShredHistory"_s), true);
    EXPECT_EQ(run({u"prefs"_s, u"--home"_s, home.path(), u"get"_s, u"ShredHistory"_s}).out, u"YES\n"_s);
}

TEST_F(CliTest, GermanTextsComeFromTheCatalogueWhileKeysAndTheLogStayEnglish)
{
    qputenv("LC_ALL", "de_DE.UTF-8");
    EXPECT_TRUE(run({u"--help"_s}).out.contains(u"\nBeispiele:\n"_s));
    EXPECT_EQ(run({u"shrd"_s}).err,
              u"vantle-cli: unbekannter Befehl 'shrd'; meinten Sie 'shred'?\nMehr dazu mit 'vantle-cli --help'.\n"_s);
    EXPECT_EQ(cli({u"prefs"_s, u"list"_s}).out.section(u'\n', 0, 0).simplified(), u"ShredCache YES Werkseinstellung"_s);

    // The plan's and the result's words are the front ends'; the JSON keeps its keys.
    const CliRun plan = cli({u"shred"_s, u"--dry-run"_s});
    EXPECT_TRUE(plan.out.contains(u"Würde 0 Einträge löschen (0 Dateien, 0 Bytes)"_s)) << qPrintable(plan.out);
    EXPECT_TRUE(cli({u"shred"_s, u"--dry-run"_s, u"--json"_s}).out.contains(u"\"passed_over\""_s));

    ASSERT_EQ(cli({u"prefs"_s, u"set"_s, u"ActivityLog"_s, u"YES"_s}).exitCode, 0);
    const CliRun shred = cli({u"shred"_s, u"--yes"_s, u"--quiet"_s});
    ASSERT_EQ(shred.exitCode, 0);
    EXPECT_TRUE(shred.out.contains(u"\nDauer: "_s)) << qPrintable(shred.out);
    const QString log = QString::fromUtf8(home.read(u"Library/Logs/Vantle X Log.txt"_s));
    EXPECT_TRUE(log.contains(u"User selected YES in Confirm dialog"_s)) << qPrintable(log.left(300));
    EXPECT_TRUE(stored().contains(u"ActivityLog"_s));
}

#ifdef VANTLE_GUI_PATH
TEST_F(CliTest, TheDesktopApplicationAnswersHelpAndVersionWithoutADisplay)
{
    qunsetenv("DISPLAY");
    qunsetenv("WAYLAND_DISPLAY");
    qunsetenv("QT_QPA_PLATFORM");
    const auto gui = [](const QStringList& arguments) {
        const ProcessResult result = ChildProcess::run(QStringLiteral(VANTLE_GUI_PATH), arguments);
        return CliRun{result.exitCode, QString::fromUtf8(result.standardOutput),
                      QString::fromUtf8(result.standardError)};
    };
    const CliRun version = gui({u"--version"_s});
    EXPECT_EQ(version.exitCode, 0) << qPrintable(version.err);
    EXPECT_EQ(version.out, u"vantle "_s + QStringLiteral(VANTLE_TEST_VERSION) + u'\n');
    const CliRun help = gui({u"--help"_s});
    EXPECT_EQ(help.exitCode, 0) << qPrintable(help.err);
    for (const QString& part :
         {u"--hidden"_s, u"\nExamples:\n"_s, u"\nExit status:\n"_s, u"\nFiles:\n"_s, u"cannot be undone"_s})
        EXPECT_TRUE(help.out.contains(part)) << qPrintable(part);
    const CliRun wrong = gui({u"--frobnicate"_s});
    EXPECT_EQ(wrong.exitCode, 2);
    EXPECT_TRUE(wrong.err.startsWith(u"vantle: "_s)) << qPrintable(wrong.err);
    EXPECT_TRUE(wrong.err.endsWith(u"\nTry 'vantle --help'.\n"_s)) << qPrintable(wrong.err);
}
#endif

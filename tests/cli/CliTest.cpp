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

    QVariantList plugins() const { return stored().value(u"mPluginArray"_s).toList(); }
    QVariantMap plugin(const QString& name) const
    {
        for (const QVariant& entry : plugins()) {
            if (entry.toMap().value(u"name"_s) == name)
                return entry.toMap();
        }
        return {};
    }
};

} // namespace

TEST_F(CliTest, ListShowsEachKeyAndWhetherItIsTheFactoryValueWhichLeavesNoKeyStored)
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

    configure(
        {{u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"true"_s}, {u"prefs"_s, u"set"_s, u"NumberOfWrites"_s, u"16"_s}});
    lines = cli({u"prefs"_s, u"list"_s}).out.trimmed().split(u'\n');
    EXPECT_EQ(lines[3].simplified(), u"ShredHistory YES changed"_s);
    EXPECT_EQ(lines[12].simplified(), u"NumberOfWrites 16 changed"_s);
    EXPECT_EQ(cli({u"prefs"_s, u"get"_s, u"NumberOfWrites"_s}).out, u"16\n"_s);

    // Back to the factory value, and a reset, leave no key.
    for (const QString& yes : {u"YES"_s, u"1"_s, u"true"_s}) {
        ASSERT_EQ(cli({u"prefs"_s, u"set"_s, u"ShredCookies"_s, yes}).exitCode, 0);
        EXPECT_EQ(stored().value(u"ShredCookies"_s), true);
        ASSERT_EQ(cli({u"prefs"_s, u"set"_s, u"ShredCookies"_s, u"no"_s}).exitCode, 0);
        EXPECT_FALSE(stored().contains(u"ShredCookies"_s));
    }

    configure({{u"prefs"_s, u"set"_s, u"OverwritePattern"_s, u"6"_s},
               {u"prefs"_s, u"set"_s, u"ConfirmShredding"_s, u"NO"_s},
               {u"apps"_s, u"disable"_s, u"Opera"_s}});
    EXPECT_EQ(stored().keys(), (QStringList{u"ConfirmShredding"_s, u"EnabledBrowsers"_s, u"NumberOfWrites"_s,
                                            u"OverwritePattern"_s, u"ShredHistory"_s}));
    ASSERT_EQ(cli({u"prefs"_s, u"reset"_s}).exitCode, 0);
    EXPECT_EQ(stored().keys(), QStringList{u"EnabledBrowsers"_s}); // the application list is not a setting
    EXPECT_EQ(cli({u"prefs"_s, u"get"_s, u"ConfirmShredding"_s}).out, u"YES\n"_s);
}

TEST_F(CliTest, BadKeysValuesAndNamesAreRefusedAndChangeNothing)
{
    configure({{u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"YES"_s}});
    const QString set = u"set"_s;
    for (const QStringList& arguments : QList<QStringList>{{set, u"NoSuchKey"_s, u"YES"_s},
                                                           {set, u"shredhistory"_s, u"NO"_s},
                                                           {u"get"_s, u"NoSuchKey"_s},
                                                           {set, u"ShredHistory"_s, u"maybe"_s},
                                                           {set, u"ShredHistory"_s, u"2"_s},
                                                           {set, u"NumberOfWrites"_s, u"YES"_s},
                                                           {set, u"NumberOfWrites"_s, u"1"_s}, // the menu's separator
                                                           {set, u"NumberOfWrites"_s, u"17"_s},
                                                           {set, u"NumberOfWrites"_s, u"-1"_s},
                                                           {set, u"OverwritePattern"_s, u"1"_s},
                                                           {set, u"OverwritePattern"_s, u"7"_s},
                                                           {}})
        expectRefused(QStringList{u"prefs"_s} + arguments);
    expectRefused({u"apps"_s, u"enable"_s, u"Netscape Navigator"_s});
    expectRefused({u"frobnicate"_s});
    EXPECT_EQ(stored().value(u"ShredHistory"_s), true);
    configure(
        {{u"prefs"_s, u"set"_s, u"NumberOfWrites"_s, u"2"_s}, {u"prefs"_s, u"set"_s, u"OverwritePattern"_s, u"0"_s}});

    EXPECT_EQ(run({u"--home"_s, home.file(u"absent"_s), u"prefs"_s, u"list"_s}).exitCode, 2);
    EXPECT_FALSE(QFileInfo::exists(home.file(u"absent"_s)));
}

TEST_F(CliTest, AppsFollowTheCouplingsAndAreIdempotent)
{
    CliRun run = cli({u"apps"_s, u"list"_s});
    QStringList lines = run.out.trimmed().split(u'\n');
    // The first 17 in their old order, then today's Chromium-based browsers.
    ASSERT_EQ(lines.size(), 21);
    EXPECT_EQ(lines.first().simplified(), u"Safari enabled"_s);
    EXPECT_EQ(lines[16].simplified(), u"Shiira enabled"_s);
    EXPECT_EQ(lines.last(), u"Opera (current versions) enabled"_s);

    EXPECT_EQ(cli({u"apps"_s, u"enable"_s, u"Chrome"_s}).out, QString()); // already enabled: nothing written
    EXPECT_FALSE(stored().contains(u"EnabledBrowsers"_s));

    EXPECT_EQ(cli({u"apps"_s, u"disable"_s, u"shiira"_s}).out, u"Disabled: Safari, Shiira\n"_s);
    lines = cli({u"apps"_s, u"list"_s}).out.trimmed().split(u'\n');
    EXPECT_EQ(lines.first().simplified(), u"Safari disabled"_s);
    EXPECT_EQ(lines[16].simplified(), u"Shiira disabled"_s);

    const QByteArray before = home.read(kSettings);
    EXPECT_EQ(cli({u"apps"_s, u"disable"_s, u"Safari"_s}).exitCode, 0);
    EXPECT_EQ(home.read(kSettings), before);

    EXPECT_EQ(cli({u"apps"_s, u"enable"_s, u"SeaMonkey 2"_s}).exitCode, 0);
    EXPECT_EQ(cli({u"apps"_s, u"disable"_s, u"Netscape"_s}).out, u"Disabled: Mozilla, Netscape\n"_s);
    EXPECT_EQ(stored().value(u"EnabledBrowsers"_s).toList().size(), 17);
}

TEST_F(CliTest, NoCommandCreatesALoginItemAndHomeStaysInsideTheGivenFolder)
{
    TempHome otherHome; // HOME of the child process; --home must win over it
    configure({{u"prefs"_s, u"list"_s},
               {u"prefs"_s, u"set"_s, u"Tarnhold"_s, u"NO"_s},
               {u"prefs"_s, u"set"_s, u"Tarnhold"_s, u"YES"_s},
               {u"shred"_s, u"--yes"_s, u"--quiet"_s}});
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
    expectRefused({});
    expectRefused({u"shred"_s, u"--frobnicate"_s});

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

    configure({{u"prefs"_s, u"set"_s, u"ActivityLog"_s, u"YES"_s}});
    const CliRun shred = cli({u"shred"_s, u"--yes"_s, u"--quiet"_s});
    qunsetenv("LC_ALL");
    EXPECT_EQ(shred.exitCode, 0);
    EXPECT_TRUE(shred.out.contains(u"\nDauer: "_s)) << qPrintable(shred.out);
    const QString log = QString::fromUtf8(home.read(u"Library/Logs/Vantle X Log.txt"_s));
    EXPECT_TRUE(log.contains(u"User selected YES in Confirm dialog"_s)) << qPrintable(log.left(300));
    EXPECT_TRUE(stored().contains(u"ActivityLog"_s));
}

TEST_F(CliTest, KeptDomainsAreAddedListedAndRemovedAndTheSwitchSetsErasing)
{
    CliRun list = cli({u"keep"_s, u"list"_s});
    ASSERT_EQ(list.exitCode, 0) << qPrintable(list.err);
    EXPECT_EQ(list.out, u"HTML5 storage erasing: off\n"_s);

    configure({{u"keep"_s, u"add"_s, u"apple.com"_s}, {u"keep"_s, u"add"_s, u"example.org"_s}});
    EXPECT_EQ(stored().value(u"mDomainTableData"_s), (QVariantList{u"apple.com"_s, u"example.org"_s}));
    expectRefused({u"keep"_s, u"add"_s, u"apple.com"_s});
    expectRefused({u"keep"_s, u"add"_s, QString()});
    expectRefused({u"keep"_s, u"add"_s, u"  "_s});
    expectRefused({u"keep"_s, u"remove"_s, u"apple"_s}); // only the entry itself, not a part of it
    expectRefused({u"keep"_s});
    EXPECT_EQ(cli({u"keep"_s, u"list"_s}).out, u"HTML5 storage erasing: off\n    apple.com\n    example.org\n"_s);
    configure({{u"keep"_s, u"remove"_s, u"apple.com"_s}});
    EXPECT_EQ(stored().value(u"mDomainTableData"_s), QVariantList{u"example.org"_s});

    // Switching to the state it is in keeps it.
    configure({{u"keep"_s, u"on"_s}, {u"keep"_s, u"on"_s}});
    EXPECT_EQ(stored().value(u"mHTML5EnabledState"_s), QVariant(qint64(1)));
    EXPECT_EQ(cli({u"keep"_s, u"list"_s}).out, u"HTML5 storage erasing: on\n    example.org\n"_s);
    configure({{u"keep"_s, u"off"_s}, {u"keep"_s, u"off"_s}});
    EXPECT_EQ(stored().value(u"mHTML5EnabledState"_s), QVariant(qint64(0)));
}

TEST_F(CliTest, PluginsOfOurOwnAreRemovedAndDefaultOnesDisabledAndRestored)
{
    const CliRun list = cli({u"plugins"_s, u"list"_s});
    ASSERT_EQ(list.exitCode, 0);
    EXPECT_TRUE(list.out.startsWith(u"Flash Player (enabled, default)\n"_s)) << qPrintable(list.out);
    const qsizetype defaults = plugins().size();
    ASSERT_GT(defaults, 0);

    configure({{u"plugins"_s, u"add"_s, u"Editor cache"_s},
               {u"plugins"_s, u"add-path"_s, u"Editor cache"_s, home.file(u"Library/Caches/Editor"_s)}});
    expectRefused({u"plugins"_s, u"add"_s, u"Editor cache"_s});
    expectRefused({u"plugins"_s, u"enable"_s, u"No such"_s});
    EXPECT_EQ(plugin(u"Editor cache"_s).value(u"paths"_s).toList(), QVariantList{u"~/Library/Caches/Editor"_s});

    configure({{u"plugins"_s, u"disable"_s, u"Java"_s}, {u"plugins"_s, u"remove"_s, u"Flash Player"_s}});
    EXPECT_EQ(plugin(u"Java"_s).value(u"enabled"_s), false);
    EXPECT_EQ(plugin(u"Flash Player"_s).value(u"enabled"_s), false);
    configure({{u"plugins"_s, u"remove"_s, u"Editor cache"_s}});
    EXPECT_EQ(plugins().size(), defaults);

    configure(
        {{u"plugins"_s, u"add-path"_s, u"Java"_s, home.file(u"extra"_s)}, {u"plugins"_s, u"restore"_s, u"Java"_s}});
    EXPECT_EQ(plugin(u"Java"_s).value(u"paths"_s).toList(), QVariantList{u"~/Library/Caches/Java"_s});
}

TEST_F(CliTest, ProfilesAreListedSelectedAndDeselected)
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

    // Deselecting twice keeps it deselected.
    configure({{u"profiles"_s, u"deselect"_s, u"firefox"_s, u"work"_s},
               {u"profiles"_s, u"deselect"_s, u"firefox"_s, u"work"_s}});
    const QVariantMap selection = stored().value(u"ProfilesMenuDict"_s).toMap();
    EXPECT_EQ(selection.value(home.file(firefox.chopped(1))).toList(), QVariantList{u"ab12cd.default"_s});
    EXPECT_TRUE(cli({u"profiles"_s, u"list"_s}).out.contains(u"    [ ] ef34gh.work\n"_s));

    configure({{u"profiles"_s, u"select"_s, u"Firefox"_s, u"ef34gh.work"_s}});
    EXPECT_TRUE(cli({u"profiles"_s, u"list"_s}).out.contains(u"    [x] ef34gh.work\n"_s));
    expectRefused({u"profiles"_s, u"select"_s, u"firefox"_s, u"nope"_s});
    expectRefused({u"profiles"_s, u"select"_s, u"opera"_s, u"x"_s});
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

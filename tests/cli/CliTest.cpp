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
    // Each command is refused with a usage error and changes nothing.
    void expectRefused(const QList<QStringList>& commands) const
    {
        for (const QStringList& arguments : commands) {
            const QByteArray before = home.read(kSettings);
            const CliRun run = cli(arguments);
            EXPECT_EQ(run.exitCode, 2) << qPrintable(arguments.join(u' '));
            EXPECT_TRUE(run.err.startsWith(u"vantle-cli: "_s)) << qPrintable(run.err);
            EXPECT_TRUE(run.err.endsWith(u"\nTry 'vantle-cli --help'.\n"_s)) << qPrintable(run.err);
            EXPECT_EQ(run.err.count(u'\n'), 2) << qPrintable(run.err);
            EXPECT_TRUE(run.out.isEmpty());
            EXPECT_EQ(home.read(kSettings), before);
        }
    }

    // A command line's arguments, split at each space ("keep add " ends in an empty one).
    static QStringList words(const QString& line) { return line.split(u' '); }

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
    CliRun run = cli(words(u"prefs list"_s));
    ASSERT_EQ(run.exitCode, 0) << qPrintable(run.err);
    QStringList lines = run.out.trimmed().split(u'\n');
    ASSERT_EQ(lines.size(), 19);
    EXPECT_EQ(lines[0].simplified(), u"ShredCache YES factory"_s);
    EXPECT_EQ(lines[12].simplified(), u"NumberOfWrites 0 factory"_s);
    EXPECT_EQ(lines[16].simplified(), u"shredSafariFavicon NO factory"_s);
    EXPECT_FALSE(run.out.contains(u"changed"_s));
    EXPECT_TRUE(stored().isEmpty());

    configure({words(u"prefs set ShredHistory true"_s), words(u"prefs set NumberOfWrites 16"_s)});
    lines = cli(words(u"prefs list"_s)).out.trimmed().split(u'\n');
    EXPECT_EQ(lines[3].simplified(), u"ShredHistory YES changed"_s);
    EXPECT_EQ(lines[12].simplified(), u"NumberOfWrites 16 changed"_s);
    EXPECT_EQ(cli(words(u"prefs get NumberOfWrites"_s)).out, u"16\n"_s);

    // Back to the factory value, and a reset, leave no key.
    for (const QString& yes : {u"YES"_s, u"1"_s, u"true"_s}) {
        ASSERT_EQ(cli(words(u"prefs set ShredCookies "_s + yes)).exitCode, 0);
        EXPECT_EQ(stored().value(u"ShredCookies"_s), true);
        ASSERT_EQ(cli(words(u"prefs set ShredCookies no"_s)).exitCode, 0);
        EXPECT_FALSE(stored().contains(u"ShredCookies"_s));
    }

    configure({words(u"prefs set OverwritePattern 6"_s), words(u"prefs set ConfirmShredding NO"_s),
               words(u"apps disable Opera"_s)});
    EXPECT_EQ(stored().keys(), (QStringList{u"ConfirmShredding"_s, u"EnabledBrowsers"_s, u"NumberOfWrites"_s,
                                            u"OverwritePattern"_s, u"ShredHistory"_s}));
    ASSERT_EQ(cli(words(u"prefs reset"_s)).exitCode, 0);
    EXPECT_EQ(stored().keys(), QStringList{u"EnabledBrowsers"_s}); // the application list is not a setting
    EXPECT_EQ(cli(words(u"prefs get ConfirmShredding"_s)).out, u"YES\n"_s);
}

TEST_F(CliTest, BadKeysValuesAndNamesAreRefusedAndChangeNothing)
{
    configure({words(u"prefs set ShredHistory YES"_s)});
    // NumberOfWrites 1 is the menu's separator.
    expectRefused({words(u"prefs set NoSuchKey YES"_s), words(u"prefs set shredhistory NO"_s),
                   words(u"prefs get NoSuchKey"_s), words(u"prefs set ShredHistory maybe"_s),
                   words(u"prefs set ShredHistory 2"_s), words(u"prefs set NumberOfWrites YES"_s),
                   words(u"prefs set NumberOfWrites 1"_s), words(u"prefs set NumberOfWrites 17"_s),
                   words(u"prefs set NumberOfWrites -1"_s), words(u"prefs set OverwritePattern 1"_s),
                   words(u"prefs set OverwritePattern 7"_s), QStringList{u"prefs"_s},
                   QStringList{u"apps"_s, u"enable"_s, u"Netscape Navigator"_s}, QStringList{u"frobnicate"_s}});
    EXPECT_EQ(stored().value(u"ShredHistory"_s), true);
    configure({words(u"prefs set NumberOfWrites 2"_s), words(u"prefs set OverwritePattern 0"_s)});

    EXPECT_EQ(run({u"--home"_s, home.file(u"absent"_s), u"prefs"_s, u"list"_s}).exitCode, 2);
    EXPECT_FALSE(QFileInfo::exists(home.file(u"absent"_s)));
}

TEST_F(CliTest, AppsFollowTheCouplingsAndAreIdempotent)
{
    CliRun run = cli(words(u"apps list"_s));
    QStringList lines = run.out.trimmed().split(u'\n');
    // The first 17 in their old order, then today's Chromium-based browsers.
    ASSERT_EQ(lines.size(), 21);
    EXPECT_EQ(lines.first().simplified(), u"Safari enabled"_s);
    EXPECT_EQ(lines[16].simplified(), u"Shiira enabled"_s);
    EXPECT_EQ(lines.last(), u"Opera (current versions) enabled"_s);

    EXPECT_EQ(cli(words(u"apps enable Chrome"_s)).out, QString()); // already enabled: nothing written
    EXPECT_FALSE(stored().contains(u"EnabledBrowsers"_s));

    EXPECT_EQ(cli(words(u"apps disable shiira"_s)).out, u"Disabled: Safari, Shiira\n"_s);
    lines = cli(words(u"apps list"_s)).out.trimmed().split(u'\n');
    EXPECT_EQ(lines.first().simplified(), u"Safari disabled"_s);
    EXPECT_EQ(lines[16].simplified(), u"Shiira disabled"_s);

    const QByteArray before = home.read(kSettings);
    EXPECT_EQ(cli(words(u"apps disable Safari"_s)).exitCode, 0);
    EXPECT_EQ(home.read(kSettings), before);

    EXPECT_EQ(cli({u"apps"_s, u"enable"_s, u"SeaMonkey 2"_s}).exitCode, 0);
    EXPECT_EQ(cli(words(u"apps disable Netscape"_s)).out, u"Disabled: Mozilla, Netscape\n"_s);
    EXPECT_EQ(stored().value(u"EnabledBrowsers"_s).toList().size(), 17);
}

TEST_F(CliTest, NoCommandCreatesALoginItemAndHomeStaysInsideTheGivenFolder)
{
    TempHome otherHome; // HOME of the child process; --home must win over it
    configure({words(u"prefs list"_s), words(u"prefs set Tarnhold NO"_s), words(u"prefs set Tarnhold YES"_s),
               words(u"shred --yes --quiet"_s)});
    EXPECT_FALSE(QFileInfo::exists(home.file(kAutostart)));
    EXPECT_TRUE(QFileInfo::exists(home.file(kSettings)));
    EXPECT_TRUE(QDir(otherHome.path()).isEmpty());

    // An entry a desktop application left stays as it is.
    home.write(kAutostart, "[Desktop Entry]\nExec=/usr/bin/vantle\n");
    cli(words(u"prefs set Tarnhold NO"_s));
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
    EXPECT_TRUE(run(words(u"prefs --help"_s)).out.contains(u"  reset "_s));

    const CliRun typo = run({u"shrd"_s});
    EXPECT_EQ(typo.exitCode, 2);
    EXPECT_EQ(typo.err, u"vantle-cli: unknown command 'shrd'; did you mean 'shred'?\nTry 'vantle-cli --help'.\n"_s);
    EXPECT_EQ(run(words(u"prefs lsit"_s)).err.section(u'\n', 0, 0),
              u"vantle-cli: unknown command 'lsit'; did you mean 'list'?"_s);
    EXPECT_EQ(run({u"xyzzy"_s}).err.section(u'\n', 0, 0), u"vantle-cli: unknown command 'xyzzy'"_s);
    expectRefused({QStringList(), words(u"shred --frobnicate"_s)});

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
    EXPECT_EQ(cli(words(u"prefs list"_s)).out.section(u'\n', 0, 0).simplified(), u"ShredCache YES Werkseinstellung"_s);

    // The plan's and the result's words are the front ends'; the JSON keeps its keys.
    const CliRun plan = cli(words(u"shred --dry-run"_s));
    EXPECT_TRUE(plan.out.contains(u"Würde 0 Einträge löschen (0 Dateien, 0 Bytes)"_s)) << qPrintable(plan.out);
    EXPECT_TRUE(cli(words(u"shred --dry-run --json"_s)).out.contains(u"\"passed_over\""_s));

    configure({words(u"prefs set ActivityLog YES"_s)});
    const CliRun shred = cli(words(u"shred --yes --quiet"_s));
    qunsetenv("LC_ALL");
    EXPECT_EQ(shred.exitCode, 0);
    EXPECT_TRUE(shred.out.contains(u"\nDauer: "_s)) << qPrintable(shred.out);
    const QString log = QString::fromUtf8(home.read(u"Library/Logs/Vantle X Log.txt"_s));
    EXPECT_TRUE(log.contains(u"User selected YES in Confirm dialog"_s)) << qPrintable(log.left(300));
    EXPECT_TRUE(stored().contains(u"ActivityLog"_s));
}

TEST_F(CliTest, KeptDomainsAreAddedListedAndRemovedAndTheSwitchSetsErasing)
{
    CliRun list = cli(words(u"keep list"_s));
    ASSERT_EQ(list.exitCode, 0) << qPrintable(list.err);
    EXPECT_EQ(list.out, u"HTML5 storage erasing: off\n"_s);

    configure({words(u"keep add apple.com"_s), words(u"keep add example.org"_s)});
    EXPECT_EQ(stored().value(u"mDomainTableData"_s), (QVariantList{u"apple.com"_s, u"example.org"_s}));
    // A removal names the entry itself, not a part of it.
    expectRefused({words(u"keep add apple.com"_s), words(u"keep add "_s), QStringList{u"keep"_s, u"add"_s, u"  "_s},
                   words(u"keep remove apple"_s), QStringList{u"keep"_s}});
    EXPECT_EQ(cli(words(u"keep list"_s)).out, u"HTML5 storage erasing: off\n    apple.com\n    example.org\n"_s);
    configure({words(u"keep remove apple.com"_s)});
    EXPECT_EQ(stored().value(u"mDomainTableData"_s), QVariantList{u"example.org"_s});

    // Switching to the state it is in keeps it.
    configure({words(u"keep on"_s), words(u"keep on"_s)});
    EXPECT_EQ(stored().value(u"mHTML5EnabledState"_s), QVariant(qint64(1)));
    EXPECT_EQ(cli(words(u"keep list"_s)).out, u"HTML5 storage erasing: on\n    example.org\n"_s);
    configure({words(u"keep off"_s), words(u"keep off"_s)});
    EXPECT_EQ(stored().value(u"mHTML5EnabledState"_s), QVariant(qint64(0)));
}

TEST_F(CliTest, PluginsOfOurOwnAreRemovedAndDefaultOnesDisabledAndRestored)
{
    const CliRun list = cli(words(u"plugins list"_s));
    ASSERT_EQ(list.exitCode, 0);
    EXPECT_TRUE(list.out.startsWith(u"Flash Player (enabled, default)\n"_s)) << qPrintable(list.out);
    const qsizetype defaults = plugins().size();
    ASSERT_GT(defaults, 0);

    configure({{u"plugins"_s, u"add"_s, u"Editor cache"_s},
               {u"plugins"_s, u"add-path"_s, u"Editor cache"_s, home.file(u"Library/Caches/Editor"_s)}});
    expectRefused(
        {QStringList{u"plugins"_s, u"add"_s, u"Editor cache"_s}, QStringList{u"plugins"_s, u"enable"_s, u"No such"_s}});
    EXPECT_EQ(plugin(u"Editor cache"_s).value(u"paths"_s).toList(), QVariantList{u"~/Library/Caches/Editor"_s});

    configure({words(u"plugins disable Java"_s), {u"plugins"_s, u"remove"_s, u"Flash Player"_s}});
    EXPECT_EQ(plugin(u"Java"_s).value(u"enabled"_s), false);
    EXPECT_EQ(plugin(u"Flash Player"_s).value(u"enabled"_s), false);
    configure({{u"plugins"_s, u"remove"_s, u"Editor cache"_s}});
    EXPECT_EQ(plugins().size(), defaults);

    configure({{u"plugins"_s, u"add-path"_s, u"Java"_s, home.file(u"extra"_s)}, words(u"plugins restore Java"_s)});
    EXPECT_EQ(plugin(u"Java"_s).value(u"paths"_s).toList(), QVariantList{u"~/Library/Caches/Java"_s});
}

TEST_F(CliTest, ProfilesAreListedSelectedAndDeselected)
{
    const QString firefox = u"Library/Application Support/Firefox/Profiles/"_s;
    QDir().mkpath(home.file(firefox + u"ab12cd.default"_s));
    QDir().mkpath(home.file(firefox + u"ef34gh.work"_s));

    CliRun list = cli(words(u"profiles list"_s));
    ASSERT_EQ(list.exitCode, 0) << qPrintable(list.err);
    EXPECT_TRUE(list.out.contains(u"Firefox (~/Library/Application Support/Firefox/Profiles)\n"
                                  u"    [x] ab12cd.default\n    [x] ef34gh.work\n"_s))
        << qPrintable(list.out);
    EXPECT_TRUE(list.out.contains(u"Thunderbird (~/Library/Thunderbird/Profiles)\n    no profiles\n"_s));

    // Deselecting twice keeps it deselected.
    configure({words(u"profiles deselect firefox work"_s), words(u"profiles deselect firefox work"_s)});
    const QVariantMap selection = stored().value(u"ProfilesMenuDict"_s).toMap();
    EXPECT_EQ(selection.value(home.file(firefox.chopped(1))).toList(), QVariantList{u"ab12cd.default"_s});
    EXPECT_TRUE(cli(words(u"profiles list"_s)).out.contains(u"    [ ] ef34gh.work\n"_s));

    configure({words(u"profiles select Firefox ef34gh.work"_s)});
    EXPECT_TRUE(cli(words(u"profiles list"_s)).out.contains(u"    [x] ef34gh.work\n"_s));
    expectRefused({words(u"profiles select firefox nope"_s), words(u"profiles select opera x"_s)});
}

#ifdef VANTLE_GUI_PATH
TEST_F(CliTest, TheDesktopApplicationAnswersHelpAndVersionWithoutADisplay)
{
    qunsetenv("DISPLAY");
    qunsetenv("WAYLAND_DISPLAY");
    qunsetenv("QT_QPA_PLATFORM");
    const auto gui = [](const QString& argument) {
        return ChildProcess::run(QStringLiteral(VANTLE_GUI_PATH), {argument});
    };
    const ProcessResult version = gui(u"--version"_s);
    EXPECT_EQ(version.exitCode, 0) << version.standardError.constData();
    EXPECT_EQ(version.standardOutput, "vantle " VANTLE_TEST_VERSION "\n");
    const ProcessResult help = gui(u"--help"_s);
    EXPECT_EQ(help.exitCode, 0) << help.standardError.constData();
    for (const char* part : {"--hidden", "\nExamples:\n", "\nExit status:\n", "\nFiles:\n", "cannot be undone"})
        EXPECT_TRUE(help.standardOutput.contains(part)) << part;
    const ProcessResult wrong = gui(u"--frobnicate"_s);
    EXPECT_EQ(wrong.exitCode, 2);
    EXPECT_TRUE(wrong.standardError.startsWith("vantle: ")) << wrong.standardError.constData();
    EXPECT_TRUE(wrong.standardError.endsWith("\nTry 'vantle --help'.\n")) << wrong.standardError.constData();
}
#endif

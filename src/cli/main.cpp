#include "cli/AppsCommands.h"
#include "cli/CliOutput.h"
#include "cli/CustomCommands.h"
#include "cli/DamagedSettings.h"
#include "cli/EraseCommand.h"
#include "cli/KeepCommands.h"
#include "cli/PluginsCommands.h"
#include "cli/PrefsCommands.h"
#include "cli/ProfilesCommands.h"
#include "cli/ShredCommand.h"
#include "cli/WatchCommand.h"
#include "core/Bundle.h"
#include "core/FileSizeSignal.h"
#include "core/ProcessRandom.h"
#include "core/Translations.h"
#include "settings/UserDefaults.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// Everything the program reads or writes in the user's folders follows HOME, so
// --home moves the settings, the log and the cleaned folders at once.
bool useHomeFolder(const std::string& folder)
{
    const QFileInfo info(QString::fromStdString(folder));
    if (!info.isDir())
        return false;
    qputenv("HOME", QFile::encodeName(info.absoluteFilePath()));
    qunsetenv("XDG_CONFIG_HOME");
    return true;
}

// The help's closing sections; the manual page is made from the same help.
QString helpFooter()
{
    return Cli::tr("Examples:\n"
                   "  vantle-cli shred --dry-run          list what a run would erase, change nothing\n"
                   "  vantle-cli shred --yes              erase without asking\n"
                   "  vantle-cli prefs set ShredHistory YES\n"
                   "                                      erase the browsing history too\n"
                   "  vantle-cli keep add example.org     keep that site's HTML5 storage\n"
                   "  vantle-cli erase ~/Downloads/old.pdf\n"
                   "                                      overwrite and remove one file\n"
                   "  vantle-cli apps list --home /mnt/mac/Users/me\n"
                   "                                      work on another home folder\n"
                   "\n"
                   "Exit status:\n"
                   "  0  the command did what it was asked\n"
                   "  1  the run was cancelled, or a path given to erase does not exist\n"
                   "  2  the command line was refused (unknown command, setting or name, a value of\n"
                   "     the wrong kind); nothing was changed\n"
                   "  3  another run was erasing in the same home (its program and process are named on\n"
                   "     the standard error); nothing was changed. shred and erase wait for it with --wait\n"
                   "  4  some items could not be erased as asked: left in place (a folder that could not\n"
                   "     be emptied), not begun (a stopped run) or removed without their contents\n"
                   "     overwritten; their count is on the standard error, the reasons in the log\n"
                   "  5  the settings file is damaged: it was kept aside and shred and watch erase nothing\n"
                   "     until 'prefs reset' confirms the factory settings or the file is repaired\n"
                   "\n"
                   "Files:\n"
                   "  ~/.config/com.orvick.vantle.plist     the settings, shared with the desktop application\n"
                   "  ~/.config/com.orvick.vantle.lock      held by the run that is erasing, and names it\n"
                   "  ~/Library/Logs/Vantle X Log.txt       the activity log of the last run, when it is on\n"
                   "  /usr/share/vantle/                    resources: the SQLite shell, empty databases\n"
                   "\n"
                   "vantle-cli never creates a login item; the desktop application vantle(1) starts the\n"
                   "watch at login while the watch is on.");
}

int distance(const std::string& a, const std::string& b)
{
    std::vector<int> row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j)
        row[j] = int(j);
    for (size_t i = 1; i <= a.size(); ++i) {
        int diagonal = row[0];
        row[0] = int(i);
        for (size_t j = 1; j <= b.size(); ++j) {
            const int above = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
            diagonal = above;
        }
    }
    return row[b.size()];
}

// CLI11 reports a mistyped command as a missing one: find the first word that
// names no command where one is expected, with the closest command's name.
QString unknownCommand(const CLI::App& app, int argc, char* argv[])
{
    const CLI::App* level = &app;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--home") {
            ++i;
            continue;
        }
        if (word.empty() || word[0] == '-')
            continue;
        const auto commands = level->get_subcommands([](const CLI::App*) { return true; });
        if (commands.empty())
            return {};
        const auto match = std::find_if(commands.cbegin(), commands.cend(),
                                        [&word](const CLI::App* command) { return command->check_name(word); });
        if (match != commands.cend()) {
            level = *match;
            continue;
        }
        const CLI::App* closest = *std::min_element(commands.cbegin(), commands.cend(), [&word](auto* a, auto* b) {
            return distance(word, a->get_name()) < distance(word, b->get_name());
        });
        const QString name = QString::fromStdString(word);
        if (distance(word, closest->get_name()) > std::max<int>(2, int(word.size()) / 3))
            return Cli::tr("unknown command '%1'").arg(name);
        return Cli::tr("unknown command '%1'; did you mean '%2'?")
            .arg(name, QString::fromStdString(closest->get_name()));
    }
    return {};
}

} // namespace

int main(int argc, char* argv[])
{
    FileSizeSignal::ignore();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"vantle-cli"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(VANTLE_VERSION));
    Translations::install(Bundle::mainBundle());

    CLI::App app{Cli::tr("Vantle X erases the traces that web browsers and mail clients leave in your home folder:\n"
                         "caches, history, cookies, saved passwords, HTML5 storage, mail trash and junk.\n"
                         "\n"
                         "Erasing cannot be undone: erased files are overwritten before they are removed, and no\n"
                         "tool can bring them back. Try 'shred --dry-run' first to see what a run would erase.\n")
                     .toStdString(),
                 "vantle-cli"};
    app.footer(helpFooter().toStdString());
    app.set_help_flag("-h,--help", Cli::tr("Print this help and exit").toStdString());
    app.set_version_flag("--version", "vantle-cli " VANTLE_VERSION,
                         Cli::tr("Print the version and exit").toStdString());
    app.require_subcommand(1);
    // Subcommands made from here on hand --home back up to this level, wherever it stands.
    app.fallthrough();
    std::string home;
    app.add_option("--home", home, Cli::tr("Act as if DIR were the home folder").toStdString())->type_name("DIR");
    CommandAction action;
    app.add_subcommand("help", Cli::tr("Print this help and exit").toStdString())->callback([&action, &app] {
        action = [&app] {
            std::fputs(app.get_formatter()->make_help(&app, app.get_name(), CLI::AppFormatMode::Normal).c_str(),
                       stdout);
            return 0;
        };
    });
    addPrefsCommands(app, action);
    addAppsCommands(app, action);
    addEraseCommand(app, action);
    addPluginsCommands(app, action);
    addProfilesCommands(app, action);
    addKeepCommands(app, action);
    addShredCommand(app, action);
    addWatchCommand(app, action);
    addCustomCommands(app, action);

    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& success) {
        return app.exit(success);
    } catch (const CLI::ParseError& error) {
        const QString unknown = unknownCommand(app, argc, argv);
        return refuse(unknown.isEmpty() ? QString::fromStdString(error.what()) : unknown);
    }

    if (!home.empty() && !useHomeFolder(home))
        return refuse(Cli::tr("--home: no such folder \"%1\"").arg(QString::fromStdString(home)));
    if (home.empty() && qEnvironmentVariableIsEmpty("HOME"))
        std::fputs(Cli::tr("vantle-cli: HOME is not set; working in %1 as the home folder\n")
                       .arg(QDir::homePath())
                       .toUtf8()
                       .constData(),
                   stderr);

    // Before anything reads the settings. Only 'prefs reset' goes on to save them.
    const QString settingsPath = UserDefaults::defaultFilePath();
    if (const SettingsDamage::Report damage = SettingsDamage::inspect(settingsPath); damage.isDamaged()) {
        const CLI::App* prefs = app.get_subcommand("prefs");
        if (prefs->parsed() && prefs->get_subcommand("reset")->parsed()) {
            SettingsDamage::confirmFactorySettings(settingsPath);
        } else {
            UserDefaults::standardUserDefaults().setReadOnly();
            DamagedSettings::warn(damage);
        }
    }

    ProcessRandom::seedFromEntropy();
    return action();
}

#include "cli/AppsCommands.h"
#include "cli/CliOutput.h"
#include "cli/CustomCommands.h"
#include "cli/EraseCommand.h"
#include "cli/KeepCommands.h"
#include "cli/PluginsCommands.h"
#include "cli/PrefsCommands.h"
#include "cli/ProfilesCommands.h"
#include "cli/ShredCommand.h"
#include "cli/WatchCommand.h"
#include "core/FileSizeSignal.h"
#include "core/ProcessRandom.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace {

// Everything the program reads or writes in the user's folders follows HOME, so
// --home moves the settings, the log, the login item and the cleaned folders at once.
bool useHomeFolder(const std::string& folder)
{
    const QFileInfo info(QString::fromStdString(folder));
    if (!info.isDir())
        return false;
    qputenv("HOME", QFile::encodeName(info.absoluteFilePath()));
    qunsetenv("XDG_CONFIG_HOME");
    return true;
}

} // namespace

int main(int argc, char* argv[])
{
    FileSizeSignal::ignore();
    CLI::App app{"Vantle X: erases the traces that browsers and mail clients leave behind.", "vantle-cli"};
    app.require_subcommand(1);
    std::string home;
    app.add_option("--home", home, "Act as if DIR were the home folder")->type_name("DIR");

    CommandAction action;
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
    } catch (const CLI::ParseError& error) {
        const int status = app.exit(error);
        return status == 0 ? 0 : kRefusedExitCode;
    }

    if (!home.empty() && !useHomeFolder(home))
        return refuse(u"--home: no such folder \"%1\""_s.arg(QString::fromStdString(home)));

    ProcessRandom::seedFromEntropy();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"vantle-cli"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(VANTLE_VERSION));
    return action();
}

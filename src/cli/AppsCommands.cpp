#include "cli/AppsCommands.h"

#include "settings/ApplicationList.h"
#include "settings/Preferences.h"

#include <CLI/CLI.hpp>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

int listApplications()
{
    Preferences& preferences = Preferences::sharedInstance();
    const QStringList& names = ApplicationList::allNames();
    const auto longest = std::max_element(names.cbegin(), names.cend(),
                                          [](const QString& a, const QString& b) { return a.size() < b.size(); });
    for (const QString& name : names)
        printLine(u"%1 %2"_s.arg(name, -int(longest->size()))
                      .arg(preferences.browserIsEnabled(name) ? Cli::tr("enabled") : Cli::tr("disabled")));
    return 0;
}

int setApplicationEnabled(const QString& requested, bool enable)
{
    const QString name = ApplicationList::canonicalName(requested);
    if (name.isNull()) {
        return refuse(Cli::tr("unknown application \"%1\" (one of: %2)")
                          .arg(requested, ApplicationList::allNames().join(u", "_s)));
    }
    Preferences& preferences = Preferences::sharedInstance();
    if (preferences.browserIsEnabled(name) == enable)
        return 0;

    const QStringList before = preferences.enabledBrowsers();
    preferences.enableChanged(name);
    const QStringList after = preferences.enabledBrowsers();

    QStringList changed;
    for (const QString& application : ApplicationList::allNames()) {
        if (before.contains(application) != after.contains(application))
            changed.append(application);
    }
    printLine((enable ? Cli::tr("Enabled: ") : Cli::tr("Disabled: ")) + changed.join(u", "_s));
    return 0;
}

} // namespace

void addAppsCommands(CLI::App& app, CommandAction& action)
{
    CLI::App* apps =
        app.add_subcommand("apps", Cli::tr("Show or change which applications are erased and watched").toStdString());
    apps->require_subcommand(1);

    apps->add_subcommand("list", Cli::tr("The applications, enabled or not").toStdString())->callback([&action] {
        action = listApplications;
    });

    auto name = std::make_shared<std::string>();
    CLI::App* enable =
        apps->add_subcommand("enable", Cli::tr("Enable an application (and its coupled one)").toStdString());
    enable->add_option("NAME", *name, Cli::tr("Application name, as 'apps list' shows it").toStdString())->required();
    enable->callback(
        [&action, name] { action = [name] { return setApplicationEnabled(QString::fromStdString(*name), true); }; });

    CLI::App* disable =
        apps->add_subcommand("disable", Cli::tr("Disable an application (and its coupled one)").toStdString());
    disable->add_option("NAME", *name, Cli::tr("Application name, as 'apps list' shows it").toStdString())->required();
    disable->callback(
        [&action, name] { action = [name] { return setApplicationEnabled(QString::fromStdString(*name), false); }; });
}

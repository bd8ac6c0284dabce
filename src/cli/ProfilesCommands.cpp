#include "cli/ProfilesCommands.h"

#include "settings/ProfilesManager.h"

#include <CLI/CLI.hpp>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct ProfileOptions {
    std::string application;
    std::string profile;
};

// One word per application, as well as the menus' own names.
std::optional<ProfilesManager::Application> applicationNamed(const QString& name)
{
    static const QStringList words{u"mozilla"_s, u"firefox"_s,   u"thunderbird"_s, u"postbox"_s,
                                   u"flock"_s,   u"seamonkey"_s, u"chrome"_s,      u"brave"_s,
                                   u"vivaldi"_s, u"edge"_s,      u"opera"_s};
    for (int i = 0; i < ProfilesManager::ApplicationCount; ++i) {
        const auto application = ProfilesManager::Application(i);
        if (name.compare(words[i], Qt::CaseInsensitive) == 0 ||
            name.compare(ProfilesManager::displayName(application), Qt::CaseInsensitive) == 0)
            return application;
    }
    return std::nullopt;
}

int listProfiles()
{
    ProfilesManager& manager = ProfilesManager::createSharedInstance();
    manager.populateProfilesMenu();
    for (int i = 0; i < ProfilesManager::ApplicationCount; ++i) {
        const ProfilesManager::Menu& menu = manager.menus()[i];
        const auto application = ProfilesManager::Application(i);
        const QString folder = ProfilesManager::profilesFolder(application);
        printLine(folder.isEmpty() ? ProfilesManager::displayName(application)
                                   : u"%1 (%2)"_s.arg(ProfilesManager::displayName(application), folder));
        if (menu.items.isEmpty())
            printLine(Cli::tr("    no profiles"));
        for (const ProfilesManager::MenuItem& item : menu.items)
            printLine(u"    [%1] %2"_s.arg(item.checked ? u"x"_s : u" "_s).arg(menu.titles[item.tag]));
    }
    return 0;
}

int setSelected(const ProfileOptions& options, bool select)
{
    const QString applicationName = QString::fromStdString(options.application);
    const auto application = applicationNamed(applicationName);
    if (!application)
        return refuse(Cli::tr("unknown application \"%1\" (mozilla, firefox, thunderbird, postbox, flock, seamonkey, "
                              "chrome, brave, vivaldi, edge or opera)")
                          .arg(applicationName));

    ProfilesManager& manager = ProfilesManager::createSharedInstance();
    manager.populateProfilesMenu();
    const QString profile = QString::fromStdString(options.profile);
    const ProfilesManager::Menu& menu = manager.menus()[*application];
    for (const ProfilesManager::MenuItem& item : menu.items) {
        if (menu.titles[item.tag] != profile && item.title != profile)
            continue;
        if (item.checked != select)
            manager.doProfileMenuItem(*application, item.tag);
        return 0;
    }
    return refuse(Cli::tr("no profile \"%1\" in %2")
                      .arg(profile, menu.folder.isEmpty() ? ProfilesManager::displayName(*application) : menu.folder));
}

} // namespace

void addProfilesCommands(CLI::App& app, CommandAction& action)
{
    auto options = std::make_shared<ProfileOptions>();
    CLI::App* profiles = app.add_subcommand(
        "profiles", Cli::tr("Show or change which browser and mail profiles are erased").toStdString());
    profiles->require_subcommand(1);
    profiles->add_subcommand("list", Cli::tr("Every profile found, selected or not").toStdString())
        ->callback([&action] { action = listProfiles; });
    for (const bool select : {true, false}) {
        CLI::App* command = profiles->add_subcommand(select ? "select" : "deselect",
                                                     select ? "Erase this profile" : "Keep this profile");
        command
            ->add_option("APP", options->application,
                         Cli::tr("mozilla, firefox, thunderbird, postbox, flock, seamonkey, chrome, brave, vivaldi, "
                                 "edge or opera")
                             .toStdString())
            ->required();
        command
            ->add_option("PROFILE", options->profile,
                         Cli::tr("Profile folder name, the name after its dot, or its whole path").toStdString())
            ->required();
        command->callback(
            [&action, options, select] { action = [options, select] { return setSelected(*options, select); }; });
    }
}

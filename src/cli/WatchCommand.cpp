#include "cli/WatchCommand.h"

#include "app/ApplicationModels.h"
#include "app/Controller.h"
#include "app/MakeController.h"
#include "cli/DamagedSettings.h"
#include "cli/InterruptWatcher.h"
#include "cli/RunLockMessages.h"
#include "cli/TerminalView.h"
#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"

#include <QEventLoop>

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace {

struct WatchOptions {
    bool yes = false;
    bool verbose = false;
    double interval = 10;
};

int watch(const WatchOptions& options)
{
    if (const SettingsDamage::Report damage = SettingsDamage::found(); damage.isDamaged())
        return DamagedSettings::refuseRun(damage);
    if (options.interval <= 0 || options.interval > 3600)
        return refuse(Cli::tr("--interval takes a number of seconds from above 0 to 3600"));
    const ApplicationModels models = ApplicationModels::create(false);
    if (!models.preferences.valueForKey(PreferenceKey::Tarnhold).toBool())
        return refuse(Cli::tr("the Tarnhold watch is off (vantle-cli prefs set Tarnhold YES turns it on)"));

    TerminalView view({options.yes, true, true, options.verbose});
    SystemPlatform system;
    const std::unique_ptr<Controller> composed = makeController(models, view, system.controllerPlatform());
    Controller& controller = *composed;
    controller.setWatchInterval(int(options.interval * 1000));
    // The watch's runs wait for another run: none is refused.
    bool refused = false;
    RunLockMessages::report(controller, refused);

    QEventLoop loop;
    view.setTerminationHandler([&loop] { loop.quit(); });
    // Ctrl-C stops the watch; a run under way finishes erasing first.
    InterruptWatcher interrupts([&] {
        if (controller.applicationShouldTerminate() == Controller::TerminateReply::Now)
            loop.quit();
    });
    controller.applicationDidFinishLaunching();
    loop.exec();
    controller.applicationWillTerminate();
    return 0;
}

} // namespace

void addWatchCommand(CLI::App& app, CommandAction& action)
{
    auto options = std::make_shared<WatchOptions>();
    CLI::App* command = app.add_subcommand(
        "watch", Cli::tr("Run the Tarnhold watch: erase when a watched application quits").toStdString());
    command->add_flag("-y,--yes", options->yes, Cli::tr("Answer the confirmation of each run with OK").toStdString());
    command->add_flag("-v,--verbose", options->verbose,
                      Cli::tr("Show every application's state as it changes").toStdString());
    command->add_option("--interval", options->interval,
                        Cli::tr("Seconds between polls (default 10; for tests and demos)").toStdString());
    command->callback([&action, options] { action = [options] { return watch(*options); }; });
}

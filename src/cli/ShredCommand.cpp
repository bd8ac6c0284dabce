#include "cli/ShredCommand.h"

#include "app/ApplicationModels.h"
#include "app/Controller.h"
#include "cli/DamagedSettings.h"
#include "cli/InterruptWatcher.h"
#include "cli/RunLockMessages.h"
#include "cli/RunTiming.h"
#include "cli/TerminalView.h"
#include "core/Bundle.h"
#include "core/ChildProcess.h"
#include "erase/FileTree.h"
#include "platform/SessionEnd.h"
#include "platform/linux/ProcApplicationQuitter.h"
#include "settings/Preferences.h"
#include "settings/UserDefaults.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QThread>

#include <CLI/CLI.hpp>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

struct ShredOptions {
    bool yes = false;
    bool logout = false;
    bool shutdown = false;
    bool restart = false;
    bool dryRun = false;
    bool quiet = false;
    bool timing = false;
    bool wait = false;
};

// The queued paths that exist (the cleaners queue paths unseen), with their sizes.
void printFoundPaths(const QStringList& paths)
{
    quint64 total = 0;
    qsizetype existing = 0;
    printLine(Cli::tr("Would erase:"));
    for (const QString& path : paths) {
        const QByteArray native = QFile::encodeName(path);
        if (!FileTree::exists(native))
            continue;
        const quint64 size = FileTree::sizeInBytes(native);
        total += size;
        ++existing;
        printLine(u"%1  %2"_s.arg(size, 12).arg(path));
    }
    printLine(Cli::tr("%1  bytes in %2 of the %3 paths queued (the others do not exist)")
                  .arg(total, 12)
                  .arg(existing)
                  .arg(paths.size()));
}

int shred(const ShredOptions& options)
{
    if (const SettingsDamage::Report damage = SettingsDamage::found(); damage.isDamaged())
        return DamagedSettings::refuseRun(damage, !options.dryRun);
    ApplicationModels::create(options.dryRun);
    TerminalView view({options.yes, !options.quiet, false, false});
    ProcApplicationQuitter quitter;
    const std::unique_ptr<SessionEnd> sessionEnd = createPlatformSessionEnd();
    SystemCommandRunner runner;
    Controller controller({Preferences::sharedInstance(), UserDefaults::standardUserDefaults(), view, quitter,
                           *sessionEnd, runner, Bundle::mainBundle(),
                           [](int milliseconds) { QThread::msleep(ulong(milliseconds)); }, options.dryRun, stdout});
    controller.applicationDidFinishLaunching(false);
    controller.setWaitForOtherRun(options.wait);
    bool refused = false;
    RunLockMessages::report(controller, refused);

    QEventLoop loop;
    bool finished = false;
    QObject::connect(&controller, &Controller::runFinished, &loop, [&] {
        finished = true;
        loop.quit();
    });
    // The first Ctrl-C asks to quit: a run under way finishes erasing first.
    InterruptWatcher interrupts([&] {
        if (controller.applicationShouldTerminate() == Controller::TerminateReply::Now)
            loop.quit();
    });

    RunTiming timing;
    QObject::connect(&controller, &Controller::shreddingStarted, &loop, [&] { timing.findingDone(); });
    timing.start();
    if (options.logout)
        controller.shredAndLogout();
    else if (options.shutdown)
        controller.shredAndShutdown();
    else if (options.restart)
        controller.shredAndRestart();
    else
        controller.shredAndNothing();
    if (!finished && !refused)
        loop.exec();
    if (refused)
        return kBusyExitCode;

    if (options.timing && finished)
        std::fprintf(stderr, "%s\n", qPrintable(timing.report()));
    if (options.dryRun && finished)
        printFoundPaths(controller.foundPaths());
    return finished && !view.userCancelled() ? 0 : 1;
}

} // namespace

void addShredCommand(CLI::App& app, CommandAction& action)
{
    auto options = std::make_shared<ShredOptions>();
    CLI::App* command = app.add_subcommand(
        "shred", Cli::tr("Erase the traces of every enabled application that is not running").toStdString());
    command->add_flag("-y,--yes", options->yes, Cli::tr("Answer the confirmation with OK").toStdString());
    auto* logout = command->add_flag("--logout", options->logout,
                                     Cli::tr("Quit the browsers first, log out afterwards").toStdString());
    auto* shutdown = command->add_flag("--shutdown", options->shutdown,
                                       Cli::tr("Quit the browsers first, shut down afterwards").toStdString());
    auto* restart = command->add_flag("--restart", options->restart,
                                      Cli::tr("Quit the browsers first, restart afterwards").toStdString());
    logout->excludes(shutdown)->excludes(restart);
    shutdown->excludes(restart);
    command->add_flag("-n,--dry-run", options->dryRun,
                      Cli::tr("Show what would be erased, with sizes, and change nothing on disk").toStdString());
    command->add_flag("-q,--quiet", options->quiet, Cli::tr("Show no progress bar").toStdString());
    command->add_flag(
        "--wait", options->wait,
        Cli::tr("When another run is erasing in this home, wait for it to finish instead of giving up").toStdString());
    command->add_flag("--timing", options->timing,
                      Cli::tr("Print each stage's wall time and peak memory (finding, shredding) on the standard error")
                          .toStdString());
    command->callback([&action, options] { action = [options] { return shred(*options); }; });
}

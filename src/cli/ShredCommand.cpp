#include "cli/ShredCommand.h"

#include "app/ApplicationModels.h"
#include "app/Controller.h"
#include "app/MakeController.h"
#include "cli/DamagedSettings.h"
#include "cli/InterruptWatcher.h"
#include "cli/PlanOutput.h"
#include "cli/RunLockMessages.h"
#include "cli/RunTiming.h"
#include "cli/TerminalView.h"
#include "log/ActivityLog.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>

#include <CLI/CLI.hpp>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

void printLines(const QStringList& lines)
{
    for (const QString& line : lines)
        printLine(line);
}

struct ShredOptions {
    bool yes = false;
    bool logout = false;
    bool shutdown = false;
    bool restart = false;
    bool dryRun = false;
    bool quiet = false;
    bool timing = false;
    bool verbose = false;
    bool json = false;
    bool wait = false;
};

// The log of a dry run, kept in memory for --verbose.
class MemoryLog {
public:
    MemoryLog() { m_stream = ::open_memstream(&m_buffer, &m_size); }
    ~MemoryLog()
    {
        close();
        std::free(m_buffer);
    }
    FILE* stream() const { return m_stream; }
    QByteArray close()
    {
        if (m_stream)
            std::fclose(std::exchange(m_stream, nullptr));
        return QByteArray(m_buffer, qsizetype(m_size));
    }

private:
    char* m_buffer = nullptr;
    std::size_t m_size = 0;
    FILE* m_stream = nullptr;
};

int shred(const ShredOptions& options)
{
    if (const SettingsDamage::Report damage = SettingsDamage::found(); damage.isDamaged())
        return DamagedSettings::refuseRun(damage, !options.dryRun);
    const ApplicationModels models = ApplicationModels::create(options.dryRun);
    // A dry run changes nothing: there is nothing to confirm.
    TerminalView view({options.yes || options.dryRun, !options.quiet, false, false});
    MemoryLog dryRunLog;
    SystemPlatform system;
    const std::unique_ptr<Controller> composed = makeController(
        models, view, system.controllerPlatform(), options.dryRun, options.verbose ? dryRunLog.stream() : nullptr);
    Controller& controller = *composed;
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
    // The first Ctrl-C stops the run after the item it erases; no item is ever
    // left half-erased, so the next ones are refused until it ends.
    bool stopping = false;
    InterruptWatcher interrupts([&] {
        if (controller.isShredding()) {
            view.say(stopping ? Cli::tr("Still finishing the current item: it is never left half-erased.")
                              : Cli::tr("Stopping after the current item; the others stay as they are."));
            stopping = true;
            controller.stopRun();
            return;
        }
        view.say(Cli::tr("Stopped before anything was erased."));
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

    view.clearProgress();
    if (options.dryRun && finished) {
        ActivityLog::closeLog();
        if (options.json) {
            std::fputs(PlanOutput::json(controller.lastPlan()).c_str(), stdout);
        } else {
            if (options.verbose)
                printLines(PlanOutput::shredAndSkipLines(dryRunLog.close()));
            printLines(PlanOutput::text(controller.lastPlan()));
        }
    } else if (view.result()) {
        printLines(RunReport::resultLines(*view.result()));
    }
    if (options.timing && finished)
        std::fprintf(stderr, "%s\n", qPrintable(timing.report()));
    if (!finished || view.userCancelled())
        return 1;
    return view.result() ? incompleteStatus(view.result()->erased) : 0;
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
    command->add_flag(
        "-n,--dry-run", options->dryRun,
        Cli::tr("Show what would be erased and rewritten, with sizes, and change nothing on disk").toStdString());
    command->add_flag("-v,--verbose", options->verbose,
                      Cli::tr("With --dry-run: every Shred and Skip line first").toStdString());
    command->add_flag("--json", options->json, Cli::tr("With --dry-run: the plan as JSON").toStdString());
    command->add_flag("-q,--quiet", options->quiet, Cli::tr("Show no progress line").toStdString());
    command->add_flag(
        "--wait", options->wait,
        Cli::tr("When another run is erasing in this home, wait for it to finish instead of giving up").toStdString());
    command->add_flag("--timing", options->timing,
                      Cli::tr("Print each stage's wall time and peak memory (finding, shredding) on the standard error")
                          .toStdString());
    command->callback([&action, options] { action = [options] { return shred(*options); }; });
}

#include "cli/EraseCommand.h"

#include "cli/RunLockMessages.h"
#include "cli/RunTiming.h"
#include "cli/TerminalProgress.h"
#include "erase/FileAccess.h"
#include "erase/FileTree.h"
#include "settings/Preferences.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <CLI/CLI.hpp>

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct EraseOptions {
    std::vector<std::string> paths;
    bool quiet = false;
    bool timing = false;
    bool wait = false;
};

std::optional<QByteArray> canonicalPath(const QByteArray& path)
{
    char resolved[PATH_MAX];
    if (::realpath(path.constData(), resolved) == nullptr)
        return std::nullopt;
    return QByteArray(resolved);
}

// "/", the home folder and every folder that holds it: erasing one would take the home with it.
bool holdsTheHome(const QByteArray& path, const QList<QByteArray>& homes)
{
    for (const QByteArray& home : homes) {
        if (path == "/" || path == home || home.startsWith(path + '/'))
            return true;
    }
    return false;
}

int erase(const EraseOptions& options)
{
    const QByteArray home = FileTree::standardized(QFile::encodeName(QDir::homePath()));
    QList<QByteArray> homes{home};
    if (const auto canonicalHome = canonicalPath(home))
        homes.append(*canonicalHome);

    QList<QByteArray> paths;
    for (const std::string& argument : options.paths) {
        const QByteArray path = FileTree::absolute(QByteArray::fromStdString(argument));
        const auto resolved = canonicalPath(path);
        if (holdsTheHome(path, homes) || (resolved && holdsTheHome(*resolved, homes)))
            return refuse(
                Cli::tr("refusing to erase \"%1\": it is or holds the home folder").arg(QFile::decodeName(path)));
        paths.append(path);
    }

    int status = 0;
    QList<QByteArray> existing;
    for (const QByteArray& path : paths) {
        struct stat info {};
        if (::lstat(path.constData(), &info) == 0) {
            existing.append(path);
        } else {
            std::fputs(("vantle-cli: no such file or folder, skipped: " + path + '\n').constData(), stderr);
            status = 1;
        }
    }

    RunLock runLock;
    if (runLock.tryLock() == RunLock::Outcome::Busy) {
        if (!options.wait)
            return RunLockMessages::refused(runLock.holder());
        RunLockMessages::waiting(runLock.holder());
        runLock.lock();
    }

    // Warnings are printed even where no bar is drawn.
    TerminalProgress progress(stderr, !options.quiet && ::isatty(STDERR_FILENO));
    QElapsedTimer whole;
    whole.start();
    FileAccess engine(Preferences::sharedInstance(), &progress);
    engine.shredNativePaths(existing);
    // The overwriting alone, beside the whole erase: what a plain write of the same bytes compares with.
    if (options.timing) {
        std::fprintf(stderr, "%s\n",
                     qPrintable(u"overwriting: %1 s\nerasing: %2 s, %3"_s
                                    .arg(double(engine.overwriteNanoseconds()) / 1e9, 0, 'f', 3)
                                    .arg(double(whole.nsecsElapsed()) / 1e9, 0, 'f', 3)
                                    .arg(RunTiming::peaks())));
    }
    if (const int incomplete = incompleteStatus(engine.tally()))
        return incomplete;
    return status;
}

} // namespace

void addEraseCommand(CLI::App& app, CommandAction& action)
{
    auto options = std::make_shared<EraseOptions>();
    CLI::App* command = app.add_subcommand(
        "erase", Cli::tr("Overwrite, rename and remove files and folders with the current settings").toStdString());
    command->add_option("PATH", options->paths, Cli::tr("Files or folders to erase").toStdString())->required();
    command->add_flag("-q,--quiet", options->quiet, Cli::tr("Show no progress").toStdString());
    command->add_flag(
        "--wait", options->wait,
        Cli::tr("When another run is erasing in this home, wait for it to finish instead of giving up").toStdString());
    command->add_flag(
        "--timing", options->timing,
        Cli::tr("Print the wall time spent overwriting and the whole erase's, with peak memory, on stderr")
            .toStdString());
    command->callback([&action, options] { action = [options] { return erase(*options); }; });
}

#include "core/ChildProcess.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

using namespace Qt::StringLiterals;

TEST(ChildProcess, RunsAProgramWithItsArgumentsVerbatimAndSaysHowItEnded)
{
    // No shell: every argument arrives as it was given; a bare name is found on the path.
    const QStringList arguments{u"two words"_s, u"$HOME; rm -rf x | `id`"_s, u"'quoted'"_s, u""_s};
    const ProcessResult printed = ChildProcess::run(u"printf"_s, QStringList{u"[%s]\\n"_s} + arguments);
    EXPECT_TRUE(printed.started);
    EXPECT_EQ(printed.exitCode, 0);
    EXPECT_EQ(printed.standardOutput, "[two words]\n[$HOME; rm -rf x | `id`]\n['quoted']\n[]\n");

    const ProcessResult failing = ChildProcess::run(u"/bin/sh"_s, {u"-c"_s, u"echo out; echo err >&2; exit 3"_s});
    EXPECT_EQ(failing.exitCode, 3);
    EXPECT_EQ(failing.standardOutput, "out\n");
    EXPECT_EQ(failing.standardError, "err\n");
    EXPECT_TRUE(ChildProcess::run(u"/bin/sh"_s, {u"-c"_s, u"kill -9 $$"_s}).crashed);
    EXPECT_FALSE(ChildProcess::run(u"/nonexistent/program"_s, {}).started);
    EXPECT_FALSE(ChildProcess::run(u"no-such-program-anywhere"_s, {}).started);

    // More than a pipe buffer holds: the child must not stall while we wait for it.
    const ProcessResult large = ChildProcess::run(u"/usr/bin/head"_s, {u"-c"_s, u"1000000"_s, u"/dev/zero"_s});
    EXPECT_EQ(large.standardOutput.size(), 1000000);
}

TEST(ChildProcess, StartsWithNoBlockedSignalsAndTheDefaultBrokenPipeAction)
{
    // The calling thread blocks a signal and ignores broken pipes; the program inherits neither.
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGUSR1);
    sigset_t previousMask;
    ASSERT_EQ(::pthread_sigmask(SIG_BLOCK, &blocked, &previousMask), 0);
    const auto previousPipeAction = std::signal(SIGPIPE, SIG_IGN);
    const ProcessResult result =
        ChildProcess::run(u"/usr/bin/grep"_s, {u"-E"_s, u"^Sig(Blk|Ign):"_s, u"/proc/self/status"_s});
    std::signal(SIGPIPE, previousPipeAction);
    ::pthread_sigmask(SIG_SETMASK, &previousMask, nullptr);

    const QList<QByteArray> lines = result.standardOutput.trimmed().split('\n');
    ASSERT_EQ(lines.size(), 2) << result.standardError.toStdString();
    EXPECT_EQ(lines[0].simplified(), "SigBlk: 0000000000000000");
    bool isNumber = false;
    const qulonglong ignored = lines[1].mid(7).trimmed().toULongLong(&isNumber, 16);
    EXPECT_TRUE(lines[1].startsWith("SigIgn:") && isNumber);
    EXPECT_EQ(ignored & (1ULL << (SIGPIPE - 1)), 0ULL);
}

namespace {

// Gone, or ended and waiting for its new parent to collect it.
bool hasEnded(pid_t pid)
{
    QFile stat(u"/proc/%1/stat"_s.arg(pid));
    if (::kill(pid, 0) != 0 || !stat.open(QIODevice::ReadOnly))
        return true;
    const QByteArray fields = stat.readAll();
    return fields.mid(fields.lastIndexOf(')') + 2, 1) == "Z";
}

} // namespace

TEST(ChildProcess, TheProgramEndsWithTheProcessThatStartedIt)
{
    // A killed run must not leave a database shell behind writing its work files.
    QTemporaryDir dir;
    const QString pidFile = dir.filePath(u"pid"_s);
    const pid_t starter = ::fork();
    if (starter == 0) {
        ChildProcess::run(u"/bin/sh"_s, {u"-c"_s, u"echo $$ > \"$0\"; exec sleep 30"_s, pidFile});
        std::_Exit(0);
    }
    ASSERT_GT(starter, 0);
    QElapsedTimer timer;
    timer.start();
    pid_t program = 0;
    while (program == 0 && timer.elapsed() < 10000) {
        QFile file(pidFile);
        if (file.open(QIODevice::ReadOnly))
            program = pid_t(file.readAll().trimmed().toInt());
        if (program == 0)
            QThread::msleep(10);
    }
    ASSERT_GT(program, 0);

    ::kill(starter, SIGKILL);
    ::waitpid(starter, nullptr, 0);
    while (!hasEnded(program) && timer.elapsed() < 20000)
        QThread::msleep(10);
    const bool ended = hasEnded(program);
    ::kill(program, SIGKILL);
    EXPECT_TRUE(ended);
}

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

TEST(ChildProcess, PassesArgumentsVerbatimWithoutAShell)
{
    const QStringList arguments{u"two words"_s, u"$HOME; rm -rf x | `id`"_s, u"'quoted'"_s, u""_s};
    const ProcessResult result = ChildProcess::run(u"/usr/bin/printf"_s, QStringList{u"[%s]\\n"_s} + arguments);

    ASSERT_TRUE(result.started);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.standardOutput, "[two words]\n[$HOME; rm -rf x | `id`]\n['quoted']\n[]\n");
}

TEST(ChildProcess, ReportsExitStatusErrorOutputAndMissingPrograms)
{
    const ProcessResult failing = ChildProcess::run(u"/bin/sh"_s, {u"-c"_s, u"echo out; echo err >&2; exit 3"_s});
    EXPECT_TRUE(failing.started);
    EXPECT_EQ(failing.exitCode, 3);
    EXPECT_EQ(failing.standardOutput, "out\n");
    EXPECT_EQ(failing.standardError, "err\n");

    const ProcessResult killed = ChildProcess::run(u"/bin/sh"_s, {u"-c"_s, u"kill -9 $$"_s});
    EXPECT_TRUE(killed.crashed);

    const ProcessResult missing = ChildProcess::run(u"/nonexistent/program"_s, {});
    EXPECT_FALSE(missing.started);
}

TEST(ChildProcess, CapturesLargeOutputWithoutBlocking)
{
    // More than a pipe buffer holds: the child must not stall while we wait for it.
    const ProcessResult result = ChildProcess::run(u"/usr/bin/head"_s, {u"-c"_s, u"1000000"_s, u"/dev/zero"_s});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.standardOutput.size(), 1000000);
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

    ASSERT_EQ(result.exitCode, 0) << result.standardError.toStdString();
    const QList<QByteArray> lines = result.standardOutput.trimmed().split('\n');
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0].simplified(), "SigBlk: 0000000000000000");
    ASSERT_TRUE(lines[1].startsWith("SigIgn:"));
    bool isNumber = false;
    const qulonglong ignored = lines[1].mid(7).trimmed().toULongLong(&isNumber, 16);
    ASSERT_TRUE(isNumber);
    EXPECT_EQ(ignored & (1ULL << (SIGPIPE - 1)), 0ULL);
}

TEST(ChildProcess, FindsProgramsOnThePath)
{
    const ProcessResult found = ChildProcess::run(u"printf"_s, {u"found"_s});
    EXPECT_TRUE(found.started);
    EXPECT_EQ(found.standardOutput, "found");
    EXPECT_FALSE(ChildProcess::run(u"no-such-program-anywhere"_s, {}).started);
}

namespace {

// Gone, or ended and waiting for its new parent to collect it.
bool hasEnded(pid_t pid)
{
    if (::kill(pid, 0) != 0)
        return true;
    QFile stat(u"/proc/%1/stat"_s.arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
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

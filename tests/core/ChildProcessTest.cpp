#include "core/ChildProcess.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QThread>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

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

#ifdef Q_OS_LINUX
namespace {

// The processes whose command line is exactly these arguments.
QList<pid_t> processesRunning(const QByteArray& commandLine)
{
    QList<pid_t> found;
    for (const QString& entry : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        bool number = false;
        const pid_t pid = pid_t(entry.toInt(&number));
        QFile file(u"/proc/%1/cmdline"_s.arg(entry));
        if (number && file.open(QIODevice::ReadOnly) && file.readAll() == commandLine)
            found.append(pid);
    }
    return found;
}

} // namespace

TEST(ChildProcess, AChildDoesNotOutliveAKilledProgram)
{
    // A program killed while its child works (a shell rewriting a database) must
    // not leave the child writing on into what the next run does.
    const QString seconds = u"%1.5"_s.arg(100000 + QRandomGenerator::global()->bounded(100000));
    const QByteArray commandLine = QByteArray("/bin/sleep") + '\0' + seconds.toLatin1() + '\0';
    const pid_t program = ::fork();
    ASSERT_GE(program, 0);
    if (program == 0) {
        ChildProcess::run(u"/bin/sleep"_s, {seconds});
        ::_exit(0);
    }
    for (int i = 0; i < 250 && processesRunning(commandLine).isEmpty(); ++i)
        QThread::msleep(20);
    const QList<pid_t> started = processesRunning(commandLine);
    ::kill(program, SIGKILL);
    ::waitpid(program, nullptr, 0);
    ASSERT_EQ(started.size(), 1);

    QList<pid_t> left = processesRunning(commandLine);
    for (int i = 0; i < 100 && !left.isEmpty(); ++i) {
        QThread::msleep(20);
        left = processesRunning(commandLine);
    }
    EXPECT_EQ(left, QList<pid_t>());
    for (const pid_t pid : left)
        ::kill(pid, SIGKILL);
}
#endif

#include "core/ChildProcess.h"

#include <gtest/gtest.h>

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

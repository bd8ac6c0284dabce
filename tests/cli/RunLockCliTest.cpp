// One run per home: concurrent runs of real processes on the demo home keep
// every bookmark and leave no history; a run refused for another's touches
// nothing. That a killed run holds nothing, InterruptedRunCliTest shows.
#include "cli/CliFixture.h"
#include "support/TestDatabase.h"

#include "app/RunLock.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

const QString kPlaces = u"Library/Application Support/Firefox/Profiles/ab12cd34.default/places.sqlite"_s;
const QString kLog = u"Library/Logs/Vantle X Log.txt"_s;

class RunLockCliTest : public CliFixture {
protected:
    std::unique_ptr<QProcess> start(const QStringList& arguments) const
    {
        auto process = std::make_unique<QProcess>();
        process->start(QStringLiteral(VANTLE_CLI_PATH), QStringList{u"--home"_s, home.path()} + arguments);
        EXPECT_TRUE(process->waitForStarted());
        return process;
    }

    static CliRun finish(QProcess& process)
    {
        EXPECT_TRUE(process.waitForFinished(120000));
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    void expectBookmarksWithoutHistory(int pair)
    {
        TestDatabase places(home.file(kPlaces));
        EXPECT_EQ(places.value(u"PRAGMA integrity_check"_s), u"ok"_s) << "pair " << pair;
        EXPECT_EQ(places.rows(u"select title from moz_bookmarks"_s), QStringList{u"Debian"_s}) << "pair " << pair;
        EXPECT_EQ(places.value(u"select count(*) from moz_historyvisits"_s), u"0"_s) << "pair " << pair;
        EXPECT_EQ(places.value(u"select count(*) from moz_places where url like '%secret%'"_s), u"0"_s)
            << "pair " << pair;
    }
};

} // namespace

TEST_F(RunLockCliTest, TwoRunsAtOnceOnTheDemoHomeKeepEveryBookmarkAndLeaveNoHistory)
{
    // Five pairs; more with VANTLE_RUN_LOCK_PAIRS. That --wait waits, the next case shows.
    const int pairs = qEnvironmentVariableIntValue("VANTLE_RUN_LOCK_PAIRS") > 0
                          ? qEnvironmentVariableIntValue("VANTLE_RUN_LOCK_PAIRS")
                          : 5;
    QTemporaryDir demo;
    const ProcessResult made =
        ChildProcess::run(u"env"_s, {u"HOME=/nonexistent"_s, u"bash"_s,
                                     QStringLiteral(VANTLE_SOURCE_DIR "/scripts/make-demo-home"), demo.path()});
    ASSERT_EQ(made.exitCode, 0) << made.standardError.constData();
    for (const QStringList& command : {QStringList{u"apps"_s, u"disable"_s, u"Eudora"_s},
                                       {u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"YES"_s},
                                       {u"prefs"_s, u"set"_s, u"ActivityLog"_s, u"YES"_s}})
        ASSERT_EQ(run(QStringList{u"--home"_s, demo.path()} + command).exitCode, 0);

    for (int pair = 0; pair < pairs; ++pair) {
        ASSERT_EQ(QProcess::execute(u"find"_s, {home.path(), u"-mindepth"_s, u"1"_s, u"-delete"_s}), 0);
        ASSERT_EQ(QProcess::execute(u"cp"_s, {u"-a"_s, demo.path() + u"/."_s, home.path()}), 0);
        const auto first = start({u"shred"_s, u"--yes"_s, u"--quiet"_s});
        const auto second = start({u"shred"_s, u"--yes"_s, u"--quiet"_s});
        const qint64 processIds[] = {first->processId(), second->processId()};
        const CliRun a = finish(*first);
        const CliRun b = finish(*second);
        // The one refused names the other and exits 3 before it touches anything.
        const bool firstRefused = a.exitCode == 3;
        const CliRun& refused = firstRefused ? a : b;
        const CliRun& ran = firstRefused ? b : a;
        EXPECT_EQ(refused.exitCode, 3) << "pair " << pair << ": " << qPrintable(a.err + b.err);
        EXPECT_EQ(ran.exitCode, 0) << qPrintable(ran.err);
        EXPECT_TRUE(refused.err.contains(u"vantle-cli (process %1)"_s.arg(processIds[firstRefused ? 1 : 0])))
            << qPrintable(refused.err);
        EXPECT_TRUE(home.read(kLog).contains("Vantle Completed Successfully"));
        expectBookmarksWithoutHistory(pair);
    }
}

TEST_F(RunLockCliTest, ARunRefusedForAnotherTouchesNothingAndWaitsWhenAsked)
{
    home.write(u"Library/Caches/Safari/cache.db"_s, "cached");
    home.write(u"Downloads/old.pdf"_s, "old");
    home.write(kLog, "the other run's log");
    prepareRuns();

    // This test process holds the lock as another run would.
    RunLock other;
    ASSERT_EQ(other.tryLock(), RunLock::Outcome::Held);
    const QString holder =
        u"%1 (process %2)"_s.arg(QCoreApplication::applicationName()).arg(QCoreApplication::applicationPid());
    for (const QStringList& command :
         {QStringList{u"shred"_s, u"--yes"_s}, QStringList{u"erase"_s, home.file(u"Downloads/old.pdf"_s)}}) {
        const CliRun refused = cli(command);
        EXPECT_EQ(refused.exitCode, 3) << qPrintable(refused.err);
        EXPECT_TRUE(refused.err.contains(holder)) << qPrintable(refused.err);
    }
    EXPECT_EQ(home.read(kLog), "the other run's log");
    EXPECT_EQ(home.read(u"Library/Caches/Safari/cache.db"_s), "cached");
    EXPECT_EQ(home.read(u"Downloads/old.pdf"_s), "old");

    const auto shred = start({u"shred"_s, u"--yes"_s, u"--quiet"_s, u"--wait"_s});
    const auto erase = start({u"erase"_s, u"--quiet"_s, u"--wait"_s, home.file(u"Downloads/old.pdf"_s)});
    EXPECT_FALSE(shred->waitForFinished(1500));
    EXPECT_EQ(erase->state(), QProcess::Running);
    EXPECT_EQ(home.read(kLog), "the other run's log");
    other.unlock();
    const CliRun shredRun = finish(*shred);
    const CliRun eraseRun = finish(*erase);
    EXPECT_EQ(shredRun.exitCode, 0) << qPrintable(shredRun.err);
    EXPECT_EQ(eraseRun.exitCode, 0) << qPrintable(eraseRun.err);
    EXPECT_TRUE(shredRun.err.contains(holder)) << qPrintable(shredRun.err);
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Caches/Safari/cache.db"_s)));
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Downloads/old.pdf"_s)));
    EXPECT_TRUE(home.read(kLog).contains("Vantle Completed Successfully"));
}

#include "cli/CliFixture.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QThread>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

class WatchCliTest : public CliFixture {
protected:
    // A program that stands for an application: sleep, copied to path below the home.
    void startProgram(QProcess& process, const QString& relative)
    {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(home.file(relative)).absolutePath()));
        ASSERT_TRUE(QFile::copy(u"/bin/sleep"_s, home.file(relative)));
        process.start(home.file(relative), {u"60"_s});
        ASSERT_TRUE(process.waitForStarted());
    }

    void startWatch()
    {
        watch.start(QStringLiteral(VANTLE_CLI_PATH),
                    {u"--home"_s, home.path(), u"watch"_s, u"--yes"_s, u"--interval"_s, u"0.2"_s});
        ASSERT_TRUE(watch.waitForStarted());
    }

    // Waits until the watch has printed text, reading what it prints as it goes.
    bool waitForOutput(const QString& text)
    {
        for (QDeadlineTimer deadline(15000); !output.contains(text) && !deadline.hasExpired();) {
            watch.waitForReadyRead(100);
            output += QString::fromUtf8(watch.readAllStandardOutput());
        }
        return output.contains(text);
    }

    static bool waitUntil(const std::function<bool()>& done)
    {
        for (QDeadlineTimer deadline(15000); !done() && !deadline.hasExpired();)
            QThread::msleep(50);
        return done();
    }

    // Ctrl-C ends the watch normally.
    void stopWatch()
    {
        ::kill(pid_t(watch.processId()), SIGINT);
        ASSERT_TRUE(watch.waitForFinished(15000));
        EXPECT_EQ(watch.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(watch.exitCode(), 0);
    }

    QProcess watch;
    QString output;
};

} // namespace

TEST_F(WatchCliTest, EachWatchedProgramThatQuitsIsFollowedByARunThatPassesOverWhatStillRunsAndCtrlCStopsTheWatch)
{
    const QString editor = home.file(u"Applications/Editor.app"_s);
    home.write(u"Editor Drafts/draft.txt"_s, "secret draft");
    // Any program whose command line holds "/Safari.app/" counts as Safari.
    home.write(u"Library/Caches/Safari/Cache.db"_s, "cached pages");
    home.write(u"Library/Safari/History.plist"_s, "visited");
    home.write(u"Library/Safari/Bookmarks.plist"_s, "kept");
    QProcess running;
    QProcess browser;
    startProgram(running, u"Applications/Editor.app/Contents/MacOS/Editor"_s);
    startProgram(browser, u"Applications/Safari.app/Contents/MacOS/Safari"_s);
    prepareRuns({{u"custom"_s, u"add-process"_s, editor},
                 {u"custom"_s, u"add-path"_s, editor, home.file(u"Editor Drafts"_s)},
                 {u"custom"_s, u"keep"_s, editor, home.file(u"Editor Drafts"_s), u"on"_s},
                 {u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"YES"_s}});
    EXPECT_EQ(cli({u"custom"_s, u"list"_s}).out,
              editor + u"\n    "_s + home.file(u"Editor Drafts"_s) + u"  (folder kept)\n"_s);

    startWatch();
    EXPECT_TRUE(waitForOutput(u"A supported browser or email application is running..."_s)) << qPrintable(output);
    running.kill();
    running.waitForFinished();
    // The run erases the folder and then puts it back, empty; Safari's traces stay while it runs.
    EXPECT_TRUE(waitUntil([&] { return !QFileInfo::exists(home.file(u"Editor Drafts/draft.txt"_s)); }));
    EXPECT_TRUE(waitUntil([&] { return QFileInfo(home.file(u"Editor Drafts"_s)).isDir(); }));
    QThread::msleep(600);
    EXPECT_TRUE(QFileInfo::exists(home.file(u"Library/Safari/History.plist"_s)));
    EXPECT_TRUE(QFileInfo::exists(home.file(u"Library/Caches/Safari/Cache.db"_s)));

    browser.kill();
    browser.waitForFinished();
    EXPECT_TRUE(waitForOutput(u"All supported browser or email application have quit..."_s)) << qPrintable(output);
    EXPECT_TRUE(waitUntil([&] { return !QFileInfo::exists(home.file(u"Library/Safari/History.plist"_s)); }));
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Caches/Safari"_s)));
    EXPECT_EQ(home.read(u"Library/Safari/Bookmarks.plist"_s), "kept");
    stopWatch();
}

TEST_F(WatchCliTest, TheWatchNeedsTheSettingAndASensibleInterval)
{
    EXPECT_EQ(cli({u"watch"_s, u"--interval"_s, u"0"_s}).exitCode, 2);
    ASSERT_EQ(cli({u"prefs"_s, u"set"_s, u"Tarnhold"_s, u"NO"_s}).exitCode, 0);
    const CliRun off = cli({u"watch"_s});
    EXPECT_EQ(off.exitCode, 2);
    EXPECT_TRUE(off.err.contains(u"Tarnhold"_s));
    EXPECT_EQ(cli({u"custom"_s, u"add-path"_s, u"/Applications/None.app"_s, u"/tmp"_s}).exitCode, 2);
    EXPECT_EQ(cli({u"custom"_s, u"keep"_s, u"/Applications/None.app"_s, u"/tmp"_s, u"maybe"_s}).exitCode, 2);
}

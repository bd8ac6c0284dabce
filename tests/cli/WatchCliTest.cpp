#include "cli/CliFixture.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QThread>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

class WatchCliTest : public CliFixture {
protected:
    // Waits until the watch has printed text, reading what it prints as it goes.
    bool waitForOutput(QProcess& watch, const QString& text, int milliseconds = 15000)
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < milliseconds) {
            output += QString::fromUtf8(watch.readAllStandardOutput());
            if (output.contains(text))
                return true;
            watch.waitForReadyRead(100);
        }
        return false;
    }

    QString output;
};

} // namespace

TEST_F(WatchCliTest, ACustomProcessThatQuitsIsFollowedByARunAndCtrlCStopsTheWatch)
{
    const QString editor = home.file(u"Applications/Editor.app"_s);
    ASSERT_TRUE(QDir().mkpath(editor + u"/Contents/MacOS"_s));
    ASSERT_TRUE(QFile::copy(u"/bin/sleep"_s, editor + u"/Contents/MacOS/Editor"_s));
    home.write(u"Editor Drafts/draft.txt"_s, "secret draft");
    ASSERT_EQ(cli({u"custom"_s, u"add-process"_s, editor}).exitCode, 0);
    ASSERT_EQ(cli({u"custom"_s, u"add-path"_s, editor, home.file(u"Editor Drafts"_s)}).exitCode, 0);
    ASSERT_EQ(cli({u"custom"_s, u"keep"_s, editor, home.file(u"Editor Drafts"_s), u"on"_s}).exitCode, 0);
    // Eudora 6's trash lies at the root of the start volume, outside the temporary home.
    ASSERT_EQ(cli({u"apps"_s, u"disable"_s, u"Eudora"_s}).exitCode, 0);
    const CliRun list = cli({u"custom"_s, u"list"_s});
    EXPECT_EQ(list.out, editor + u"\n    "_s + home.file(u"Editor Drafts"_s) + u"  (folder kept)\n"_s);

    QProcess running;
    running.start(editor + u"/Contents/MacOS/Editor"_s, {u"60"_s});
    ASSERT_TRUE(running.waitForStarted());

    QProcess watch;
    watch.start(QStringLiteral(VANTLE_CLI_PATH),
                {u"--home"_s, home.path(), u"watch"_s, u"--yes"_s, u"--interval"_s, u"0.2"_s});
    ASSERT_TRUE(watch.waitForStarted());
    EXPECT_TRUE(waitForOutput(watch, u"A supported browser or email application is running..."_s))
        << qPrintable(output);

    running.kill();
    running.waitForFinished();
    EXPECT_TRUE(waitForOutput(watch, u"All supported browser or email application have quit..."_s))
        << qPrintable(output);

    // The run erases the folder and then puts it back, empty.
    QElapsedTimer timer;
    timer.start();
    while (QFileInfo::exists(home.file(u"Editor Drafts/draft.txt"_s)) && timer.elapsed() < 15000)
        QThread::msleep(50);
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Editor Drafts/draft.txt"_s)));
    timer.restart();
    while (!QFileInfo(home.file(u"Editor Drafts"_s)).isDir() && timer.elapsed() < 5000)
        QThread::msleep(50);
    EXPECT_TRUE(QFileInfo(home.file(u"Editor Drafts"_s)).isDir());

    ::kill(pid_t(watch.processId()), SIGINT);
    ASSERT_TRUE(watch.waitForFinished(15000));
    EXPECT_EQ(watch.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(watch.exitCode(), 0);
}

TEST_F(WatchCliTest, WhenSafariQuitsARunErasesItsTraces)
{
    // Any program whose command line holds "/Safari.app/" counts as Safari.
    const QString safari = home.file(u"Applications/Safari.app/Contents/MacOS/Safari"_s);
    ASSERT_TRUE(QDir().mkpath(QFileInfo(safari).absolutePath()));
    ASSERT_TRUE(QFile::copy(u"/bin/sleep"_s, safari));
    home.write(u"Library/Caches/Safari/Cache.db"_s, "cached pages");
    home.write(u"Library/Safari/History.plist"_s, "visited");
    home.write(u"Library/Safari/Bookmarks.plist"_s, "kept");
    ASSERT_EQ(cli({u"apps"_s, u"disable"_s, u"Eudora"_s}).exitCode, 0);
    ASSERT_EQ(cli({u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"YES"_s}).exitCode, 0);

    QProcess browser;
    browser.start(safari, {u"60"_s});
    ASSERT_TRUE(browser.waitForStarted());
    QProcess watch;
    watch.start(QStringLiteral(VANTLE_CLI_PATH),
                {u"--home"_s, home.path(), u"watch"_s, u"--yes"_s, u"--interval"_s, u"0.2"_s});
    ASSERT_TRUE(watch.waitForStarted());
    EXPECT_TRUE(waitForOutput(watch, u"A supported browser or email application is running..."_s))
        << qPrintable(output);
    // While Safari runs its traces stay.
    QThread::msleep(600);
    EXPECT_TRUE(QFileInfo::exists(home.file(u"Library/Safari/History.plist"_s)));

    browser.kill();
    browser.waitForFinished();
    QElapsedTimer timer;
    timer.start();
    while (QFileInfo::exists(home.file(u"Library/Safari/History.plist"_s)) && timer.elapsed() < 15000)
        QThread::msleep(50);
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Safari/History.plist"_s)));
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Caches/Safari"_s)));
    EXPECT_EQ(home.read(u"Library/Safari/Bookmarks.plist"_s), "kept");

    ::kill(pid_t(watch.processId()), SIGINT);
    ASSERT_TRUE(watch.waitForFinished(15000));
    EXPECT_EQ(watch.exitCode(), 0);
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

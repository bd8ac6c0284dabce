#include "cli/CliFixture.h"
#include "cli/RunAccounting.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

#include <poll.h>
#include <pty.h>
#include <unistd.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

class ShredCliTest : public CliFixture {
protected:
    ShredCliTest()
    {
        home.write(u"Library/Caches/Safari/Cache.db"_s, QByteArray(70000, 'c'));
        home.write(u"Library/Safari/History.plist"_s, "visited");
        home.write(u"Library/Safari/Bookmarks.plist"_s, "kept");
        home.write(u"Documents/thesis.txt"_s, "mine");
    }
};

} // namespace

TEST_F(ShredCliTest, ADryRunShowsThePlanAnUnconfirmedRunIsCancelledAndTimingIsReportedOnlyWhenAsked)
{
    const HomeSnapshot before(home.path(), {});
    const QString plan = u"Safari\n"
                         u"  erase      68.4 KiB     1 file  ~/Library/Caches/Safari\n"
                         u"Would erase 1 item (1 file, 68.4 KiB) and rewrite 0 databases and settings files.\n"_s;
    const QRegularExpression stages(uR"(^finding: \d+\.\d{3} s, peak [1-9]\d* KiB \(children \d+ KiB\)\n)"
                                    uR"(shredding: \d+\.\d{3} s, peak [1-9]\d* KiB \(children \d+ KiB\)\n$)"_s);
    const CliRun run = cli({u"shred"_s, u"--dry-run"_s, u"--timing"_s});
    EXPECT_EQ(run.exitCode, 0) << qPrintable(run.err);
    EXPECT_EQ(run.out, plan);
    // A dry run ends with its finding stage.
    EXPECT_TRUE(stages.match(run.err).hasMatch()) << qPrintable(run.err);
    EXPECT_TRUE(run.err.contains(u"\nshredding: 0.000 s"_s)) << qPrintable(run.err);

    const CliRun verbose = cli({u"shred"_s, u"--dry-run"_s, u"--verbose"_s});
    EXPECT_TRUE(verbose.out.startsWith(u"Shred: "_s)) << qPrintable(verbose.out);
    EXPECT_TRUE(verbose.out.contains(u"\nShred: ~/Library/Caches/Safari\n"_s));
    EXPECT_TRUE(verbose.out.contains(u"\nSkip: ~/Library/Safari/History.plist\n"_s));
    EXPECT_TRUE(verbose.out.endsWith(u"\n"_s + plan));
    EXPECT_EQ(verbose.err, QString());
    EXPECT_TRUE(HomeSnapshot(home.path(), {}) == before);

    // Without a terminal to confirm on, the run is cancelled.
    const CliRun unconfirmed = cli({u"shred"_s});
    EXPECT_EQ(unconfirmed.exitCode, 1);
    EXPECT_TRUE(unconfirmed.err.contains(u"Are you sure you want to shred these items: Browser Cache, Mail Trash ?"_s));
    EXPECT_TRUE(QFileInfo::exists(home.file(u"Library/Caches/Safari/Cache.db"_s)));
    // The run only opened its (empty, logging off) log, and the start-up stored its first-run settings.
    QDir(home.file(u".config"_s)).removeRecursively();
    QDir(home.file(u"Library/Logs"_s)).removeRecursively();
    EXPECT_TRUE(HomeSnapshot(home.path(), {}) == before);

    prepareRuns();
    const CliRun timed = cli({u"shred"_s, u"--yes"_s, u"--quiet"_s, u"--timing"_s});
    EXPECT_EQ(timed.exitCode, 0);
    EXPECT_TRUE(stages.match(timed.err).hasMatch()) << qPrintable(timed.err);
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Caches/Safari"_s)));
}

namespace {

// What a terminal shows of the output: a carriage return goes back to the start
// of the line, "ESC [ K" clears the rest of it.
QStringList screenLines(const QByteArray& output)
{
    QStringList lines = QString::fromUtf8(output).split(u'\n');
    for (QString& line : lines) {
        QString shown;
        qsizetype column = 0;
        for (qsizetype i = 0; i < line.size(); ++i) {
            if (line[i] == u'\r') {
                column = 0;
            } else if (QStringView(line).mid(i, 3) == u"\x1b[K") {
                shown.truncate(column);
                i += 2;
            } else {
                // At the end of the line, this appends.
                shown.replace(column++, 1, line[i]);
            }
        }
        line = shown;
    }
    if (lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

} // namespace

TEST_F(ShredCliTest, OnATerminalCtrlCStopsAfterTheCurrentItemAndTheProgressLineNeverMixesWithOtherLines)
{
    // Opera's cache is erased first, slowly: 35 passes over 16 MiB. The others wait behind it.
    prepareRuns({{u"prefs"_s, u"set"_s, u"NumberOfWrites"_s, u"16"_s}});
    home.write(u"Library/Caches/Google/Chrome/Default/Cache/data_0"_s, "chrome");
    const HomeSnapshot waiting(home.path(), {});
    home.write(u"Library/Caches/Opera/cache4/big"_s, QByteArray(16 << 20, 'o'));

    int terminal = -1;
    int device = -1;
    ASSERT_EQ(::openpty(&terminal, &device, nullptr, nullptr, nullptr), 0);
    QProcess process;
    process.setChildProcessModifier([device] {
        ::dup2(device, STDOUT_FILENO);
        ::dup2(device, STDERR_FILENO);
    });
    process.start(QStringLiteral(VANTLE_CLI_PATH), {u"--home"_s, home.path(), u"shred"_s, u"--yes"_s});
    ASSERT_TRUE(process.waitForStarted());
    ::close(device);

    QByteArray output;
    const auto readUntil = [&](const QByteArray& wanted) {
        QElapsedTimer clock;
        clock.start();
        while (!output.contains(wanted) && clock.elapsed() < 60000) {
            pollfd ready{terminal, POLLIN, 0};
            if (::poll(&ready, 1, 100) <= 0)
                continue;
            char buffer[4096];
            const ssize_t got = ::read(terminal, buffer, sizeof buffer);
            if (got <= 0)
                return false;
            output.append(buffer, got);
        }
        return output.contains(wanted);
    };
    ASSERT_TRUE(readUntil("%  ~/Library/Caches/Opera")) << output.constData();
    ::kill(pid_t(process.processId()), SIGINT);
    ASSERT_TRUE(readUntil("Stopping after the current item; the others stay as they are.")) << output.constData();
    ::kill(pid_t(process.processId()), SIGINT);
    readUntil("as asked\r\n");
    ::close(terminal);
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 4);

    // Every line stands alone: no trace of the progress line is left on the screen.
    EXPECT_EQ(screenLines(output),
              (QStringList{u"Stopping after the current item; the others stay as they are."_s,
                           u"Still finishing the current item: it is never left half-erased."_s,
                           u"Erased 1 item (1 file, 16.0 MiB = 16777216 bytes)."_s,
                           u"Rewrote 0 databases and settings files."_s, u"Stopped: 2 items left as they were."_s}) +
                  screenLines(output).filter(u"Took "_s) +
                  QStringList{u"vantle-cli: 2 items could not be erased as asked"_s})
        << output.constData();
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Caches/Opera"_s)));
    EXPECT_TRUE(home.read(u"Library/Logs/Vantle X Log.txt"_s)
                    .contains(" Shredding stopped by the user - 2 items left as they were\n"));
    // Everything else is as it was, the settings aside.
    EXPECT_EQ(waiting.goneOutside({}), QStringList());
    EXPECT_EQ(waiting.changedOutside({}, {u".config/"_s}), QStringList());
}

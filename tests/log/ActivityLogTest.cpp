#include "log/ActivityLog.h"

#include "support/TempHome.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

const QString kLogFile = u"Library/Logs/Vantle X Log.txt"_s;

// "Sun Nov 22 13:39:00 2026 " as ctime gives it, newline replaced by a blank.
const QString kStamp = uR"([A-Z][a-z]{2} [A-Z][a-z]{2} [ \d]\d \d\d:\d\d:\d\d \d{4} )"_s;

mode_t permissions(const QString& path)
{
    struct stat info {};
    if (::stat(QFile::encodeName(path).constData(), &info) != 0)
        return 0;
    return info.st_mode & 07777;
}

// Exits 0 when writing past a 200-byte file-size limit closed the log.
[[noreturn]] void writeUntilTheFileSizeLimit(const QString& path)
{
    std::signal(SIGXFSZ, SIG_IGN);
    ActivityLog::openLog(path);
    const rlimit limit{200, 200};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    for (int i = 0; i < 20 && ActivityLog::isLogOpen(); ++i)
        ActivityLog::writeLogLine(QByteArray(40, 'x'));
    std::_Exit(ActivityLog::isLogOpen() ? 1 : 0);
}

class ActivityLogTest : public ::testing::Test {
protected:
    void TearDown() override { ActivityLog::closeLog(); }
    TempHome home;
};

} // namespace

TEST_F(ActivityLogTest, LinesCarryTheTimeAndEmptyMessagesAreSeparators)
{
    ActivityLog::openRunLog(true);
    ASSERT_TRUE(ActivityLog::isLogOpen());
    ActivityLog::writeLogLine(u"Start Shredding Now"_s);
    ActivityLog::writeLogLine(QByteArray());
    ActivityLog::writeLogLine(QByteArray("ends in newline\n"));
    ActivityLog::writeLogLine(u"Caf\u00e9.db"_s);
    ActivityLog::closeLog();

    const QStringList lines = QString::fromUtf8(home.read(kLogFile)).split(u'\n');
    ASSERT_EQ(lines.size(), 6);
    EXPECT_TRUE(QRegularExpression(u"^"_s + kStamp + u"Start Shredding Now$"_s).match(lines[0]).hasMatch())
        << qPrintable(lines[0]);
    EXPECT_TRUE(QRegularExpression(u"^"_s + kStamp + u"$"_s).match(lines[1]).hasMatch()) << qPrintable(lines[1]);
    EXPECT_TRUE(QRegularExpression(u"^"_s + kStamp + u"ends in newline$"_s).match(lines[2]).hasMatch());
    EXPECT_EQ(lines[3], QString()); // the message's own newline leaves an empty line
    EXPECT_TRUE(lines[4].endsWith(u" Caf\u00e9.db"_s));
    EXPECT_EQ(lines[5], QString());
}

TEST_F(ActivityLogTest, AReopenWhileAnotherThreadWritesLeavesOnlyWholeLines)
{
    ActivityLog::openRunLog(true);
    std::atomic<bool> done{false};
    std::thread writer([&] {
        for (int i = 0; i < 3000; ++i)
            ActivityLog::writeLogLine(QByteArray("a line from the shredding thread"));
        done = true;
    });
    while (!done)
        ActivityLog::openRunLog(true);
    writer.join();
    ActivityLog::writeLogLine(QByteArray("last"));
    ActivityLog::closeLog();

    const QStringList lines = QString::fromUtf8(home.read(kLogFile)).split(u'\n', Qt::SkipEmptyParts);
    ASSERT_FALSE(lines.isEmpty());
    EXPECT_TRUE(lines.last().endsWith(u" last"_s));
    for (const QString& line : lines)
        EXPECT_TRUE(
            QRegularExpression(u"^"_s + kStamp + u"(a line from the shredding thread|last)$"_s).match(line).hasMatch())
            << qPrintable(line);
}

TEST_F(ActivityLogTest, EachRunReplacesTheFileWhichEveryoneMayWriteWithLoggingOffEmptyAndAnUnopenableLogIsSilent)
{
    ActivityLog::openRunLog(true);
    ActivityLog::writeLogLine(u"first run"_s);
    ActivityLog::openRunLog(true); // closes the first run's log
    ActivityLog::writeLogLine(u"second run"_s);
    ActivityLog::closeLog();

    const QString log = QString::fromUtf8(home.read(kLogFile));
    EXPECT_FALSE(log.contains(u"first run"_s));
    EXPECT_TRUE(log.contains(u"second run"_s));
    EXPECT_EQ(permissions(home.file(kLogFile)), 0777u);

    home.write(kLogFile, "an older run\n");
    ASSERT_EQ(::chmod(QFile::encodeName(home.file(kLogFile)).constData(), 0600), 0);

    ActivityLog::openRunLog(false);
    EXPECT_FALSE(ActivityLog::isLogOpen());
    ActivityLog::writeLogLine(u"not written"_s);

    EXPECT_TRUE(QFileInfo::exists(home.file(kLogFile)));
    EXPECT_EQ(home.read(kLogFile), QByteArray());
    EXPECT_EQ(permissions(home.file(kLogFile)), 0777u);

    // Opening twice keeps the first stream.
    ActivityLog::openLog(home.file(u"a.txt"_s));
    ActivityLog::openLog(home.file(u"b.txt"_s));
    ActivityLog::writeLogLine(u"to a"_s);
    ActivityLog::closeLog();
    EXPECT_TRUE(home.read(u"a.txt"_s).contains("to a"));
    EXPECT_FALSE(QFileInfo::exists(home.file(u"b.txt"_s)));

    // A folder where the file should be: no log, nothing reported, writes do nothing.
    ASSERT_TRUE(QFile::remove(home.file(kLogFile)));
    home.write(u"Library/Logs/Vantle X Log.txt/inside"_s, "x");
    ActivityLog::openRunLog(true);
    EXPECT_FALSE(ActivityLog::isLogOpen());
    ActivityLog::writeLogLine(u"nowhere"_s);
    ActivityLog::closeLog();
}

TEST_F(ActivityLogTest, AFailedWriteClosesTheLogForTheRestOfTheRun)
{
    const QString path = home.file(u"limited.txt"_s);
    // In a child process: a file-size limit makes the writes fail part-way.
    EXPECT_EXIT(writeUntilTheFileSizeLimit(path), ::testing::ExitedWithCode(0), "");
    EXPECT_LE(QFileInfo(path).size(), 200);
    EXPECT_GT(QFileInfo(path).size(), 0);
}

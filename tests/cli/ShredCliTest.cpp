#include "cli/CliFixture.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>

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

    // Every file below the home with a digest of its contents.
    QStringList snapshot() const
    {
        QStringList entries;
        QDirIterator it(home.path(), QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            QFile file(path);
            const QByteArray digest = file.open(QIODevice::ReadOnly)
                                          ? QCryptographicHash::hash(file.readAll(), QCryptographicHash::Md5).toHex()
                                          : QByteArray("folder");
            entries.append(path + u' ' + QString::fromLatin1(digest));
        }
        entries.sort();
        return entries;
    }
};

} // namespace

TEST_F(ShredCliTest, ADryRunShowsWhatWouldGoAndLeavesTheHomeByteIdentical)
{
    const QStringList before = snapshot();
    const CliRun run = cli({u"shred"_s, u"--dry-run"_s, u"--yes"_s});
    EXPECT_EQ(run.exitCode, 0) << qPrintable(run.err);
    EXPECT_EQ(snapshot(), before);
    EXPECT_TRUE(run.out.contains(u"Shred: ~/Library/Caches/Safari\n"_s)) << qPrintable(run.out);
    EXPECT_TRUE(run.out.contains(u"       70000  "_s + home.file(u"Library/Caches/Safari"_s) + u'\n'));
    EXPECT_FALSE(run.out.section(u"Would erase:"_s, 1).contains(u"Bookmarks.plist"_s));
}

TEST_F(ShredCliTest, ARunErasesWhatTheLogSaysAndNothingElse)
{
    ASSERT_EQ(cli({u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"YES"_s}).exitCode, 0);
    ASSERT_EQ(cli({u"prefs"_s, u"set"_s, u"ActivityLog"_s, u"YES"_s}).exitCode, 0);
    // Eudora 6's trash lies at the root of the start volume, outside the temporary home.
    ASSERT_EQ(cli({u"apps"_s, u"disable"_s, u"Eudora"_s}).exitCode, 0);
    const CliRun run = cli({u"shred"_s, u"--yes"_s});
    EXPECT_EQ(run.exitCode, 0) << qPrintable(run.err);

    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Caches/Safari"_s)));
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Safari/History.plist"_s)));
    EXPECT_EQ(home.read(u"Library/Safari/Bookmarks.plist"_s), "kept");
    EXPECT_EQ(home.read(u"Documents/thesis.txt"_s), "mine");
    const QString log = QString::fromUtf8(home.read(u"Library/Logs/Vantle X Log.txt"_s));
    EXPECT_TRUE(log.contains(u" Shred: ~/Library/Safari/History.plist\n"_s));
    EXPECT_TRUE(log.endsWith(u" Vantle Completed Successfully\n"_s));
}

TEST_F(ShredCliTest, TimingReportsEachStageOnTheStandardErrorOnlyWhenAsked)
{
    ASSERT_EQ(cli({u"apps"_s, u"disable"_s, u"Eudora"_s}).exitCode, 0);
    const QRegularExpression stages(
        uR"(^finding: \d+\.\d{3} s, peak [1-9]\d* KiB \(children \d+ KiB\)\n)"
        uR"(shredding: \d+\.\d{3} s, peak [1-9]\d* KiB \(children \d+ KiB\)\n$)"_s);
    const CliRun timed = cli({u"shred"_s, u"--yes"_s, u"--quiet"_s, u"--timing"_s});
    EXPECT_EQ(timed.exitCode, 0);
    EXPECT_TRUE(stages.match(timed.err).hasMatch()) << qPrintable(timed.err);
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Caches/Safari"_s)));

    // A dry run ends with its finding stage.
    const CliRun dry = cli({u"shred"_s, u"--yes"_s, u"--dry-run"_s, u"--timing"_s});
    EXPECT_TRUE(stages.match(dry.err).hasMatch()) << qPrintable(dry.err);
    EXPECT_TRUE(dry.err.contains(u"\nshredding: 0.000 s"_s)) << qPrintable(dry.err);

    EXPECT_EQ(cli({u"shred"_s, u"--yes"_s, u"--quiet"_s}).err, QString());
}

TEST_F(ShredCliTest, WithoutATerminalToConfirmOnTheRunIsCancelled)
{
    const QStringList before = snapshot();
    const CliRun run = cli({u"shred"_s});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(u"Are you sure you want to shred these items: Browser Cache, Mail Trash ?"_s));
    EXPECT_TRUE(QFileInfo::exists(home.file(u"Library/Caches/Safari/Cache.db"_s)));
    // The run only opened its (empty, logging off) log, and the start-up stored its first-run settings.
    for (const QString& entry : snapshot()) {
        if (!entry.contains(u"/.config"_s) && !entry.contains(u"/Library/Logs"_s)) {
            EXPECT_TRUE(before.contains(entry)) << qPrintable(entry);
        }
    }
}

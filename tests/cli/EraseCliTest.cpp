#include "cli/CliFixture.h"
#include "cli/RunAccounting.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using EraseCliTest = CliFixture;

TEST_F(EraseCliTest, ErasesWhatItIsGivenAsTheLinksOnItsWayLeadAndWarnsAboutWhatIsMissing)
{
    home.write(u"Library/Caches/Browser/Cache.db"_s, QByteArray(50000, 'c'));
    home.write(u"Library/Cookies/Cookies.plist"_s, "cookies");
    home.write(u"Library/Bookmarks.plist"_s, "keep me");

    const CliRun run = cli({u"erase"_s, home.file(u"Library/Caches/Browser"_s), home.file(u"Library/nothing"_s),
                            u"Library/Cookies/Cookies.plist"_s});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.out.isEmpty());
    // The relative path is taken from the working folder, not the home: nothing there either.
    EXPECT_EQ(run.err.count(u'\n'), 2);
    EXPECT_TRUE(run.err.contains(home.file(u"Library/nothing"_s))) << qPrintable(run.err);
    EXPECT_TRUE(QFileInfo::exists(home.file(u"Library/Cookies/Cookies.plist"_s)));
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Caches/Browser"_s)));
    EXPECT_TRUE(QDir(home.file(u"Library/Caches"_s)).isEmpty());
    EXPECT_EQ(home.read(u"Library/Bookmarks.plist"_s), "keep me");

    const CliRun second = cli({u"erase"_s, u"--quiet"_s, home.file(u"Library/Cookies/Cookies.plist"_s)});
    EXPECT_EQ(second.exitCode, 0);
    EXPECT_TRUE(second.err.isEmpty());
    EXPECT_TRUE(QDir(home.file(u"Library/Cookies"_s)).isEmpty());

    // A dot-dot after a link goes up from where the link points.
    home.write(u"a/x"_s, "kept");
    home.write(u"b/c/placeholder"_s, "");
    home.write(u"b/x"_s, "to erase");
    ASSERT_TRUE(QFile::link(home.file(u"b/c"_s), home.file(u"a/link"_s)));

    EXPECT_EQ(cli({u"erase"_s, u"--quiet"_s, home.file(u"a/link/../x"_s)}).exitCode, 0);
    EXPECT_FALSE(QFileInfo::exists(home.file(u"b/x"_s)));
    EXPECT_EQ(home.read(u"a/x"_s), "kept");
    EXPECT_TRUE(QFileInfo(home.file(u"a/link"_s)).isSymLink());

    // A custom path is stored as the item it names.
    home.write(u"Applications/Editor.app/Contents/MacOS/Editor"_s, "binary");
    const QString editor = home.file(u"Applications/Editor.app"_s);
    ASSERT_EQ(cli({u"custom"_s, u"add-process"_s, editor}).exitCode, 0);
    ASSERT_EQ(cli({u"custom"_s, u"add-path"_s, editor, home.file(u"a/link/../c"_s)}).exitCode, 0);
    const QString listing = cli({u"custom"_s, u"list"_s}).out;
    EXPECT_TRUE(listing.contains(home.file(u"b/c"_s)) || listing.contains(u"~/b/c"_s)) << qPrintable(listing);
    EXPECT_FALSE(listing.contains(u"/a/c"_s)) << qPrintable(listing);
}

TEST_F(EraseCliTest, RefusesTheRootTheHomeAndWhatHoldsItWithoutTouchingAnything)
{
    home.write(u"Library/Caches/x"_s, "x");
    ASSERT_TRUE(QFile::link(home.path(), home.file(u"Library/Caches/link to home"_s)));
    const HomeSnapshot before(home.path(), {});

    for (const QString& target : {u"/"_s, home.path(), home.path() + u"/"_s, home.file(u"Library/.."_s),
                                  QFileInfo(home.path()).absolutePath(), home.file(u"Library/Caches/link to home"_s)}) {
        const CliRun run = cli({u"erase"_s, home.file(u"Library/Caches/x"_s), target});
        EXPECT_EQ(run.exitCode, 2) << qPrintable(target);
        EXPECT_EQ(run.err.count(u'\n'), 2) << qPrintable(run.err);
    }
    EXPECT_EQ(before.goneOutside({}), QStringList());
    EXPECT_EQ(before.changedOutside({}, {u".config/"_s}), QStringList());
}

TEST_F(EraseCliTest, UsesTheStoredSettingsAndTimesTheOverwritingOnlyWhenAsked)
{
    home.write(u"target"_s, "original");
    home.write(u"erased"_s, "original");
    ASSERT_TRUE(QFile::link(home.file(u"target"_s), home.file(u"link"_s)));
    configure(
        {{u"prefs"_s, u"set"_s, u"OverwritePattern"_s, u"5"_s}, {u"prefs"_s, u"set"_s, u"NumberOfWrites"_s, u"2"_s}});

    // The file is overwritten with the chosen pattern (seen through a descriptor
    // held open); a link is removed as a link and its target left alone.
    QFile held(home.file(u"erased"_s));
    ASSERT_TRUE(held.open(QIODevice::ReadOnly));
    EXPECT_EQ(cli({u"erase"_s, home.file(u"link"_s), home.file(u"erased"_s)}).exitCode, 0);
    EXPECT_FALSE(QFileInfo(home.file(u"link"_s)).isSymLink());
    EXPECT_FALSE(QFileInfo::exists(home.file(u"erased"_s)));
    EXPECT_EQ(held.readAll(), QByteArray(16, 0x55));
    EXPECT_EQ(home.read(u"target"_s), "original");

    home.write(u"big.bin"_s, QByteArray(3 * 131072 + 5, 'b'));
    home.write(u"folder/a"_s, "a");
    home.write(u"folder/b"_s, "b");

    const CliRun timed =
        cli({u"erase"_s, u"--quiet"_s, u"--timing"_s, home.file(u"big.bin"_s), home.file(u"folder"_s)});
    EXPECT_EQ(timed.exitCode, 0);
    const QRegularExpressionMatch lines =
        QRegularExpression(
            uR"(^overwriting: (\d+\.\d{3}) s\nerasing: (\d+\.\d{3}) s, peak [1-9]\d* KiB \(children \d+ KiB\)\n$)"_s)
            .match(timed.err);
    ASSERT_TRUE(lines.hasMatch()) << qPrintable(timed.err);
    // The overwriting happens within the erase.
    EXPECT_LE(lines.captured(1).toDouble(), lines.captured(2).toDouble());
    EXPECT_FALSE(QFileInfo::exists(home.file(u"big.bin"_s)));
    EXPECT_FALSE(QFileInfo::exists(home.file(u"folder"_s)));

    home.write(u"again"_s, "again");
    const CliRun quiet = cli({u"erase"_s, u"--quiet"_s, home.file(u"again"_s)});
    EXPECT_EQ(quiet.exitCode, 0);
    EXPECT_EQ(quiet.err, QString());
}

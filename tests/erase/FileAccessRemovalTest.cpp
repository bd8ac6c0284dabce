#include "erase/EraseTestSupport.h"

#include "erase/FileTree.h"
#include "erase/HoldingFolder.h"
#include "log/ActivityLog.h"
#include "support/QtPrinters.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <ctime>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

const QRegularExpression kRandomName(u"^[A-Za-z0-9]{9,32}$"_s);
const QRegularExpression kHoldingFolder(uR"(^Vantle X Items \(\d+\)$)"_s);

class RemovalTest : public ::testing::Test, protected EngineFixture {
protected:
    // Everything left in the home besides the settings the fixture keeps there.
    QStringList leftInHome() const
    {
        QStringList left;
        for (const QByteArray& relative : FileTree::subpaths(QFile::encodeName(home.path()))) {
            const QString name = QFile::decodeName(relative);
            if (!name.startsWith(u".config"_s))
                left << name;
        }
        return left;
    }

    static void setMode(const QString& path, mode_t mode) { ::chmod(QFile::encodeName(path).constData(), mode); }
};

} // namespace

TEST_F(RemovalTest, AFolderTreeIsErasedWholeAndTheListEmptied)
{
    home.write(u"Caches/site/a.db"_s, QByteArray(200000, 'a'));
    home.write(u"Caches/site/deeper/b.txt"_s, "bbb");
    home.write(u"Caches/empty.txt"_s, {});
    ASSERT_TRUE(QDir().mkpath(home.file(u"Caches/empty folder"_s)));
    home.write(u"Cookies.plist"_s, "cookie");
    home.write(u"Bookmarks.plist"_s, "kept");

    RecordingDisplay display;
    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}}, &display);
    // A path given before the folder that holds it counts with the folder.
    QStringList paths{home.file(u"Caches/site/a.db"_s), home.file(u"Caches"_s), home.file(u"Cookies.plist"_s)};
    access.shredDroppedFile(paths);

    EXPECT_TRUE(paths.isEmpty());
    EXPECT_EQ(leftInHome(), QStringList{u"Bookmarks.plist"_s});
    EXPECT_EQ(home.read(u"Bookmarks.plist"_s), "kept");
    const EraseTally& tally = access.tally();
    EXPECT_EQ(tally.items, 2);
    EXPECT_EQ(tally.files, 4);
    EXPECT_EQ(tally.bytes, quint64(200000 + 3 + 6));
    EXPECT_EQ(tally.failed + tally.left, 0);

    ASSERT_GE(display.progress.size(), 3);
    EXPECT_EQ(display.progress.first(), 0.0);
    EXPECT_EQ(display.progress.last(), 0.0);
    EXPECT_EQ(display.progress[display.progress.size() - 2], 100.0);
    for (qsizetype i = 1; i + 1 < display.progress.size(); ++i)
        EXPECT_LE(display.progress[i - 1], display.progress[i]) << i;
    // The entries of the list, never the random names their files get.
    EXPECT_EQ(display.names, (QStringList{home.file(u"Caches/site/a.db"_s), home.file(u"Caches"_s),
                                          home.file(u"Cookies.plist"_s), QString()}));
}

TEST_F(RemovalTest, EverythingIsRenamedBeforeAnyContentIsOverwritten)
{
    home.write(u"Profile/Cache/one"_s, "1");
    home.write(u"Profile/Cache/sub/two"_s, "22");
    home.write(u"Profile/Cache/sub/subsub/three"_s, "333");
    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}});

    QStringList treeAtFirstPass;
    QByteArray firstFile;
    access.setPassObserverForTesting([&](const QByteArray& file, qint64, std::size_t, quint16) {
        if (!firstFile.isEmpty())
            return;
        firstFile = file;
        for (const QByteArray& relative : FileTree::subpaths(QFile::encodeName(home.file(u"Profile"_s)))) {
            if (!relative.endsWith(HoldingFolder::kMarker))
                treeAtFirstPass << QFile::decodeName(relative);
        }
    });
    QStringList paths{home.file(u"Profile/Cache"_s)};
    access.shredDroppedFile(paths);

    // Holding folder, the moved folder, two subfolders and three files.
    ASSERT_EQ(treeAtFirstPass.size(), 7) << qPrintable(treeAtFirstPass.join(u", "_s));
    for (const QString& relative : treeAtFirstPass) {
        const QStringList parts = relative.split(u'/');
        EXPECT_TRUE(kHoldingFolder.match(parts.first()).hasMatch()) << qPrintable(relative);
        for (const QString& part : parts.mid(1))
            EXPECT_TRUE(kRandomName.match(part).hasMatch()) << qPrintable(relative);
    }
    EXPECT_TRUE(firstFile.contains("/Vantle X Items (")) << firstFile.constData();
    EXPECT_TRUE(kRandomName.match(QFile::decodeName(FileTree::lastComponent(firstFile))).hasMatch());
    EXPECT_TRUE(QDir(home.file(u"Profile"_s)).isEmpty());
}

TEST_F(RemovalTest, AFileSetAsideThisSecondStillLosesItsNameBeforeItsContents)
{
    home.write(u"Profile/Local State.vantlex"_s, "old settings");
    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}});
    QByteArray overwritten;
    access.setPassObserverForTesting([&](const QByteArray& file, qint64, std::size_t, quint16) { overwritten = file; });

    const QByteArray holding = HoldingFolder::setAside(path(u"Profile/Local State.vantlex"_s)).value;
    ASSERT_FALSE(holding.isEmpty());
    access.shredNativePaths({holding});

    EXPECT_TRUE(kRandomName.match(QFile::decodeName(FileTree::lastComponent(overwritten))).hasMatch())
        << overwritten.constData();
    EXPECT_TRUE(QDir(home.file(u"Profile"_s)).isEmpty());
}

TEST_F(RemovalTest, PathsWithTheSameParentWithinOneSecondShareAHoldingFolder)
{
    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}});
    for (int attempt = 0; attempt < 5; ++attempt) {
        home.write(u"p/first"_s, "1");
        home.write(u"p/second"_s, "2");
        const std::time_t before = std::time(nullptr);
        const QByteArray firstHolding = access.moveAndRename(path(u"p/first"_s)).value;
        const QByteArray secondHolding = access.moveAndRename(path(u"p/second"_s)).value;
        const bool sameSecond = std::time(nullptr) == before;
        FileTree::removeFileAtPath(firstHolding, access);
        if (!sameSecond)
            continue;
        EXPECT_EQ(firstHolding, secondHolding);
        EXPECT_EQ(FileTree::parentOf(firstHolding), path(u"p"_s));
        EXPECT_TRUE(QDir(home.file(u"p"_s)).isEmpty());
        return;
    }
    FAIL() << "no two moves within one second";
}

TEST_F(RemovalTest, OnlyWhatWasListedIsErasedAndNothingIsOpenedToOthers)
{
    // Outside the erased folder: a file and a folder that links point at, and a
    // document with a second name inside the cache.
    home.write(u"outside/thesis.txt"_s, "precious");
    home.write(u"outside/folder/notes.txt"_s, "notes");
    home.write(u"Documents/keep.txt"_s, "kept by its other name");
    setMode(home.file(u"outside/thesis.txt"_s), 0600);
    setMode(home.file(u"outside/folder"_s), 0700);
    home.write(u"Cache/readonly.txt"_s, "ro");
    home.write(u"Cache/locked/inner.txt"_s, "inner");
    home.write(u"Cache/swapped.txt"_s, QByteArray(300000, 's'));
    ASSERT_TRUE(QFile::link(home.file(u"outside/thesis.txt"_s), home.file(u"Cache/link"_s)));
    ASSERT_TRUE(QFile::link(home.file(u"outside/folder"_s), home.file(u"Cache/folder link"_s)));
    ASSERT_EQ(::link(path(u"Documents/keep.txt"_s).constData(), path(u"Cache/hard link"_s).constData()), 0);
    ASSERT_EQ(::mkfifo(path(u"Cache/fifo"_s).constData(), 0600), 0);
    setMode(home.file(u"Cache/readonly.txt"_s), 0444);
    setMode(home.file(u"Cache/locked/inner.txt"_s), 0444);
    setMode(home.file(u"Cache/locked"_s), 0555);
    const auto modeOf = [this](const QString& relative) {
        struct stat info {};
        ::lstat(path(relative).constData(), &info);
        return info.st_mode;
    };
    const QList<QString> outside{u"outside"_s, u"outside/thesis.txt"_s, u"outside/folder"_s,
                                 u"outside/folder/notes.txt"_s, u"Documents/keep.txt"_s};
    QList<mode_t> modes;
    for (const QString& relative : outside)
        modes << modeOf(relative);

    RecordingDisplay display;
    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}, {u"OverwritePattern"_s, qint64(3)}}, &display);
    EXPECT_EQ(access.sizeInBytes(path(u"Cache"_s)), quint64(2 + 5 + 300000)); // links and second names count nothing
    // While the large file is overwritten, a link to the thesis takes its name:
    // the write goes on into the file that was opened, never through the link.
    bool swapped = false;
    access.setPassObserverForTesting([&](const QByteArray& file, qint64, std::size_t length, quint16) {
        if (!swapped && length == FileAccess::kChunkSize) {
            swapped = ::unlink(file.constData()) == 0 &&
                      ::symlink(path(u"outside/thesis.txt"_s).constData(), file.constData()) == 0;
        }
    });
    ActivityLog::openLog(home.file(u"log.txt"_s));
    QStringList paths{home.file(u"Cache"_s)};
    access.shredDroppedFile(paths);
    ActivityLog::closeLog();

    EXPECT_TRUE(swapped);
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Cache"_s)));
    EXPECT_EQ(home.read(u"outside/thesis.txt"_s), "precious");
    EXPECT_EQ(home.read(u"outside/folder/notes.txt"_s), "notes");
    EXPECT_EQ(home.read(u"Documents/keep.txt"_s), "kept by its other name");
    for (qsizetype i = 0; i < outside.size(); ++i)
        EXPECT_EQ(modeOf(outside[i]), modes[i]) << qPrintable(outside[i]);
    EXPECT_TRUE(home.read(u"log.txt"_s)
                    .contains(" Not overwritten (the file has other names; only this one is removed): " +
                              path(u"Cache/hard link"_s) + '\n'));
    EXPECT_EQ(display.progress[display.progress.size() - 2], 100.0);
}

TEST_F(RemovalTest, APathBehindALinkTheUserMadeIsErasedWhereItLeadsAndTheLogSaysSo)
{
    // The user moved the browser's cache to another disk and left a link.
    home.write(u"elsewhere/Firefox/Cache/entry"_s, "cached");
    home.write(u"elsewhere/Firefox/kept.txt"_s, "kept");
    ASSERT_TRUE(QDir().mkpath(home.file(u"Library/Caches"_s)));
    ASSERT_TRUE(QFile::link(home.file(u"elsewhere/Firefox"_s), home.file(u"Library/Caches/Firefox"_s)));

    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}});
    ActivityLog::openLog(home.file(u"log.txt"_s));
    QStringList paths{home.file(u"Library/Caches/Firefox/Cache"_s)};
    access.shredDroppedFile(paths);
    ActivityLog::closeLog();

    EXPECT_FALSE(QFileInfo::exists(home.file(u"elsewhere/Firefox/Cache"_s)));
    EXPECT_EQ(home.read(u"elsewhere/Firefox/kept.txt"_s), "kept");
    EXPECT_TRUE(QFileInfo(home.file(u"Library/Caches/Firefox"_s)).isSymLink());
    EXPECT_TRUE(home.read(u"log.txt"_s)
                    .contains(" Shred (its folder is a link; erased where it leads): " +
                              path(u"elsewhere/Firefox/Cache"_s) + '\n'));
}

TEST_F(RemovalTest, TreesDeeperThanAPathCanNameAreErasedWhole)
{
    // 1,000 levels of 50-character names: 51,000 bytes of path, far past PATH_MAX.
    const QByteArray level(50, 'd');
    int fd = ::open(path(u""_s).constData(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::mkdirat(fd, "Deep", 0700), 0);
    int next = ::openat(fd, "Deep", O_RDONLY | O_DIRECTORY);
    ::close(fd);
    fd = next;
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(::mkdirat(fd, level.constData(), 0700), 0) << i;
        next = ::openat(fd, level.constData(), O_RDONLY | O_DIRECTORY);
        ::close(fd);
        fd = next;
    }
    const int leaf = ::openat(fd, "leaf.txt", O_WRONLY | O_CREAT, 0600);
    ASSERT_EQ(::write(leaf, "deep secret", 11), 11);
    ::close(leaf);
    ::close(fd);

    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}, {u"OverwritePattern"_s, qint64(3)}});
    int passes = 0;
    access.setPassObserverForTesting([&](const QByteArray&, qint64, std::size_t, quint16) { ++passes; });
    EXPECT_EQ(access.sizeInBytes(path(u"Deep"_s)), 11u);
    ActivityLog::openLog(home.file(u"log.txt"_s));
    QStringList paths{home.file(u"Deep"_s)};
    access.shredDroppedFile(paths);
    ActivityLog::closeLog();

    EXPECT_EQ(passes, 2); // the leaf and its tail
    EXPECT_EQ(leftInHome(), QStringList{u"log.txt"_s});
    EXPECT_FALSE(home.read(u"log.txt"_s).contains("Skip")) << home.read(u"log.txt"_s).left(500).constData();
}

TEST_F(RemovalTest, AMountInsideAnErasedFolderIsNotEntered)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs root to bind-mount a folder";
    home.write(u"Documents/letter.txt"_s, "kept");
    home.write(u"Cache/data"_s, "cache");
    ASSERT_TRUE(QDir().mkpath(home.file(u"Cache/mounted"_s)));
    if (::mount(path(u"Documents"_s).constData(), path(u"Cache/mounted"_s).constData(), nullptr, MS_BIND, nullptr) != 0)
        GTEST_SKIP() << "bind mounts are not allowed here";

    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}});
    ActivityLog::openLog(home.file(u"log.txt"_s));
    QStringList paths{home.file(u"Cache"_s)};
    access.shredDroppedFile(paths);
    ActivityLog::closeLog();

    QByteArray mountPoint;
    for (const QByteArray& relative : FileTree::subpaths(path(u""_s))) {
        if (relative.endsWith("/mounted") || relative == "Cache/mounted")
            mountPoint = path(QFile::decodeName(relative));
    }
    const bool unmounted = !mountPoint.isEmpty() && ::umount(mountPoint.constData()) == 0;
    EXPECT_TRUE(unmounted);
    EXPECT_EQ(home.read(u"Documents/letter.txt"_s), "kept");
    EXPECT_TRUE(home.read(u"log.txt"_s)
                    .contains(" Skip (another file system is mounted here): " + path(u"Cache/mounted"_s) + '\n'));
}

TEST_F(RemovalTest, HoldingFoldersAnInterruptedRunLeftBesideThePathsAreErasedFirst)
{
    // A run killed while it erased: its holding folders still hold random-named
    // items, half overwritten or not at all.
    home.write(u"Caches/Vantle X Items (1700000000)/Ab3dEf7hIj"_s, "not yet overwritten");
    home.write(u"Caches/Vantle X Items (1700000000)/Kl9mNo1pQr/St5uVw7xYz"_s, "deeper");
    home.write(u"Caches/site.db"_s, "queued");
    home.write(u"Gone/Vantle X Items (42)/Zz1yXx2wVv"_s, "beside a path that is gone");
    for (const QString& folder : {u"Caches/Vantle X Items (1700000000)/"_s, u"Gone/Vantle X Items (42)/"_s})
        home.write(folder + QLatin1StringView(HoldingFolder::kMarker), {});
    // Not holding folders, or not beside a path of the run; the user's own folder
    // of that name has no marker.
    home.write(u"Caches/Vantle X Items (1699999999)/notes.txt"_s, "mine");
    home.write(u"Caches/Vantle X Items (12) copy/keep"_s, "1");
    home.write(u"Caches/Vantle X Items ()/keep"_s, "2");
    home.write(u"Caches/Vantle X Items (7)"_s, "a file");
    home.write(u"Other/Vantle X Items (5)/keep"_s, "3");
    ActivityLog::openLog(home.file(u"run.log"_s));

    RecordingDisplay display;
    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}}, &display);
    QList<QByteArray> overwritten;
    access.setPassObserverForTesting([&](const QByteArray& file, qint64, std::size_t, quint16) {
        overwritten.append(FileTree::lastComponent(file));
    });
    QStringList paths{home.file(u"Caches/site.db"_s), home.file(u"Gone/cache"_s)};
    access.shredDroppedFile(paths);
    ActivityLog::closeLog();

    QStringList left = leftInHome();
    left.sort();
    EXPECT_EQ(left,
              (QStringList{u"Caches"_s, u"Caches/Vantle X Items ()"_s, u"Caches/Vantle X Items ()/keep"_s,
                           u"Caches/Vantle X Items (12) copy"_s, u"Caches/Vantle X Items (12) copy/keep"_s,
                           u"Caches/Vantle X Items (1699999999)"_s, u"Caches/Vantle X Items (1699999999)/notes.txt"_s,
                           u"Caches/Vantle X Items (7)"_s, u"Gone"_s, u"Other"_s, u"Other/Vantle X Items (5)"_s,
                           u"Other/Vantle X Items (5)/keep"_s, u"run.log"_s}));
    for (const QByteArray name : {"Ab3dEf7hIj", "St5uVw7xYz", "Zz1yXx2wVv"})
        EXPECT_TRUE(overwritten.contains(name)) << name.constData();
    const QByteArray written = home.read(u"run.log"_s);
    EXPECT_TRUE(written.contains(
        " Shred (left by an interrupted run): " + path(u"Caches/Vantle X Items (1700000000)"_s) + '\n'));
    EXPECT_TRUE(written.contains(" Shred (left by an interrupted run): " + path(u"Gone/Vantle X Items (42)"_s) + '\n'));
    // They count in the progress, which ends at 100.
    EXPECT_EQ(display.progress[display.progress.size() - 2], 100.0);
}

TEST_F(RemovalTest, AnyNameSurvivesTheTrip)
{
    const QList<QByteArray> names{"with space",  "double\"quote",    "single'quote", "new\nline",
                                  "caf\xc3\xa9", "bad\xff\xfe utf8", "-dash",        "*star?"};
    const QByteArray folder = path(u"names"_s);
    ASSERT_EQ(::mkdir(folder.constData(), 0755), 0);
    QList<QByteArray> paths;
    for (const QByteArray& name : names) {
        const QByteArray file = FileTree::join(folder, name);
        FILE* out = std::fopen(file.constData(), "w");
        ASSERT_NE(out, nullptr) << name.constData();
        std::fputs("secret", out);
        std::fclose(out);
        paths.append(file);
    }
    // Half given one by one, the rest with their folder.
    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}});
    access.shredNativePaths(paths.mid(0, 4));
    EXPECT_EQ(FileTree::entries(folder).size(), 4);
    access.shredNativePaths({folder});
    EXPECT_FALSE(FileTree::exists(folder));
}

TEST_F(RemovalTest, MissingPathsAreSkippedAndAnEmptyListOnlyResetsTheDisplay)
{
    RecordingDisplay display;
    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}}, &display);
    QStringList none;
    access.shredDroppedFile(none);
    EXPECT_EQ(display.progress, (QList<double>{0.0, 0.0}));
    EXPECT_EQ(display.names, QStringList{QString()});

    home.write(u"real"_s, QByteArray(1000, 'r'));
    QStringList paths{home.file(u"gone"_s), home.file(u"real"_s), home.file(u"gone/too"_s)};
    access.shredDroppedFile(paths);
    EXPECT_TRUE(leftInHome().isEmpty());
}

TEST_F(RemovalTest, AWorkerThreadShowsProgressOnTheMainThreadAndWaits)
{
    home.write(u"big"_s, QByteArray(600000, 'b'));
    RecordingDisplay display;
    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}}, &display);

    std::atomic<bool> done{false};
    std::thread worker([&] {
        QStringList paths{home.file(u"big"_s)};
        access.shredDroppedFile(paths);
        done = true;
    });
    while (!done)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    worker.join();

    EXPECT_TRUE(display.onMainThread);
    // Five chunks of the 600,000 bytes: 21, 43, 65, 87, 100 percent.
    EXPECT_EQ(display.progress, (QList<double>{0, 21, 43, 65, 87, 100, 0}));
}

TEST_F(RemovalTest, AStopEndsTheEraseBetweenItemsAndLeavesTheRestAsTheyWere)
{
    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}});
    // The stop comes during some pass over the files: the first, a later one, or after the last.
    for (const int stopAtPass : {1, 12, 100000}) {
        const QByteArray contents(300000, 'x');
        QStringList paths;
        for (int i = 0; i < 3; ++i) {
            home.write(u"item%1/data"_s.arg(i), contents);
            paths.append(home.file(u"item%1"_s.arg(i)));
        }
        int passes = 0;
        access.setStopRequested(false);
        access.setPassObserverForTesting([&](const QByteArray&, qint64, std::size_t, quint16) {
            if (++passes == stopAtPass)
                access.setStopRequested(true);
        });
        ActivityLog::openLog(home.file(u"log.txt"_s));
        access.shredDroppedFile(paths);
        ActivityLog::closeLog();

        qint64 gone = 0;
        qint64 untouched = 0;
        for (int i = 0; i < 3; ++i) {
            const QString item = u"item%1"_s.arg(i);
            if (!QFileInfo::exists(home.file(item)))
                ++gone;
            else if (home.read(item + u"/data"_s) == contents &&
                     QDir(home.file(item)).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size() == 1)
                ++untouched;
        }
        const EraseTally& tally = access.tally();
        EXPECT_EQ(gone + untouched, 3) << stopAtPass;
        EXPECT_EQ(tally.items, gone);
        EXPECT_EQ(tally.left, untouched);
        EXPECT_EQ(tally.stopped, untouched != 0);
        const bool said = home.read(u"log.txt"_s)
                              .contains(" Shredding stopped by the user - " + QByteArray::number(untouched) +
                                        " items left as they were\n");
        EXPECT_EQ(said, untouched != 0) << stopAtPass;
        // The first item is under way at the first pass; all have ended long before the last.
        if (stopAtPass == 1) {
            EXPECT_EQ(untouched, 2);
        } else if (stopAtPass == 100000) {
            EXPECT_EQ(gone, 3);
        }
        for (int i = 0; i < 3; ++i)
            QDir(home.file(u"item%1"_s.arg(i))).removeRecursively();
    }
}

namespace {

// As another user (the tests usually run as root, to whom every file is writable),
// erases a folder holding a file that user may not open, a read-only file and a
// read-only folder it owns, and a file it may write but not remove. Exits 0.
[[noreturn]] void eraseAsUser(FileAccess& access, uid_t uid, gid_t gid, const QList<QByteArray>& paths)
{
    if (::setgid(gid) != 0 || ::setuid(uid) != 0)
        std::_Exit(3);
    access.shredNativePaths(paths);
    std::_Exit(0);
}

void chownTree(const QString& path, uid_t uid, gid_t gid)
{
    const QByteArray root = QFile::encodeName(path);
    ::chown(root.constData(), uid, gid);
    for (const QByteArray& relative : FileTree::subpaths(root))
        ::lchown(FileTree::join(root, relative).constData(), uid, gid);
}

} // namespace

TEST_F(RemovalTest, WithoutPermissionItemsAreRemovedWherePossibleAndOthersLeftAsTheyAre)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs root to act as another user";
    const uid_t nobody = 65534;
    const gid_t nogroup = 65534;
    setMode(home.path(), 0755);

    home.write(u"p/w/theirs.txt"_s, "owned by root");
    home.write(u"p/w/readonly.txt"_s, "read only");
    home.write(u"p/w/locked/inner.txt"_s, "inner");
    home.write(u"r/writable.txt"_s, "writable, not removable");
    chownTree(home.file(u"p"_s), nobody, nogroup);
    chownTree(home.file(u"r/writable.txt"_s), nobody, nogroup);
    ::chown(QFile::encodeName(home.file(u"p/w/theirs.txt"_s)).constData(), 0, 0);
    setMode(home.file(u"p/w/readonly.txt"_s), 0444);
    setMode(home.file(u"p/w/locked/inner.txt"_s), 0444);
    setMode(home.file(u"p/w/locked"_s), 0555);
    // Held open, to see what became of the contents once the names are gone
    // (a second name would keep the erase from overwriting them).
    const int theirs = ::open(path(u"p/w/theirs.txt"_s).constData(), O_RDONLY);
    const int readonly = ::open(path(u"p/w/readonly.txt"_s).constData(), O_RDONLY);
    const auto contents = [](int fd) {
        QByteArray bytes(64, '?');
        const ssize_t read = ::pread(fd, bytes.data(), std::size_t(bytes.size()), 0);
        bytes.resize(read < 0 ? 0 : read);
        ::close(fd);
        return bytes;
    };

    const QFileDevice::Permissions writableMode = QFileInfo(home.file(u"r/writable.txt"_s)).permissions();

    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}, {u"OverwritePattern"_s, qint64(3)}});
    ActivityLog::openLog(home.file(u"log.txt"_s));
    EXPECT_EXIT(eraseAsUser(access, nobody, nogroup, {path(u"p/w"_s), path(u"r/writable.txt"_s)}),
                ::testing::ExitedWithCode(0), "");
    ActivityLog::closeLog();

    EXPECT_TRUE(QDir(home.file(u"p"_s)).isEmpty());
    EXPECT_EQ(contents(theirs), "owned by root");        // could not be opened: removed as it was
    EXPECT_EQ(contents(readonly), QByteArray(18, '\0')); // writable by its owner, overwritten, removed
    // It cannot be moved aside: not a byte of it changes, nor its mode.
    EXPECT_EQ(home.read(u"r/writable.txt"_s), "writable, not removable");
    EXPECT_EQ(QFileInfo(home.file(u"r/writable.txt"_s)).permissions(), writableMode);
    EXPECT_EQ(QDir(home.file(u"r"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList{u"writable.txt"_s});
    // The one item left in place, with the reason.
    const QByteArray log = home.read(u"log.txt"_s);
    EXPECT_EQ(log.count("Skip ("), 1) << log.constData();
    EXPECT_TRUE(log.contains(" Skip (Move failed: Permission denied): " + path(u"r/writable.txt"_s) + '\n'));
}

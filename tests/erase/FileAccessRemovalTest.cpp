#include "erase/DiskRecorder.h"
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
#include <unistd.h>

#include <atomic>
#include <climits>
#include <functional>
#include <thread>

using namespace Qt::StringLiterals;
using Code = Error::Code;

namespace {

bool isRandom(const QByteArray& name)
{
    static const QRegularExpression random(u"^[A-Za-z0-9]{9,32}$"_s);
    return random.match(QFile::decodeName(name)).hasMatch();
}

class RemovalTest : public ::testing::Test, protected EngineFixture {
protected:
    // Everything left in the home besides the settings the fixture keeps there, sorted.
    QStringList leftInHome() const
    {
        QStringList left;
        for (const QByteArray& relative : FileTree::subpaths(QFile::encodeName(home.path()))) {
            if (!relative.startsWith(".config"))
                left << QFile::decodeName(relative);
        }
        left.sort();
        return left;
    }

    void setModes(const QList<std::pair<QString, mode_t>>& modes) const
    {
        for (const auto& [relative, mode] : modes)
            ::chmod(path(relative).constData(), mode);
    }

    // The activity log of what erase does.
    QByteArray logOf(const std::function<void()>& erase) const
    {
        ActivityLog::openLog(home.file(u"log.txt"_s));
        erase();
        ActivityLog::closeLog();
        return home.read(u"log.txt"_s);
    }
};

} // namespace

TEST_F(RemovalTest, AListIsErasedWholeFromAWorkerThreadThatShowsItsProgressOnTheMainThread)
{
    home.write(u"Caches/site/a.db"_s, QByteArray(600000, 'a'));
    home.write(u"Caches/site/deeper/b.txt"_s, "bbb");
    home.write(u"Caches/empty.txt"_s, {});
    ASSERT_TRUE(QDir().mkpath(home.file(u"Caches/empty folder"_s)));
    home.write(u"Cookies.plist"_s, "cookie");
    home.write(u"Bookmarks.plist"_s, "kept");
    RecordingDisplay display;
    FileAccess& access = engine(eraseSettings(2), &display);
    QStringList none;
    access.shredDroppedFile(none);
    EXPECT_EQ(display.progress, (QList<double>{0, 0}));
    display.progress.clear();

    // A path given before the folder that holds it counts with the folder; missing ones are passed over.
    QStringList paths{home.file(u"Caches/site/a.db"_s), home.file(u"gone"_s), home.file(u"Caches"_s),
                      home.file(u"Cookies.plist"_s), home.file(u"gone/too"_s)};
    std::atomic<bool> done{false};
    std::thread worker([&] {
        access.shredDroppedFile(paths);
        done = true;
    });
    while (!done)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    worker.join();

    EXPECT_TRUE(paths.isEmpty());
    EXPECT_EQ(leftInHome(), QStringList{u"Bookmarks.plist"_s});
    EXPECT_EQ(home.read(u"Bookmarks.plist"_s), "kept");
    const EraseTally& tally = access.tally();
    EXPECT_EQ(tally.items, 2);
    EXPECT_EQ(tally.files, 4);
    EXPECT_EQ(tally.bytes, quint64(600000 + 3 + 6));
    EXPECT_EQ(tally.incomplete(), 0);
    EXPECT_TRUE(tally.errors.isEmpty());
    EXPECT_TRUE(display.onMainThread);
    // At each chunk of each file: a.db's five, then the others.
    EXPECT_EQ(display.progress, (QList<double>{0, 21, 43, 65, 87, 99, 99, 99, 100, 0}));
    // The entries of the list, never the random names their files get.
    EXPECT_EQ(display.names, (QStringList{QString(), home.file(u"Caches/site/a.db"_s), home.file(u"Caches"_s),
                                          home.file(u"Cookies.plist"_s), QString()}));
}

TEST_F(RemovalTest, NewNamesAndEveryPassAreOnTheDiskBeforeTheyCouldBeLost)
{
    home.write(u"Profile/Cache/one"_s, "1");
    home.write(u"Profile/Cache/sub/small"_s, QByteArray(1000, 's'));
    home.write(u"Profile/Cache/sub/deeper/large"_s, QByteArray(300000, 'l'));
    // Set aside by a rewrite this very second: it is already in its holding folder.
    home.write(u"Other/Local State.vantlex"_s, "old settings");
    const QByteArray setAside = HoldingFolder::setAside(path(u"Other/Local State.vantlex"_s)).value;
    ASSERT_FALSE(setAside.isEmpty());

    FileAccess& access = engine(eraseSettings(4));
    QList<QByteArray> overwritten;
    QList<QByteArray> treeAtFirstPass;
    qsizetype passesWithBytes = 0;
    access.setPassObserverForTesting([&](const QByteArray& file, qint64, std::size_t length, quint16) {
        for (const QByteArray& relative : FileTree::subpaths(path(u"Profile"_s))) {
            if (overwritten.isEmpty() && !relative.endsWith(HoldingFolder::kMarker))
                treeAtFirstPass << relative;
        }
        overwritten << file;
        passesWithBytes += length > 0;
    });
    DiskRecorder::start(QFile::encodeName(home.path()));
    access.shredNativePaths({path(u"Profile/Cache"_s), setAside});
    const QList<DiskRecorder::Event> events = DiskRecorder::stop();
    EXPECT_EQ(leftInHome(), (QStringList{u"Other"_s, u"Profile"_s}));

    // Before any contents are overwritten, every item has a random name: the
    // holding folder, the moved folder, two folders and three files in it...
    ASSERT_EQ(treeAtFirstPass.size(), 7) << treeAtFirstPass.join(", ").constData();
    const QByteArray holding = treeAtFirstPass.first().split('/').first();
    EXPECT_TRUE(HoldingFolder::isHoldingFolderName(holding));
    for (const QByteArray& relative : treeAtFirstPass) {
        for (const QByteArray& part : relative.split('/').mid(1))
            EXPECT_TRUE(isRandom(part)) << relative.constData();
    }
    for (const QByteArray& file : overwritten)
        EXPECT_TRUE(file.contains("/Vantle X Items (") && isRandom(FileTree::lastComponent(file))) << file.constData();
    // ...and the renames are synced, each folder after those inside it.
    const QByteArray at = path(u"Profile"_s) + '/' + holding;
    QSet<QByteArray> synced;
    for (auto event = events.cbegin(); event != events.cend() && event->kind != DiskRecorder::Event::Write; ++event)
        synced.insert(event->path);
    EXPECT_EQ(synced,
              (QSet<QByteArray>{at + "/Cache/sub/deeper", at + "/Cache/sub", at + "/Cache", at, path(u"Profile"_s)}));
    // What goes through the page cache reaches the device before the next pass
    // over the same bytes, and before the file goes.
    QHash<ino_t, QList<std::pair<qint64, qint64>>> cached;
    qsizetype writes = 0;
    for (const DiskRecorder::Event& event : events) {
        QList<std::pair<qint64, qint64>>& pending = cached[event.inode];
        const qint64 end = event.length == 0 ? LLONG_MAX : event.offset + event.length;
        if (event.kind != DiskRecorder::Event::Write) {
            pending.removeIf([&](const auto& range) { return event.offset <= range.first && range.second <= end; });
            continue;
        }
        ++writes;
        for (const auto& [from, to] : pending)
            EXPECT_FALSE(event.offset < to && from < end) << event.path.constData() << " at " << event.offset;
        if (!event.direct)
            pending.append({event.offset, end});
    }
    EXPECT_GE(writes, passesWithBytes);
    for (auto it = cached.cbegin(); it != cached.cend(); ++it)
        EXPECT_TRUE(it->isEmpty()) << "inode " << it.key();
}

TEST_F(RemovalTest, ItemsSetAsideWithinOneSecondShareTheirHoldingFolder)
{
    for (int attempt = 0; attempt < 5; ++attempt) {
        home.write(u"p/first"_s, "1");
        home.write(u"p/second"_s, "2");
        const QByteArray second = HoldingFolder::nameNow();
        const Expected<QByteArray> first = HoldingFolder::setAside(path(u"p/first"_s));
        const Expected<QByteArray> next = HoldingFolder::setAside(path(u"p/second"_s));
        if (HoldingFolder::nameNow() == second) {
            EXPECT_TRUE(first.ok() && next.ok());
            EXPECT_EQ(first.value, next.value);
            EXPECT_EQ(FileTree::entries(first.value).size(), 3); // both, and the marker
            return;
        }
        QDir(home.file(u"p"_s)).removeRecursively();
    }
    FAIL() << "no two moves within one second";
}

TEST_F(RemovalTest, OnlyWhatWasListedOrLeftByAnInterruptedRunIsErasedAndNothingIsOpenedToOthers)
{
    // Outside the erased folder: a file and a folder that links point at, and a
    // document with a second name inside the cache.
    home.write(u"outside/thesis.txt"_s, "precious");
    home.write(u"outside/folder/notes.txt"_s, "notes");
    home.write(u"Documents/keep.txt"_s, "kept by its other name");
    setModes({{u"outside/thesis.txt"_s, 0600}, {u"outside/folder"_s, 0700}});
    home.write(u"Cache/readonly.txt"_s, "ro");
    home.write(u"Cache/locked/inner.txt"_s, "inner");
    home.write(u"Cache/swapped.txt"_s, QByteArray(300000, 's'));
    ASSERT_TRUE(QFile::link(home.file(u"outside/thesis.txt"_s), home.file(u"Cache/link"_s)));
    ASSERT_TRUE(QFile::link(home.file(u"outside/folder"_s), home.file(u"Cache/folder link"_s)));
    ASSERT_EQ(::link(path(u"Documents/keep.txt"_s).constData(), path(u"Cache/hard link"_s).constData()), 0);
    ASSERT_EQ(::mkfifo(path(u"Cache/fifo"_s).constData(), 0600), 0);
    setModes({{u"Cache/readonly.txt"_s, 0444}, {u"Cache/locked/inner.txt"_s, 0444}, {u"Cache/locked"_s, 0555}});
    // The user moved a browser's cache to another disk and left a link: it is erased there.
    home.write(u"elsewhere/Firefox/Cache/entry"_s, "cached");
    home.write(u"elsewhere/Firefox/kept.txt"_s, "kept");
    ASSERT_TRUE(QDir().mkpath(home.file(u"Library/Caches"_s)));
    ASSERT_TRUE(QFile::link(home.file(u"elsewhere/Firefox"_s), home.file(u"Library/Caches/Firefox"_s)));
    // A run killed while it erased: its holding folders beside the paths still
    // hold random-named items, half overwritten or not at all.
    home.write(u"Caches/Vantle X Items (1700000000)/Ab3dEf7hIj"_s, QByteArray(100000, 'n')); // below a chunk
    home.write(u"Caches/Vantle X Items (1700000000)/Kl9mNo1pQr/St5uVw7xYz"_s, "deeper");
    home.write(u"Caches/site.db"_s, "queued");
    home.write(u"Gone/Vantle X Items (42)/Zz1yXx2wVv"_s, "beside a path that is gone");
    const QStringList leftOvers{u"Caches/Vantle X Items (1700000000)"_s, u"Gone/Vantle X Items (42)"_s};
    for (const QString& folder : leftOvers)
        home.write(folder + u'/' + QLatin1StringView(HoldingFolder::kMarker), {});
    // Not holding folders, or not beside a path of the run; the user's own folder
    // of that name has no marker.
    const QStringList kept{u"Caches/Vantle X Items (1699999999)/notes.txt"_s, u"Caches/Vantle X Items (12) copy/k"_s,
                           u"Caches/Vantle X Items ()/k"_s, u"Other/Vantle X Items (5)/k"_s};
    for (const QString& file : kept)
        home.write(file, "mine");
    home.write(u"Caches/Vantle X Items (7)"_s, "a file");
    const QStringList outside{u"outside"_s, u"outside/thesis.txt"_s, u"outside/folder"_s, u"outside/folder/notes.txt"_s,
                              u"Documents/keep.txt"_s};
    QHash<ino_t, mode_t> modes;
    for (const QString& relative :
         outside + QStringList{u"Cache/readonly.txt"_s, u"Cache/locked"_s, u"Cache/locked/inner.txt"_s})
        modes.insert(statOf(path(relative)).st_ino, statOf(path(relative)).st_mode);

    RecordingDisplay display;
    FileAccess& access = engine(eraseSettings(2, 3), &display);
    EXPECT_EQ(access.sizeInBytes(path(u"Cache"_s)), quint64(2 + 5 + 300000)); // links and second names count nothing
    // While the large file is overwritten, a link to the thesis takes its name:
    // the write goes on into the file that was opened, never through the link.
    // What is being erased is opened to its owner alone.
    bool swapped = false;
    QList<QByteArray> overwritten;
    access.setPassObserverForTesting([&](const QByteArray& file, qint64, std::size_t length, quint16) {
        overwritten.append(FileTree::lastComponent(file));
        for (const struct stat& info : {statOf(file), statOf(FileTree::parentOf(file))}) {
            if (!S_ISLNK(info.st_mode) && modes.contains(info.st_ino)) {
                EXPECT_EQ(info.st_mode & 077, modes[info.st_ino] & 077) << file.constData();
            }
        }
        if (!swapped && length == FileAccess::kChunkSize) {
            swapped = ::unlink(file.constData()) == 0 &&
                      ::symlink(path(u"outside/thesis.txt"_s).constData(), file.constData()) == 0;
        }
    });
    // The cache last: no holding folder made later may take the number of one of its files.
    QStringList paths{home.file(u"Library/Caches/Firefox/Cache"_s), home.file(u"Caches/site.db"_s),
                      home.file(u"Gone/cache"_s), home.file(u"Cache"_s)};
    const QByteArray log = logOf([&] { access.shredDroppedFile(paths); });

    EXPECT_TRUE(swapped);
    QStringList expected = kept;
    expected.append(QStringList{u"Caches"_s, u"Caches/Vantle X Items (7)"_s, u"Documents"_s, u"Documents/keep.txt"_s,
                                u"Gone"_s, u"Library"_s, u"Library/Caches"_s, u"Library/Caches/Firefox"_s, u"Other"_s,
                                u"elsewhere"_s, u"elsewhere/Firefox"_s, u"elsewhere/Firefox/kept.txt"_s, u"log.txt"_s,
                                u"outside"_s, u"outside/folder"_s, u"outside/folder/notes.txt"_s,
                                u"outside/thesis.txt"_s});
    for (const QString& file : kept)
        expected << file.section(u'/', 0, -2);
    expected.sort();
    EXPECT_EQ(leftInHome(), expected);
    for (const QByteArray name : {"Ab3dEf7hIj", "St5uVw7xYz", "Zz1yXx2wVv"})
        EXPECT_TRUE(overwritten.contains(name)) << name.constData();
    for (const QString& folder : leftOvers)
        EXPECT_TRUE(log.contains(" Shred (left by an interrupted run): " + path(folder) + '\n'));
    EXPECT_EQ(home.read(u"outside/thesis.txt"_s), "precious");
    EXPECT_EQ(home.read(u"outside/folder/notes.txt"_s), "notes");
    EXPECT_EQ(home.read(u"Documents/keep.txt"_s), "kept by its other name");
    EXPECT_EQ(home.read(u"elsewhere/Firefox/kept.txt"_s), "kept");
    for (const QString& relative : outside)
        EXPECT_EQ(statOf(path(relative)).st_mode, modes[statOf(path(relative)).st_ino]) << qPrintable(relative);
    EXPECT_TRUE(log.contains(
        " Shred (its folder is a link; erased where it leads): " + path(u"elsewhere/Firefox/Cache"_s) + '\n'));
    const EraseTally& tally = access.tally();
    ASSERT_EQ(tally.errors.size(), 1);
    EXPECT_EQ(tally.errors[0].code, Code::OtherNames);
    EXPECT_EQ(tally.errors[0].path, path(u"Cache/hard link"_s)); // by its name before the erase
    EXPECT_EQ(tally.incomplete(), 0);
    // The left-overs count in the progress, which ends at 100.
    EXPECT_EQ(display.progress[display.progress.size() - 2], 100.0);
}

TEST_F(RemovalTest, TreesDeeperThanAPathCanNameAndAnyNamesAreErasedWhole)
{
    // Files of any name at the top, given one by one or with their folder; and
    // 1,000 levels of 50-character names below: 51,000 bytes of path, far past PATH_MAX.
    ASSERT_TRUE(QDir().mkpath(home.file(u"Deep"_s)));
    int fd = ::open(path(u"Deep"_s).constData(), O_RDONLY | O_DIRECTORY);
    QList<QByteArray> paths;
    for (const QByteArray name : {"with space", "double\"quote", "single'quote", "new\nline", "caf\xc3\xa9",
                                  "bad\xff\xfe utf8", "-dash", "*star?"}) {
        paths << FileTree::join(path(u"Deep"_s), name);
        const int file = ::openat(fd, name.constData(), O_WRONLY | O_CREAT, 0600);
        ASSERT_EQ(::write(file, "any secret", 10), 10) << name.constData();
        ::close(file);
    }
    const QByteArray level(50, 'd');
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(::mkdirat(fd, level.constData(), 0700), 0) << i;
        const int next = ::openat(fd, level.constData(), O_RDONLY | O_DIRECTORY);
        ::close(fd);
        fd = next;
    }
    const int leaf = ::openat(fd, "leaf.txt", O_WRONLY | O_CREAT, 0600);
    ASSERT_EQ(::write(leaf, "deep secret", 11), 11);
    ::close(leaf);
    ::close(fd);

    FileAccess& access = engine(eraseSettings(2, 3));
    int passes = 0;
    access.setPassObserverForTesting([&](const QByteArray&, qint64, std::size_t, quint16) { ++passes; });
    EXPECT_EQ(access.sizeInBytes(path(u"Deep"_s)), 8u * 10 + 11);
    access.shredNativePaths(paths.mid(0, 4));
    EXPECT_EQ(FileTree::entries(path(u"Deep"_s)).size(), 4 + 1);
    access.shredNativePaths({path(u"Deep"_s)});

    EXPECT_EQ(passes, 2 * 9); // each file and its tail
    EXPECT_TRUE(leftInHome().isEmpty());
    EXPECT_EQ(access.tally().items, 1);
    EXPECT_TRUE(access.tally().errors.isEmpty());
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

    FileAccess& access = engine(eraseSettings(2));
    access.shredNativePaths({path(u"Cache"_s)});

    const QStringList left = leftInHome().filter(QRegularExpression(u"/mounted$"_s));
    EXPECT_TRUE(left.size() == 1 && ::umount(path(left[0]).constData()) == 0) << qPrintable(left.join(u' '));
    EXPECT_EQ(home.read(u"Documents/letter.txt"_s), "kept");
    // The folders that hold it stay, and the item counts as failed.
    const EraseTally& tally = access.tally();
    QList<Code> codes;
    for (const Error& error : tally.errors)
        codes << error.code;
    EXPECT_EQ(codes, (QList<Code>{Code::MountedInside, Code::RemoveFailed, Code::RemoveFailed}));
    EXPECT_EQ(tally.errors.value(0).path, path(u"Cache/mounted"_s));
    EXPECT_EQ(tally.errors.value(1).systemError, ENOTEMPTY);
    EXPECT_EQ(tally.failed, 1);
}

TEST_F(RemovalTest, AStopEndsTheEraseBetweenItemsAndLeavesTheRestAsTheyWere)
{
    FileAccess& access = engine(eraseSettings(2));
    // Four passes an item; the stop comes during the first, the second, or after the last.
    const QList<std::pair<int, qint64>> stops{{1, 2}, {6, 1}, {100000, 0}};
    for (const auto& [stopAtPass, left] : stops) {
        const QByteArray contents(300000, 'x');
        QStringList paths;
        for (int i = 0; i < 3; ++i) {
            paths.append(home.file(u"item%1"_s.arg(i)));
            home.write(u"item%1/data"_s.arg(i), contents);
        }
        int passes = 0;
        access.setStopRequested(false);
        access.setPassObserverForTesting([&](const QByteArray&, qint64, std::size_t, quint16) {
            if (++passes == stopAtPass)
                access.setStopRequested(true);
        });
        QStringList list = paths;
        const QByteArray log = logOf([&] { access.shredDroppedFile(list); });

        // Each item is erased whole or left exactly as it was: the last ones.
        QStringList untouched;
        for (const QString& item : paths) {
            if (QFileInfo::exists(item) && QDir(item).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size() == 1 &&
                home.read(item + u"/data"_s) == contents)
                untouched << item;
            QDir(item).removeRecursively();
        }
        EXPECT_EQ(untouched, paths.mid(3 - left)) << stopAtPass;
        EXPECT_EQ(access.tally().items, 3 - left);
        EXPECT_EQ(access.tally().left, left);
        EXPECT_EQ(access.tally().stopped, left != 0);
        const QByteArray said =
            " Shredding stopped by the user - " + QByteArray::number(left) + " items left as they were\n";
        EXPECT_EQ(log.contains(said), left != 0) << stopAtPass;
    }
}

namespace {

// As nobody (the tests usually run as root, to whom every file is writable),
// erases the paths. Exits 0 when the engine reports just this, each for want of
// permission: a file it could not overwrite, and the second and third paths,
// which it could not move aside.
[[noreturn]] void eraseAsNobody(FileAccess& access, const QList<QByteArray>& paths)
{
    if (::setgid(65534) != 0 || ::setuid(65534) != 0)
        std::_Exit(3);
    access.shredNativePaths(paths);
    const EraseTally& tally = access.tally();
    const QList<Code> codes{Code::OverwriteFailed, Code::MoveFailed, Code::MoveFailed};
    bool expected =
        tally.errors.size() == 3 && tally.notOverwritten == 1 && tally.failed == 2 &&
        tally.firstFailure == QFile::decodeName(paths[1]) + u" could not be moved aside: Permission denied"_s;
    for (qsizetype i = 0; expected && i < 3; ++i)
        expected = tally.errors[i].code == codes[i] && tally.errors[i].systemError == EACCES;
    std::_Exit(expected && tally.errors[1].path == paths[1] && tally.errors[2].path == paths[2] ? 0 : 1);
}

} // namespace

TEST_F(RemovalTest, WithoutPermissionItemsAreRemovedWherePossibleAndOthersLeftAsTheyAre)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs root to act as another user";
    const uid_t nobody = 65534;
    setModes({{u""_s, 0755}});
    // A folder the user owns holding a file it may not open, a read-only file and
    // a read-only folder; a file it may write but not remove; root's folder in
    // the user's, which the user may not move.
    home.write(u"p/w/theirs.txt"_s, "owned by root");
    home.write(u"p/w/readonly.txt"_s, "read only");
    home.write(u"p/w/locked/inner.txt"_s, "inner");
    home.write(u"r/writable.txt"_s, "writable, not removable");
    home.write(u"s/roots/file"_s, "root's");
    for (const QString& relative : {u"p"_s, u"p/w"_s, u"p/w/readonly.txt"_s, u"p/w/locked"_s, u"p/w/locked/inner.txt"_s,
                                    u"r/writable.txt"_s, u"s"_s})
        ::chown(path(relative).constData(), nobody, nobody);
    setModes({{u"p/w/readonly.txt"_s, 0444}, {u"p/w/locked/inner.txt"_s, 0444}, {u"p/w/locked"_s, 0555}});
    // Held open, to see what became of the contents once the names are gone
    // (a second name would keep the erase from overwriting them).
    const int theirs = ::open(path(u"p/w/theirs.txt"_s).constData(), O_RDONLY);
    const int readonly = ::open(path(u"p/w/readonly.txt"_s).constData(), O_RDONLY);
    const auto contents = [](int fd) {
        QByteArray bytes(64, '?');
        bytes.resize(std::max<ssize_t>(0, ::pread(fd, bytes.data(), std::size_t(bytes.size()), 0)));
        ::close(fd);
        return bytes;
    };
    const mode_t writableMode = statOf(path(u"r/writable.txt"_s)).st_mode;

    FileAccess& access = engine(eraseSettings(2, 3));
    const QByteArray log = logOf([&] {
        EXPECT_EXIT(eraseAsNobody(access, {path(u"p/w"_s), path(u"r/writable.txt"_s), path(u"s/roots"_s)}),
                    ::testing::ExitedWithCode(0), "");
    });

    EXPECT_EQ(contents(theirs), "owned by root");        // could not be opened: removed as it was
    EXPECT_EQ(contents(readonly), QByteArray(18, '\0')); // writable by its owner, overwritten, removed
    // What cannot be moved aside stays as it was, alone in its folder.
    EXPECT_EQ(leftInHome(), (QStringList{u"log.txt"_s, u"p"_s, u"r"_s, u"r/writable.txt"_s, u"s"_s, u"s/roots"_s,
                                         u"s/roots/file"_s}));
    EXPECT_EQ(home.read(u"r/writable.txt"_s), "writable, not removable");
    EXPECT_EQ(statOf(path(u"r/writable.txt"_s)).st_mode, writableMode);
    EXPECT_EQ(home.read(u"s/roots/file"_s), "root's");
    // The log says why, once for each item.
    EXPECT_EQ(log.count("Skip ("), 2) << log.constData();
    for (const QString& item : {u"r/writable.txt"_s, u"s/roots"_s})
        EXPECT_TRUE(log.contains(" Skip (Move failed: Permission denied): " + path(item) + '\n')) << log.constData();
}

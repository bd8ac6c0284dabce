#include "erase/FileAccess.h"

#include "core/DiskSync.h"
#include "core/MainThread.h"
#include "core/ProcessRandom.h"
#include "erase/CopyOnWrite.h"
#include "erase/DeviceWriter.h"
#include "erase/EraseDisplay.h"
#include "erase/FolderWalk.h"
#include "erase/HoldingFolder.h"
#include "erase/OverwriteSchedule.h"
#include "log/ActivityLog.h"
#include "log/FailureLog.h"
#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSet>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstring>

using namespace OverwriteSchedule;
using namespace Qt::StringLiterals;

namespace {

constexpr char kNameAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789AB";
static_assert(sizeof kNameAlphabet == 65);

struct DescriptorCloser {
    int fd;
    ~DescriptorCloser() { ::close(fd); }
};

// A listed item that is there, itself: a symbolic link is there as a link.
bool isThere(const QByteArray& path)
{
    struct stat info {};
    return ::lstat(path.constData(), &info) == 0;
}

// Each path whose folders hold a link, at the place the link leads to: the user
// moved a cache there on purpose. The path itself is never followed: a link
// there is erased as a link. Resolved once, before anything is moved; the log
// names the real place.
QList<QByteArray> atTheirRealPlaces(const QList<QByteArray>& paths)
{
    const QByteArray home = FileTree::standardized(QFile::encodeName(QDir::homePath()));
    // Links above the home folder (a home under /usr/home) move nothing anywhere.
    const auto holdsALink = [&home](const QByteArray& folder) {
        QByteArray prefix = folder.startsWith(home + '/') ? home : QByteArray();
        for (const QByteArray& part : folder.mid(prefix.size()).split('/')) {
            if (part.isEmpty())
                continue;
            prefix += '/' + part;
            struct stat info {};
            if (::lstat(prefix.constData(), &info) == 0 && S_ISLNK(info.st_mode))
                return true;
        }
        return false;
    };
    QList<QByteArray> placed;
    for (const QByteArray& path : paths) {
        const QByteArray parent = FileTree::parentOf(path);
        char resolved[PATH_MAX];
        if (!holdsALink(parent) || ::realpath(parent.constData(), resolved) == nullptr) {
            placed.append(path);
            continue;
        }
        const QByteArray real = FileTree::join(resolved, FileTree::lastComponent(path));
        if (isThere(real))
            ActivityLog::writeLogLine("Shred (its folder is a link; erased where it leads): " + real);
        placed.append(real);
    }
    return placed;
}

// What kept an item from being erased whole: its move, or the first removal that failed.
Error itemFailure(const QList<Error>& reported)
{
    for (const Error& error : reported) {
        if (error.code == Error::Code::MoveFailed || error.code == Error::Code::RemoveFailed)
            return error;
    }
    return {};
}

} // namespace

// Holding folders beside the paths of this run that an interrupted run left,
// with what it had not finished erasing; not those the run itself was given.
QList<QByteArray> FileAccess::leftOverHoldingFolders(const QList<QByteArray>& paths)
{
    QSet<QByteArray> given;
    for (const QByteArray& path : paths)
        given.insert(FileTree::standardized(path));
    QSet<QByteArray> parents;
    QList<QByteArray> found;
    for (const QByteArray& path : paths) {
        const QByteArray parent = FileTree::parentOf(path);
        if (parents.contains(parent))
            continue;
        parents.insert(parent);
        for (const QByteArray& folder : HoldingFolder::foldersIn(parent)) {
            if (!given.contains(folder))
                found.append(folder);
        }
    }
    return found;
}

FileAccess::FileAccess(Preferences& preferences, EraseDisplay* display)
    : preferencesInstance(preferences)
    , mDisplay(display)
{
}

FileAccess::Settings FileAccess::readSettings() const
{
    return {quint32(preferencesInstance.valueForKey(PreferenceKey::OverwritePattern).toLongLong()),
            preferencesInstance.valueForKey(PreferenceKey::NumberOfWrites).toLongLong(),
            preferencesInstance.prefsDoDSanitize(), preferencesInstance.prefsNSA()};
}

quint16 FileAccess::passCount(const Settings& settings) const
{
    return OverwriteSchedule::passCount(settings.numberOfWrites, settings.dod, settings.nsa, ProcessRandom::next);
}

void FileAccess::randomize()
{
    constexpr std::size_t filledBytes = kChunkSize;
    switch (mOverwritePattern) {
    case RandomPattern:
    case RandomPatternToo:
        ProcessRandom::fillLow16(mBuffer.data(), filledBytes / 2);
        break;
    case Zeros:
        std::memset(mBuffer.data(), 0x00, filledBytes);
        break;
    case Ones:
        std::memset(mBuffer.data(), 0xFF, filledBytes);
        break;
    case Fives:
        std::memset(mBuffer.data(), 0x55, filledBytes);
        break;
    case Tens:
        std::memset(mBuffer.data(), 0xAA, filledBytes);
        break;
    default:
        break;
    }
}

void FileAccess::randomizeName()
{
    const int length = (ProcessRandom::next() & 0xFFFF) % 24 + 9;
    mName[std::size_t(length)] = '\0';
    for (int i = length - 1; i >= 0; --i)
        mName[std::size_t(i)] = kNameAlphabet[ProcessRandom::next() % 64];
}

void FileAccess::applyMethods(const Settings& settings, quint16 k)
{
    if (settings.dod) {
        mOverwritePattern = dodPattern(k, settings.pattern);
        randomize();
        mOverwritePattern = settings.pattern;
    }
    // With both methods on, the NSA pattern is the one left in the buffer.
    if (settings.nsa) {
        mOverwritePattern = nsaPattern(k, settings.pattern);
        randomize();
        mOverwritePattern = settings.pattern;
    }
}

int FileAccess::writePass(DeviceWriter& writer, const QByteArray& path, qint64 start, std::size_t length, quint16 k)
{
    // The bytes must be on the device before the next pass over them, or the
    // page cache would keep only the last pass.
    const int error = writer.write(mBuffer.data(), length, off_t(start), k != 1);
    if (mPassObserver)
        mPassObserver(path, start, length, k);
    return error;
}

void FileAccess::showRunProgress()
{
    const quint64 percent = mDeepPathSize != 0 ? (100 * mDeepShreddedSize) / mDeepPathSize : 0;
    if (mDisplay) {
        runOnMainThread(
            [this, percent, done = mDeepShreddedSize, total = mDeepPathSize] {
                mDisplay->showProgress(double(percent));
                mDisplay->showBytes(done, total);
            },
            true);
    }
}

Error FileAccess::shredOneFile(const QByteArray& path)
{
    return overwriteAt(path, true);
}

Error FileAccess::overwriteWorkFile(const QByteArray& path)
{
    return overwriteAt(path, false);
}

Error FileAccess::overwriteAt(const QByteArray& path, bool logName)
{
    const int folder = ::open(FileTree::parentOf(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return {};
    const DescriptorCloser closer{folder};
    FolderWalk::Entry entry;
    entry.folder = folder;
    entry.name = FileTree::lastComponent(path);
    entry.path = path;
    if (::fstatat(folder, entry.name.constData(), &entry.info, AT_SYMLINK_NOFOLLOW) != 0 ||
        !S_ISREG(entry.info.st_mode))
        return {};
    const Error error = overwrite(entry, logName);
    report(error);
    return error;
}

Error FileAccess::overwrite(const FolderWalk::Entry& entry, bool logName)
{
    const Settings settings = readSettings();
    const QByteArray& path = entry.path;
    const QByteArray& name = entry.name;

    // The owner may have to be let write; never anybody else.
    if ((entry.info.st_mode & (S_IRUSR | S_IWUSR)) != (S_IRUSR | S_IWUSR))
        ::fchmodat(entry.folder, name.constData(), (entry.info.st_mode & 07777) | S_IRUSR | S_IWUSR, 0);
    // Never through a link, never a FIFO left waiting, and only the very file the
    // walk looked at: a link or another file swapped in since cannot redirect the write.
    const int fd = ::openat(entry.folder, name.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        return {Error::Code::OverwriteFailed, errno, path};
    const DescriptorCloser closer{fd};
    struct stat info {};
    if (::fstat(fd, &info) != 0 || info.st_dev != entry.info.st_dev || info.st_ino != entry.info.st_ino ||
        !S_ISREG(info.st_mode) || info.st_nlink != 1)
        return {Error::Code::FileChanged, 0, path};
    DeviceWriter writer(fd);

    quint64 remaining = quint64(info.st_size);
    if (logName)
        ActivityLog::writeLogLine(name);

    mOverwritePattern = settings.pattern;
    randomize();

    std::size_t chunk = 0;
    qint64 chunkStart = 0;
    int failure = 0;
    do {
        randomizeName();
        chunk = remaining >= kChunkSize ? kChunkSize : std::size_t(remaining);
        mDeepShreddedSize += chunk;
        remaining -= chunk;
        showRunProgress();

        quint16 k = passCount(settings);
        for (;;) {
            applyMethods(settings, k);
            const int error = writePass(writer, path, chunkStart, chunk, k);
            if (failure == 0)
                failure = error;
            --k;
            if (isRandomPattern(settings.pattern)) {
                mOverwritePattern = settings.pattern;
                randomize();
            }
            if (k == 0)
                break;
        }
        chunkStart += qint64(chunk);
    } while (remaining > 0);

    // Past the old end: the file grows by its last chunk, and that too is
    // overwritten. A failure there leaves no old contents behind, so it goes unsaid.
    const qint64 end = chunkStart;
    quint16 k = passCount(settings);
    do {
        mOverwritePattern = settings.pattern;
        randomize();
        applyMethods(settings, k);
        writePass(writer, path, end, chunk, k);
        --k;
    } while (k != 0);

    // The file is removed all the same; what could not be overwritten is said.
    const int synced = writer.finish();
    if (failure == 0)
        failure = synced;
    return failure == 0 ? Error{} : Error{Error::Code::OverwriteFailed, failure, path};
}

void FileAccess::report(const Error& error)
{
    if (error.ok())
        return;
    FailureLog::write(error);
    if (error.code == Error::Code::OverwriteFailed || error.code == Error::Code::FileChanged)
        ++mTally.notOverwritten;
    mTally.errors.append(error);
}

quint64 FileAccess::sizeInBytes(const QByteArray& path) const
{
    return FileTree::sizeInBytes(path);
}

Expected<QByteArray> FileAccess::moveAndRename(const QByteArray& path)
{
    const QByteArray source = FileTree::standardized(path);
    const QByteArray holding = FileTree::join(FileTree::parentOf(source), HoldingFolder::nameNow());
    const auto leave = [&source](int error) { return Error{Error::Code::MoveFailed, error, source}; };
    // A folder set aside this very second already is the holding folder.
    if (source != holding) {
        if (const int error = HoldingFolder::make(holding))
            return leave(error);
        const QByteArray moved = FileTree::join(holding, FileTree::lastComponent(source));
        if (::rename(source.constData(), moved.constData()) != 0) {
            int error = errno;
            // Moving a folder to another parent rewrites its "..": its owner must be let write it.
            struct stat info {};
            bool retried = false;
            if (::lstat(source.constData(), &info) == 0 && S_ISDIR(info.st_mode) && (info.st_mode & S_IWUSR) == 0 &&
                ::chmod(source.constData(), (info.st_mode & 07777) | S_IRWXU) == 0) {
                retried = ::rename(source.constData(), moved.constData()) == 0;
                if (!retried) {
                    error = errno;
                    ::chmod(source.constData(), info.st_mode & 07777);
                }
            }
            if (!retried) {
                if (FileTree::entries(holding) == QList<QByteArray>{HoldingFolder::kMarker}) {
                    ::unlink(FileTree::join(holding, HoldingFolder::kMarker).constData());
                    ::rmdir(holding.constData());
                }
                return leave(error);
            }
        }
    }

    const QByteArray original = FileTree::parentOf(source);
    const auto isMarker = [](const FolderWalk::Entry& entry) { return entry.relative == HoldingFolder::kMarker; };
    // Files first, each renamed within its folder; what is not this run's to
    // overwrite is noted under its old name for the log.
    FolderWalk::walk(
        holding,
        {[&](const FolderWalk::Entry& entry) {
             if (entry.relative.isEmpty() || isMarker(entry))
                 return true;
             if (entry.mountPoint) {
                 report({Error::Code::MountedInside, 0, FileTree::join(original, entry.relative)});
                 return false;
             }
             if (S_ISREG(entry.info.st_mode) && entry.info.st_nlink > 1)
                 mOtherNames.insert({entry.info.st_dev, entry.info.st_ino}, FileTree::join(original, entry.relative));
             if (!S_ISDIR(entry.info.st_mode)) {
                 randomizeName();
                 ::renameat(entry.folder, entry.name.constData(), entry.folder, mName.data());
             }
             return true;
         },
         nullptr,
         {}});
    // Then the folders, deepest first. Each folder's new names reach the disk
    // before any contents are overwritten: a crash must not leave an old name on
    // a half-overwritten file.
    FolderWalk::walk(holding, {[](const FolderWalk::Entry&) { return true; },
                               [&](const FolderWalk::Entry& entry) {
                                   const int fd = FolderWalk::openFolder(entry);
                                   if (fd >= 0) {
                                       ::fsync(fd);
                                       ::close(fd);
                                   }
                                   if (entry.relative.isEmpty())
                                       return;
                                   randomizeName();
                                   ::renameat(entry.folder, entry.name.constData(), entry.folder, mName.data());
                               },
                               {}});
    DiskSync::folder(FileTree::parentOf(source));
    return holding;
}

bool FileAccess::fileManagerWillProcessPath(const FolderWalk::Entry& entry)
{
    if (entry.mountPoint)
        return false;
    if (!S_ISDIR(entry.info.st_mode) && mCounting && entry.relative != HoldingFolder::kMarker) {
        ++mTally.files;
        if (S_ISREG(entry.info.st_mode) && entry.info.st_nlink == 1)
            mTally.bytes += quint64(entry.info.st_size);
    }
    if (S_ISDIR(entry.info.st_mode)) {
        // Its owner must be let list and empty it; nobody else.
        if ((entry.info.st_mode & S_IRWXU) != S_IRWXU)
            ::fchmodat(entry.folder, entry.name.constData(), (entry.info.st_mode & 07777) | S_IRWXU, 0);
        return true;
    }
    // Links, sockets, FIFOs and devices are removed and never opened; the
    // holding folder's own marker holds nothing.
    if (!S_ISREG(entry.info.st_mode) || entry.relative == HoldingFolder::kMarker)
        return true;
    if (entry.info.st_nlink > 1) {
        report({Error::Code::OtherNames, 0, mOtherNames.value({entry.info.st_dev, entry.info.st_ino}, entry.path)});
        return true;
    }
    QElapsedTimer overwriting;
    overwriting.start();
    const Error error = overwrite(entry, true);
    mOverwriteNanoseconds += overwriting.nsecsElapsed();
    report(error);
    return true;
}

void FileAccess::fileManagerShouldProceedAfterError(const FolderWalk::Entry& entry, int error)
{
    // A folder that lost its owner's rights on the way is given them back once.
    const bool folder = S_ISDIR(entry.info.st_mode);
    if (folder && ::fchmodat(entry.folder, entry.name.constData(), (entry.info.st_mode & 07777) | S_IRWXU, 0) == 0 &&
        ::unlinkat(entry.folder, entry.name.constData(), AT_REMOVEDIR) == 0)
        return;
    struct stat info {};
    if (::fstatat(entry.folder, entry.name.constData(), &info, AT_SYMLINK_NOFOLLOW) == 0)
        report({Error::Code::RemoveFailed, error, entry.path});
}

void FileAccess::shredNativePaths(const QList<QByteArray>& listed)
{
    FolderWalk::allowDeepTrees();
    showProgressOnMainThread(0);
    mTally = {};
    mDeepPathSize = 0;
    mDeepShreddedSize = 0;
    mOtherNames.clear();
    const QList<QByteArray> paths = atTheirRealPlaces(listed);
    const QList<QByteArray> leftOvers = leftOverHoldingFolders(paths);
    const QList<bool> outermost = ErasePaths::outermost(paths);
    QList<QByteArray> existing;
    for (const QByteArray& path : leftOvers) {
        mDeepPathSize += ErasePaths::measure(path).second;
        existing.append(path);
    }
    for (qsizetype i = 0; i < paths.size(); ++i) {
        if (outermost[i]) {
            mDeepPathSize += ErasePaths::measure(paths[i]).second;
            existing.append(paths[i]);
        }
    }
    warnOfCopyOnWrite(existing);
    // Their items already bear random names: they are overwritten and removed where they are.
    for (const QByteArray& folder : leftOvers) {
        ActivityLog::writeLogLine("Shred (left by an interrupted run): " + folder);
        FileTree::removeFileAtPath(folder, *this, HoldingFolder::kMarker);
    }
    for (qsizetype i = 0; i < paths.size(); ++i) {
        const QByteArray& path = paths[i];
        if (mStopRequested) {
            // Between items: each is erased whole or left exactly as it is.
            mTally.stopped = true;
            mTally.left = outermost.mid(i).count(true);
            ActivityLog::writeLogLine(u"Shredding stopped by the user - %1 items left as they were"_s.arg(mTally.left));
            break;
        }
        if (!isThere(path))
            continue;
        showFileNameOnMainThread(QFile::decodeName(path));
        // Nested paths count with the item that holds them.
        mCounting = true;
        const qsizetype reportedBefore = mTally.errors.size();
        // An item that cannot be moved aside (its folder is read-only) stays as it is.
        const Expected<QByteArray> holding = moveAndRename(path);
        if (holding.ok())
            FileTree::removeFileAtPath(holding.value, *this, HoldingFolder::kMarker);
        else
            report(holding.error);
        mCounting = false;
        if (!outermost[i])
            continue;
        const Error error = itemFailure(mTally.errors.mid(reportedBefore));
        if (error.ok() && !isThere(holding.value)) {
            ++mTally.items;
        } else {
            ++mTally.failed;
            if (mTally.firstFailure.isEmpty()) {
                const QString step =
                    error.code == Error::Code::MoveFailed ? u"could not be moved aside"_s : u"could not be removed"_s;
                mTally.firstFailure =
                    u"%1 %2: %3"_s.arg(QFile::decodeName(path), step, QString::fromLocal8Bit(error.reason()));
            }
        }
    }
    // What the devices hold in their own caches goes to the medium before the run ends.
    QSet<dev_t> devices;
    for (const QByteArray& path : existing) {
        const QByteArray folder = FileTree::parentOf(path);
        struct stat info {};
        if (::stat(folder.constData(), &info) == 0 && !devices.contains(info.st_dev)) {
            devices.insert(info.st_dev);
            DiskSync::fileSystem(folder);
        }
    }
    showProgressOnMainThread(0);
    showFileNameOnMainThread(QString());
}

void FileAccess::warnOfCopyOnWrite(const QList<QByteArray>& paths)
{
    QSet<QByteArray> folders;
    QSet<QString> named;
    for (const QByteArray& path : paths) {
        const QByteArray folder = FileTree::parentOf(path);
        if (folders.contains(folder))
            continue;
        folders.insert(folder);
        const QString fileSystem = CopyOnWrite::fileSystemAt(folder);
        if (fileSystem.isEmpty() || named.contains(fileSystem))
            continue;
        named.insert(fileSystem);
        const QString text = CopyOnWrite::warning(fileSystem, path);
        ActivityLog::writeLogLine(text);
        if (mDisplay)
            runOnMainThread([this, &text] { mDisplay->showWarning(text); }, true);
    }
}

void FileAccess::shredDroppedFile(QStringList& paths)
{
    QList<QByteArray> native;
    native.reserve(paths.size());
    for (const QString& path : paths)
        native.append(QFile::encodeName(path));
    shredNativePaths(native);
    paths.clear();
}

void FileAccess::showProgressOnMainThread(double percent)
{
    if (mDisplay)
        runOnMainThread([this, percent] { mDisplay->showProgress(percent); }, true);
}

void FileAccess::showFileNameOnMainThread(const QString& name)
{
    if (mDisplay)
        runOnMainThread([this, &name] { mDisplay->showFileName(name); }, true);
}

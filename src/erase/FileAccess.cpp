#include "erase/FileAccess.h"

#include "core/MainThread.h"
#include "core/ProcessRandom.h"
#include "erase/CopyOnWrite.h"
#include "erase/DeviceWriter.h"
#include "erase/EraseDisplay.h"
#include "erase/HoldingFolder.h"
#include "erase/OverwriteSchedule.h"
#include "log/ActivityLog.h"
#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSet>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
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

// Holding folders beside the paths of this run that an interrupted run left,
// with what it had not finished erasing; not those the run itself was given.
QList<QByteArray> leftOverHoldingFolders(const QList<QByteArray>& paths)
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

} // namespace

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

void FileAccess::shredOneFile(const QByteArray& path)
{
    overwrite(path, true);
}

void FileAccess::overwriteWorkFile(const QByteArray& path)
{
    overwrite(path, false);
}

void FileAccess::overwrite(const QByteArray& path, bool logName)
{
    const Settings settings = readSettings();

    struct stat info {};
    if (::stat(path.constData(), &info) != 0)
        return;
    const QByteArray name = FileTree::lastComponent(path);
    const int fd = ::open(path.constData(), O_RDWR | O_CLOEXEC);
    if (fd < 0)
        return;
    const DescriptorCloser closer{fd};
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
    if (failure != 0)
        ActivityLog::writeLogLine("Overwrite failed (" + QByteArray(std::strerror(failure)) + "): " + path);
}

quint64 FileAccess::sizeInBytes(const QByteArray& path) const
{
    return FileTree::sizeInBytes(path);
}

QByteArray FileAccess::moveAndRename(const QByteArray& path)
{
    const QByteArray source = FileTree::standardized(path);
    const QByteArray holding = FileTree::join(FileTree::parentOf(source), HoldingFolder::nameNow());
    // A folder set aside this very second already is the holding folder.
    const auto leave = [this, &source](int error) {
        ActivityLog::writeLogLine("Skip (Move failed: " + QByteArray(std::strerror(error)) + "): " + source);
        mMoveError = error;
        return QByteArray();
    };
    if (source != holding) {
        if (::mkdir(holding.constData(), 0777) != 0 && errno != EEXIST)
            return leave(errno);
        const QByteArray moved = FileTree::join(holding, FileTree::lastComponent(source));
        if (::rename(source.constData(), moved.constData()) != 0) {
            int error = errno;
            // Moving a folder to another parent rewrites its "..": it must be writable.
            struct stat info {};
            bool retried = false;
            if (::lstat(source.constData(), &info) == 0 && S_ISDIR(info.st_mode) &&
                ::chmod(source.constData(), 0777) == 0) {
                retried = ::rename(source.constData(), moved.constData()) == 0;
                if (!retried) {
                    error = errno;
                    ::chmod(source.constData(), info.st_mode & 07777);
                }
            }
            if (!retried) {
                ::rmdir(holding.constData());
                return leave(error);
            }
        }
    }

    for (const QByteArray& relative : FileTree::subpaths(holding)) {
        randomizeName();
        const QByteArray item = FileTree::join(holding, relative);
        if (!FileTree::isDirectory(item))
            ::rename(item.constData(), FileTree::join(FileTree::parentOf(item), mName.data()).constData());
    }
    const QList<QByteArray> folders = FileTree::subpaths(holding);
    for (auto it = folders.crbegin(); it != folders.crend(); ++it) {
        randomizeName();
        const QByteArray item = FileTree::join(holding, *it);
        if (FileTree::isDirectory(item))
            ::rename(item.constData(), FileTree::join(FileTree::parentOf(item), mName.data()).constData());
    }

    // The random names reach the disk before any contents are overwritten: a
    // crash must not leave the old name on a half-overwritten file.
    for (const QByteArray& relative : FileTree::subpaths(holding)) {
        const QByteArray item = FileTree::join(holding, relative);
        struct stat info {};
        if (::lstat(item.constData(), &info) == 0 && S_ISDIR(info.st_mode))
            syncFolder(item);
    }
    syncFolder(holding);
    syncFolder(FileTree::parentOf(source));
    return holding;
}

void FileAccess::fileManagerWillProcessPath(const QByteArray& path)
{
    const bool isDirectory = FileTree::isDirectory(path);
    if (!isDirectory && mCounting) {
        ++mTally.files;
        struct stat info {};
        if (::stat(path.constData(), &info) == 0 && S_ISREG(info.st_mode))
            mTally.bytes += quint64(info.st_size);
    }
    ::chmod(path.constData(), 0777);
    if (!isDirectory) {
        QElapsedTimer overwrite;
        overwrite.start();
        shredOneFile(path);
        mOverwriteNanoseconds += overwrite.nsecsElapsed();
    }
}

bool FileAccess::fileManagerShouldProceedAfterError(const QByteArray& path)
{
    ::chmod(path.constData(), 0777);
    const int folderError = ::rmdir(path.constData()) == 0 ? 0 : errno;
    const int fileError = ::unlink(path.constData()) == 0 ? 0 : errno;
    struct stat info {};
    if (::lstat(path.constData(), &info) == 0) {
        const int error = S_ISDIR(info.st_mode) ? folderError : fileError;
        ActivityLog::writeLogLine("Skip (Remove failed: " + QByteArray(std::strerror(error)) + "): " + path);
        if (mRemoveError == 0)
            mRemoveError = error;
    }
    return true;
}

void FileAccess::shredNativePaths(const QList<QByteArray>& paths)
{
    showProgressOnMainThread(0);
    mTally = {};
    mDeepPathSize = 0;
    mDeepShreddedSize = 0;
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
        FileTree::removeFileAtPath(folder, *this);
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
        if (!FileTree::exists(path))
            continue;
        showFileNameOnMainThread(QFile::decodeName(path));
        // Nested paths count with the item that holds them.
        mCounting = true;
        mMoveError = 0;
        mRemoveError = 0;
        // An item that cannot be moved aside (its folder is read-only) stays as it is.
        const QByteArray holding = moveAndRename(path);
        if (!holding.isEmpty())
            FileTree::removeFileAtPath(holding, *this);
        mCounting = false;
        if (!outermost[i])
            continue;
        const int error = mMoveError != 0 ? mMoveError : mRemoveError;
        if (error == 0 && !FileTree::exists(holding)) {
            ++mTally.items;
        } else {
            ++mTally.failed;
            if (mTally.firstFailure.isEmpty()) {
                const QString step = mMoveError != 0 ? u"could not be moved aside"_s : u"could not be removed"_s;
                mTally.firstFailure = u"%1 %2: %3"_s.arg(QFile::decodeName(path), step,
                                                        QString::fromLocal8Bit(std::strerror(error)));
            }
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

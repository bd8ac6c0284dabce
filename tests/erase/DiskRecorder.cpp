#include "erase/DiskRecorder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <mutex>

namespace {

std::mutex gMutex;
QByteArray gFolder;
QList<DiskRecorder::Event> gEvents;

void note(DiskRecorder::Event::Kind kind, int fd, qint64 offset, qint64 length)
{
    const int saved = errno;
    std::lock_guard lock(gMutex);
    char path[PATH_MAX];
    const ssize_t size =
        gFolder.isEmpty() ? -1 : ::readlink(("/proc/self/fd/" + QByteArray::number(fd)).constData(), path, sizeof path);
    const QByteArray name(path, std::max<ssize_t>(size, 0));
    struct stat info {};
    if (size > 0 && name.startsWith(gFolder) && ::fstat(fd, &info) == 0)
        gEvents.append({kind, name, info.st_ino, offset, length, (::fcntl(fd, F_GETFL) & O_DIRECT) != 0});
    errno = saved;
}

} // namespace

void DiskRecorder::start(const QByteArray& folder)
{
    std::lock_guard lock(gMutex);
    gFolder = folder;
    gEvents.clear();
}

QList<DiskRecorder::Event> DiskRecorder::stop()
{
    std::lock_guard lock(gMutex);
    gFolder.clear();
    return std::exchange(gEvents, {});
}

extern "C" ssize_t pwrite(int fd, const void* buffer, size_t length, off_t offset)
{
    const auto written = ssize_t(::syscall(SYS_pwrite64, fd, buffer, length, offset));
    if (written > 0)
        note(DiskRecorder::Event::Write, fd, offset, written);
    return written;
}

extern "C" int sync_file_range(int fd, off64_t offset, off64_t length, unsigned int flags)
{
    const int result = int(::syscall(SYS_sync_file_range, fd, offset, length, flags));
    // Only a write-out that waits for the device counts.
    if (result == 0 && (flags & SYNC_FILE_RANGE_WAIT_AFTER) != 0)
        note(DiskRecorder::Event::WriteOut, fd, offset, length);
    return result;
}

extern "C" int fsync(int fd)
{
    const int result = int(::syscall(SYS_fsync, fd));
    if (result == 0)
        note(DiskRecorder::Event::Sync, fd, 0, 0);
    return result;
}

#include "erase/DeviceWriter.h"

#include <fcntl.h>
#include <unistd.h>

#include <QtGlobal>

#include <cerrno>

DeviceWriter::DeviceWriter(int fd)
    : mFd(fd)
{
    const int flags = ::fcntl(mFd, F_GETFL);
    mDirect = flags >= 0 && (flags & O_DIRECT) != 0;
}

bool DeviceWriter::setDirect(bool on)
{
    if (on == mDirect)
        return true;
    if (on && !mDirectAllowed)
        return false;
    const int flags = ::fcntl(mFd, F_GETFL);
    if (flags < 0 || ::fcntl(mFd, F_SETFL, on ? flags | O_DIRECT : flags & ~O_DIRECT) != 0) {
        if (on)
            mDirectAllowed = false;
        return false;
    }
    mDirect = on;
    return true;
}

int DeviceWriter::writeAll(const char* data, std::size_t length, off_t offset)
{
    while (length > 0) {
        const ssize_t written = ::pwrite(mFd, data, length, offset);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return errno;
        if (written == 0)
            return EIO;
        data += written;
        length -= std::size_t(written);
        offset += written;
    }
    return 0;
}

int DeviceWriter::write(const void* data, std::size_t length, off_t offset, bool resync)
{
    const char* bytes = static_cast<const char*>(data);
    const bool aligned = std::size_t(offset) % kAlignment == 0 && reinterpret_cast<quintptr>(bytes) % kAlignment == 0;
    std::size_t direct = aligned ? length - length % kAlignment : 0;
    if (direct > 0 && setDirect(true)) {
        const int error = writeAll(bytes, direct, offset);
        // A file system may still refuse a direct write (EINVAL), or cut it
        // short at a size limit: the page cache takes over from where it stopped.
        if (error == EINVAL) {
            mDirectAllowed = false;
            direct = 0;
        } else if (error != 0) {
            setDirect(false);
            return error;
        }
    } else {
        direct = 0;
    }
    if (direct == length)
        return 0;
    setDirect(false);
    const int error = writeAll(bytes + direct, length - direct, offset + off_t(direct));
    if (error != 0)
        return error;
    return resync ? writeOut(offset + off_t(direct), off_t(length - direct)) : 0;
}

int DeviceWriter::writeOut(off_t offset, off_t length)
{
    // Sends the cached pages of the range to the device and waits for them,
    // without the journal commit that fdatasync would add for every file.
    constexpr unsigned int kAll = SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    return ::sync_file_range(mFd, offset, length, kAll) == 0 ? 0 : errno;
}

int DeviceWriter::finish()
{
    return writeOut(0, 0);
}

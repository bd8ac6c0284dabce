#pragma once

#include <QByteArray>

#include <sys/types.h>

#include <cstddef>

// Writes over a file so that what is written reaches the device, not only the
// page cache: the kernel drops the dirty pages of a file that is unlinked, and
// passes over the same cached page merge into the last one.
//
// The block-aligned part of each write goes straight to the device (O_DIRECT);
// the rest goes through the page cache and is synced before the next pass over
// the same bytes. Where the file system refuses direct writes (tmpfs, some
// network and FUSE file systems), every pass goes through the page cache and is
// synced. finish() syncs what remains, and with it the device's own write cache.
class DeviceWriter {
public:
    // Direct writes need this alignment of the offset, the length and the buffer.
    static constexpr std::size_t kAlignment = 4096;

    // fd is open for writing and stays the caller's.
    explicit DeviceWriter(int fd);

    // Writes length bytes at offset; resync says whether the bytes written
    // through the page cache must be on the device before returning (another
    // pass over them follows). 0, or the errno of the first failure.
    int write(const void* data, std::size_t length, off_t offset, bool resync);

    // Syncs the file's data; 0 or the errno.
    int finish();

private:
    bool setDirect(bool on);
    int writeAll(const char* data, std::size_t length, off_t offset);

    int mFd;
    bool mDirectAllowed = true;
    bool mDirect = false;
};

// Makes the entries of a folder (renames, removals) durable; 0 or the errno.
int syncFolder(const QByteArray& path);

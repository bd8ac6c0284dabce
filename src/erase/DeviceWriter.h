#pragma once

#include <QByteArray>

#include <sys/types.h>

#include <cstddef>

// Writes over a file so that what is written reaches the device, not only the
// page cache: the kernel drops the dirty pages of a file that is unlinked, and
// passes over the same cached page merge into the last one.
//
// The block-aligned part of each write goes straight to the device (O_DIRECT);
// the rest goes through the page cache and is written out to the device, and
// waited for, before the next pass over the same bytes. Where the file system
// refuses direct writes (tmpfs, some network and FUSE file systems), every pass
// goes through the page cache and is written out. finish() writes out what
// remains before the file is removed. None of this waits for a journal commit:
// the file's new size and times do not matter, only that its old blocks were
// written over. The device's own write cache is flushed once per run
// (syncFileSystem), not per file.
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

    // Writes out every cached page of the file and waits for it; 0 or the errno.
    int finish();

private:
    int writeOut(off_t offset, off_t length);
    bool setDirect(bool on);
    int writeAll(const char* data, std::size_t length, off_t offset);

    int mFd;
    bool mDirectAllowed = true;
    bool mDirect = false;
};

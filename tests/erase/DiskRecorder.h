#pragma once

#include <QByteArray>
#include <QList>

#include <sys/types.h>

// What is sent to the disk below a folder while a recording runs. The test
// binary stands in for the C library's pwrite, sync_file_range and fsync: each
// call goes on to the kernel unchanged, and is noted on the way.
namespace DiskRecorder {

struct Event {
    enum Kind { Write, WriteOut, Sync } kind;
    QByteArray path; // the descriptor's, at the time of the call
    ino_t inode;
    qint64 offset;
    qint64 length; // a write-out of 0 bytes, or a sync, reaches the end of the file
    bool direct;   // a write that went past the page cache (O_DIRECT)
};

void start(const QByteArray& folder);
QList<Event> stop();

} // namespace DiskRecorder

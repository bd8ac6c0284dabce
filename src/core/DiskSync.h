#pragma once

#include <QByteArray>

// Makes what was written or renamed durable, each by path; 0 or the errno.
namespace DiskSync {

// A file's contents.
int file(const QByteArray& path);
// A folder's entries: the renames and removals in it.
int folder(const QByteArray& path);
// The whole file system holding path, with its device's own write cache.
int fileSystem(const QByteArray& path);

} // namespace DiskSync

#pragma once

#include <QByteArray>
#include <QString>

// File systems that write changed data to new blocks (copy-on-write or
// log-structured): overwriting a file there leaves its old blocks as they were.
namespace CopyOnWrite {

// The name of such a file system holding path, or an empty string.
QString fileSystemAt(const QByteArray& path);

// What a run says once per such file system, naming the first path it met there.
QString warning(const QString& fileSystem, const QByteArray& firstPath);

} // namespace CopyOnWrite

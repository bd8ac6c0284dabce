#pragma once

#include <QByteArray>
#include <QList>
#include <QtGlobal>

#include <cstdint>

// File-system walks on native (byte) paths, so that names in any encoding,
// with newlines or invalid UTF-8, survive. Symbolic links to folders are never
// entered.
namespace FileTree {

// With symbolic links followed.
bool exists(const QByteArray& path);
bool isDirectory(const QByteArray& path);

// The names in a folder, "." and ".." left out; empty when it cannot be read.
QList<QByteArray> entries(const QByteArray& folder);

// Every path below root, relative to it, each folder before what it holds.
QList<QByteArray> subpaths(const QByteArray& root);

QByteArray join(const QByteArray& folder, const QByteArray& name);
QByteArray parentOf(const QByteArray& path);
QByteArray lastComponent(const QByteArray& path);
// Without repeated or trailing slashes, "." or ".." components. In an absolute
// path, a ".." goes up from where the path before it really is, links resolved.
QByteArray standardized(const QByteArray& path);

// path made absolute against the working folder, then standardized.
QByteArray absolute(const QByteArray& path);

// Bytes of every file at or below path, symbolic links followed, folders counting 0.
quint64 sizeInBytes(const QByteArray& path);

// The callbacks of a removal, in the order a file manager makes them.
class RemovalHandler {
public:
    virtual ~RemovalHandler() = default;
    // Before each item is removed; a folder before its contents.
    virtual void fileManagerWillProcessPath(const QByteArray& path) = 0;
    // When an item could not be removed; true goes on with the next item.
    virtual bool fileManagerShouldProceedAfterError(const QByteArray& path) = 0;
};

// Removes path and, for a folder, everything in it, depth first, telling the
// handler before each item and after each failure. Symbolic links are removed,
// not followed. False when the handler chose to stop.
bool removeFileAtPath(const QByteArray& path, RemovalHandler& handler);

} // namespace FileTree

#pragma once

#include "erase/FolderWalk.h"

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

// Bytes of every file at or below path that an erase overwrites: regular files
// with no other name; links are not followed, mounts not entered.
quint64 sizeInBytes(const QByteArray& path);

// The callbacks of a removal, in the order a file manager makes them.
class RemovalHandler {
public:
    virtual ~RemovalHandler() = default;
    // Before each item is removed; a folder before its contents. False leaves
    // the item, and what it holds, where it is.
    virtual bool fileManagerWillProcessPath(const FolderWalk::Entry& entry) = 0;
    // When an item could not be removed, with the reason.
    virtual void fileManagerShouldProceedAfterError(const FolderWalk::Entry& entry, int error) = 0;
};

// Removes path and, for a folder, everything in it, depth first, through folder
// descriptors (FolderWalk), telling the handler before each item and after each
// failure. Symbolic links and special files are removed, never followed or
// opened; a mount inside is never entered. lastInside, a name directly inside
// path, is removed after everything else there. False when path was not there.
bool removeFileAtPath(const QByteArray& path, RemovalHandler& handler, const QByteArray& lastInside = {});

} // namespace FileTree

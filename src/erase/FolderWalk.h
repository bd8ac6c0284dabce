#pragma once

#include <QByteArray>
#include <QList>

#include <sys/stat.h>

#include <functional>

// Walks a tree through folder descriptors (openat, fstatat, unlinkat), so that
// neither its depth nor the length of its paths matters. Symbolic links are
// never followed and nothing on another file system, nor a bind mount, is
// entered: a walk stays inside what it was given.
namespace FolderWalk {

// One item met by a walk.
struct Entry {
    int folder = -1;         // the descriptor of the folder that holds it
    QByteArray name;         // its name there
    QByteArray path;         // root joined with the names below it, for the log
    QByteArray relative;     // the same from the root ("" for the root itself)
    struct stat info {};     // lstat of it
    bool mountPoint = false; // a file system or a bind mount starts here

    bool isFolder() const { return S_ISDIR(info.st_mode) && !mountPoint; }
};

struct Visitor {
    // Before a folder's contents (and for everything else); false leaves a
    // folder's contents unvisited.
    std::function<bool(const Entry&)> enter;
    // After a folder's contents; may rename or remove the entry itself.
    std::function<void(const Entry&)> leave;
    // A name directly inside the root visited after everything else there.
    QByteArray lastInRoot;
};

// Visits root, then, for a folder, everything below it, depth first. False when
// root cannot be looked at.
bool walk(const QByteArray& root, const Visitor& visitor);

// The names in the folder open as fd, "." and ".." left out.
QList<QByteArray> names(int fd);

// Opens the folder entry names inside folder without following a link, and
// checks that it is still the one lstat saw; -1 otherwise.
int openFolder(const Entry& entry);

// Raises the limit on open descriptors as far as allowed: a walk holds one per
// level of the tree.
void allowDeepTrees();

} // namespace FolderWalk

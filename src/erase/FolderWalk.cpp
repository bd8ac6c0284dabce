#include "erase/FolderWalk.h"

#include "core/Path.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <mutex>

namespace FolderWalk {

namespace {

// Whether a mount starts at the entry: the kernel says so where it can, else a
// change of device gives it away (bind mounts of the same device then pass unseen).
bool startsMount(int folder, const QByteArray& name, dev_t parentDevice, dev_t device)
{
    struct statx extended {};
    if (::statx(folder, name.constData(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, STATX_BASIC_STATS, &extended) == 0 &&
        (extended.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0)
        return (extended.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
    return device != parentDevice;
}

bool visit(Entry& entry, const Visitor& visitor)
{
    if (!visitor.enter(entry) || !entry.isFolder())
        return true;
    const int fd = openFolder(entry);
    if (fd >= 0) {
        QList<QByteArray> inside = names(fd);
        if (entry.relative.isEmpty() && inside.removeOne(visitor.lastInRoot))
            inside.append(visitor.lastInRoot);
        for (const QByteArray& name : inside) {
            Entry child;
            child.folder = fd;
            child.name = name;
            child.path = (Path::fromNative(entry.path) / name).native();
            child.relative = (Path::fromNative(entry.relative) / name).native();
            if (::fstatat(fd, name.constData(), &child.info, AT_SYMLINK_NOFOLLOW) != 0)
                continue;
            child.mountPoint =
                S_ISDIR(child.info.st_mode) && startsMount(fd, name, entry.info.st_dev, child.info.st_dev);
            visit(child, visitor);
        }
        ::close(fd);
    }
    if (visitor.leave)
        visitor.leave(entry);
    return true;
}

} // namespace

QList<QByteArray> names(int fd)
{
    QList<QByteArray> found;
    const int copy = ::dup(fd);
    if (copy < 0)
        return found;
    DIR* folder = ::fdopendir(copy);
    if (folder == nullptr) {
        ::close(copy);
        return found;
    }
    ::rewinddir(folder);
    while (const dirent* item = ::readdir(folder)) {
        const QByteArray name(item->d_name);
        if (name != "." && name != "..")
            found.append(name);
    }
    ::closedir(folder);
    return found;
}

int openFolder(const Entry& entry)
{
    const int fd = ::openat(entry.folder, entry.name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0)
        return -1;
    struct stat opened {};
    if (::fstat(fd, &opened) != 0 || opened.st_dev != entry.info.st_dev || opened.st_ino != entry.info.st_ino) {
        ::close(fd);
        return -1;
    }
    return fd;
}

bool walk(const QByteArray& root, const Visitor& visitor)
{
    const Path path = Path::fromNative(root);
    const int folder = ::open(path.parent().native().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return false;
    Entry entry;
    entry.folder = folder;
    entry.name = path.nativeFileName();
    entry.path = root;
    struct stat parentInfo {};
    const bool found = ::fstat(folder, &parentInfo) == 0 &&
                       ::fstatat(folder, entry.name.constData(), &entry.info, AT_SYMLINK_NOFOLLOW) == 0;
    if (found) {
        entry.mountPoint =
            S_ISDIR(entry.info.st_mode) && startsMount(folder, entry.name, parentInfo.st_dev, entry.info.st_dev);
        visit(entry, visitor);
    }
    ::close(folder);
    return found;
}

void allowDeepTrees()
{
    static std::once_flag raised;
    std::call_once(raised, [] {
        struct rlimit files {};
        if (::getrlimit(RLIMIT_NOFILE, &files) == 0 && files.rlim_cur < files.rlim_max) {
            files.rlim_cur = files.rlim_max;
            ::setrlimit(RLIMIT_NOFILE, &files);
        }
    });
}

} // namespace FolderWalk

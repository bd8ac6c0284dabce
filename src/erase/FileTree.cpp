#include "erase/FileTree.h"

#include "core/Path.h"

#include <fcntl.h>
#include <limits.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

namespace FileTree {

bool exists(const QByteArray& path)
{
    struct stat info {};
    return ::stat(path.constData(), &info) == 0;
}

bool isDirectory(const QByteArray& path)
{
    struct stat info {};
    return ::stat(path.constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

QList<QByteArray> entries(const QByteArray& folder)
{
    const int fd = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return {};
    const QList<QByteArray> names = FolderWalk::names(fd);
    ::close(fd);
    return names;
}

namespace {

bool isRealDirectory(const QByteArray& path)
{
    struct stat info {};
    return ::lstat(path.constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

void collectSubpaths(const QByteArray& root, const QByteArray& relative, QList<QByteArray>& out)
{
    const QByteArray folder = relative.isEmpty() ? root : join(root, relative);
    for (const QByteArray& name : entries(folder)) {
        const QByteArray child = relative.isEmpty() ? name : join(relative, name);
        out.append(child);
        if (isRealDirectory(join(root, child)))
            collectSubpaths(root, child, out);
    }
}

} // namespace

QList<QByteArray> subpaths(const QByteArray& root)
{
    QList<QByteArray> out;
    collectSubpaths(root, {}, out);
    return out;
}

QByteArray join(const QByteArray& folder, const QByteArray& name)
{
    return (Path::fromNative(folder) / name).native();
}

QByteArray standardized(const QByteArray& path)
{
    const bool absolute = path.startsWith('/');
    QList<QByteArray> parts;
    for (const QByteArray& part : path.split('/')) {
        if (part.isEmpty() || part == ".")
            continue;
        if (part == "..") {
            // "link/.." is the parent of where the link points, not the folder
            // that holds the link: an absolute path is resolved up to there.
            char resolved[PATH_MAX];
            if (absolute && !parts.isEmpty() && ::realpath(('/' + parts.join('/')).constData(), resolved) != nullptr)
                parts = QByteArray(resolved).split('/').mid(1);
            if (!parts.isEmpty() && !parts.last().isEmpty())
                parts.removeLast();
            if (parts.size() == 1 && parts.first().isEmpty())
                parts.clear();
            continue;
        }
        parts.append(part);
    }
    const QByteArray joined = parts.join('/');
    return absolute ? '/' + joined : (joined.isEmpty() ? QByteArray(".") : joined);
}

QByteArray absolute(const QByteArray& path)
{
    if (path.startsWith('/'))
        return standardized(path);
    char cwd[PATH_MAX];
    if (::getcwd(cwd, sizeof cwd) == nullptr)
        return standardized(path);
    return standardized(join(cwd, path));
}

QByteArray parentOf(const QByteArray& path)
{
    return Path::fromNative(standardized(path)).parent().native();
}

QByteArray lastComponent(const QByteArray& path)
{
    return Path::fromNative(standardized(path)).nativeFileName();
}

quint64 sizeInBytes(const QByteArray& path)
{
    quint64 total = 0;
    FolderWalk::walk(path, {[&total](const FolderWalk::Entry& entry) {
                                if (S_ISREG(entry.info.st_mode) && entry.info.st_nlink == 1)
                                    total += quint64(entry.info.st_size);
                                return true;
                            },
                            nullptr,
                            {}});
    return total;
}

bool removeFileAtPath(const QByteArray& path, RemovalHandler& handler, const QByteArray& lastInside)
{
    const auto remove = [&handler](const FolderWalk::Entry& entry, int flags) {
        if (::unlinkat(entry.folder, entry.name.constData(), flags) != 0)
            handler.fileManagerShouldProceedAfterError(entry, errno);
    };
    return FolderWalk::walk(path, {[&](const FolderWalk::Entry& entry) {
                                       if (!handler.fileManagerWillProcessPath(entry))
                                           return false;
                                       if (!S_ISDIR(entry.info.st_mode))
                                           remove(entry, 0);
                                       return true;
                                   },
                                   [&](const FolderWalk::Entry& entry) { remove(entry, AT_REMOVEDIR); }, lastInside});
}

} // namespace FileTree

#include "erase/FileTree.h"

#include <dirent.h>
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
    QList<QByteArray> names;
    DIR* dir = ::opendir(folder.constData());
    if (dir == nullptr)
        return names;
    while (const dirent* entry = ::readdir(dir)) {
        const QByteArray name(entry->d_name);
        if (name != "." && name != "..")
            names.append(name);
    }
    ::closedir(dir);
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
    if (folder.endsWith('/'))
        return folder + name;
    return folder + '/' + name;
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
    const QByteArray clean = standardized(path);
    const qsizetype slash = clean.lastIndexOf('/');
    if (slash < 0)
        return ".";
    return slash == 0 ? QByteArray("/") : clean.left(slash);
}

QByteArray lastComponent(const QByteArray& path)
{
    const QByteArray clean = standardized(path);
    return clean.mid(clean.lastIndexOf('/') + 1);
}

quint64 sizeInBytes(const QByteArray& path)
{
    const auto sizeOf = [](const QByteArray& item) -> quint64 {
        struct stat info {};
        if (::stat(item.constData(), &info) != 0 || S_ISDIR(info.st_mode))
            return 0;
        return quint64(info.st_size);
    };
    quint64 total = sizeOf(path);
    for (const QByteArray& relative : subpaths(path))
        total += sizeOf(join(path, relative));
    return total;
}

bool removeFileAtPath(const QByteArray& path, RemovalHandler& handler)
{
    handler.fileManagerWillProcessPath(path);
    struct stat info {};
    if (::lstat(path.constData(), &info) != 0)
        return handler.fileManagerShouldProceedAfterError(path);
    if (!S_ISDIR(info.st_mode)) {
        if (::unlink(path.constData()) != 0)
            return handler.fileManagerShouldProceedAfterError(path);
        return true;
    }
    for (const QByteArray& name : entries(path)) {
        if (!removeFileAtPath(join(path, name), handler))
            return false;
    }
    if (::rmdir(path.constData()) != 0)
        return handler.fileManagerShouldProceedAfterError(path);
    return true;
}

} // namespace FileTree

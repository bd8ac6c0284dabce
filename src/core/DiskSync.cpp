#include "core/DiskSync.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace DiskSync {

namespace {

int withDescriptor(const QByteArray& path, int flags, int (*sync)(int))
{
    const int fd = ::open(path.constData(), flags | O_CLOEXEC);
    if (fd < 0)
        return errno;
    const int error = sync(fd) == 0 ? 0 : errno;
    ::close(fd);
    return error;
}

} // namespace

int file(const QByteArray& path)
{
    return withDescriptor(path, O_RDONLY, ::fsync);
}

int folder(const QByteArray& path)
{
    return withDescriptor(path, O_RDONLY | O_DIRECTORY, ::fsync);
}

int fileSystem(const QByteArray& path)
{
    return withDescriptor(path, O_RDONLY | O_DIRECTORY, ::syncfs);
}

} // namespace DiskSync

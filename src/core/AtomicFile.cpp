#include "core/AtomicFile.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace {

mode_t modeOf(QFileDevice::Permissions permissions)
{
    mode_t mode = 0;
    if (permissions & QFileDevice::ReadOwner)
        mode |= S_IRUSR;
    if (permissions & QFileDevice::WriteOwner)
        mode |= S_IWUSR;
    if (permissions & QFileDevice::ExeOwner)
        mode |= S_IXUSR;
    if (permissions & QFileDevice::ReadGroup)
        mode |= S_IRGRP;
    if (permissions & QFileDevice::WriteGroup)
        mode |= S_IWGRP;
    if (permissions & QFileDevice::ExeGroup)
        mode |= S_IXGRP;
    if (permissions & QFileDevice::ReadOther)
        mode |= S_IROTH;
    if (permissions & QFileDevice::WriteOther)
        mode |= S_IWOTH;
    if (permissions & QFileDevice::ExeOther)
        mode |= S_IXOTH;
    return mode;
}

bool writeAll(int fd, const QByteArray& bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t written = ::write(fd, bytes.constData() + done, std::size_t(bytes.size() - done));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        done += written;
    }
    return true;
}

} // namespace

namespace AtomicFile {

bool write(const QString& path, const QByteArray& bytes, QFileDevice::Permissions permissions)
{
    // A fixed name, so that the copy of a save cut off by a crash is replaced by
    // the next save instead of piling up beside the file.
    const QByteArray temporary = QFile::encodeName(path) + ".vantlex-new";
    ::unlink(temporary.constData());
    const int fd = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd < 0)
        return false;
    const bool written = ::fchmod(fd, modeOf(permissions)) == 0 && writeAll(fd, bytes) && ::fsync(fd) == 0;
    const bool closed = ::close(fd) == 0;
    if (written && closed && ::rename(temporary.constData(), QFile::encodeName(path).constData()) == 0)
        return true;
    ::unlink(temporary.constData());
    return false;
}

} // namespace AtomicFile

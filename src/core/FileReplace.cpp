#include "core/FileReplace.h"

#include "core/DiskSync.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace FileReplace {

namespace {

QByteArray folderOf(const QByteArray& path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : slash == 0 ? QByteArray("/") : path.left(slash);
}

int writeAll(int fd, const QByteArray& bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t written = ::write(fd, bytes.constData() + done, std::size_t(bytes.size() - done));
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return errno;
        if (written == 0)
            return EIO;
        done += written;
    }
    return 0;
}

int renameOver(const QByteArray& from, const QByteArray& to)
{
    return ::rename(from.constData(), to.constData()) == 0 ? 0 : errno;
}

} // namespace

Error withFile(const QByteArray& file, const QByteArray& newFile, Strategy strategy, const QByteArray& oldCopy)
{
    using Code = Error::Code;
    // The new contents must be on the disk before they replace the only other copy.
    if (const int error = DiskSync::file(newFile))
        return {Code::WriteFailed, error, file};
    if (strategy == Strategy::DropOld) {
        if (const int error = renameOver(newFile, file))
            return {Code::PutInPlaceFailed, error, file};
    } else if (::link(file.constData(), oldCopy.constData()) == 0) {
        if (const int error = renameOver(newFile, file)) {
            ::unlink(oldCopy.constData());
            return {Code::PutInPlaceFailed, error, file};
        }
    } else {
        // Without hard links (FAT volumes, network shares, another owner's file).
        if (const int error = renameOver(file, oldCopy))
            return {Code::KeepOldFailed, error, file};
        if (const int error = renameOver(newFile, file)) {
            ::rename(oldCopy.constData(), file.constData());
            return {Code::PutInPlaceFailed, error, file};
        }
    }
    DiskSync::folder(folderOf(file));
    return {};
}

Error withBytes(const QByteArray& file, const QByteArray& bytes, mode_t mode, Strategy strategy,
                const QByteArray& oldCopy)
{
    // A fixed name, so that what a crash left of an earlier replace is not kept.
    const QByteArray temporary = file + ".vantlex-new";
    ::unlink(temporary.constData());
    const int fd = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd < 0)
        return {Error::Code::WriteFailed, errno, file};
    int error = ::fchmod(fd, mode) == 0 ? writeAll(fd, bytes) : errno;
    if (::close(fd) != 0 && error == 0)
        error = errno;
    const Error outcome =
        error == 0 ? withFile(file, temporary, strategy, oldCopy) : Error{Error::Code::WriteFailed, error, file};
    if (!outcome.ok())
        ::unlink(temporary.constData());
    return outcome;
}

} // namespace FileReplace

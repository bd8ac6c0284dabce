#include "erase/HoldingFolder.h"

#include "erase/FileTree.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <ctime>

namespace {

constexpr char kPrefix[] = "Vantle X Items (";

bool isMarked(const QByteArray& folder)
{
    struct stat info {};
    return ::lstat(FileTree::join(folder, HoldingFolder::kMarker).constData(), &info) == 0 && S_ISREG(info.st_mode);
}

} // namespace

namespace HoldingFolder {

QByteArray nameNow()
{
    return kPrefix + QByteArray::number(qint64(std::time(nullptr))) + ')';
}

bool isHoldingFolderName(const QByteArray& name)
{
    if (!name.startsWith(kPrefix) || !name.endsWith(')'))
        return false;
    const QByteArray digits = name.mid(qsizetype(sizeof kPrefix) - 1).chopped(1);
    return !digits.isEmpty() && std::all_of(digits.cbegin(), digits.cend(),
                                            [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; });
}

int make(const QByteArray& path)
{
    if (::mkdir(path.constData(), 0700) != 0)
        return errno == EEXIST && isMarked(path) ? 0 : errno;
    const int fd =
        ::open(FileTree::join(path, kMarker).constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd < 0) {
        const int error = errno;
        ::rmdir(path.constData());
        return error;
    }
    ::close(fd);
    return 0;
}

QList<QByteArray> foldersIn(const QByteArray& folder)
{
    QList<QByteArray> found;
    for (const QByteArray& name : FileTree::entries(folder)) {
        struct stat info {};
        const QByteArray path = FileTree::join(folder, name);
        if (isHoldingFolderName(name) && ::lstat(path.constData(), &info) == 0 && S_ISDIR(info.st_mode) &&
            isMarked(path))
            found.append(path);
    }
    return found;
}

Expected<QByteArray> setAside(const QByteArray& path)
{
    const QByteArray source = FileTree::standardized(path);
    const QByteArray holding = FileTree::join(FileTree::parentOf(source), nameNow());
    struct stat before {};
    const bool existed = ::lstat(holding.constData(), &before) == 0;
    if (const int error = make(holding))
        return Error{Error::Code::MoveFailed, error, source};
    const QByteArray moved = FileTree::join(holding, FileTree::lastComponent(source));
    if (::rename(source.constData(), moved.constData()) == 0)
        return holding;
    const int error = errno;
    if (!existed) {
        ::unlink(FileTree::join(holding, kMarker).constData());
        ::rmdir(holding.constData());
    }
    return Error{Error::Code::MoveFailed, error, source};
}

} // namespace HoldingFolder

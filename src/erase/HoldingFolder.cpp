#include "erase/HoldingFolder.h"

#include "erase/FileTree.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <ctime>

namespace {

constexpr char kPrefix[] = "Vantle X Items (";

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
    return !digits.isEmpty() && std::all_of(digits.cbegin(), digits.cend(), [](char c) {
        return std::isdigit(static_cast<unsigned char>(c)) != 0;
    });
}

QList<QByteArray> foldersIn(const QByteArray& folder)
{
    QList<QByteArray> found;
    for (const QByteArray& name : FileTree::entries(folder)) {
        struct stat info {};
        const QByteArray path = FileTree::join(folder, name);
        if (isHoldingFolderName(name) && ::lstat(path.constData(), &info) == 0 && S_ISDIR(info.st_mode))
            found.append(path);
    }
    return found;
}

QByteArray setAside(const QByteArray& path)
{
    const QByteArray source = FileTree::standardized(path);
    const QByteArray holding = FileTree::join(FileTree::parentOf(source), nameNow());
    const bool made = ::mkdir(holding.constData(), 0777) == 0;
    const QByteArray moved = FileTree::join(holding, FileTree::lastComponent(source));
    if (::rename(source.constData(), moved.constData()) == 0)
        return holding;
    if (made)
        ::rmdir(holding.constData());
    return {};
}

} // namespace HoldingFolder

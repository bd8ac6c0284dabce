#include "erase/CopyOnWrite.h"

#include <QFile>

#include <sys/vfs.h>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace CopyOnWrite {

namespace {

// statfs f_type values, as the kernel's magic.h spells them.
constexpr std::array<std::pair<unsigned long, const char*>, 5> kFileSystems{{
    {0x9123683EUL, "btrfs"},
    {0x2FC12FC1UL, "ZFS"},
    {0xCA451A4EUL, "bcachefs"},
    {0xF2F52010UL, "F2FS"},
    {0x3434UL, "NILFS"},
}};

} // namespace

QString fileSystemAt(const QByteArray& path)
{
    struct statfs info {};
    if (::statfs(path.constData(), &info) != 0)
        return {};
    for (const auto& [type, name] : kFileSystems) {
        if (static_cast<unsigned long>(info.f_type) == type)
            return QString::fromLatin1(name);
    }
    return {};
}

QString warning(const QString& fileSystem, const QByteArray& firstPath)
{
    return u"Warning: %1 writes changed data to new blocks, so overwriting cannot reach the old contents of files "
           "on it; they may stay on the disk until it reuses the space (first path there: %2)"_s.arg(
               fileSystem, QFile::decodeName(firstPath));
}

} // namespace CopyOnWrite

#include "cleaners/DatabaseFiles.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace DatabaseFiles {

namespace {

bool syncPath(const QByteArray& path, int flags)
{
    const int descriptor = ::open(path.constData(), flags | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    const bool synced = ::fsync(descriptor) == 0;
    ::close(descriptor);
    return synced;
}

} // namespace

void removeWorkFile(const QString& path)
{
    const QByteArray native = QFile::encodeName(path);
    struct stat status {};
    if (::lstat(native.constData(), &status) != 0)
        return;
    if (status.st_nlink <= 1)
        ::chmod(native.constData(), 0777);
    ::unlink(native.constData());
}

void removeWorkDatabase(const QString& path)
{
    for (const char* suffix : {"", "-journal", "-wal", "-shm"})
        removeWorkFile(path + QLatin1StringView(suffix));
}

bool writeWorkFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size() && file.flush();
}

bool copyTemplate(const QString& templatePath, const QString& workDatabase, const QString& liveDatabase)
{
    QFile::copy(templatePath, workDatabase);
    if (!QFileInfo::exists(workDatabase))
        return false;
    struct stat live {};
    if (::stat(QFile::encodeName(liveDatabase).constData(), &live) == 0)
        ::chmod(QFile::encodeName(workDatabase).constData(), live.st_mode & 07777);
    return true;
}

bool swap(const QString& liveDatabase, const QString& workDatabase, const QString& renamed)
{
    const QByteArray live = QFile::encodeName(liveDatabase);
    const QByteArray work = QFile::encodeName(workDatabase);
    const QByteArray aside = QFile::encodeName(renamed);
    const QByteArray folder = QFile::encodeName(QFileInfo(liveDatabase).absolutePath());

    // The shell wrote the new database without syncing; it must be on the disk
    // before it replaces the only other copy of what the user keeps.
    if (!syncPath(work, O_RDONLY))
        return false;
    if (::link(live.constData(), aside.constData()) == 0) {
        if (::rename(work.constData(), live.constData()) != 0) {
            ::unlink(aside.constData());
            return false;
        }
    } else {
        // Without hard links (FAT volumes, network shares, another owner's file):
        // the old file moves aside, the new one takes its place, and the old one
        // comes back if it cannot.
        if (::rename(live.constData(), aside.constData()) != 0)
            return false;
        if (::rename(work.constData(), live.constData()) != 0) {
            ::rename(aside.constData(), live.constData());
            return false;
        }
    }
    syncPath(folder, O_RDONLY | O_DIRECTORY);
    return QFileInfo::exists(liveDatabase);
}

} // namespace DatabaseFiles

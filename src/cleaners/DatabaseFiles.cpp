#include "cleaners/DatabaseFiles.h"

#include "core/FileReplace.h"
#include "erase/EraseQueue.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

#include <cerrno>

namespace DatabaseFiles {

Error eraseWorkDatabase(EraseQueue& queue, const QString& path)
{
    Error first;
    for (const char* suffix : {"", "-journal", "-wal", "-shm"}) {
        const Error error = queue.eraseNow(path + QLatin1StringView(suffix));
        if (first.ok())
            first = error;
    }
    return first;
}

Error writeWorkFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size() && file.flush())
        return {};
    // QFile keeps no errno of its own: the one the failed call left.
    return {Error::Code::WriteFailed, errno, QFile::encodeName(path)};
}

Error copyTemplate(const QString& templatePath, const QString& workDatabase, const QString& liveDatabase)
{
    QFile::copy(templatePath, workDatabase);
    if (!QFileInfo::exists(workDatabase))
        return {Error::Code::NotCreated, 0, QFile::encodeName(workDatabase)};
    struct stat live {};
    if (::stat(QFile::encodeName(liveDatabase).constData(), &live) == 0)
        ::chmod(QFile::encodeName(workDatabase).constData(), live.st_mode & 07777);
    return {};
}

Error swap(const QString& liveDatabase, const QString& workDatabase, const QString& renamed)
{
    return FileReplace::withFile(QFile::encodeName(liveDatabase), QFile::encodeName(workDatabase),
                                 FileReplace::Strategy::KeepOld, QFile::encodeName(renamed));
}

} // namespace DatabaseFiles

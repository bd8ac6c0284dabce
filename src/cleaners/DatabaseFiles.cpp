#include "cleaners/DatabaseFiles.h"

#include "core/FileReplace.h"
#include "erase/EraseQueue.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace DatabaseFiles {

void eraseWorkDatabase(EraseQueue& queue, const QString& path)
{
    for (const char* suffix : {"", "-journal", "-wal", "-shm"})
        queue.eraseNow(path + QLatin1StringView(suffix));
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
    return FileReplace::withFile(QFile::encodeName(liveDatabase), QFile::encodeName(workDatabase),
                                 FileReplace::Strategy::KeepOld, QFile::encodeName(renamed))
        .ok();
}

} // namespace DatabaseFiles

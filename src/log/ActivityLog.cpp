#include "log/ActivityLog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <mutex>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// A run may reopen the log on the main thread while the shredding thread still
// writes to it: the stream is only used, opened and closed under the lock.
std::mutex gLogMutex;
FILE* gLogStream = nullptr;
// Whether closing the log closes its stream.
bool gOwnsStream = true;

void closeLocked()
{
    FILE* stream = std::exchange(gLogStream, nullptr);
    if (stream && gOwnsStream)
        std::fclose(stream);
}

} // namespace

namespace ActivityLog {

QString defaultPath()
{
    return QDir::homePath() + u"/Library/Logs/Vantle X Log.txt"_s;
}

void openLog(const QString& path)
{
    std::lock_guard lock(gLogMutex);
    if (gLogStream != nullptr)
        return;
    const QByteArray nativePath = QFile::encodeName(path);
    FILE* stream = std::fopen(nativePath.constData(), "w");
    if (stream == nullptr)
        return;
    ::chmod(nativePath.constData(), 0777);
    gOwnsStream = true;
    gLogStream = stream;
}

void writeLogLine(const QByteArray& message)
{
    std::lock_guard lock(gLogMutex);
    FILE* stream = gLogStream;
    if (stream == nullptr)
        return;
    const std::time_t now = std::time(nullptr);
    char stamp[64] = {};
    if (::ctime_r(&now, stamp) == nullptr)
        std::strcpy(stamp, "\n");
    // ctime ends in a newline; the message follows on the same line.
    stamp[std::strlen(stamp) - 1] = ' ';

    // The data reaches the file at the flush, so a failed flush is a failed write too.
    const bool written = std::fputs(stamp, stream) != EOF && std::fputs(message.constData(), stream) != EOF &&
                         std::fputs("\n", stream) != EOF && std::fflush(stream) == 0;
    if (!written)
        closeLocked();
}

void writeLogLine(const QString& message)
{
    writeLogLine(message.toUtf8());
}

void closeLog()
{
    std::lock_guard lock(gLogMutex);
    closeLocked();
}

void openConsoleLog(FILE* stream)
{
    std::lock_guard lock(gLogMutex);
    closeLocked();
    gOwnsStream = false;
    gLogStream = stream;
}

bool isLogOpen()
{
    std::lock_guard lock(gLogMutex);
    return gLogStream != nullptr;
}

void openRunLog(bool activityLogEnabled)
{
    closeLog();
    const QString path = defaultPath();
    QDir().mkpath(QFileInfo(path).absolutePath());
    openLog(path);
    if (activityLogEnabled && !isLogOpen()) {
        // Told at once: a run that goes on without its log must not look logged.
        qWarning("Vantle X: the activity log %s cannot be written (%s); this run is not logged", qPrintable(path),
                 std::strerror(errno));
    }
    if (!activityLogEnabled)
        closeLog();
}

} // namespace ActivityLog

#include "log/ActivityLog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <ctime>

using namespace Qt::StringLiterals;

namespace {

std::atomic<FILE*> gLogStream{nullptr};
// Whether closing the log closes its stream.
std::atomic<bool> gOwnsStream{true};

} // namespace

namespace ActivityLog {

QString defaultPath()
{
    return QDir::homePath() + u"/Library/Logs/Vantle X Log.txt"_s;
}

void openLog(const QString& path)
{
    if (gLogStream.load() != nullptr)
        return;
    const QByteArray nativePath = QFile::encodeName(path);
    FILE* stream = std::fopen(nativePath.constData(), "w");
    if (stream == nullptr)
        return;
    ::chmod(nativePath.constData(), 0777);
    gOwnsStream = true;
    gLogStream.store(stream);
}

void writeLogLine(const QByteArray& message)
{
    FILE* stream = gLogStream.load();
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
        closeLog();
}

void writeLogLine(const QString& message)
{
    writeLogLine(message.toUtf8());
}

void closeLog()
{
    FILE* stream = gLogStream.exchange(nullptr);
    if (stream && gOwnsStream.load())
        std::fclose(stream);
}

void openConsoleLog(FILE* stream)
{
    closeLog();
    gOwnsStream = false;
    gLogStream = stream;
}

bool isLogOpen()
{
    return gLogStream.load() != nullptr;
}

void openRunLog(bool activityLogEnabled)
{
    closeLog();
    const QString path = defaultPath();
    QDir().mkpath(QFileInfo(path).absolutePath());
    openLog(path);
    if (!activityLogEnabled)
        closeLog();
}

} // namespace ActivityLog

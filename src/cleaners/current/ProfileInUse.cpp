#include "cleaners/current/ProfileInUse.h"

#include "watch/ProcessScan.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

bool isAlive(qint64 pid)
{
    return pid > 0 && (::kill(pid_t(pid), 0) == 0 || errno == EPERM);
}

// The pid after the last separator in a lock link's target ("127.0.0.1:+4803"
// after ":+", "host-name-4803" after "-"), or 0. The target is read as it is
// stored: it names no file.
qint64 linkedPid(const QString& link, QByteArrayView separator)
{
    char target[256];
    const ssize_t length = ::readlink(QFile::encodeName(link).constData(), target, sizeof target);
    const QByteArray text = length > 0 ? QByteArray(target, length) : QByteArray();
    const qsizetype at = text.lastIndexOf(separator);
    if (at < 0)
        return 0;
    bool isNumber = false;
    const qint64 pid = text.mid(at + separator.size()).toLongLong(&isNumber);
    return isNumber ? pid : 0;
}

// The process holding a POSIX lock on the file, as the browser holds ".parentlock".
qint64 fileLockHolder(const QString& path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        return 0;
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    const bool held = ::fcntl(fd, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
    ::close(fd);
    return held ? qint64(lock.l_pid) : 0;
}

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

namespace ProfileInUse {

qint64 lockHolder(const QString& profileFolder)
{
    for (const QString& name : {u"lock"_s, u".parentlock"_s}) {
        const QString path = profileFolder + u'/' + name;
        const qint64 pid = QFileInfo(path).isSymLink() ? linkedPid(path, ":+") : fileLockHolder(path);
        if (isAlive(pid))
            return pid;
    }
    return 0;
}

qint64 singletonLockHolder(const QString& userDataFolder)
{
    const qint64 pid = linkedPid(userDataFolder + u"/SingletonLock"_s, "-");
    return isAlive(pid) ? pid : 0;
}

QString runningProgram(WatchedApp application, const QString& procRoot)
{
    const uid_t user = ::getuid();
    for (const QString& entry : QDir(procRoot).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        bool isPid = false;
        entry.toLongLong(&isPid);
        const QString folder = procRoot + u'/' + entry;
        struct stat info {};
        if (!isPid || ::stat(QFile::encodeName(folder).constData(), &info) != 0 || info.st_uid != user)
            continue;
        const QByteArray name = readAll(folder + u"/comm"_s).trimmed();
        const QByteArray words = readAll(folder + u"/cmdline"_s);
        const qsizetype end = words.indexOf('\0');
        const QByteArray command = end < 0 ? words : words.left(end);
        const QByteArray program = command.mid(command.lastIndexOf('/') + 1);
        for (const ProcessScan::LinuxProgram& known : ProcessScan::linuxPrograms()) {
            if (known.flag == application && (name == known.name || program == known.name))
                return QString::fromLatin1(known.name);
        }
    }
    return {};
}

} // namespace ProfileInUse

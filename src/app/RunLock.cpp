#include "app/RunLock.h"

#include "settings/UserDefaults.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

QString programName()
{
    const QString name = QCoreApplication::applicationName();
    return name.isEmpty() ? u"vantle"_s : name;
}

// Without the record the lock holds all the same; only the others' message lacks the name.
bool recordHolder(int fd, const QByteArray& record)
{
    return ::ftruncate(fd, 0) == 0 && ::pwrite(fd, record.constData(), size_t(record.size()), 0) == record.size();
}

} // namespace

QString RunLock::defaultPath()
{
    return QFileInfo(UserDefaults::defaultFilePath()).dir().filePath(UserDefaults::Domain + u".lock"_s);
}

RunLock::RunLock(QString path)
    : m_path(std::move(path))
{
}

RunLock::~RunLock()
{
    unlock();
}

RunLock::Outcome RunLock::tryLock()
{
    return take(false);
}

RunLock::Outcome RunLock::lock()
{
    return take(true);
}

RunLock::Outcome RunLock::take(bool wait)
{
    std::lock_guard guard(m_mutex);
    if (m_fd >= 0)
        return Outcome::Busy;
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    const int fd = ::open(QFile::encodeName(m_path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd < 0)
        return unavailable(errno);
    int result = 0;
    do {
        result = ::flock(fd, wait ? LOCK_EX : LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    if (result != 0) {
        const int error = errno;
        ::close(fd);
        return error == EWOULDBLOCK ? Outcome::Busy : unavailable(error);
    }
    const QByteArray record = programName().toUtf8() + ' ' + QByteArray::number(qint64(::getpid())) + '\n';
    recordHolder(fd, record);
    m_fd = fd;
    return Outcome::Held;
}

RunLock::Outcome RunLock::unavailable(int error)
{
    qWarning("Vantle X: the run lock %s cannot be taken (%s); runs of other processes are not kept apart",
             qPrintable(m_path), std::strerror(error));
    return Outcome::Unavailable;
}

void RunLock::unlock()
{
    std::lock_guard guard(m_mutex);
    if (m_fd < 0)
        return;
    // Emptied first: a process that finds the lock taken must not read a holder that has gone.
    recordHolder(m_fd, {});
    ::close(m_fd);
    m_fd = -1;
}

RunLock::Holder RunLock::holder() const
{
    QFile file(m_path);
    const QString record = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readLine(256)).trimmed() : QString();
    const qsizetype space = record.lastIndexOf(u' ');
    if (space <= 0)
        return {};
    return {record.left(space), record.mid(space + 1).toLongLong()};
}

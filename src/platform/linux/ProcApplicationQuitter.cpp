#include "platform/linux/ProcApplicationQuitter.h"

#include "platform/QuitList.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>
#include <csignal>
#include <unistd.h>

ProcApplicationQuitter::ProcApplicationQuitter(QString procRoot)
    : m_procRoot(std::move(procRoot))
    , m_uid(::getuid())
    , m_self(::getpid())
{
}

int ProcApplicationQuitter::countOrQuitApplications(bool quit)
{
    int count = 0;
    const QStringList entries = QDir(m_procRoot).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& entry : entries) {
        bool isPid = false;
        const pid_t pid = pid_t(entry.toInt(&isPid));
        if (!isPid || pid == m_self)
            continue;
        const QString folder = m_procRoot + u'/' + entry;
        struct stat info {};
        if (::stat(QFile::encodeName(folder).constData(), &info) != 0 || info.st_uid != m_uid)
            continue;
        QFile commandLine(folder + QStringLiteral("/cmdline"));
        if (!commandLine.open(QIODevice::ReadOnly))
            continue;
        // The arguments are separated by NUL bytes.
        const QString text = QString::fromUtf8(commandLine.readAll().replace('\0', ' '));
        if (QuitList::signatureForCommandLine(text).isNull())
            continue;
        ++count;
        if (quit)
            ::kill(pid, SIGTERM);
    }
    return count;
}

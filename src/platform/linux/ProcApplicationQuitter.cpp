#include "platform/linux/ProcApplicationQuitter.h"

#include "platform/QuitList.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <sys/stat.h>
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
        // The program is the first of the NUL-separated words: a program whose
        // arguments merely name a file inside a bundle is not that application.
        const QByteArray words = commandLine.readAll();
        const qsizetype end = words.indexOf('\0');
        const QString program = QString::fromUtf8(end < 0 ? words : words.left(end));
        if (QuitList::signatureForExecutable(program).isNull())
            continue;
        ++count;
        if (quit)
            ::kill(pid, SIGTERM);
    }
    return count;
}

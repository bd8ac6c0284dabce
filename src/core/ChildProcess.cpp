#include "core/ChildProcess.h"

#include <QProcess>

#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#endif

ProcessResult ChildProcess::run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setStandardInputFile(QProcess::nullDevice());
#ifdef Q_OS_LINUX
    // A child never outlives the program: a run killed while a database was being
    // rebuilt must not leave a shell writing into the work files of the next run.
    // (The signal follows the thread that started the child, which waits for it.)
    const pid_t parent = ::getpid();
    process.setChildProcessModifier([parent] {
        if (::prctl(PR_SET_PDEATHSIG, SIGKILL) != 0 || ::getppid() != parent)
            ::_exit(127);
    });
#endif
    process.start(QIODevice::ReadOnly);

    ProcessResult result;
    if (!process.waitForStarted(-1))
        return result;
    result.started = true;
    process.waitForFinished(-1);
    result.crashed = process.exitStatus() == QProcess::CrashExit;
    result.exitCode = result.crashed ? -1 : process.exitCode();
    result.standardOutput = process.readAllStandardOutput();
    result.standardError = process.readAllStandardError();
    return result;
}

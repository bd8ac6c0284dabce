#include "core/ChildProcess.h"

#include <QProcess>

#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#include <csignal>
#include <unistd.h>
#endif

ProcessResult ChildProcess::run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setStandardInputFile(QProcess::nullDevice());
#ifdef Q_OS_LINUX
    // A child outliving a killed program would go on writing work files that
    // the next run has already made anew: it ends with the program.
    const pid_t parent = ::getpid();
    process.setChildProcessModifier([parent] {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != parent)
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

#include "core/ChildProcess.h"

#include <QProcess>

ProcessResult ChildProcess::run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setStandardInputFile(QProcess::nullDevice());
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

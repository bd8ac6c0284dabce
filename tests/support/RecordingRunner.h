#pragma once

#include "core/ChildProcess.h"

#include <QList>
#include <QStringList>

// Runs nothing: records each command (program, then arguments) and answers as told.
class RecordingRunner final : public CommandRunner {
public:
    ProcessResult run(const QString& program, const QStringList& arguments) override
    {
        calls.append(QStringList{program} + arguments);
        ProcessResult result;
        result.started = true;
        result.exitCode = exitCode;
        result.standardOutput = output;
        return result;
    }

    QList<QStringList> calls;
    QByteArray output;
    int exitCode = 0;
};

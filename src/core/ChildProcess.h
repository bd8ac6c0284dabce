#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

struct ProcessResult {
    bool started = false; // false: the program could not be run at all
    bool crashed = false; // ended by a signal
    int exitCode = -1;
    QByteArray standardOutput;
    QByteArray standardError;
};

// Runs a program with an argument vector (never through a shell), waits for it to
// exit and captures what it printed. Usable from any thread; needs no event loop.
// On Linux the child is killed when the program dies before it, so that nothing
// it was doing carries on behind a killed run.
class ChildProcess {
public:
    static ProcessResult run(const QString& program, const QStringList& arguments);
};

// The seam through which code that runs other programs can be handed a fake.
class CommandRunner {
public:
    virtual ~CommandRunner() = default;
    virtual ProcessResult run(const QString& program, const QStringList& arguments) = 0;
};

class SystemCommandRunner final : public CommandRunner {
public:
    ProcessResult run(const QString& program, const QStringList& arguments) override
    {
        return ChildProcess::run(program, arguments);
    }
};

#pragma once

#include "core/ChildProcess.h"
#include "platform/ApplicationQuitter.h"
#include "platform/SessionEnd.h"

#include <QList>
#include <QStringList>

#include <atomic>
#include <functional>
#include <mutex>

// The process listing the watch sees; every other command succeeds and prints nothing.
class FakeCommands final : public CommandRunner {
public:
    ProcessResult run(const QString& program, const QStringList&) override
    {
        if (whileRunning)
            whileRunning();
        ProcessResult result;
        result.started = true;
        result.exitCode = 0;
        if (program == QStringLiteral("ps"))
            result.standardOutput = "COMMAND\n" + processes.join('\n') + '\n';
        return result;
    }

    // Called as each command starts, on the calling thread: a command that takes its time.
    std::function<void()> whileRunning;
    QList<QByteArray> processes; // one command line each
};

class FakeQuitter final : public ApplicationQuitter {
public:
    int countOrQuitApplications(bool quit) override
    {
        if (quit)
            ++quitRequests;
        return running;
    }
    std::atomic<int> running{0};
    std::atomic<int> quitRequests{0};
};

class RecordingSessionEnd final : public SessionEnd {
public:
    int sendSessionEndEvent(Action action) override
    {
        std::lock_guard lock(mutex);
        events.append(eventId(action));
        return 0;
    }
    std::mutex mutex;
    QStringList events;
};

#pragma once

#include "platform/SessionEnd.h"

class CommandRunner;

// The system's log-out, shut-down and restart Apple events, sent to the login
// window through osascript.
class AppleEventSessionEnd final : public SessionEnd {
public:
    // runner defaults to running the real osascript.
    explicit AppleEventSessionEnd(CommandRunner* runner = nullptr);
    ~AppleEventSessionEnd() override;

    int sendSessionEndEvent(Action action) override;
    static QString script(Action action);

private:
    std::unique_ptr<CommandRunner> m_ownedRunner;
    CommandRunner* m_runner;
};

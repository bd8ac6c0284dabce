#pragma once

#include "platform/SessionEnd.h"

class CommandRunner;

// logind and systemd: logging out ends the session the program runs in
// ($XDG_SESSION_ID); shutting down and restarting ask systemd.
class SystemdSessionEnd final : public SessionEnd {
public:
    // runner defaults to running the real loginctl and systemctl.
    explicit SystemdSessionEnd(CommandRunner* runner = nullptr);
    ~SystemdSessionEnd() override;

    int sendSessionEndEvent(Action action) override;

private:
    std::unique_ptr<CommandRunner> m_ownedRunner;
    CommandRunner* m_runner;
};

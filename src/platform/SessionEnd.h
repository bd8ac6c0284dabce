#pragma once

#include <QString>

#include <memory>

// Ends the user's session after a run: log out, shut down or restart.
class SessionEnd {
public:
    enum Action { LogOut = 1, ShutDown = 2, Restart = 3 };

    virtual ~SessionEnd() = default;
    // 0 when the request was sent; the system may still ask the user to confirm.
    virtual int sendSessionEndEvent(Action action) = 0;

    // The event identifier of an action: "rlgo", "shut" or "rest".
    static QString eventId(Action action);
};

class CommandRunner;

// This system's way of ending the session, through runner (the real one when null).
std::unique_ptr<SessionEnd> createPlatformSessionEnd(CommandRunner* runner = nullptr);

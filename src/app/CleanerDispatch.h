#pragma once

#include <QtGlobal>

class CleanerContext;
class CommandRunner;
class UserDefaults;

// Calls every cleaner of every application that is not running, in the run's
// fixed order.
class CleanerDispatch {
public:
    CleanerDispatch(CleanerContext& context, const UserDefaults& defaults, CommandRunner& runner);

    // customIsRunning: whether a custom process runs. logoutShutdownRestart: set
    // by a session-ending command; it adds the plug-in and QuickTime caches and is
    // cleared once they are queued.
    void run(qint32 customIsRunning, quint8& logoutShutdownRestart);

private:
    CleanerContext& mContext;
    const UserDefaults& mDefaults;
    CommandRunner& mRunner;
};

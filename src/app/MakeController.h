#pragma once

#include "core/ChildProcess.h"

#include <cstdio>
#include <functional>
#include <memory>

class ApplicationQuitter;
class Bundle;
class Controller;
class ControllerView;
class SessionEnd;
struct ApplicationModels;

// What the controller needs from outside the program.
struct ControllerPlatform {
    ApplicationQuitter& quitter;
    SessionEnd& sessionEnd;
    CommandRunner& runner; // ps for the watch, killall for a cleaner
    const Bundle& bundle;
    std::function<void(int milliseconds)> sleepMilliseconds;
};

// This system's own quitter, session end and child processes.
class SystemPlatform {
public:
    SystemPlatform();
    ~SystemPlatform();

    // With the program's bundle and a sleep of the calling thread.
    ControllerPlatform controllerPlatform();

private:
    std::unique_ptr<ApplicationQuitter> mQuitter;
    std::unique_ptr<SessionEnd> mSessionEnd;
    SystemCommandRunner mRunner;
};

// The controller of every front end, over the application's shared objects. A
// dry run finds and reports but changes nothing; its log lines go to dryRunLog
// instead of the log file.
std::unique_ptr<Controller> makeController(const ApplicationModels& models, ControllerView& view,
                                           const ControllerPlatform& platform, bool dryRun = false,
                                           FILE* dryRunLog = nullptr);

#pragma once

#include <functional>
#include <memory>

// The browsers and mail clients that must quit before a session-ending run:
// those whose creator signature is on the quit list.
class ApplicationQuitter {
public:
    virtual ~ApplicationQuitter() = default;

    // How many listed applications run; with quit set, each is also asked to quit.
    virtual int countOrQuitApplications(bool quit) = 0;
};

// Asks every listed application to quit, then checks every half second, at most
// 50 times, until none runs. Returns how many still run (0 when all quit).
// sleepMilliseconds is the pause between checks (a test can make it instant).
int quitApplicationsAndWait(ApplicationQuitter& quitter, const std::function<void(int)>& sleepMilliseconds);

// This system's way of finding and quitting the listed applications.
std::unique_ptr<ApplicationQuitter> createPlatformApplicationQuitter();

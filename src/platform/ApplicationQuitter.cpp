#include "platform/ApplicationQuitter.h"

#include "platform/linux/ProcApplicationQuitter.h"

int quitApplicationsAndWait(ApplicationQuitter& quitter, const std::function<void(int)>& sleepMilliseconds)
{
    constexpr int kChecks = 50;
    constexpr int kPauseMilliseconds = 500;
    quitter.countOrQuitApplications(true);
    sleepMilliseconds(kPauseMilliseconds);
    int running = 0;
    for (int check = 0; check < kChecks; ++check) {
        running = quitter.countOrQuitApplications(false);
        if (running == 0)
            return 0;
        sleepMilliseconds(kPauseMilliseconds);
    }
    return running;
}

std::unique_ptr<ApplicationQuitter> createPlatformApplicationQuitter()
{
    // The only quitter so far: a Mac has no /proc, so there it finds no application to quit.
    return std::make_unique<ProcApplicationQuitter>();
}

#include "platform/ApplicationQuitter.h"

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

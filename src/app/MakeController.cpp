#include "app/MakeController.h"

#include "app/ApplicationModels.h"
#include "app/Controller.h"
#include "core/Bundle.h"
#include "platform/ApplicationQuitter.h"
#include "platform/SessionEnd.h"

#include <QThread>

SystemPlatform::SystemPlatform()
    : mQuitter(createPlatformApplicationQuitter())
    , mSessionEnd(createPlatformSessionEnd())
{
}

SystemPlatform::~SystemPlatform() = default;

ControllerPlatform SystemPlatform::controllerPlatform()
{
    return {*mQuitter, *mSessionEnd, mRunner, Bundle::mainBundle(),
            [](int milliseconds) { QThread::msleep(ulong(milliseconds)); }};
}

std::unique_ptr<Controller> makeController(const ApplicationModels& models, ControllerView& view,
                                           const ControllerPlatform& platform, bool dryRun, FILE* dryRunLog)
{
    return std::make_unique<Controller>(ControllerServices{models.preferences, models.defaults, view, platform.quitter,
                                                           platform.sessionEnd, platform.runner, platform.bundle,
                                                           platform.sleepMilliseconds, dryRun, dryRunLog});
}

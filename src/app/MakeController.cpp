#include "app/MakeController.h"

#include "app/ApplicationModels.h"
#include "app/Controller.h"
#include "core/Bundle.h"
#include "platform/ApplicationQuitter.h"
#include "platform/SessionEnd.h"
#include "watch/CustomShred.h"

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
    ControllerServices services{models.preferences,
                                models.defaults,
                                view,
                                platform.quitter,
                                platform.sessionEnd,
                                platform.runner,
                                platform.bundle,
                                platform.sleepMilliseconds,
                                dryRun,
                                dryRunLog};
    services.models = {&models.html5, &models.plugins, &models.customShred};
    services.profiles = &models.profiles;
    return std::make_unique<Controller>(std::move(services));
}

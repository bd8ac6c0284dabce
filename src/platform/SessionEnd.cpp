#include "platform/SessionEnd.h"

#ifdef Q_OS_MACOS
#include "platform/macos/AppleEventSessionEnd.h"
#else
#include "platform/linux/SystemdSessionEnd.h"
#endif

using namespace Qt::StringLiterals;

QString SessionEnd::eventId(Action action)
{
    switch (action) {
    case LogOut:
        return u"rlgo"_s;
    case ShutDown:
        return u"shut"_s;
    case Restart:
        return u"rest"_s;
    }
    return {};
}

std::unique_ptr<SessionEnd> createPlatformSessionEnd(CommandRunner* runner)
{
#ifdef Q_OS_MACOS
    return std::make_unique<AppleEventSessionEnd>(runner);
#else
    return std::make_unique<SystemdSessionEnd>(runner);
#endif
}

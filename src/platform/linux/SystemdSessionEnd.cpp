#include "platform/linux/SystemdSessionEnd.h"

#include "core/ChildProcess.h"

using namespace Qt::StringLiterals;

SystemdSessionEnd::SystemdSessionEnd(CommandRunner* runner)
    : m_ownedRunner(runner ? nullptr : std::make_unique<SystemCommandRunner>())
    , m_runner(runner ? runner : m_ownedRunner.get())
{
}

SystemdSessionEnd::~SystemdSessionEnd() = default;

int SystemdSessionEnd::sendSessionEndEvent(Action action)
{
    ProcessResult result;
    switch (action) {
    case LogOut: {
        const QString session = qEnvironmentVariable("XDG_SESSION_ID");
        if (session.isEmpty())
            return -1;
        result = m_runner->run(u"loginctl"_s, {u"terminate-session"_s, session});
        break;
    }
    case ShutDown:
        result = m_runner->run(u"systemctl"_s, {u"poweroff"_s});
        break;
    case Restart:
        result = m_runner->run(u"systemctl"_s, {u"reboot"_s});
        break;
    }
    return result.started && !result.crashed ? result.exitCode : -1;
}

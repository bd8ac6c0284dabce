#include "platform/macos/AppleEventSessionEnd.h"

#include "core/ChildProcess.h"

using namespace Qt::StringLiterals;

AppleEventSessionEnd::AppleEventSessionEnd(CommandRunner* runner)
    : m_ownedRunner(runner ? nullptr : std::make_unique<SystemCommandRunner>())
    , m_runner(runner ? runner : m_ownedRunner.get())
{
}

AppleEventSessionEnd::~AppleEventSessionEnd() = default;

QString AppleEventSessionEnd::script(Action action)
{
    return u"tell application \"loginwindow\" to \u00abevent aevt%1\u00bb"_s.arg(eventId(action));
}

int AppleEventSessionEnd::sendSessionEndEvent(Action action)
{
    const ProcessResult result = m_runner->run(u"/usr/bin/osascript"_s, {u"-e"_s, script(action)});
    return result.started && !result.crashed ? result.exitCode : -1;
}

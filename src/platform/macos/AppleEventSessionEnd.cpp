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
    // Sent without waiting for a reply: the log-out must not hold the run up.
    return u"ignoring application responses\ntell application \"loginwindow\" to \u00abevent aevt%1\u00bb\n"
           u"end ignoring"_s.arg(eventId(action));
}

int AppleEventSessionEnd::sendSessionEndEvent(Action action)
{
    const ProcessResult result = m_runner->run(u"/usr/bin/osascript"_s, {u"-e"_s, script(action)});
    return result.started && !result.crashed ? result.exitCode : -1;
}

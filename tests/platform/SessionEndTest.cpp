#include "platform/linux/SystemdSessionEnd.h"
#include "platform/macos/AppleEventSessionEnd.h"

#include "support/RecordingRunner.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(SessionEnd, SystemdGetsArgumentVectorsAndAppleEventsGoToTheLoginWindow)
{
    RecordingRunner runner;
    SystemdSessionEnd session(&runner);
    qputenv("XDG_SESSION_ID", "c7");
    EXPECT_EQ(session.sendSessionEndEvent(SessionEnd::LogOut), 0);
    EXPECT_EQ(session.sendSessionEndEvent(SessionEnd::ShutDown), 0);
    runner.exitCode = 1;
    EXPECT_EQ(session.sendSessionEndEvent(SessionEnd::Restart), 1);
    qunsetenv("XDG_SESSION_ID");
    EXPECT_EQ(session.sendSessionEndEvent(SessionEnd::LogOut), -1); // no session to end

    EXPECT_EQ(runner.calls, (QList<QStringList>{{u"loginctl"_s, u"terminate-session"_s, u"c7"_s},
                                                {u"systemctl"_s, u"poweroff"_s},
                                                {u"systemctl"_s, u"reboot"_s}}));

    RecordingRunner osascript;
    AppleEventSessionEnd appleEvents(&osascript);
    appleEvents.sendSessionEndEvent(SessionEnd::Restart);
    ASSERT_EQ(osascript.calls.size(), 1);
    EXPECT_EQ(
        osascript.calls[0],
        (QStringList{u"/usr/bin/osascript"_s, u"-e"_s,
                     u"ignoring application responses\ntell application \"loginwindow\" to \u00abevent aevtrest\u00bb\n"
                     u"end ignoring"_s}));
    EXPECT_EQ(AppleEventSessionEnd::script(SessionEnd::LogOut),
              u"ignoring application responses\ntell application \"loginwindow\" to \u00abevent aevtrlgo\u00bb\n"
              u"end ignoring"_s);
    EXPECT_EQ(SessionEnd::eventId(SessionEnd::ShutDown), u"shut"_s);
}

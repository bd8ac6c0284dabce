#include "platform/macos/AppleScriptLoginItem.h"

#include "support/RecordingRunner.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(AppleScriptLoginItem, RunsTheSystemEventsScriptsThroughOsascriptAndAFailedOneMeansNoItem)
{
    RecordingRunner runner;
    AppleScriptLoginItem item(u"/Applications/Vantle X.app"_s, &runner);

    item.remove();
    item.create(item.applicationPath(), true);
    item.setHidden(false);

    ASSERT_EQ(runner.calls.size(), 3);
    for (const QStringList& call : runner.calls) {
        ASSERT_EQ(call.size(), 3);
        EXPECT_EQ(call[0], u"/usr/bin/osascript"_s);
        EXPECT_EQ(call[1], u"-e"_s);
    }
    EXPECT_EQ(runner.calls[0][2], u"tell application \"System Events\"\n"
                                  u"get the name of every login item\n"
                                  u"if login item \"Vantle X\" exists then\n"
                                  u"delete login item \"Vantle X\"\n"
                                  u"end if\n"
                                  u"end tell"_s);
    EXPECT_EQ(runner.calls[1][2],
              u"tell application \"System Events\"\n"
              u"make new login item at end with properties {path:\"/Applications/Vantle X.app\", hidden:true}\n"
              u"end tell"_s);
    EXPECT_EQ(runner.calls[2][2], u"tell application \"System Events\"\n"
                                  u"if login item \"Vantle X\" exists then\n"
                                  u"set hidden of login item \"Vantle X\" to false\n"
                                  u"end if\n"
                                  u"end tell"_s);
    EXPECT_EQ(AppleScriptLoginItem::creationScript(u"/x"_s, false),
              u"tell application \"System Events\"\n"
              u"make new login item at end with properties {path:\"/x\", hidden:false}\n"
              u"end tell"_s);

    runner.output = "/Volumes/Other/Vantle X.app\n";
    EXPECT_EQ(item.path(), u"/Volumes/Other/Vantle X.app"_s);
    EXPECT_EQ(runner.calls.last()[2], u"tell application \"System Events\"\n"
                                      u"get path of login item \"Vantle X\"\n"
                                      u"end tell"_s);

    runner.exitCode = 1; // no such login item, or no access to System Events
    runner.output = "execution error";
    EXPECT_TRUE(item.path().isEmpty());
}

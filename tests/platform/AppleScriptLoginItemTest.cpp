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

    const auto osascript = [](const QString& script) { return QStringList{u"/usr/bin/osascript"_s, u"-e"_s, script}; };
    EXPECT_EQ(
        runner.calls,
        (QList<QStringList>{
            osascript(u"tell application \"System Events\"\n"
                      u"get the name of every login item\n"
                      u"if login item \"Vantle X\" exists then\n"
                      u"delete login item \"Vantle X\"\n"
                      u"end if\n"
                      u"end tell"_s),
            osascript(u"tell application \"System Events\"\n"
                      u"make new login item at end with properties {path:\"/Applications/Vantle X.app\", hidden:true}\n"
                      u"end tell"_s),
            osascript(u"tell application \"System Events\"\n"
                      u"if login item \"Vantle X\" exists then\n"
                      u"set hidden of login item \"Vantle X\" to false\n"
                      u"end if\n"
                      u"end tell"_s)}));
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

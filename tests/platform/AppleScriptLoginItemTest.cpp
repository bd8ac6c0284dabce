#include "platform/macos/AppleScriptLoginItem.h"

#include "core/ChildProcess.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class RecordingRunner final : public CommandRunner {
public:
    ProcessResult run(const QString& program, const QStringList& arguments) override
    {
        programs << program;
        scripts << (arguments.size() == 2 && arguments[0] == u"-e"_s ? arguments[1] : arguments.join(u'|'));
        ProcessResult result;
        result.started = true;
        result.exitCode = exitCode;
        result.standardOutput = output;
        return result;
    }

    QStringList programs;
    QStringList scripts;
    QByteArray output;
    int exitCode = 0;
};

} // namespace

TEST(AppleScriptLoginItem, RunsTheSystemEventsScriptsThroughOsascript)
{
    RecordingRunner runner;
    AppleScriptLoginItem item(u"/Applications/Vantle X.app"_s, &runner);

    item.remove();
    item.create(item.applicationPath(), true);
    item.setHidden(false);

    EXPECT_EQ(runner.programs, QStringList(3, u"/usr/bin/osascript"_s));
    ASSERT_EQ(runner.scripts.size(), 3);
    EXPECT_EQ(runner.scripts[0], u"tell application \"System Events\"\n"
                                 u"get the name of every login item\n"
                                 u"if login item \"Vantle X\" exists then\n"
                                 u"delete login item \"Vantle X\"\n"
                                 u"end if\n"
                                 u"end tell"_s);
    EXPECT_EQ(runner.scripts[1], u"tell application \"System Events\"\n"
                                 u"make new login item at end with properties {path:\"/Applications/Vantle X.app\", hidden:true}\n"
                                 u"end tell"_s);
    EXPECT_EQ(runner.scripts[2], u"tell application \"System Events\"\n"
                                 u"if login item \"Vantle X\" exists then\n"
                                 u"set hidden of login item \"Vantle X\" to false\n"
                                 u"end if\n"
                                 u"end tell"_s);
    EXPECT_EQ(AppleScriptLoginItem::creationScript(u"/x"_s, false),
              u"tell application \"System Events\"\n"
              u"make new login item at end with properties {path:\"/x\", hidden:false}\n"
              u"end tell"_s);
}

TEST(AppleScriptLoginItem, ReadsThePathAndTreatsAFailedScriptAsNoItem)
{
    RecordingRunner runner;
    AppleScriptLoginItem item(u"/Applications/Vantle X.app"_s, &runner);

    runner.output = "/Volumes/Other/Vantle X.app\n";
    EXPECT_EQ(item.path(), u"/Volumes/Other/Vantle X.app"_s);
    EXPECT_EQ(runner.scripts.last(), u"tell application \"System Events\"\n"
                                     u"get path of login item \"Vantle X\"\n"
                                     u"end tell"_s);

    runner.exitCode = 1;  // no such login item, or no access to System Events
    runner.output = "execution error";
    EXPECT_TRUE(item.path().isEmpty());
}

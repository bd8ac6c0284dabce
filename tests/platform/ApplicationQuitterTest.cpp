#include "platform/ApplicationQuitter.h"
#include "platform/QuitList.h"
#include "platform/linux/ProcApplicationQuitter.h"

#include "support/TempHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

class FakeQuitter final : public ApplicationQuitter {
public:
    int countOrQuitApplications(bool quit) override
    {
        (quit ? quitRequests : countRequests)++;
        return quit ? running : (countRequests >= quitsAfterChecks ? 0 : running);
    }
    int running = 2;
    int quitsAfterChecks = 1000;
    int quitRequests = 0;
    int countRequests = 0;
};

} // namespace

TEST(QuitApplicationsAndWait, AsksOnceThenChecksEveryHalfSecondAtMostFiftyTimes)
{
    FakeQuitter stubborn;
    int slept = 0;
    EXPECT_EQ(quitApplicationsAndWait(stubborn, [&](int ms) { slept += ms; }), 2);
    EXPECT_EQ(stubborn.quitRequests, 1);
    EXPECT_EQ(stubborn.countRequests, 50);
    EXPECT_EQ(slept, 25500);

    FakeQuitter none;
    none.running = 0;
    slept = 0;
    EXPECT_EQ(quitApplicationsAndWait(none, [&](int ms) { slept += ms; }), 0);
    EXPECT_EQ(none.countRequests, 1);
    EXPECT_EQ(slept, 500);

    FakeQuitter slow;
    slow.quitsAfterChecks = 3;
    EXPECT_EQ(quitApplicationsAndWait(slow, [](int) {}), 0);
    EXPECT_EQ(slow.countRequests, 3);
}

TEST(QuitList, FindsTheListedBundleAnExecutableRunsFrom)
{
    EXPECT_EQ(QuitList::signatureForExecutable(u"/Applications/Safari.app/Contents/MacOS/Safari"_s), u"sfri"_s);
    EXPECT_EQ(QuitList::signatureForExecutable(u"/Applications/Google Chrome.app/Contents/MacOS/Google Chrome"_s),
              u"rimZ"_s);
    EXPECT_EQ(QuitList::signatureForExecutable(u"/Applications/Mail.app/Contents/MacOS/Mail"_s), u"emal"_s);
    EXPECT_TRUE(QuitList::signatureForExecutable(u"/Applications/Postbox.app/Contents/MacOS/postbox"_s).isNull());
    EXPECT_TRUE(QuitList::signatureForExecutable(u"/Backups/Mail.app/Contents/Info.plist"_s).isNull());
    EXPECT_TRUE(QuitList::signatureForExecutable(u"/usr/bin/NotSafari.app"_s).isNull());
    EXPECT_EQ(QuitList::signatureForExecutable(u"/usr/lib/firefox-esr/firefox-esr"_s), u"MOZB"_s);
    EXPECT_EQ(QuitList::signatureForExecutable(u"thunderbird"_s), u"MOZM"_s);
    EXPECT_TRUE(QuitList::signatureForExecutable(u"/usr/bin/firefox-esr-helper"_s).isNull());
    EXPECT_EQ(QuitList::signatureForExecutable(u"/usr/lib/chromium/chromium"_s), u"rimZ"_s);
    EXPECT_EQ(QuitList::signatureForExecutable(u"/opt/brave.com/brave/brave"_s), u"com.brave.Browser"_s);
}

TEST(ProcApplicationQuitter, CountsAndStopsTheUsersListedApplications)
{
    TempHome home;
    // A stand-in for a browser: a program run from inside a Safari bundle.
    const QString bundled = home.file(u"Applications/Safari.app/Contents/MacOS/Safari"_s);
    const QString unlisted = home.file(u"Applications/Editor.app/Contents/MacOS/Editor"_s);
    for (const auto& [program, copy] : {std::pair{u"/bin/sleep"_s, bundled}, std::pair{u"/bin/sh"_s, unlisted}}) {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(copy).absolutePath()));
        ASSERT_TRUE(QFile::copy(program, copy));
    }
    QProcess browser;
    QProcess editor;
    browser.start(bundled, {u"60"_s});
    // An unlisted program working on a file inside a listed bundle is left alone.
    editor.start(unlisted, {u"-c"_s, u"sleep 60; true"_s, bundled});
    ASSERT_TRUE(browser.waitForStarted());
    ASSERT_TRUE(editor.waitForStarted());

    ProcApplicationQuitter quitter;
    EXPECT_EQ(quitter.countOrQuitApplications(false), 1);
    EXPECT_EQ(quitter.countOrQuitApplications(true), 1);
    EXPECT_TRUE(browser.waitForFinished(5000));
    EXPECT_EQ(quitter.countOrQuitApplications(false), 0);
    EXPECT_EQ(editor.state(), QProcess::Running);
    editor.kill();
    editor.waitForFinished();
}

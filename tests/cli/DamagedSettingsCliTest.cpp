// A settings file that cannot be read whole is kept aside, said on the standard
// error and in the log, and stops every run until the factory settings are
// confirmed or the file is repaired.
#include "cli/CliFixture.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const QString kSettings = u".config/com.orvick.vantle.plist"_s;
const QString kCache = u"Library/Caches/Safari/cache.db"_s;

class DamagedSettingsCliTest : public CliFixture {
protected:
    QByteArray makeSettings()
    {
        prepareRuns({{u"keep"_s, u"add"_s, u"kept.org"_s},
                     {u"keep"_s, u"on"_s},
                     {u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"YES"_s}});
        return home.read(kSettings);
    }

    QStringList keptAside() const
    {
        return QDir(home.file(u".config"_s)).entryList({u"com.orvick.vantle.plist.damaged-*"_s}, QDir::Files);
    }

    // Nothing erased, nothing saved, and everyone told.
    void expectStopped(const QByteArray& damaged, const QString& reason)
    {
        const CliRun shred = cli({u"shred"_s, u"--yes"_s});
        EXPECT_EQ(shred.exitCode, 5) << qPrintable(shred.err);
        EXPECT_TRUE(shred.err.contains(reason)) << qPrintable(shred.err);
        EXPECT_EQ(home.read(kCache), "cached");
        ASSERT_EQ(keptAside().size(), 1);
        EXPECT_TRUE(shred.err.contains(keptAside()[0])) << qPrintable(shred.err);
        EXPECT_EQ(home.read(u".config/"_s + keptAside()[0]), damaged);
        EXPECT_TRUE(
            home.read(u"Library/Logs/Vantle X Log.txt"_s).contains("Settings file damaged (" + reason.toUtf8()));

        EXPECT_EQ(cli({u"watch"_s, u"--interval"_s, u"1"_s}).exitCode, 5);
        // Other commands go on with the factory settings but save nothing.
        const CliRun set = cli({u"prefs"_s, u"set"_s, u"ShredCookies"_s, u"YES"_s});
        EXPECT_EQ(set.exitCode, 0);
        EXPECT_TRUE(set.err.contains(u"prefs reset"_s)) << qPrintable(set.err);
        EXPECT_FALSE(QFileInfo::exists(home.file(kSettings)));
        EXPECT_EQ(cli({u"shred"_s, u"--yes"_s}).exitCode, 5);
        EXPECT_EQ(home.read(kCache), "cached");
    }
};

} // namespace

TEST_F(DamagedSettingsCliTest, TruncatedOrMistypedSettingsStopTheRunUntilRepairedOrReset)
{
    home.write(kCache, "cached");
    const QByteArray whole = makeSettings();
    ASSERT_FALSE(whole.contains("Eudora"));
    ASSERT_TRUE(whole.contains("kept.org"));

    // A truncated file, repaired by putting the whole one back: the user's settings hold again.
    const QByteArray truncated = whole.left(whole.size() / 2);
    home.write(kSettings, truncated);
    expectStopped(truncated, u"not a property list"_s);
    home.write(kSettings, whole);
    const CliRun repaired = cli({u"apps"_s, u"list"_s});
    EXPECT_TRUE(repaired.err.isEmpty()) << qPrintable(repaired.err);
    EXPECT_TRUE(repaired.out.contains(QRegularExpression(u"Eudora +disabled"_s))) << qPrintable(repaired.out);
    EXPECT_TRUE(cli({u"keep"_s, u"list"_s}).out.contains(QRegularExpression(u"erasing: on\\s+kept.org"_s)));
    EXPECT_EQ(cli({u"shred"_s, u"--yes"_s, u"--quiet"_s}).exitCode, 0);
    EXPECT_FALSE(QFileInfo::exists(home.file(kCache)));

    // A single key of a type that would read as absent: every application enabled again.
    for (const QString& name : keptAside())
        QFile::remove(home.file(u".config/"_s + name));
    home.write(kCache, "cached");
    QByteArray mistyped = whole;
    const qsizetype start = mistyped.indexOf("<array>", mistyped.indexOf("EnabledBrowsers"));
    mistyped.replace(start, mistyped.indexOf("</array>", start) + 8 - start, "<string>Safari</string>");
    ASSERT_NE(mistyped, whole);
    home.write(kSettings, mistyped);
    expectStopped(mistyped, u"EnabledBrowsers is a string"_s);
    // Confirming the factory settings lets the next run go; the damaged copy stays.
    EXPECT_EQ(cli({u"prefs"_s, u"reset"_s}).exitCode, 0);
    const CliRun afterReset = cli({u"shred"_s, u"--yes"_s, u"--quiet"_s});
    EXPECT_EQ(afterReset.exitCode, 0) << qPrintable(afterReset.err);
    EXPECT_TRUE(afterReset.err.isEmpty()) << qPrintable(afterReset.err);
    EXPECT_FALSE(QFileInfo::exists(home.file(kCache)));
    EXPECT_EQ(keptAside().size(), 1);
}

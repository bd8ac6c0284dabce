// A whole run on the demo home: everything the dry run listed is gone, every
// other file is byte-identical except the databases and settings files that are
// rewritten, what the user keeps inside those survives, and the run's result
// has the figures of the dry run's plan.
#include "cli/CliFixture.h"
#include "cli/RunAccounting.h"
#include "support/TestDatabase.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <nlohmann/json.hpp>

using namespace Qt::StringLiterals;

namespace {

// Rewritten in place by a run: the files that mix what goes with what stays.
const QStringList kRewritten{
    u"Library/Application Support/Firefox/Profiles/ab12cd34.default/places.sqlite"_s,
    u"Library/Application Support/Firefox/Profiles/ab12cd34.default/webappsstore.sqlite"_s,
    u"Library/Application Support/Google/Chrome/Local State"_s,
    u"Library/Application Support/Google/Chrome/Default/Preferences"_s,
    u"Library/Application Support/Google/Chrome/Default/databases/Databases.db"_s,
    u"Library/Safari/Databases/Databases.db"_s,
    u"Library/Safari/LocalStorage/StorageTracker.db"_s,
    u"Library/Mail/V2/MailData/Envelope Index"_s,
    u".config/mozilla/firefox/xy12ab34.default-esr/places.sqlite"_s,
    u".config/mozilla/firefox/xy12ab34.default-esr/cookies.sqlite"_s,
    u".config/chromium/Default/History"_s,
    u".config/chromium/Default/Cookies"_s,
    u".config/chromium/Default/Preferences"_s,
    u"Library/Logs/Vantle X Log.txt"_s,
    u".config/com.orvick.vantle.plist"_s,
};

using DemoHomeCliTest = CliFixture;

} // namespace

TEST_F(DemoHomeCliTest, ARunErasesWhatTheDryRunListedAndKeepsTheRest)
{
    // The script refuses to fill the folder HOME names, which here is the test's own.
    const ProcessResult made =
        ChildProcess::run(u"env"_s, {u"HOME=/nonexistent"_s, u"bash"_s,
                                     QStringLiteral(VANTLE_SOURCE_DIR "/scripts/make-demo-home"), home.path()});
    ASSERT_EQ(made.exitCode, 0) << made.standardError.constData();
    prepareRuns({{u"keep"_s, u"add"_s, u"kept.org"_s},
                 {u"keep"_s, u"on"_s},
                 {u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"YES"_s},
                 {u"prefs"_s, u"set"_s, u"ShredAppleMailJunk"_s, u"YES"_s}});

    const HomeSnapshot before(home.path(), {});
    // No terminal, no --yes: a dry run asks nothing.
    const CliRun dry = cli({u"shred"_s, u"--dry-run"_s, u"--json"_s});
    ASSERT_EQ(dry.exitCode, 0) << qPrintable(dry.err);
    EXPECT_TRUE(HomeSnapshot(home.path(), {}) == before);
    QueuedPaths queued;
    queued.addDryRun(dry.out);
    const auto plan = nlohmann::json::parse(dry.out.toStdString());
    QStringList listed;
    for (const auto& application : plan["applications"]) {
        for (const auto& item : application["erase"]) {
            const QString path = QString::fromStdString(item["path"].get<std::string>());
            if (path.startsWith(home.path() + u'/'))
                listed.append(path.mid(home.path().size() + 1));
        }
    }
    ASSERT_GT(listed.size(), 20) << qPrintable(dry.out);
    // Today's Firefox and Chromium on Linux are found too.
    for (const QString& path :
         {u".cache/mozilla/firefox/xy12ab34.default-esr/cache2"_s, u".config/chromium/Default/Sessions"_s,
          u".config/chromium/Default/IndexedDB/https_www.example.com_0.indexeddb.leveldb"_s})
        EXPECT_TRUE(listed.contains(path)) << qPrintable(path) << qPrintable(dry.out);

    const CliRun run = cli({u"shred"_s, u"--yes"_s, u"--quiet"_s});
    ASSERT_EQ(run.exitCode, 0) << qPrintable(run.err);

    const QRegularExpressionMatch erased =
        QRegularExpression(uR"(^Erased (\d+) items? \((\d+) files?, [^=]+ = (\d+) bytes\)\.\nRewrote (\d+) )"_s)
            .match(run.out);
    ASSERT_TRUE(erased.hasMatch()) << qPrintable(run.out);
    const auto& totals = plan["totals"];
    EXPECT_EQ(erased.captured(1).toLongLong(), totals["items"].get<qint64>());
    EXPECT_EQ(erased.captured(2).toLongLong(), totals["files"].get<qint64>());
    EXPECT_EQ(erased.captured(3).toLongLong(), totals["bytes"].get<qint64>());
    EXPECT_EQ(erased.captured(4).toLongLong(), totals["rewrites"].get<qint64>());
    EXPECT_GT(totals["rewrites"].get<qint64>(), 4);
    EXPECT_TRUE(run.out.endsWith(u" s.\n"_s)) << qPrintable(run.out);
    const QByteArray log = home.read(u"Library/Logs/Vantle X Log.txt"_s);
    EXPECT_TRUE(log.contains(" Shred: ~/Library/Safari/History.plist\n"));
    EXPECT_TRUE(log.endsWith(" Vantle Completed Successfully\n"));

    EXPECT_EQ(before.goneOutside(queued), QStringList());
    EXPECT_EQ(before.changedOutside(queued, kRewritten), QStringList());
    // Only the junk mailbox comes back, made again empty.
    for (const QString& path : listed) {
        EXPECT_TRUE(!QFileInfo::exists(home.file(path)) ||
                    (path.endsWith(u"Local Folders/Junk"_s) && QFileInfo(home.file(path)).size() == 0))
            << "listed but still there: " << qPrintable(path);
    }
    const QStringList beforePaths = before.paths();
    for (const QString& path : HomeSnapshot(home.path(), queued).paths()) {
        // The run lock stays beside the settings.
        EXPECT_TRUE(beforePaths.contains(path) || path.startsWith(u"Library/Logs"_s) ||
                    path.endsWith(u"Local Folders/Junk"_s) || path == u".config/com.orvick.vantle.lock"_s)
            << "left behind: " << qPrintable(path);
    }

    // What is kept inside the rewritten files.
    TestDatabase places(home.file(kRewritten[0]));
    EXPECT_EQ(places.rows(u"select title from moz_bookmarks"_s), QStringList{u"Debian"_s});
    EXPECT_EQ(places.value(u"select count(*) from moz_historyvisits"_s), u"0"_s);
    TestDatabase safari(home.file(u"Library/Safari/Databases/Databases.db"_s));
    EXPECT_EQ(safari.rows(u"select origin from Origins"_s), QStringList{u"http_mail.kept.org_0"_s});
    EXPECT_EQ(home.read(u"Library/Application Support/Google/Chrome/Local State"_s),
              R"({"browser":{"enabled_labs_experiments":[]}})");
    TestDatabase mail(home.file(u"Library/Mail/V2/MailData/Envelope Index"_s));
    EXPECT_EQ(mail.rows(u"select subject from messages order by ROWID"_s), QStringList({u"kept"_s, u"kept"_s}));
}

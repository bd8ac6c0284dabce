// A run killed at any moment (rebuilding the places database, editing Chrome's
// settings, overwriting a large cache file, removing many small ones) damages
// nothing the user keeps and erases nothing outside its path list, and the next
// run finishes the work and leaves no work file or holding folder behind.
#include "cli/CliFixture.h"
#include "cli/RunAccounting.h"
#include "support/TestDatabase.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>

#include <nlohmann/json.hpp>

#include <array>
#include <cmath>
#include <csignal>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QString kProfile = u"Library/Application Support/Firefox/Profiles/k1.default/"_s;
const QString kLocalState = u"Library/Application Support/Google/Chrome/Local State"_s;
const QString kChromeCache = u"Library/Caches/Google/Chrome/Default/"_s;
const QString kOperaCache = u"Library/Caches/Opera/cache4/"_s;
const QString kTracker = u"Library/Safari/LocalStorage/StorageTracker.db"_s;
const QString kLog = u"Library/Logs/Vantle X Log.txt"_s;
// Files a run rewrites by design; what must survive in them is checked by content.
const QStringList kRewritten{kProfile + u"places.sqlite"_s, kLocalState, kTracker, u".config/"_s, u"Library/Logs/"_s};

// Sizes that make each phase last long enough to be hit, and a whole run short
// enough for the default number of tries to stay cheap.
constexpr int kPlaces = 15000;
constexpr int kBookmarks = 50;
constexpr int kPrefetchHosts = 120000;     // a Local State of some 3 MB: the JSON edit
constexpr qint64 kBigCacheFile = 64 << 20; // the overwrite, 35 passes
constexpr int kSmallCacheFiles = 800;      // the removal

// The phases aimed at.
constexpr std::array<const char*, 4> kPhaseNames{"database rewrite", "JSON edit", "overwrite", "removal"};
constexpr int kTargetedPhases = int(kPhaseNames.size());

struct Window {
    qint64 start = -1;
    qint64 end = -1;
};

class InterruptedRunCliTest : public CliFixture {
protected:
    void makeHome()
    {
        QDir().mkpath(home.file(kProfile));
        makePlaces(home.file(kProfile + u"places.sqlite"_s), kPlaces, kPlaces - kBookmarks + 1);
        QByteArray hosts;
        for (int i = 0; i < kPrefetchHosts; ++i)
            hosts += (i ? ",\"" : "\"") + QByteArray::number(i) + ".prefetch.example\"";
        home.write(kLocalState, "{\"StartupDNSPrefetchList\":[" + hosts +
                                    R"(],"browser":{"last_known_version":"30.0"},"big":18446744073709551615})");
        home.write(kChromeCache + u"Cache/data_1"_s, QByteArray(kBigCacheFile, 'c'));
        for (int i = 0; i < kSmallCacheFiles; ++i)
            home.write(kOperaCache + u"opr%1.tmp"_s.arg(i, 5, 10, QLatin1Char('0')), QByteArray(1024, 'o'));
        home.write(u"Documents/thesis.txt"_s, "mine");
        home.write(u"Library/Safari/Bookmarks.plist"_s, "kept");
        home.write(u"Library/Safari/LocalStorage/http_www.kept.org_0.localstorage"_s, "kept storage");
        home.write(u"Library/Safari/LocalStorage/http_gone.com_0.localstorage"_s, "gone storage");
        {
            TestDatabase tracker(home.file(kTracker));
            tracker.exec(QString::fromUtf8(testData(u"safari-storagetracker.sql"_s)));
            tracker.exec(u"INSERT INTO Origins VALUES ('http_www.kept.org_0', 'a'), ('http_gone.com_0', 'b');"_s);
        }
        // 35 passes of zeros: the overwrite of one large file takes a while, that
        // of a small one hardly longer than with one pass.
        prepareRuns({{u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"YES"_s},
                     {u"prefs"_s, u"set"_s, u"shredSafariFavicon"_s, u"YES"_s},
                     {u"prefs"_s, u"set"_s, u"NumberOfWrites"_s, u"16"_s},
                     {u"prefs"_s, u"set"_s, u"OverwritePattern"_s, u"3"_s},
                     {u"keep"_s, u"add"_s, u"kept.org"_s},
                     {u"keep"_s, u"on"_s}});
    }

    // What the user keeps is whole, whatever moment the run was stopped at, and
    // nothing outside the path list is gone or changed.
    void expectHomeSound(const HomeSnapshot& before, const QueuedPaths& queued)
    {
        TestDatabase db(home.file(kProfile + u"places.sqlite"_s));
        EXPECT_EQ(db.value(u"PRAGMA integrity_check"_s), u"ok"_s);
        EXPECT_EQ(db.value(u"select count(*) from moz_places p, moz_bookmarks b where p.id = b.fk"_s),
                  QString::number(kBookmarks));
        const auto settings = nlohmann::ordered_json::parse(home.read(kLocalState).toStdString(), nullptr, false);
        EXPECT_TRUE(settings.is_object() &&
                    settings.value("browser", nlohmann::ordered_json()).dump() == R"({"last_known_version":"30.0"})" &&
                    settings.value("big", 0ULL) == 18446744073709551615ULL)
            << "Local State's other settings";
        EXPECT_EQ(home.read(u"Library/Safari/LocalStorage/http_www.kept.org_0.localstorage"_s), "kept storage");
        TestDatabase tracker(home.file(kTracker));
        EXPECT_EQ(tracker.value(u"select count(*) from Origins where origin = 'http_www.kept.org_0'"_s), u"1"_s);
        EXPECT_EQ(before.goneOutside(queued), QStringList());
        EXPECT_EQ(before.changedOutside(queued, kRewritten), QStringList());
    }

    QStringList holdingFolders(const QString& relativeFolder) const
    {
        return QDir(home.file(relativeFolder)).entryList({u"Vantle X Items (*"_s}, QDir::Dirs);
    }

    bool exists(const QString& relative) const { return QFileInfo::exists(home.file(relative)); }

    // Which of the aimed-at phases are under way, by the log and the files a run makes.
    std::array<bool, kTargetedPhases> activePhases() const
    {
        const QByteArray log = home.read(kLog);
        return {
            exists(kProfile + u"places.vantlex.sqlite"_s),
            log.contains(" Chrome 5.0\n") && !log.contains("Google/Chrome/Local State\n"),
            !holdingFolders(kChromeCache).isEmpty(),
            !holdingFolders(u"Library/Caches"_s).isEmpty(),
        };
    }

    // A whole run, looked at every millisecond or so: tick is told the time since
    // its start and kills it by returning true. How long it took, or -1 when killed.
    qint64 watchedRun(const std::function<bool(qint64)>& tick) const
    {
        QProcess process;
        process.start(QStringLiteral(VANTLE_CLI_PATH),
                      {u"--home"_s, home.path(), u"shred"_s, u"--yes"_s, u"--quiet"_s});
        EXPECT_TRUE(process.waitForStarted());
        QElapsedTimer timer;
        timer.start();
        while (!process.waitForFinished(1)) {
            if (tick(timer.elapsed())) {
                ::kill(pid_t(process.processId()), SIGKILL);
                process.waitForFinished();
                return -1;
            }
        }
        return timer.elapsed();
    }

    // Kills a run once the phase has been under way for the given time, however
    // slow or quick the machine is today. False when the run ended first.
    bool runKilledIn(std::size_t phase, qint64 milliseconds) const
    {
        qint64 seen = -1;
        return watchedRun([&](qint64 now) {
                   if (seen < 0 && activePhases()[phase])
                       seen = now;
                   return seen >= 0 && now - seen >= milliseconds;
               }) < 0;
    }

    // The processes that work on this home, one line each: a killed run's child must not outlive it.
    QString processesInHome() const
    {
        return QString::fromUtf8(
            ChildProcess::run(u"pgrep"_s, {u"-af"_s, QRegularExpression::escape(home.path())}).standardOutput);
    }
};

} // namespace

TEST_F(InterruptedRunCliTest, NothingKeptIsDamagedNothingElseIsGoneAndTheNextRunCompletes)
{
    // Runs to try; more with VANTLE_KILL_RUNS for a longer search.
    const int runs =
        qEnvironmentVariableIntValue("VANTLE_KILL_RUNS") > 0 ? qEnvironmentVariableIntValue("VANTLE_KILL_RUNS") : 8;
    makeHome();
    // What a run may erase: what a dry run lists, and what each run's log names.
    QueuedPaths dryRun;
    dryRun.addDryRun(cli({u"shred"_s, u"--dry-run"_s, u"--json"_s}).out);
    ASSERT_GT(dryRun.size(), 0);
    const HomeSnapshot before(home.path(), dryRun);

    QTemporaryDir backup;
    ASSERT_EQ(QProcess::execute(u"cp"_s, {u"-a"_s, home.path() + u"/."_s, backup.path()}), 0);
    const auto restore = [&] {
        ASSERT_EQ(QProcess::execute(u"find"_s, {home.path(), u"-mindepth"_s, u"1"_s, u"-delete"_s}), 0);
        ASSERT_EQ(QProcess::execute(u"cp"_s, {u"-a"_s, backup.path() + u"/."_s, home.path()}), 0);
    };
    // When each phase is under way in a whole run.
    std::array<Window, kTargetedPhases> windows;
    const qint64 wholeRun = watchedRun([&](qint64 now) {
        const std::array<bool, kTargetedPhases> active = activePhases();
        for (std::size_t phase = 0; phase < active.size(); ++phase) {
            if (active[phase]) {
                windows[phase].start = windows[phase].start < 0 ? now : windows[phase].start;
                windows[phase].end = now;
            }
        }
        return false;
    });
    ASSERT_GT(wholeRun, 0);

    int killed = 0;
    for (int run = 0; run < runs; ++run) {
        restore();
        // Each aimed-at phase in turn, at points spread over its length.
        const std::size_t phase = std::size_t(run % kTargetedPhases);
        const Window window = windows[phase];
        const double fraction = std::fmod(0.5 + 0.618034 * (run / kTargetedPhases), 1.0);
        const qint64 after = window.start >= 0 ? qint64(fraction * double(window.end - window.start)) : 0;
        SCOPED_TRACE(
            u"try %1: %2 after %3 ms"_s.arg(run).arg(QString::fromLatin1(kPhaseNames[phase])).arg(after).toStdString());
        if (runKilledIn(phase, after))
            ++killed;
        for (int i = 0; i < 100 && !processesInHome().isEmpty(); ++i)
            QThread::msleep(10);
        EXPECT_EQ(processesInHome(), QString());

        QueuedPaths queued = dryRun;
        queued.addLog(home.read(kLog), home.path());
        expectHomeSound(before, queued);

        const CliRun next = cli({u"shred"_s, u"--yes"_s, u"--quiet"_s});
        EXPECT_EQ(next.exitCode, 0) << qPrintable(next.err);
        const QByteArray log = home.read(kLog);
        EXPECT_TRUE(log.endsWith(" Vantle Completed Successfully\n"));
        queued.addLog(log, home.path());
        expectHomeSound(before, queued);

        // The next run finished the work.
        EXPECT_EQ(workFiles(home.path()), QStringList());
        TestDatabase db(home.file(kProfile + u"places.sqlite"_s));
        EXPECT_EQ(db.value(u"select count(*) from moz_historyvisits"_s), u"0"_s);
        EXPECT_FALSE(home.read(kLocalState).contains("StartupDNSPrefetchList"));
        EXPECT_FALSE(exists(u"Library/Safari/LocalStorage/http_gone.com_0.localstorage"_s));
        EXPECT_FALSE(exists(kChromeCache));
        EXPECT_FALSE(exists(kOperaCache));
    }
    // Enough tries must really have cut a run short, or this proves little.
    EXPECT_GE(killed, runs / 3);
}

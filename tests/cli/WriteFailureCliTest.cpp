// Runs that cannot write where they mean to: read-only folders and files in the
// cleaned areas, and a disk that fills up (a file-size limit on the run). The run
// completes, keeps whole what the user keeps, says in its log why it left
// something as it was, and erases nothing outside its path list.
#include "app/RunReport.h"
#include "cli/CliFixture.h"
#include "cli/RunAccounting.h"
#include "erase/FileTree.h"
#include "support/TestDatabase.h"

#include <QDir>
#include <QProcess>

#include <grp.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

const QString kProfile = u"Library/Application Support/Firefox/Profiles/w1.default/"_s;
const QString kChrome = u"Library/Application Support/Google/Chrome/"_s;
const QString kLocalState = kChrome + u"Local State"_s;
const QString kPreferences = kChrome + u"Default/Preferences"_s;
const QString kCache = u"Library/Caches/Google/Chrome/Default/Cache/"_s;
const QString kLog = u"Library/Logs/Vantle X Log.txt"_s;
// Files a run rewrites by design; what must survive in them is checked by content.
const QStringList kRewritten{kProfile + u"places.sqlite"_s, kLocalState, kPreferences, u".config/"_s,
                             u"Library/Logs/"_s};
// Who the run is when the tests run as root, to whom every mode is writable.
constexpr uid_t kNobody = 65534;

// Browser settings with a host list under key, and as many other settings as
// asked, which stay when the list goes.
QByteArray settingsWithHosts(const char* key, int otherSettings)
{
    QByteArray other;
    for (int i = 0; i < otherSettings; ++i)
        other += (i ? ",\"" : "\"") + QByteArray::number(i) + "\":{\"kept\":true}";
    return "{\"" + QByteArray(key) + "\":[\"a.example\",\"b.example\"],\"extensions\":{" + other + "}}";
}

class WriteFailureCliTest : public CliFixture {
protected:
    void SetUp() override
    {
        prepareRuns({{u"prefs"_s, u"set"_s, u"ShredHistory"_s, u"YES"_s},
                     {u"prefs"_s, u"set"_s, u"shredSafariFavicon"_s, u"YES"_s}});
        home.write(u"Documents/thesis.txt"_s, "mine");
        QDir().mkpath(home.file(kProfile));
    }

    // A mode for the run; folders get theirs back at the end, so that the home can go.
    void setMode(const QString& relative, mode_t mode)
    {
        ASSERT_EQ(::chmod(QFile::encodeName(home.file(relative)).constData(), mode), 0) << qPrintable(relative);
        if (QFileInfo(home.file(relative)).isDir())
            m_restrictedFolders.append(home.file(relative));
    }

    void TearDown() override
    {
        for (const QString& folder : m_restrictedFolders)
            ::chmod(QFile::encodeName(folder).constData(), 0755);
    }

    // A restricted run, held against what a dry run says it may erase: it
    // completes, and whatever is gone or changed lies within its path list.
    // Returns the run's log.
    QByteArray accountedShred(rlim_t fileSizeLimit = RLIM_INFINITY)
    {
        QueuedPaths queued;
        queued.addDryRun(cli({u"shred"_s, u"--dry-run"_s, u"--json"_s}).out);
        const HomeSnapshot before(home.path(), queued);

        QProcess run;
        startAsRunUser(run, QStringLiteral(VANTLE_CLI_PATH),
                       {u"--home"_s, home.path(), u"shred"_s, u"--yes"_s, u"--quiet"_s}, fileSizeLimit);
        EXPECT_TRUE(run.waitForFinished(120000));
        lastOutput = QString::fromUtf8(run.readAllStandardOutput());
        const QString err = QString::fromUtf8(run.readAllStandardError());
        // What stayed in place makes the run end in the status that says so.
        EXPECT_EQ(run.exitStatus() == QProcess::NormalExit ? run.exitCode() : -1, 4) << qPrintable(err);
        EXPECT_TRUE(err.contains(u"could not be erased as asked"_s)) << qPrintable(err);
        const QByteArray log = home.read(kLog);
        EXPECT_TRUE(log.endsWith(" Vantle Completed Successfully\n")) << log.right(400).constData();
        queued.addLog(log, home.path());
        EXPECT_EQ(before.goneOutside(queued), QStringList());
        EXPECT_EQ(before.changedOutside(queued, kRewritten), QStringList());
        EXPECT_EQ(workFiles(home.path()), QStringList());
        return log;
    }

    // Starts a program as a user the modes hold for (nobody, the home handed over,
    // when the tests run as root), writing at most fileSizeLimit bytes into any
    // file; SIGXFSZ as a freshly started program finds it.
    void startAsRunUser(QProcess& process, const QString& program, const QStringList& arguments,
                        rlim_t fileSizeLimit = RLIM_INFINITY) const
    {
        const bool asNobody = ::geteuid() == 0;
        if (asNobody) {
            const QByteArray root = QFile::encodeName(home.path());
            ::lchown(root.constData(), kNobody, kNobody);
            for (const QByteArray& relative : FileTree::subpaths(root))
                ::lchown(FileTree::join(root, relative).constData(), kNobody, kNobody);
        }
        process.setChildProcessModifier([asNobody, fileSizeLimit] {
            std::signal(SIGXFSZ, SIG_DFL);
            const rlimit limit{fileSizeLimit, fileSizeLimit};
            if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
                ::_exit(120);
            if (asNobody && (::setgroups(0, nullptr) != 0 || ::setgid(kNobody) != 0 || ::setuid(kNobody) != 0))
                ::_exit(121);
        });
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForStarted());
    }

    // The standard output of the last accounted run.
    QString lastOutput;

private:
    QStringList m_restrictedFolders;
};

bool hasLine(const QByteArray& log, const QByteArray& message)
{
    return log.contains(' ' + message + '\n');
}

} // namespace

TEST_F(WriteFailureCliTest, AFullDiskLeavesEveryRewriteUndoneAndSaysSo)
{
    // Every place bookmarked: the rebuilt database is as large as the old one.
    makePlaces(home.file(kProfile + u"places.sqlite"_s), 4000, 1, 200);
    home.write(kPreferences, settingsWithHosts("dns_prefetching", 40000));
    home.write(kCache + u"data_0"_s, QByteArray(1 << 20, 'c'));
    const QByteArray preferences = home.read(kPreferences);
    const QByteArray placesBytes = home.read(kProfile + u"places.sqlite"_s);
    constexpr rlim_t kLimit = 512 << 10;
    ASSERT_GT(quint64(placesBytes.size()), kLimit);
    ASSERT_GT(quint64(preferences.size()), kLimit);

    const QByteArray log = accountedShred(kLimit);

    EXPECT_TRUE(hasLine(log, "Places Vantle X Database lost rows while it was rebuilt - not replaced."));
    EXPECT_EQ(home.read(kProfile + u"places.sqlite"_s), placesBytes);
    EXPECT_TRUE(hasLine(log, "Skip (Write new file failed): " + QFile::encodeName(home.file(kPreferences))));
    EXPECT_EQ(home.read(kPreferences), preferences);
    // The cache past the limit could not be overwritten; it is removed all the same.
    EXPECT_TRUE(log.contains(" Overwrite failed (File too large): " +
                             QFile::encodeName(home.file(u"Library/Caches/Google/Chrome/Default/Vantle X Items ("_s))));
    EXPECT_FALSE(QFileInfo::exists(home.file(kCache)));
}

TEST_F(WriteFailureCliTest, ReadOnlyFoldersAndFilesAreLeftWithTheReasonAndTheRunCompletes)
{
    // A profile folder nothing may be added to or removed from.
    makePlaces(home.file(kProfile + u"places.sqlite"_s), 2000, 1995, 200);
    home.write(kProfile + u"sessionstore.js"_s, "the last session");
    const QByteArray placesBytes = home.read(kProfile + u"places.sqlite"_s);
    setMode(kProfile, 0555);
    // Settings the user made read-only, in a folder that lets them be replaced.
    home.write(kLocalState, R"({"StartupDNSPrefetchList":["a.example"],"browser":{"last_known_version":"30.0"}})");
    setMode(kLocalState, 0444);
    // A read-only cache: the engine makes it writable to erase it.
    home.write(kCache + u"data_0"_s, QByteArray(300000, 'c'));
    home.write(kCache + u"index"_s, "index");
    setMode(kCache + u"data_0"_s, 0444);
    setMode(kCache + u"index"_s, 0444);
    setMode(kCache, 0555);

    // A folder of the user's own and a folder inside it, both given: the inner one counts with the outer.
    const QString editor = home.file(u"Applications/Editor.app"_s);
    configure({{u"custom"_s, u"add-process"_s, editor},
               {u"custom"_s, u"add-path"_s, editor, home.file(u"Drafts/inner"_s)},
               {u"custom"_s, u"add-path"_s, editor, home.file(u"Drafts"_s)}});
    home.write(u"Drafts/a.txt"_s, QByteArray(1000, 'a'));
    home.write(u"Drafts/inner/b.txt"_s, QByteArray(2000, 'b'));
    // Opera runs (old or today's, the bundle does not tell): its cache stays.
    home.write(u"Library/Caches/Opera/cache4/opr1.tmp"_s, "opera");
    const QString opera = home.file(u"Applications/Opera.app/Contents/MacOS/Opera"_s);
    QDir().mkpath(QFileInfo(opera).absolutePath());
    ASSERT_TRUE(QFile::copy(u"/bin/sleep"_s, opera));
    QProcess running;
    startAsRunUser(running, opera, {u"60"_s});
    const qint64 localStateBytes = home.read(kLocalState).size();

    const QByteArray log = accountedShred();
    running.kill();
    running.waitForFinished();

    // The result counts what was erased, each file once, and says what was not and why.
    const QString sessionStorePath = u"~/"_s + kProfile + u"sessionstore.js"_s;
    EXPECT_EQ(lastOutput.section(u"\nTook "_s, 0, 0),
              u"Erased 3 items (5 files, %1 = %2 bytes).\n"
              u"Rewrote 1 database or settings file.\n"
              u"Passed over because running: Opera, Opera (current versions).\n"
              u"Could not erase 1 item; first: %3 could not be moved aside: Permission denied."_s
                  .arg(RunReport::humanSize(quint64(localStateBytes + 300005 + 3000)))
                  .arg(localStateBytes + 300005 + 3000)
                  .arg(sessionStorePath));
    EXPECT_EQ(home.read(u"Library/Caches/Opera/cache4/opr1.tmp"_s), "opera");
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Drafts"_s)));

    EXPECT_TRUE(hasLine(log, "Places Vantle X Database was not created."));
    EXPECT_EQ(home.read(kProfile + u"places.sqlite"_s), placesBytes);
    // It cannot be moved aside, so it stays exactly as it was.
    const QByteArray sessionStore = QFile::encodeName(home.file(kProfile + u"sessionstore.js"_s));
    EXPECT_TRUE(hasLine(log, "Skip (Move failed: Permission denied): " + sessionStore));
    EXPECT_EQ(home.read(kProfile + u"sessionstore.js"_s), "the last session");
    EXPECT_TRUE(hasLine(log, "Shred: ~/Library/Application Support/Google/Chrome/Local State"));
    EXPECT_EQ(home.read(kLocalState), R"({"browser":{"last_known_version":"30.0"}})");
    EXPECT_FALSE(QFile::permissions(home.file(kLocalState)) & QFileDevice::WriteOwner);
    EXPECT_FALSE(QFileInfo::exists(home.file(kCache)));
}

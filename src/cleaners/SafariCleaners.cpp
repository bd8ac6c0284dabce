#include "cleaners/SafariCleaners.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/Html5Storage.h"
#include "cleaners/SafariCleanerTables.h"
#include "cleaners/WebStorageScrub.h"
#include "core/ApplicationFlags.h"
#include "core/ChildProcess.h"
#include "settings/HTML5Manager.h"
#include "settings/PreferenceKeys.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;
using namespace PreferenceKey;

SafariCleaners::SafariCleaners(CleanerContext& context, CommandRunner* runner)
    : mContext(context)
    , mOwnedRunner(runner ? nullptr : std::make_unique<SystemCommandRunner>())
    , mRunner(runner ? runner : mOwnedRunner.get())
{
}

SafariCleaners::~SafariCleaners() = default;

void SafariCleaners::Safari10()
{
    runFixedCleaner(SafariCleanerTables::Safari10(), mContext);
}
void SafariCleaners::Safari30()
{
    runFixedCleaner(SafariCleanerTables::Safari30(), mContext);
}
void SafariCleaners::Safari60()
{
    runFixedCleaner(SafariCleanerTables::Safari60(), mContext);
}
void SafariCleaners::Shiira12()
{
    runFixedCleaner(SafariCleanerTables::Shiira12(), mContext);
}
void SafariCleaners::Shiira20()
{
    runFixedCleaner(SafariCleanerTables::Shiira20(), mContext);
}

QString SafariCleaners::temporaryCacheFolder(const QString& suffix)
{
    QString temporary = qEnvironmentVariable("TMPDIR");
    if (temporary.isEmpty())
        temporary = u"/tmp"_s;
    QString parent = QDir::cleanPath(temporary);
    parent = parent == u"/"_s ? parent : parent.left(std::max<qsizetype>(parent.lastIndexOf(u'/'), 1));
    return QDir::cleanPath(parent + u'/' + suffix);
}

void SafariCleaners::shredTemporaryCacheFolder(const QString& suffix)
{
    const QString folder = temporaryCacheFolder(suffix);
    mContext.log(u"Shred: $TMPDIR"_s);
    mContext.log(folder);
    mContext.queue(folder);
}

void SafariCleaners::Safari20Shiira12()
{
    mContext.header(u"Safari 2.0 and/or Shiira 1.2"_s);
    if (!mContext.gate(u"Safari"_s))
        return;
    // Safari 2 and Shiira 1.2 share one cookie file: it can go only when neither runs.
    if (mContext.mIsRunning[WatchedApp::safari] == 1 || mContext.mIsRunning[WatchedApp::shiira] == 1)
        mContext.log(
            u"Cookie shredding skipped - Safari and Shiira share the cookies folder.  You must quit BOTH browsers to shred cookies"_s);
    else
        mContext.shredOrSkip(mContext.setting(ShredCookies), u"~/Library/Cookies/Cookies.plist"_s);
    mContext.endCleaner();
}

void SafariCleaners::Safari40()
{
    mContext.header(u"Safari 4.0"_s);
    if (!mContext.gate(u"Safari"_s))
        return;
    if (mContext.setting(ShredCache)) {
        shredTemporaryCacheFolder(u"-Caches-/com.apple.Safari"_s);
        mContext.shredOrSkip(true, u"~/Library/Caches/com.apple.Safari"_s);
        mContext.shredOrSkip(true, u"~/Library/Caches/Safari Webpage Preview Fetcher"_s);
    } else {
        mContext.log(u"Skip: $TMPDIR/../-Caches-/com.apple.Safari"_s);
        mContext.shredOrSkip(false, u"~/Library/Caches/com.apple.Safari"_s);
        mContext.shredOrSkip(false, u"~/Library/Caches/Safari Webpage Preview Fetcher"_s);
    }
    mContext.shredOrSkip(mContext.setting(ShredHistory) && !mContext.setting(KeepSafariTopSites),
                         u"~/Library/Safari/TopSites.plist"_s);
    mContext.endCleaner();
}

void SafariCleaners::Safari50()
{
    mContext.header(u"Safari 5.0"_s);
    if (!mContext.gate(u"Safari"_s))
        return;
    WebStorageScrub scrub(mContext, mContext.sqliteShell());
    const QString tracker = CleanerContext::expandTilde(u"~/Library/Safari/LocalStorage/StorageTracker.db"_s);
    shredHtml5Storage(mContext, {u"~/Library/Safari/LocalStorage"_s,
                                 [](const HTML5Manager& manager) { return manager.html5LocalStoragePathsForSafari(); },
                                 u"~/Library/Safari/Databases"_s,
                                 [&] {
                                     return scrub.safari5databasessqlite(
                                         CleanerContext::expandTilde(u"~/Library/Safari/Databases/Databases.db"_s),
                                         u"e137cf574bd35a232d169ad1eaa39c1a"_s);
                                 },
                                 [](const HTML5Manager& manager) { return manager.html5DatabasesPathsForSafari(); },
                                 [&] {
                                     if (!QFileInfo::exists(tracker))
                                         return true;
                                     const QString oldTracker = scrub.safari5storagetrackersqlite(
                                         tracker, u"53442bbc056e072a2b8b9fd394e8c0c1"_s);
                                     if (oldTracker.isNull())
                                         return false;
                                     mContext.queue(oldTracker);
                                     return true;
                                 }});
    mContext.endCleaner();
}

void SafariCleaners::Safari51()
{
    mContext.header(u"Safari 5.1-6"_s);
    if (!mContext.gate(u"Safari"_s))
        return;
    const bool history = mContext.setting(ShredHistory);
    const bool cookies = mContext.setting(ShredCookies);
    if (history || cookies || mContext.setting(ShredCache)) {
        // The cookie daemon keeps the cookie store open; it restarts by itself.
        if (!mContext.dryRun)
            mRunner->run(u"killall"_s, {u"cookied"_s});
        shredTemporaryCacheFolder(u"C/com.apple.Safari"_s);
    }
    mContext.shredOrSkip(cookies, u"~/Library/Cookies/Cookies.binarycookies"_s);
    if (history) {
        // Window states, queued without a log line; the lower-cased name is used on purpose.
        const QString folder =
            CleanerContext::expandTilde(u"~/Library/Saved Application State/com.apple.Safari.savedState"_s);
        const QStringList entries = QDir(folder).entryList(
            QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
        for (const QString& name : entries) {
            const QString lower = name.toLower();
            if (lower.startsWith(u"window"_s))
                mContext.queue(folder + u'/' + lower);
        }
    }
    mContext.endCleaner();
}

#include "cleaners/ChromeCleaners.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/Html5Storage.h"
#include "cleaners/JsonPreferenceEdit.h"
#include "cleaners/PreferenceFileEdit.h"
#include "cleaners/WebStorageScrub.h"
#include "erase/EraseQueue.h"
#include "log/FailureLog.h"
#include "settings/HTML5Manager.h"
#include "settings/PreferenceKeys.h"

#include <QDir>

using namespace Qt::StringLiterals;
using namespace PreferenceKey;

namespace {

// Chrome's and Flock's web-database index schema.
const QString kDatabasesKey = u"a20081a471b51e103a4e364fbcffcb1e"_s;

QString chromeProfile()
{
    return CleanerContext::expandTilde(u"~/Library/Application Support/Google/Chrome/Default/"_s);
}

QString flockProfile(const QString& userDataFolder)
{
    return CleanerContext::expandTilde(u"~/Library/Application Support/Flock/%1/Default/"_s.arg(userDataFolder));
}

} // namespace

void ChromeCleaners::shredOrSkipEach(bool on, const QString& folder, const QStringList& names)
{
    for (const QString& name : names)
        mContext.shredOrSkipFullPath(on, folder + name);
}

void ChromeCleaners::historyEntries(const QString& profile)
{
    const bool history = mContext.setting(ShredHistory);
    const QStringList entries = QDir(profile).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
    for (const QString& name : entries) {
        if (name.startsWith(u"History"_s))
            mContext.shredOrSkipFullPath(history, profile + name);
    }
}

void ChromeCleaners::editJsonWithDetails(const QString& file, const QString& key, bool requireKey)
{
    const Error error = runPreferenceEdit(
        mContext, file, [&](bool dryRun) { return JsonPreferenceEdit::removeKey(file, key, requireKey, dryRun); });
    if (!error.ok())
        FailureLog::write(error);
}

void ChromeCleaners::Chrome40()
{
    mContext.header(u"Chrome 4"_s);
    if (!mContext.gate(u"Chrome"_s))
        return;
    const QString profile = chromeProfile();
    const bool history = mContext.setting(ShredHistory);
    mContext.shredOrSkipFullPath(mContext.setting(ShredCache),
                                 CleanerContext::expandTilde(u"~/Library/Caches/Google/Chrome/Default/Cache"_s));
    historyEntries(profile);
    shredOrSkipEach(history, profile,
                    {u"Archived History"_s, u"Archived History-journal"_s, u"Last Session"_s, u"Last Tabs"_s,
                     u"Current Session"_s, u"Current Tabs"_s});
    shredOrSkipEach(mContext.setting(shredSafariFavicon), profile, {u"Thumbnails"_s});
    const bool cookies = mContext.setting(ShredCookies);
    shredOrSkipEach(cookies, profile, {u"Cookies"_s, u"Cookies-journal"_s});
    shredOrSkipEach(cookies, CleanerContext::expandTilde(u"~/Library/Application Support/Google/Chrome/"_s),
                    {u"Safe Browsing Cookies"_s, u"Safe Browsing Cookies-journal"_s});
    mContext.endCleaner();
}

void ChromeCleaners::Chrome50()
{
    mContext.header(u"Chrome 5.0"_s);
    if (!mContext.gate(u"Chrome"_s))
        return;
    shredOrSkipEach(mContext.setting(ShredCookies), chromeProfile(), {u"Extension Cookies"_s});

    const QString localState = u"~/Library/Application Support/Google/Chrome/Local State"_s;
    if (mContext.setting(ShredHistory)) {
        const QString file = CleanerContext::expandTilde(localState);
        mContext.queueLeftover(JsonPreferenceEdit::oldCopyPath(file));
        if (JsonPreferenceEdit::removeKey(file, u"StartupDNSPrefetchList"_s, false, mContext.dryRun).ok()) {
            mContext.log(u"Shred: "_s + localState);
            mContext.eraseQueue().rewrite(file, JsonPreferenceEdit::oldCopyPath(file));
            mContext.queue(JsonPreferenceEdit::oldCopyPath(file));
        } else {
            mContext.log(u"Skip: "_s + localState);
        }
        mContext.shredOrSkip(true, u"~/Library/Application Support/Google/Chrome/Default/Visited Links"_s);
    } else {
        mContext.shredOrSkip(false, u"~/Library/Application Support/Google/Chrome/Default/Visited Links"_s);
    }

    WebStorageScrub scrub(mContext, mContext.sqliteShell());
    shredHtml5Storage(
        mContext,
        {u"~/Library/Application Support/Google/Chrome/Default/Local Storage"_s,
         [](const HTML5Manager& manager) { return manager.html5PathsForChrome(); },
         u"~/Library/Application Support/Google/Chrome/Default/databases"_s,
         [&] { return scrub.chrome5databasessqlite(chromeProfile() + u"databases/Databases.db"_s, kDatabasesKey); },
         [](const HTML5Manager& manager) { return manager.html5DatabasesPathsForChrome(); },
         {}});
    mContext.endCleaner();
}

void ChromeCleaners::Chrome170()
{
    mContext.header(u"Chrome 17.0"_s);
    if (!mContext.gate(u"Chrome"_s))
        return;
    const QString profile = chromeProfile();
    const bool history = mContext.setting(ShredHistory);
    shredOrSkipEach(mContext.setting(shredSafariFavicon), profile, {u"Favicons"_s, u"Favicons-journal"_s});
    shredOrSkipEach(history, profile, {u"shortcuts"_s, u"Network Action Predictor"_s});
    if (history)
        editJsonWithDetails(profile + u"Preferences"_s, u"dns_prefetching"_s, true);
    // Chrome's top sites go with the history unless the user keeps top sites.
    shredOrSkipEach(history && !mContext.setting(KeepSafariTopSites), profile,
                    {u"Top Sites"_s, u"Top Sites-journal"_s});
    mContext.endCleaner();
}

void ChromeCleaners::Chrome300()
{
    mContext.header(u"Chrome 30.0"_s);
    if (!mContext.gate(u"Chrome"_s))
        return;
    mContext.shredOrSkipFullPath(mContext.setting(ShredCache),
                                 CleanerContext::expandTilde(u"~/Library/Caches/Google/Chrome"_s));
    mContext.shredOrSkipFullPath(
        mContext.setting(ShredHistory),
        CleanerContext::expandTilde(u"~/Library/Saved Application State/com.google.Chrome.savedState"_s));
    mContext.endCleaner();
}

void ChromeCleaners::Flock35UserData(const QString& userDataFolder)
{
    const QString profile = flockProfile(userDataFolder);
    const bool history = mContext.setting(ShredHistory);
    mContext.shredOrSkipFullPath(
        mContext.setting(ShredCache),
        CleanerContext::expandTilde(u"~/Library/Caches/Flock/%1/Default/Cache"_s.arg(userDataFolder)));
    historyEntries(profile);
    shredOrSkipEach(history, profile,
                    {u"Visited Links"_s, u"Archived History"_s, u"Last Session"_s, u"Current Session"_s, u"Last Tabs"_s,
                     u"Current Tabs"_s});
    if (history)
        editJsonWithDetails(profile + u"Local State"_s, u"StartupDNSPrefetchList"_s, false);
    shredOrSkipEach(mContext.setting(shredSafariFavicon), profile, {u"Thumbnails"_s});
    shredOrSkipEach(mContext.setting(ShredCookies), profile, {u"Cookies"_s, u"Extension Cookies"_s});

    WebStorageScrub scrub(mContext, mContext.sqliteShell());
    shredHtml5Storage(
        mContext,
        {u"Local Storage"_s,
         [&](const HTML5Manager& manager) { return manager.html5PathsForFlock(profile + u"Local Storage"_s); },
         u"databases"_s,
         [&] { return scrub.flock35databasessqlite(profile + u"databases/Databases.db"_s, kDatabasesKey); },
         [](const HTML5Manager& manager) { return manager.html5DatabasesPathsForFlock(); },
         {}});
}

#include "cleaners/current/ChromiumProfileItems.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/JsonPreferenceEdit.h"
#include "cleaners/PreferenceFileEdit.h"
#include "cleaners/current/ChromiumSiteStorage.h"
#include "cleaners/current/ChromiumStores.h"
#include "cleaners/current/CurrentProfileWalk.h"
#include "log/FailureLog.h"
#include "settings/ChromiumProfileList.h"
#include "settings/HTML5Manager.h"
#include "settings/PreferenceKeys.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace PreferenceKey;

namespace {

const QStringList kCaches{u"Cache"_s,
                          u"Code Cache"_s,
                          u"GPUCache"_s,
                          u"DawnGraphiteCache"_s,
                          u"DawnWebGPUCache"_s,
                          u"Service Worker/CacheStorage"_s,
                          u"Shared Dictionary/cache"_s};

// A store erased whole goes with its rollback journal and write-ahead log.
QStringList withJournals(const QString& store)
{
    return {store, store + u"-journal"_s, store + u"-wal"_s, store + u"-shm"_s};
}

const QList<ProfileFiles>& files()
{
    // The sessions, the omnibox's and the predictor's visited pages, the sites
    // that bounced the browser on, and the features' shared store (the download
    // service's list and the tabs' saved state name visited pages; the browser
    // puts a download it finds there back into History) all go with the history.
    static const QList<ProfileFiles> rows{
        {ShredCache, ProfileFiles::Cache, kCaches},
        {ShredCache, ProfileFiles::Profile, kCaches},
        {ShredHistory, ProfileFiles::Profile,
         QStringList{u"Sessions"_s, u"Sessions_Encrypted"_s, u"Visited Links"_s, u"shared_proto_db"_s} +
             withJournals(u"Shortcuts"_s) + withJournals(u"Network Action Predictor"_s) + withJournals(u"DIPS"_s)},
        {ShredPasswords, ProfileFiles::Profile,
         withJournals(u"Login Data"_s) + withJournals(u"Login Data For Account"_s)},
    };
    return rows;
}

// Site storage that all sites share: erased whole unless a kept site has data
// in it; then the local storage and the quota database (WebStorage) lose the
// other sites, and the rest stays. The browser builds the quota database again
// from the storage that is left when it is erased.
const QStringList kSharedStorage{u"Local Storage/leveldb"_s, u"Session Storage"_s, u"File System"_s,
                                 u"Service Worker"_s, u"WebStorage"_s};

// Site data of a browser's own pages and extensions is not in question here: a
// store is shared when any file of it names a kept site (the origins are keys).
bool holdsKeptSite(const QString& folder, const QStringList& keptDomains)
{
    QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray bytes = file.readAll();
        if (std::any_of(keptDomains.begin(), keptDomains.end(),
                        [&](const QString& domain) { return bytes.contains(domain.toUtf8()); }))
            return true;
    }
    return false;
}

void siteStorage(CleanerContext& context, const QString& profileFolder)
{
    const HTML5Manager* html5 = context.models.html5;
    if (!html5)
        return;
    const bool on = html5->getEnabledState() == 1;
    const QDir indexedDb(profileFolder + u"/IndexedDB"_s);
    for (const QString& name : indexedDb.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name)) {
        const bool siteFolder = name.endsWith(u".indexeddb.leveldb"_s) || name.endsWith(u".indexeddb.blob"_s);
        if (siteFolder && !html5->keepThisDomain(name))
            context.shredOrSkipFullPath(on, indexedDb.filePath(name));
    }
    const QStringList kept = html5->domains();
    for (const QString& name : kSharedStorage) {
        const QString path = profileFolder + u'/' + name;
        if (!QFileInfo(path).isDir())
            continue;
        if (on && holdsKeptSite(path, kept)) {
            if (!splitSiteStorage(context, profileFolder, name))
                context.log(u"Skip: %1 (a kept site has data in it)"_s.arg(path));
        } else
            context.shredOrSkipFullPath(on, path);
    }
}

// Removes the members from a JSON preference file under the history setting.
void editPreferences(CleanerContext& context, const QString& file, const QList<JsonPreferenceEdit::Members>& members)
{
    if (!QFileInfo(file).isFile())
        return;
    if (!context.setting(ShredHistory)) {
        context.log(u"Skip: "_s + file);
        return;
    }
    const Error error = runPreferenceEdit(
        context, file, [&](bool dryRun) { return JsonPreferenceEdit::removeMembers(file, members, dryRun); });
    if (error.code == Error::Code::KeyNotFound)
        context.log(u"Skip: "_s + file);
    else if (!error.ok())
        FailureLog::write(error);
}

std::function<bool(const QString&)> named(const QString& key)
{
    return [key](const QString& name) { return name == key; };
}

// The host lists of DNS pre-fetching, and the engagement the browser keeps per
// visited site ("http://example.org:80,*"). Neither is among the preferences
// the browser protects with a MAC: a Chromium 156 started on a file without
// them kept every other setting and reset nothing.
void preferences(CleanerContext& context, const QString& profileFolder)
{
    const HTML5Manager* html5 = context.models.html5;
    const auto visited = [html5](const QString& site) { return !(html5 && html5->keepThisDomain(site)); };
    const QStringList exceptions{u"profile"_s, u"content_settings"_s, u"exceptions"_s};
    editPreferences(context, profileFolder + u"/Preferences"_s,
                    {{{}, named(u"dns_prefetching"_s)},
                     {exceptions + QStringList{u"site_engagement"_s}, visited},
                     {exceptions + QStringList{u"media_engagement"_s}, visited}});
}

} // namespace

void cleanChromiumProfile(CleanerContext& context, const ChromiumProfile& profile)
{
    runProfileFiles(context, files(), {profile.folder, profile.cacheFolder});
    // As with the older Chrome: the most visited pages stay when the user keeps top sites.
    const bool topSites = context.setting(ShredHistory) && !context.setting(KeepSafariTopSites);
    for (const QString& path : withJournals(profile.folder + u"/Top Sites"_s)) {
        if (QFileInfo::exists(path))
            context.shredOrSkipFullPath(topSites, path);
    }
    siteStorage(context, profile.folder);
    preferences(context, profile.folder);
    cleanChromiumStores(context, profile.folder);
}

void cleanChromiumLocalState(CleanerContext& context, const QString& userDataFolder)
{
    editPreferences(context, userDataFolder + u"/Local State"_s, {{{}, named(u"StartupDNSPrefetchList"_s)}});
    const QString metrics = userDataFolder + u"/segmentation_platform/ukm_db"_s;
    if (QFileInfo(metrics).isFile()) {
        const bool on = context.setting(ShredHistory);
        for (const QString& path : withJournals(metrics)) {
            if (QFileInfo::exists(path))
                context.shredOrSkipFullPath(on, path);
        }
    }
}

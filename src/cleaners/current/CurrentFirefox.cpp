#include "cleaners/current/CurrentFirefox.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/current/CurrentProfileWalk.h"
#include "cleaners/current/FirefoxStores.h"
#include "settings/HTML5Manager.h"
#include "settings/PreferenceKeys.h"

#include <QDir>

using namespace Qt::StringLiterals;
using namespace PreferenceKey;

namespace {

const QStringList kCaches{u"cache2"_s, u"startupCache"_s, u"thumbnails"_s, u"shader-cache"_s};

// A store erased whole goes with its write-ahead log and shared memory.
QStringList withLogs(const QString& store)
{
    return {store, store + u"-wal"_s, store + u"-shm"_s};
}

const QList<ProfileFiles>& files()
{
    // Firefox 153 keeps saved logins in logins.db besides the older JSON files;
    // the key and certificate stores stay.
    static const QList<ProfileFiles> rows{
        {ShredCache, ProfileFiles::Cache, kCaches},
        {ShredCache, ProfileFiles::Profile, kCaches},
        {ShredHistory, ProfileFiles::Profile,
         QStringList{u"sessionstore.jsonlz4"_s, u"sessionstore-backups"_s} + withLogs(u"formhistory.sqlite"_s)},
        {ShredPasswords, ProfileFiles::Profile,
         QStringList{u"logins.json"_s, u"logins-backup.json"_s} + withLogs(u"logins.db"_s)},
    };
    return rows;
}

// Origin folders of web pages ("https+++example.com", "http+++127.0.0.1+8000");
// those of add-ons and of the browser itself are not a site's.
bool isWebOrigin(const QString& name)
{
    return name.startsWith(u"https+++"_s) || name.startsWith(u"http+++"_s);
}

} // namespace

CurrentFirefox::CurrentFirefox(CleanerContext& context, const UserDefaults& defaults, QString procRoot)
    : mContext(context)
    , mDefaults(defaults)
    , mProcRoot(std::move(procRoot))
{
}

void CurrentFirefox::run()
{
    walkCurrentProfiles(mContext, mDefaults, {WatchedApp::firefox, u"Firefox"_s, u"Firefox (current versions)"_s},
                        mProcRoot, [&](const MozillaProfile& profile) {
                            runProfileFiles(mContext, files(), profile);
                            siteStorage(profile.folder);
                            cleanFirefoxStores(mContext, profile.folder);
                        });
}

void CurrentFirefox::siteStorage(const QString& profileFolder)
{
    const HTML5Manager* html5 = mContext.models.html5;
    if (!html5)
        return;
    const bool on = html5->getEnabledState() == 1;
    const QDir storage(profileFolder + u"/storage/default"_s);
    for (const QString& name : storage.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name)) {
        if (isWebOrigin(name) && !html5->keepThisDomain(name))
            mContext.shredOrSkipFullPath(on, storage.filePath(name));
    }
}

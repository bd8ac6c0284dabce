#include "cleaners/MozillaCleaners.h"

#include "cleaners/ChromeCleaners.h"
#include "cleaners/CleanerContext.h"
#include "cleaners/FixedCleaner.h"
#include "cleaners/PlacesScrub.h"
#include "cleaners/WebStorageScrub.h"
#include "settings/HTML5Manager.h"
#include "settings/PreferenceKeys.h"
#include "settings/ProfilesManager.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;
using namespace PreferenceKey;

namespace {

const QString kNoneSelected = u"No profiles selected."_s;
const QString kNoneSelectedInMenu = u"No profiles selected in the Profiles menu"_s;
const QString kNotOneSalt = u"Not exactly 1 Salt folder.  Profile Skipped."_s;
const QStringList kCacheFiles{u"Cache"_s, u"OfflineCache"_s, u"urlclassifier3.sqlite"_s, u"XPC.mfasl"_s,
                              u"XUL.mfasl"_s};

QString join(const QString& folder, const QString& name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

QStringList directEntries(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                  QDir::Name | QDir::IgnoreCase);
}

} // namespace

MozillaCleaners::MozillaCleaners(CleanerContext& context, const UserDefaults& defaults, ChromeCleaners& chrome)
    : mContext(context)
    , mDefaults(defaults)
    , mChrome(chrome)
{
}

void MozillaCleaners::block(bool on, const QString& folder, const QStringList& names)
{
    mContext.log(on ? u"Shred:"_s : u"Skip:"_s);
    for (const QString& name : names) {
        const QString path = join(folder, name);
        mContext.log(path);
        if (on)
            mContext.queue(path);
    }
}

QStringList MozillaCleaners::selectedProfiles(const QString& tildeFolder) const
{
    return ProfilesManager::selectedProfiles(mDefaults, CleanerContext::expandTilde(tildeFolder));
}

void MozillaCleaners::walkSelectedProfiles(const QString& tildeFolder, const QString& noneSelected,
                                           const ProfileWork& work)
{
    const QStringList names = selectedProfiles(tildeFolder);
    if (names.isEmpty()) {
        mContext.log(noneSelected);
        mContext.endCleaner();
        return;
    }
    const QString folder = CleanerContext::expandTilde(tildeFolder);
    for (const QString& name : names) {
        const QString profile = join(folder, name);
        if (!QFileInfo(profile).isDir())
            continue;
        mContext.log(profile);
        work(profile);
        mContext.endCleaner();
    }
    mContext.endCleaner();
}

QString MozillaCleaners::saltFolder(const QString& profileFolder, const QString& noSaltMessage)
{
    QStringList salts;
    for (const QString& name : directEntries(profileFolder)) {
        if (name.endsWith(u".slt"_s))
            salts.append(name);
    }
    if (salts.size() == 1)
        return join(profileFolder, salts.first());
    mContext.log(salts.isEmpty() ? noSaltMessage : kNotOneSalt);
    return {};
}

void MozillaCleaners::Camino07()
{
    mContext.header(u"Camino 0.7"_s);
    if (!mContext.gate(u"Camino"_s))
        return;
    const QString profile = CleanerContext::expandTilde(u"~/Library/Application Support/Chimera/Profiles/default"_s);
    const QString salt = saltFolder(profile, u"No Camino 0.7 profile found.  Profile Skipped."_s);
    if (!salt.isNull()) {
        block(mContext.setting(ShredCache), salt, {u"Cache"_s});
        block(mContext.setting(ShredHistory), salt, {u"history.dat"_s});
    }
    mContext.endCleaner();
}

void MozillaCleaners::Camino08()
{
    mContext.header(u"Camino 0.8"_s);
    if (!mContext.gate(u"Camino"_s))
        return;
    const QString folder = CleanerContext::expandTilde(u"~/Library/Application Support/Camino"_s);
    block(mContext.setting(ShredCache), folder, {u"Cache"_s});
    block(mContext.setting(ShredHistory), folder, {u"history.dat"_s});
    block(mContext.setting(ShredCookies), folder, {u"cookies.txt"_s});
    mContext.endCleaner();
}

void MozillaCleaners::Camino10()
{
    static const FixedCleaner cleaner{u"Camino 1.0"_s,
                                      u"Camino"_s,
                                      {{ShredCache, {u"~/Library/Caches/Camino/Cache"_s}},
                                       {shredSafariFavicon, {u"~/Library/Caches/Camino/IconCache"_s}}}};
    runFixedCleaner(cleaner, mContext);
}

void MozillaCleaners::Camino16()
{
    static const FixedCleaner cleaner{
        u"Camino 1.6"_s,
        u"Camino"_s,
        {{ShredCache, {u"~/Library/Caches/org.mozilla.camino"_s}},
         {ShredIEDownloadCache, {u"~/Library/Application Support/Camino/downloads.plist"_s}},
         // Under Caches, as Camino 1.6 wrote it.
         {ShredHistory, {u"~/Library/Caches/Application Support/history.dat"_s}}}};
    runFixedCleaner(cleaner, mContext);
}

void MozillaCleaners::Camino20()
{
    mContext.header(u"Camino 2.0"_s);
    if (!mContext.gate(u"Camino"_s))
        return;
    block(mContext.setting(ShredCookies), CleanerContext::expandTilde(u"~/Library/Application Support/Camino"_s),
          {u"cookies.sqlite"_s});
    mContext.endCleaner();
}

void MozillaCleaners::Camino21()
{
    mContext.header(u"Camino 2.1"_s);
    if (!mContext.gate(u"Camino"_s))
        return;
    const QString places = CleanerContext::expandTilde(u"~/Library/Application Support/Camino/places.sqlite"_s);
    const QString journal = places + u"-journal"_s;
    if (mContext.setting(ShredHistory) || mContext.setting(shredSafariFavicon)) {
        mContext.log(u"Shred:"_s);
        mContext.log(places);
        const QString renamed = PlacesScrub(mContext, mContext.sqliteShell()).firefox3sqlite(places);
        if (!renamed.isNull())
            mContext.queue(renamed);
        mContext.queue(journal);
    } else {
        mContext.log(u"Skip:"_s);
        mContext.log(places);
        mContext.log(journal);
    }
    // Camino 2.1 ends without the closing empty line.
}

void MozillaCleaners::Firefox08()
{
    mContext.header(u"Firefox 0.8"_s);
    if (!mContext.gate(u"Firefox"_s))
        return;
    const QString profile = CleanerContext::expandTilde(u"~/Library/Phoenix/Profiles/default"_s);
    const QString salt = saltFolder(profile, kNotOneSalt);
    if (!salt.isNull()) {
        block(mContext.setting(ShredCache), salt, {u"Cache"_s});
        block(mContext.setting(ShredHistory), salt, {u"history.dat"_s});
        block(mContext.setting(ShredIEDownloadCache), salt, {u"downloads.rdf"_s});
    }
    mContext.endCleaner();
}

void MozillaCleaners::Firefox10()
{
    mContext.header(u"Firefox 1.0"_s);
    if (!mContext.gate(u"Firefox"_s))
        return;
    walkSelectedProfiles(u"~/Library/Application Support/Firefox/Profiles"_s, kNoneSelected,
                         [&](const QString& profile) {
                             block(mContext.setting(ShredCache), profile, {u"Cache"_s});
                             block(mContext.setting(ShredHistory), profile, {u"history.dat"_s});
                             block(mContext.setting(ShredIEDownloadCache), profile, {u"downloads.rdf"_s});
                         });
}

void MozillaCleaners::walkCacheAndSupport(const QString& supportFolder, const QString& cacheFolder,
                                          const QStringList& cacheFiles, bool withCookies)
{
    const QStringList names = selectedProfiles(supportFolder);
    if (names.isEmpty()) {
        mContext.log(kNoneSelected);
        mContext.endCleaner();
        return;
    }
    for (const QString& name : names) {
        const QString cacheProfile = join(CleanerContext::expandTilde(cacheFolder), name);
        if (QFileInfo(cacheProfile).isDir()) {
            mContext.log(cacheProfile);
            block(mContext.setting(ShredCache), cacheProfile, cacheFiles);
        }
        const QString supportProfile = join(CleanerContext::expandTilde(supportFolder), name);
        if (withCookies && QFileInfo(supportProfile).isDir()) {
            mContext.log(supportProfile);
            block(mContext.setting(ShredCookies), supportProfile, {u"cookies.txt"_s});
            mContext.endCleaner();
        }
    }
    mContext.endCleaner();
}

void MozillaCleaners::Firefox15()
{
    mContext.header(u"Firefox 1.5"_s);
    if (!mContext.gate(u"Firefox"_s))
        return;
    walkCacheAndSupport(u"~/Library/Application Support/Firefox/Profiles"_s, u"~/Library/Caches/Firefox/Profiles"_s,
                        kCacheFiles, true);
}

void MozillaCleaners::SeaMonkey20cache()
{
    mContext.header(u"SeaMonkey 2.0 Cache"_s);
    if (!mContext.gate(u"SeaMonkey 2"_s))
        return;
    walkCacheAndSupport(u"~/Library/Application Support/SeaMonkey/Profiles"_s, u"~/Library/Caches/SeaMonkey/Profiles"_s,
                        kCacheFiles, true);
}

void MozillaCleaners::Flock25()
{
    mContext.header(u"Flock 2.5"_s);
    if (!mContext.gate(u"Flock"_s))
        return;
    walkCacheAndSupport(u"~/Library/Application Support/Flock/Profiles"_s, u"~/Library/Caches/Flock/Profiles"_s,
                        {u"Cache"_s, u"urlclassifier3.sqlite"_s, u"XPC.mfasl"_s, u"XUL.mfasl"_s}, false);
}

QString MozillaCleaners::signonFileName(const QByteArray& prefs)
{
    const QString text = QString::fromUtf8(prefs);
    qsizetype at = text.indexOf(u"signon.SignonFileName"_s);
    if (at < 0)
        return {};
    at += qsizetype(sizeof("signon.SignonFileName") - 1);
    if (at >= text.size())
        return {};
    at = text.indexOf(u',', at);
    if (at < 0)
        return {};
    at = text.indexOf(u'"', at);
    if (at < 0)
        return {};
    const qsizetype start = at + 1;
    const qsizetype end = text.indexOf(u'"', start);
    return text.mid(start, end < 0 ? -1 : end - start);
}

QString MozillaCleaners::passwordFileName(const QByteArray& prefs)
{
    const QString name = signonFileName(prefs);
    // A file of the profile folder itself: never a path leading out of it, nor a
    // name holding a NUL, which the system would read cut short as another file.
    if (name.isEmpty() || name.contains(u'/') || name.contains(QChar::Null) || name == u"."_s || name == u".."_s)
        return {};
    return name;
}

void MozillaCleaners::sessionsAndPasswords(const QString& profile)
{
    const bool history = mContext.setting(ShredHistory);
    block(history, profile, {u"sessionstore.js"_s});
    block(history, profile, {u"sessionstore.bak"_s});
    block(history, profile, {u"formhistory.dat"_s});
    if (!mContext.setting(ShredPasswords)) {
        mContext.log(u"Skip: Passwords file (did not parse for location since option is disabled)"_s);
        return;
    }
    QFile prefs(join(profile, u"prefs.js"_s));
    if (!prefs.open(QIODevice::ReadOnly))
        return;
    const QByteArray text = prefs.readAll();
    const QString name = passwordFileName(text);
    if (!name.isEmpty())
        block(true, profile, {name});
    else if (!signonFileName(text).isNull())
        mContext.log(u"Skip: Passwords file named in prefs.js is not a file of the profile folder: "_s +
                     signonFileName(text));
}

void MozillaCleaners::Firefox20()
{
    mContext.header(u"Firefox 2.0"_s);
    if (!mContext.gate(u"Firefox"_s))
        return;
    walkSelectedProfiles(u"~/Library/Application Support/Firefox/Profiles"_s, kNoneSelected,
                         [&](const QString& profile) { sessionsAndPasswords(profile); });
}

void MozillaCleaners::SeaMonkey20()
{
    mContext.header(u"SeaMonkey 2.0"_s);
    if (!mContext.gate(u"SeaMonkey 2"_s))
        return;
    walkSelectedProfiles(u"~/Library/Application Support/SeaMonkey/Profiles"_s, kNoneSelected,
                         [&](const QString& profile) { sessionsAndPasswords(profile); });
}

void MozillaCleaners::Firefox30Flock25SeaMonkey20(const QString& name, const QString& profilesFolder)
{
    mContext.header(u"Firefox 3.0-12.0, Flock 2.5, and SeaMonkey 1.0"_s);
    if (!mContext.gate(name))
        return;
    walkSelectedProfiles(profilesFolder, kNoneSelected, [&](const QString& profile) { placesProfile(profile); });
}

void MozillaCleaners::placesProfile(const QString& profile)
{
    const HTML5Manager* html5 = mContext.models.html5;
    if (html5 && html5->getEnabledState() == 1) {
        const QString store = join(profile, u"webappsstore.sqlite"_s);
        mContext.log(u"Shred:"_s);
        mContext.log(store);
        const QString renamed = WebStorageScrub(mContext, mContext.sqliteShell()).firefox3webappsstoresqlite(store);
        if (!renamed.isNull())
            mContext.queue(renamed);
    }
    block(mContext.setting(ShredCache), profile, {u"Cache.Trash"_s});

    const QString places = join(profile, u"places.sqlite"_s);
    if (mContext.setting(ShredHistory) || mContext.setting(shredSafariFavicon)) {
        mContext.log(u"Shred:"_s);
        mContext.log(places);
        const QString renamed = PlacesScrub(mContext, mContext.sqliteShell()).firefox3sqlite(places);
        if (!renamed.isNull())
            mContext.queue(renamed);
    } else {
        block(false, profile, {u"places.sqlite"_s});
    }

    block(mContext.setting(ShredHistory), profile, {u"formhistory.sqlite"_s});
    block(mContext.setting(ShredCookies), profile, {u"cookies.sqlite"_s, u"cookies.txt"_s});
    if (mContext.setting(ShredIEDownloadCache))
        block(true, profile, {u"downloads.sqlite"_s});
    else // the skip names the file twice, as it always has
        block(false, profile, {u"downloads.sqlite"_s, u"downloads.sqlite"_s});
}

void MozillaCleaners::Mozilla()
{
    mContext.header(u"Mozilla 1.x and Netscape 7"_s);
    if (!mContext.gate(u"Mozilla"_s) || !mContext.gate(u"Netscape"_s))
        return;
    // The salt-folder walk of the oldest browsers, over the selected profiles
    // instead of "default": no line names the profile itself.
    const QStringList names = selectedProfiles(u"~/Library/Mozilla/Profiles"_s);
    if (names.isEmpty())
        mContext.log(kNoneSelectedInMenu);
    const QString folder = CleanerContext::expandTilde(u"~/Library/Mozilla/Profiles"_s);
    for (const QString& name : names) {
        const QString profile = join(folder, name);
        if (!QFileInfo(profile).isDir())
            continue;
        const QString salt = saltFolder(profile, kNotOneSalt);
        if (salt.isNull())
            continue;
        block(mContext.setting(ShredCache), salt, {u"Cache"_s});
        block(mContext.setting(ShredHistory), salt, {u"history.dat"_s, u"history.mab"_s, u"Netscape History"_s});
        block(mContext.setting(ShredIEDownloadCache), salt, {u"downloads.rdf"_s});
    }
    mContext.endCleaner();
}

void MozillaCleaners::SeaMonkey1()
{
    mContext.header(u"SeaMonkey 1.x"_s);
    if (!mContext.gate(u"Mozilla"_s))
        return;
    const QStringList names = selectedProfiles(u"~/Library/Mozilla/Profiles"_s);
    if (names.isEmpty()) {
        mContext.log(kNoneSelectedInMenu);
        mContext.endCleaner();
        return;
    }
    QStringList cached = directEntries(CleanerContext::expandTilde(u"~/Library/Caches//Mozilla//Profiles"_s));
    cached.removeAll(u".DS_Store"_s);
    const QString cacheFolder = CleanerContext::expandTilde(u"~/Library/Caches/Mozilla/Profiles"_s);
    for (const QString& name : names) {
        if (cached.contains(name))
            block(mContext.setting(ShredCache), cacheFolder, {name});
    }
    mContext.endCleaner();
}

void MozillaCleaners::Flock35()
{
    mContext.header(u"Flock 3.5"_s);
    if (!mContext.gate(u"Flock"_s))
        return;
    for (const QString& name : directEntries(CleanerContext::expandTilde(u"~/Library/Application Support/Flock"_s))) {
        if (name.startsWith(u"User Data"_s))
            mChrome.Flock35UserData(name);
    }
    mContext.endCleaner();
}

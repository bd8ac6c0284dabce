#include "cleaners/MozillaCleaners.h"

#include "cleaners/ChromeCleaners.h"
#include "cleaners/CleanerContext.h"
#include "cleaners/MozillaCleanerTables.h"
#include "cleaners/PlacesScrub.h"
#include "cleaners/WebStorageScrub.h"
#include "core/Path.h"
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

QStringList directEntries(const Path& folder)
{
    return QDir(folder.toString())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                   QDir::Name | QDir::IgnoreCase);
}

bool isFolder(const Path& path)
{
    return QFileInfo(path.toString()).isDir();
}

} // namespace

MozillaCleaners::MozillaCleaners(CleanerContext& context, const UserDefaults& defaults, ChromeCleaners& chrome)
    : mContext(context)
    , mDefaults(defaults)
    , mChrome(chrome)
{
}

void MozillaCleaners::block(bool on, const Path& folder, const QStringList& names)
{
    mContext.log(on ? u"Shred:"_s : u"Skip:"_s);
    for (const QString& name : names) {
        const QString path = (folder / name).toString();
        mContext.log(path);
        if (on)
            mContext.queue(path);
    }
}

void MozillaCleaners::blocks(const QList<FileBlock>& blocks, const Path& folder)
{
    for (const FileBlock& each : blocks)
        block(mContext.setting(each.key), folder, each.names);
}

QStringList MozillaCleaners::selectedProfiles(const QString& tildeFolder) const
{
    return ProfilesManager::selectedProfiles(mDefaults, Path::fromTilde(tildeFolder).toString());
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
    const Path folder = Path::fromTilde(tildeFolder);
    for (const QString& name : names) {
        const Path profile = folder / name;
        if (!isFolder(profile))
            continue;
        mContext.log(profile.toString());
        work(profile);
        mContext.endCleaner();
    }
    mContext.endCleaner();
}

Path MozillaCleaners::saltFolder(const Path& profileFolder, const QString& noSaltMessage)
{
    QStringList salts;
    for (const QString& name : directEntries(profileFolder)) {
        if (name.endsWith(u".slt"_s))
            salts.append(name);
    }
    if (salts.size() == 1)
        return profileFolder / salts.first();
    mContext.log(salts.isEmpty() && !noSaltMessage.isEmpty() ? noSaltMessage : kNotOneSalt);
    return {};
}

void MozillaCleaners::run(const MozillaCleaner& cleaner)
{
    mContext.header(cleaner.header);
    if (!mContext.gate(cleaner.enabledName))
        return;
    const Path folder = Path::fromTilde(cleaner.folder);
    switch (cleaner.place) {
    case MozillaCleaner::Place::Folder:
        blocks(cleaner.blocks, folder);
        mContext.endCleaner();
        return;
    case MozillaCleaner::Place::SaltFolder:
        if (const Path salt = saltFolder(folder, cleaner.noSaltFolder); !salt.isEmpty())
            blocks(cleaner.blocks, salt);
        mContext.endCleaner();
        return;
    case MozillaCleaner::Place::SelectedProfiles:
        walkSelectedProfiles(cleaner.folder, kNoneSelected, [&](const Path& profile) {
            blocks(cleaner.blocks, profile);
            if (cleaner.passwordFile)
                passwordFile(profile);
        });
        return;
    case MozillaCleaner::Place::CacheAndSupport:
        walkCacheAndSupport(cleaner);
        return;
    }
}

void MozillaCleaners::walkCacheAndSupport(const MozillaCleaner& cleaner)
{
    const QStringList names = selectedProfiles(cleaner.folder);
    if (names.isEmpty()) {
        mContext.log(kNoneSelected);
        mContext.endCleaner();
        return;
    }
    for (const QString& name : names) {
        const Path cacheProfile = Path::fromTilde(cleaner.cacheFolder) / name;
        if (isFolder(cacheProfile)) {
            mContext.log(cacheProfile.toString());
            blocks(cleaner.blocks, cacheProfile);
        }
        const Path supportProfile = Path::fromTilde(cleaner.folder) / name;
        if (!cleaner.supportBlocks.isEmpty() && isFolder(supportProfile)) {
            mContext.log(supportProfile.toString());
            blocks(cleaner.supportBlocks, supportProfile);
            mContext.endCleaner();
        }
    }
    mContext.endCleaner();
}

void MozillaCleaners::Camino07()
{
    run(MozillaCleanerTables::Camino07());
}

void MozillaCleaners::Camino08()
{
    run(MozillaCleanerTables::Camino08());
}

void MozillaCleaners::Camino10()
{
    runFixedCleaner(MozillaCleanerTables::Camino10(), mContext);
}

void MozillaCleaners::Camino16()
{
    runFixedCleaner(MozillaCleanerTables::Camino16(), mContext);
}

void MozillaCleaners::Camino20()
{
    run(MozillaCleanerTables::Camino20());
}

void MozillaCleaners::Camino21()
{
    mContext.header(u"Camino 2.1"_s);
    if (!mContext.gate(u"Camino"_s))
        return;
    const QString places = Path::fromTilde(u"~/Library/Application Support/Camino/places.sqlite"_s).toString();
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
    run(MozillaCleanerTables::Firefox08());
}

void MozillaCleaners::Firefox10()
{
    run(MozillaCleanerTables::Firefox10());
}

void MozillaCleaners::Firefox15()
{
    run(MozillaCleanerTables::Firefox15());
}

void MozillaCleaners::SeaMonkey20cache()
{
    run(MozillaCleanerTables::SeaMonkey20cache());
}

void MozillaCleaners::Flock25()
{
    run(MozillaCleanerTables::Flock25());
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
    return Path::isName(name) ? name : QString();
}

void MozillaCleaners::passwordFile(const Path& profile)
{
    if (!mContext.setting(ShredPasswords)) {
        mContext.log(u"Skip: Passwords file (did not parse for location since option is disabled)"_s);
        return;
    }
    QFile prefs((profile / u"prefs.js"_s).toString());
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
    run(MozillaCleanerTables::Firefox20());
}

void MozillaCleaners::SeaMonkey20()
{
    run(MozillaCleanerTables::SeaMonkey20());
}

void MozillaCleaners::Firefox30Flock25SeaMonkey20(const QString& name, const QString& profilesFolder)
{
    mContext.header(u"Firefox 3.0-12.0, Flock 2.5, and SeaMonkey 1.0"_s);
    if (!mContext.gate(name))
        return;
    walkSelectedProfiles(profilesFolder, kNoneSelected, [&](const Path& profile) { placesProfile(profile); });
}

void MozillaCleaners::placesProfile(const Path& profile)
{
    const HTML5Manager* html5 = mContext.models.html5;
    if (html5 && html5->getEnabledState() == 1) {
        const QString store = (profile / u"webappsstore.sqlite"_s).toString();
        mContext.log(u"Shred:"_s);
        mContext.log(store);
        const QString renamed = WebStorageScrub(mContext, mContext.sqliteShell()).firefox3webappsstoresqlite(store);
        if (!renamed.isNull())
            mContext.queue(renamed);
    }
    block(mContext.setting(ShredCache), profile, {u"Cache.Trash"_s});

    const QString places = (profile / u"places.sqlite"_s).toString();
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
    const Path folder = Path::fromTilde(u"~/Library/Mozilla/Profiles"_s);
    for (const QString& name : names) {
        const Path profile = folder / name;
        if (!isFolder(profile))
            continue;
        if (const Path salt = saltFolder(profile); !salt.isEmpty())
            blocks(MozillaCleanerTables::MozillaSuiteBlocks(), salt);
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
    QStringList cached = directEntries(Path::fromTilde(u"~/Library/Caches//Mozilla//Profiles"_s));
    cached.removeAll(u".DS_Store"_s);
    const Path cacheFolder = Path::fromTilde(u"~/Library/Caches/Mozilla/Profiles"_s);
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
    for (const QString& name : directEntries(Path::fromTilde(u"~/Library/Application Support/Flock"_s))) {
        if (name.startsWith(u"User Data"_s))
            mChrome.Flock35UserData(name);
    }
    mContext.endCleaner();
}

#include "cleaners/MozillaCleanerTables.h"

#include "settings/PreferenceKeys.h"

using namespace Qt::StringLiterals;
using namespace PreferenceKey;

namespace {

using Place = MozillaCleaner::Place;

const QString kFirefoxProfiles = u"~/Library/Application Support/Firefox/Profiles"_s;
const QString kSeaMonkeyProfiles = u"~/Library/Application Support/SeaMonkey/Profiles"_s;

const QList<FileBlock> kOldestBlocks{
    {ShredCache, {u"Cache"_s}},
    {ShredHistory, {u"history.dat"_s}},
    {ShredIEDownloadCache, {u"downloads.rdf"_s}},
};
const QList<FileBlock> kCacheBlocks{
    {ShredCache, {u"Cache"_s, u"OfflineCache"_s, u"urlclassifier3.sqlite"_s, u"XPC.mfasl"_s, u"XUL.mfasl"_s}}};
const QList<FileBlock> kCookiesTxt{{ShredCookies, {u"cookies.txt"_s}}};
const QList<FileBlock> kSessionBlocks{
    {ShredHistory, {u"sessionstore.js"_s}},
    {ShredHistory, {u"sessionstore.bak"_s}},
    {ShredHistory, {u"formhistory.dat"_s}},
};

} // namespace

namespace MozillaCleanerTables {

const MozillaCleaner& Camino07()
{
    static const MozillaCleaner cleaner{
        .header = u"Camino 0.7"_s,
        .enabledName = u"Camino"_s,
        .place = Place::SaltFolder,
        .folder = u"~/Library/Application Support/Chimera/Profiles/default"_s,
        .blocks = {{ShredCache, {u"Cache"_s}}, {ShredHistory, {u"history.dat"_s}}},
        .noSaltFolder = u"No Camino 0.7 profile found.  Profile Skipped."_s,
    };
    return cleaner;
}

const MozillaCleaner& Camino08()
{
    static const MozillaCleaner cleaner{
        .header = u"Camino 0.8"_s,
        .enabledName = u"Camino"_s,
        .place = Place::Folder,
        .folder = u"~/Library/Application Support/Camino"_s,
        .blocks = {{ShredCache, {u"Cache"_s}}, {ShredHistory, {u"history.dat"_s}}, {ShredCookies, {u"cookies.txt"_s}}},
    };
    return cleaner;
}

const FixedCleaner& Camino10()
{
    static const FixedCleaner cleaner{u"Camino 1.0"_s,
                                      u"Camino"_s,
                                      {{ShredCache, {u"~/Library/Caches/Camino/Cache"_s}},
                                       {shredSafariFavicon, {u"~/Library/Caches/Camino/IconCache"_s}}}};
    return cleaner;
}

const FixedCleaner& Camino16()
{
    static const FixedCleaner cleaner{
        u"Camino 1.6"_s,
        u"Camino"_s,
        {{ShredCache, {u"~/Library/Caches/org.mozilla.camino"_s}},
         {ShredIEDownloadCache, {u"~/Library/Application Support/Camino/downloads.plist"_s}},
         // Under Caches, as Camino 1.6 wrote it.
         {ShredHistory, {u"~/Library/Caches/Application Support/history.dat"_s}}}};
    return cleaner;
}

const MozillaCleaner& Camino20()
{
    static const MozillaCleaner cleaner{
        .header = u"Camino 2.0"_s,
        .enabledName = u"Camino"_s,
        .place = Place::Folder,
        .folder = u"~/Library/Application Support/Camino"_s,
        .blocks = {{ShredCookies, {u"cookies.sqlite"_s}}},
    };
    return cleaner;
}

const MozillaCleaner& Firefox08()
{
    static const MozillaCleaner cleaner{
        .header = u"Firefox 0.8"_s,
        .enabledName = u"Firefox"_s,
        .place = Place::SaltFolder,
        .folder = u"~/Library/Phoenix/Profiles/default"_s,
        .blocks = kOldestBlocks,
    };
    return cleaner;
}

const MozillaCleaner& Firefox10()
{
    static const MozillaCleaner cleaner{
        .header = u"Firefox 1.0"_s,
        .enabledName = u"Firefox"_s,
        .place = Place::SelectedProfiles,
        .folder = kFirefoxProfiles,
        .blocks = kOldestBlocks,
    };
    return cleaner;
}

const MozillaCleaner& Firefox15()
{
    static const MozillaCleaner cleaner{
        .header = u"Firefox 1.5"_s,
        .enabledName = u"Firefox"_s,
        .place = Place::CacheAndSupport,
        .folder = kFirefoxProfiles,
        .blocks = kCacheBlocks,
        .cacheFolder = u"~/Library/Caches/Firefox/Profiles"_s,
        .supportBlocks = kCookiesTxt,
    };
    return cleaner;
}

const MozillaCleaner& Firefox20()
{
    static const MozillaCleaner cleaner{
        .header = u"Firefox 2.0"_s,
        .enabledName = u"Firefox"_s,
        .place = Place::SelectedProfiles,
        .folder = kFirefoxProfiles,
        .blocks = kSessionBlocks,
        .passwordFile = true,
    };
    return cleaner;
}

const MozillaCleaner& Flock25()
{
    static const MozillaCleaner cleaner{
        .header = u"Flock 2.5"_s,
        .enabledName = u"Flock"_s,
        .place = Place::CacheAndSupport,
        .folder = u"~/Library/Application Support/Flock/Profiles"_s,
        .blocks = {{ShredCache, {u"Cache"_s, u"urlclassifier3.sqlite"_s, u"XPC.mfasl"_s, u"XUL.mfasl"_s}}},
        .cacheFolder = u"~/Library/Caches/Flock/Profiles"_s,
    };
    return cleaner;
}

const MozillaCleaner& SeaMonkey20cache()
{
    static const MozillaCleaner cleaner{
        .header = u"SeaMonkey 2.0 Cache"_s,
        .enabledName = u"SeaMonkey 2"_s,
        .place = Place::CacheAndSupport,
        .folder = kSeaMonkeyProfiles,
        .blocks = kCacheBlocks,
        .cacheFolder = u"~/Library/Caches/SeaMonkey/Profiles"_s,
        .supportBlocks = kCookiesTxt,
    };
    return cleaner;
}

const MozillaCleaner& SeaMonkey20()
{
    static const MozillaCleaner cleaner{
        .header = u"SeaMonkey 2.0"_s,
        .enabledName = u"SeaMonkey 2"_s,
        .place = Place::SelectedProfiles,
        .folder = kSeaMonkeyProfiles,
        .blocks = kSessionBlocks,
        .passwordFile = true,
    };
    return cleaner;
}

const QList<FileBlock>& MozillaSuiteBlocks()
{
    static const QList<FileBlock> blocks{
        {ShredCache, {u"Cache"_s}},
        {ShredHistory, {u"history.dat"_s, u"history.mab"_s, u"Netscape History"_s}},
        {ShredIEDownloadCache, {u"downloads.rdf"_s}},
    };
    return blocks;
}

} // namespace MozillaCleanerTables

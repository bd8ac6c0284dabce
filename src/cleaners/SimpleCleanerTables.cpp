#include "cleaners/SimpleCleanerTables.h"

#include "settings/PreferenceKeys.h"

using namespace Qt::StringLiterals;
using namespace PreferenceKey;

namespace {

// Opera 5 to 7 name their cache folder "Cache" and the florin sign (0xC4 in Mac OS Roman).
const QString kOperaCacheFolder = u"Cache \u0192"_s;

} // namespace

namespace SimpleCleanerTables {

const FixedCleaner& QuicktimeCache()
{
    static const FixedCleaner cleaner{
        u"Quicktime Cache"_s, {}, {{ShredQuicktimeCache, {u"~/Library/Caches/Quicktime"_s}}}};
    return cleaner;
}

const FixedCleaner& IE51()
{
    static const FixedCleaner cleaner{
        u"IE"_s,
        u"Internet Explorer"_s,
        {
            {ShredCache,
             {u"~/Library/Caches/MS Internet Cache"_s, u"~/Library/Preferences/MS Internet Cache"_s},
             QStringList{u"~/Library/Caches/MS Internet Cache"_s, u"~/Preferences/MS Internet Cache"_s}},
            {ShredHistory, {u"~/Library/Preferences/Explorer/History.html"_s}},
            {ShredIEDownloadCache,
             {u"~/Library/Preferences/Explorer/Download Cache"_s, u"~/Library/Preferences/Explorer/Downloads.html"_s}},
        }};
    return cleaner;
}

const FixedCleaner& iCab411()
{
    static const FixedCleaner cleaner{
        u"iCab v4"_s,
        u"iCab"_s,
        {
            {ShredCache, {u"~/Library/Caches/iCab/Cache.db"_s}},
            {ShredIEDownloadCache, {u"~/Library/Preferences/iCab/iCab 4 Downloads"_s}},
            {ShredHistory,
             {u"~/Library/Preferences/iCab/iCab 4 History"_s, u"~/Library/Preferences/iCab/iCab 4 TopTen"_s}},
            {ShredCookies, {u"~/Library/Preferences/iCab/iCab 4 Cookies"_s}},
            {shredSafariFavicon, {u"~/Library/Icons/Webpageicons.db"_s}},
        },
        /*regateAfterItem*/ 0};
    return cleaner;
}

const FixedCleaner& iCab30()
{
    static const FixedCleaner cleaner{
        u"iCab v3"_s,
        u"iCab"_s,
        {{ShredIEDownloadCache, {u"~/Library/Preferences/iCab Preferences/iCab DL-Manager"_s}}}};
    return cleaner;
}

const FixedCleaner& iCab28()
{
    static const FixedCleaner cleaner{
        u"iCab v2"_s,
        u"iCab"_s,
        {
            {ShredCache, {u"~/Library/Preferences/iCab Preferences/iCab Cache"_s}},
            {ShredHistory, {u"~/Library/Preferences/iCab Preferences/iCab Global History"_s}},
            {ShredCookies, {u"~/Library/Preferences/iCab Preferences/iCab Cookies"_s}},
        }};
    return cleaner;
}

const FixedCleaner& OmniWeb41()
{
    static const FixedCleaner cleaner{
        u"OmniWeb 4"_s,
        u"Omniweb"_s,
        {
            // The cache setting is read, but OmniWeb 4 has nothing to queue or log for it.
            {ShredCache, {}},
            {ShredHistory,
             {u"~/Library/Application Support/OmniWeb/HistoryIndex.ox"_s,
              u"~/Library/Application Support/OmniWeb/HistoryIndex.ox.lock"_s,
              u"~/Library/Application Support/OmniWeb/HistoryIndex.ox.log"_s,
              u"~/Library/Application Support/OmniWeb/PersistentHistory.plist"_s}},
        }};
    return cleaner;
}

const FixedCleaner& OmniWeb51()
{
    static const FixedCleaner cleaner{
        u"OmniWeb 5"_s,
        u"Omniweb"_s,
        {
            {ShredCache, {u"~/Library/Caches/com.omnigroup.OmniWeb5/Cache.bundle"_s}},
            {ShredHistory,
             {u"~/Library/Application Support/OmniWeb 5/History.plist"_s,
              u"~/Library/Application Support/OmniWeb 5/HistoryIndex.ox"_s,
              u"~/Library/Application Support/OmniWeb 5/HistoryIndex.ox.lock"_s,
              u"~/Library/Application Support/OmniWeb 5/HistoryIndex.ox.log"_s,
              u"~/Library/Application Support/OmniWeb 5/PersistentHistory.plist"_s}},
            {shredSafariFavicon, {u"~/Library/Caches/com.omnigroup.OmniWeb5/Page Icons"_s}},
            {ShredCookies, {u"~/Library/Application Support/OmniWeb 5/Cookies.xml"_s}},
        }};
    return cleaner;
}

const FixedCleaner& OmniWeb57()
{
    static const FixedCleaner cleaner{u"OmniWeb 5.7"_s,
                                      u"Omniweb"_s,
                                      {
                                          {ShredCache, {u"~/Library/Caches/com.omnigroup.OmniWeb5/WebKitCache"_s}},
                                          {shredSafariFavicon, {u"~/Library/Application Support/OmniWeb 5/Icons"_s}},
                                      }};
    return cleaner;
}

const FixedCleaner& Opera50()
{
    static const FixedCleaner cleaner{
        u"Opera 5.x"_s,
        u"Opera"_s,
        {
            {ShredCache, {u"~/Library/Preferences/Opera Preferences/"_s + kOperaCacheFolder}},
            {ShredHistory,
             {u"~/Library/Preferences/Opera Preferences/Opera Global History"_s,
              u"~/Library/Preferences/Opera Preferences/Opera Visited Links"_s,
              u"~/Library/Preferences/Opera Preferences/Opera Window Settings"_s}},
        }};
    return cleaner;
}

const FixedCleaner& Opera60()
{
    static const FixedCleaner cleaner{
        u"Opera 6.x"_s,
        u"Opera"_s,
        {
            {ShredCache, {u"~/Library/Preferences/Opera 6 Preferences/"_s + kOperaCacheFolder}},
            {ShredHistory,
             {u"~/Library/Preferences/Opera 6 Preferences/Opera Global History"_s,
              u"~/Library/Preferences/Opera 6 Preferences/Opera Direct History"_s,
              u"~/Library/Preferences/Opera 6 Preferences/vlink4.dat"_s,
              u"~/Library/Preferences/Opera 6 Preferences/autopera.win"_s}},
            {ShredIEDownloadCache, {u"~/Library/Preferences/Opera 6 Preferences/Opera Transfer List.xml"_s}},
        }};
    return cleaner;
}

const FixedCleaner& Opera70()
{
    static const FixedCleaner cleaner{
        u"Opera 7.x"_s,
        u"Opera"_s,
        {
            {ShredCache, {u"~/Library/Caches/Opera Cache/"_s + kOperaCacheFolder}},
            {ShredHistory,
             {u"~/Library/Preferences/Opera Preferences/Opera Global History"_s,
              u"~/Library/Preferences/Opera Preferences/Opera Direct History"_s,
              u"~/Library/Preferences/Opera Preferences/vlink4.dat"_s,
              u"~/Library/Preferences/Opera Preferences/vlink4.new"_s}},
            {ShredIEDownloadCache, {u"~/Library/Preferences/Opera Preferences/download.dat"_s}},
            {shredSafariFavicon, {u"~/Library/Preferences/Opera Preferences/Icons"_s}},
        }};
    return cleaner;
}

const FixedCleaner& Opera80()
{
    static const FixedCleaner cleaner{
        u"Opera 8.x"_s,
        u"Opera"_s,
        {
            {ShredHistory, {u"~/Library/Preferences/Opera Preferences/Sessions/autosave.win"_s}},
            {ShredCookies, {u"~/Library/Preferences/Opera Preferences/cookies4.dat"_s}},
        }};
    return cleaner;
}

const FixedCleaner& Opera90()
{
    static const FixedCleaner cleaner{u"Opera 9.x"_s, u"Opera"_s, {{ShredCache, {u"~/Library/Caches/Opera"_s}}}};
    return cleaner;
}

const FixedCleaner& Opera100()
{
    static const FixedCleaner cleaner{u"Opera 10.x"_s,
                                      u"Opera"_s,
                                      {
                                          {ShredHistory,
                                           {u"~/Library/Preferences/Opera Preferences/typed_history.xml"_s,
                                            u"~/Library/Preferences/Opera Preferences/global_history.dat"_s,
                                            u"~/Library/Preferences/Opera Preferences/Bookmarks.bak"_s}},
                                      }};
    return cleaner;
}

const FixedCleaner& Opera110()
{
    static const FixedCleaner cleaner{
        u"Opera 11.x"_s,
        u"Opera"_s,
        {
            {ShredHistory,
             {u"~/Library/Opera/typed_history.xml"_s, u"~/Library/Opera/global_history.dat"_s,
              u"~/Library/Opera/Bookmarks.bak"_s}},
            {ShredHistory,
             {u"~/Library/Opera/Sessions/autosave.win"_s, u"~/Library/Opera/Sessions/autosave.win.bak"_s},
             QStringList{u"~/Library/Opera/Sessions/autosave.win.bak"_s}},
            {ShredCookies, {u"~/Library/Opera/cookies4.dat"_s}},
            {ShredHistory,
             {u"~/Library/Opera/vlink4.dat"_s, u"~/Library/Preferences/Opera Preferences/vlink4.new"_s},
             QStringList{u"~/Library/Opera/vlink4.dat"_s, u"~/Library/Opera/autopera.win"_s}},
            {ShredIEDownloadCache, {u"~/Library/Opera/download.dat"_s}},
            // The speed-dial page and its thumbnails go with the history unless top sites are kept.
            {ShredHistory,
             {u"~/Library/Opera/speeddial.ini"_s, u"~/Library/Opera/opthumb.dat"_s},
             std::nullopt,
             KeepSafariTopSites},
        }};
    return cleaner;
}

} // namespace SimpleCleanerTables

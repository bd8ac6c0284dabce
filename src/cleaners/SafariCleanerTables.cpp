#include "cleaners/SafariCleanerTables.h"

#include "settings/PreferenceKeys.h"

using namespace Qt::StringLiterals;
using namespace PreferenceKey;

namespace SafariCleanerTables {

const FixedCleaner& Safari10()
{
    static const FixedCleaner cleaner{u"Safari"_s,
                                      u"Safari"_s,
                                      {
                                          {ShredCache, {u"~/Library/Caches/Safari"_s}},
                                          {ShredHistory, {u"~/Library/Safari/History.plist"_s}},
                                          {ShredIEDownloadCache, {u"~/Library/Safari/Downloads.plist"_s}},
                                          {shredSafariFavicon, {u"~/Library/Safari/Icons"_s}},
                                      }};
    return cleaner;
}

const FixedCleaner& Safari30()
{
    static const FixedCleaner cleaner{
        u"Safari 3.0"_s,
        u"Safari"_s,
        {
            {ShredCache, {u"~/Library/Caches/com.apple.safari"_s, u"~/Library/Caches/MetaData/Safari"_s}},
            // Skipped history names only the index.
            {ShredHistory,
             {u"~/Library/Safari/LastSession.plist"_s, u"~/Library/Safari/HistoryIndex.sk"_s},
             QStringList{u"~/Library/Safari/HistoryIndex.sk"_s}},
            {shredSafariFavicon, {u"~/Library/Safari/Webpageicons.db"_s}},
        }};
    return cleaner;
}

const FixedCleaner& Safari60()
{
    static const FixedCleaner cleaner{
        u"Safari 6.0"_s,
        u"Safari"_s,
        {{ShredCookies, {u"~/Library/Cookies/com.apple.Safari.SafeBrowsing.binarycookies"_s}}},
        -1,
        /*closingEmptyLine*/ false};
    return cleaner;
}

const FixedCleaner& Shiira12()
{
    static const FixedCleaner cleaner{u"Shiira"_s,
                                      u"Shiira"_s,
                                      {
                                          {ShredCache, {u"~/Library/Caches/Shiira"_s}},
                                          {ShredHistory, {u"~/Library/Shiira/History.plist"_s}},
                                          {ShredIEDownloadCache, {u"~/Library/Shiira/Downloads.plist"_s}},
                                          {shredSafariFavicon, {u"~/Library/Shiira/IconDatabase"_s}},
                                      }};
    return cleaner;
}

const FixedCleaner& Shiira20()
{
    static const FixedCleaner cleaner{
        u"Shiira v2"_s,
        u"Shiira"_s,
        {
            {shredSafariFavicon, {u"~/Library/Application Support/Shiira/IconDatabase"_s}},
            {ShredHistory, {u"~/Library/Application Support/Shiira/History.plist"_s}},
            {ShredCache, {u"~/Library/Caches/jp.hmdt.shiira"_s, u"~/Library/Caches/jp.hmdt.rsssyndication"_s}},
        }};
    return cleaner;
}

} // namespace SafariCleanerTables

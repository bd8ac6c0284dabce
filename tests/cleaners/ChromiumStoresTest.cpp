#include "cleaners/current/ChromiumProfileItems.h"

#include "cleaners/CleanerFixture.h"
#include "settings/ChromiumProfileList.h"
#include "settings/HTML5Manager.h"
#include "support/TestDatabase.h"

#include <QDir>
#include <QDirIterator>

#include <leveldb/db.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

using Entries = std::map<std::string, std::string>;

std::unique_ptr<leveldb::DB> openLevelDb(const QString& folder, bool create)
{
    leveldb::Options options;
    options.create_if_missing = create;
    leveldb::DB* db = nullptr;
    EXPECT_TRUE(leveldb::DB::Open(options, QFile::encodeName(folder).toStdString(), &db).ok());
    return std::unique_ptr<leveldb::DB>(db);
}

// A Chromium 156 profile, made from the browser's schemas: a bookmarked page, a
// visited one and a download; their icons and an icon of no page; cookies,
// storage and engagement of a kept site and of one that is not.
class ChromiumStoresTest : public CleanerFixture {
protected:
    ChromiumStoresTest()
    {
        context.models.html5 = html5 = &HTML5Manager::createSharedInstance();
        html5->addDomain();
        html5->setDomain(0, u"kept.example"_s);
    }

    void makeProfile()
    {
        QDir(home.file(u".config"_s)).removeRecursively();
        QDir(home.file(u".cache"_s)).removeRecursively();
        makeDatabase(
            kDefault + u"/History"_s, u"chromium156-History.sql"_s,
            u"INSERT INTO urls (id, url, title, visit_count, last_visit_time) VALUES"
            " (1, 'https://kept.example/bookmark', 'Kept', 1, 5), (2, 'https://gone.example/page', 'Seen', 1, 5);"
            "INSERT INTO visits (id, url, visit_time) VALUES (1, 1, 5), (2, 2, 5);"
            "INSERT INTO keyword_search_terms VALUES (1, 2, 'gone terms', 'gone terms');"
            "INSERT INTO segments VALUES (1, 'gone.example/', 2);"
            "INSERT INTO downloads VALUES (1, 'g', '/tmp/f', '/tmp/f', 5, 1, 1, 1, 0, 0, x'', 5, 0, 5, 0,"
            " 'https://download.example/', '', '', '', '', '', '', '', '', '', '', '', '');"
            "INSERT INTO downloads_url_chains VALUES (1, 0, 'https://download.example/file.zip');"_s);
        makeDatabase(kDefault + u"/Favicons"_s, u"chromium156-Favicons.sql"_s,
                     u"INSERT INTO favicons (id, url) VALUES (1, 'https://kept.example/icon.png'),"
                     " (2, 'https://gone.example/icon.png'), (3, 'https://orphan.example/icon.png');"
                     "INSERT INTO favicon_bitmaps (id, icon_id, image_data) VALUES (1, 1, x'00'), (2, 2, x'00'),"
                     " (3, 3, x'00');"
                     "INSERT INTO icon_mapping (id, page_url, icon_id) VALUES (1, 'https://kept.example/bookmark', 1),"
                     " (2, 'https://gone.example/page', 2);"_s);
        // The bookmark's page is in no History row once the history goes.
        home.write(kDefault + u"/Bookmarks"_s,
                   R"({"roots":{"bookmark_bar":{"children":[{"type":"url","url":"https://kept.example/bookmark"}]}}})");
        makeDatabase(kDefault + u"/Cookies"_s, u"chromium156-Cookies.sql"_s, cookieRows(u"kept.example"_s));
        TestDatabase(profile() + u"/Cookies"_s).exec(cookieRows(u"gone.example"_s));
        makeDatabase(kDefault + u"/Web Data"_s, u"chromium156-Web_Data.sql"_s,
                     u"INSERT INTO autofill (name, value, value_lower) VALUES ('q', 'gone terms', 'gone terms');"
                     "INSERT INTO keywords (id, short_name, keyword, favicon_url, url) VALUES (1, 'Search', 's', '',"
                     " 'https://search.example/?q={searchTerms}');"_s);
        makeDatabase(kDefault + u"/Login Data"_s, u"chromium156-Login_Data.sql"_s);
        home.write(
            kDefault + u"/Preferences"_s,
            R"({"dns_prefetching":{"host_referral_list":[2,["https://gone.example/"]]},)"
            R"("profile":{"content_settings":{"exceptions":{"site_engagement":{)"
            R"("https://kept.example:443,*":{"setting":{"rawScore":3}},)"
            R"("https://gone.example:443,*":{"setting":{"rawScore":3}}}}}},"homepage":"https://home.example/"})");
        home.write(u".config/chromium/Local State"_s, R"({"StartupDNSPrefetchList":["gone.example"],"x":1})");
        home.write(kDefault + u"/IndexedDB/https_kept.example_0.indexeddb.leveldb/000003.log"_s, "kept");
        home.write(kDefault + u"/IndexedDB/https_gone.example_0.indexeddb.leveldb/000003.log"_s, "gone");
        QDir().mkpath(profile() + u"/Local Storage"_s);
        {
            // Compacted into a table, compressed as the browser's are.
            const auto db = openLevelDb(localStorage(), true);
            for (const auto& [key, value] : localStorageEntries())
                db->Put({}, key, value);
            db->Put({}, std::string("_https://gone.example\0\x01k", 24), "gone");
            db->Put({}, "METAACCESS:https://gone.example", "a");
            db->CompactRange(nullptr, nullptr);
        }
        makeDatabase(
            kDefault + u"/WebStorage/QuotaManager"_s, u"chromium156-QuotaManager.sql"_s,
            u"INSERT INTO buckets VALUES (1, 'https://kept.example/', 'kept.example', '_default', 1, 5, 5, 0, 0,"
            " 0, 0), (2, 'https://gone.example/', 'gone.example', '_default', 1, 5, 5, 0, 0, 0, 0);"_s);
        home.write(kDefault + u"/WebStorage/2/CacheStorage/index"_s, "gone");
        home.write(kDefault + u"/Session Storage/000003.log"_s, "map-1-https://gone.example/");
        home.write(u".cache/chromium/Default/Cache/Cache_Data/index"_s, "https://gone.example/page");
        home.write(kDefault + u"/Sessions/Session_1"_s, "https://gone.example/page");
    }

    static QString cookieRows(const QString& host)
    {
        return u"INSERT INTO cookies VALUES (1, '.%1', '', 'c', '', x'76313000', '/', 0, 1, 0, 0, 0, 1, 1, 0, 2, 443,"
               " 0, 0, 0);"_s.arg(host);
    }

    QString profile() const { return home.file(kDefault); }
    QString localStorage() const { return profile() + u"/Local Storage/leveldb"_s; }
    // The kept site's value is long enough to be compressed.
    static Entries localStorageEntries()
    {
        return {{"VERSION", "1"},
                {"META:https://kept.example", "m"},
                {std::string("_https://kept.example\0\x01k", 24), std::string(4096, 'k')}};
    }
    Entries localStorageNow() const
    {
        Entries entries;
        const auto db = openLevelDb(localStorage(), false);
        const std::unique_ptr<leveldb::Iterator> it(db->NewIterator({}));
        for (it->SeekToFirst(); it->Valid(); it->Next())
            entries.emplace(it->key().ToString(), it->value().ToString());
        return entries;
    }
    ChromiumProfile chromium() const
    {
        return {home.file(u".config/chromium"_s), profile(), home.file(u".cache/chromium/Default"_s)};
    }

    QStringList clean()
    {
        return run([&] { cleaner(context); });
    }

    QStringList rows(const QString& store, const QString& query) const
    {
        return TestDatabase(profile() + u'/' + store).rows(query);
    }

    const QString kDefault = u".config/chromium/Default"_s;
    const Clean cleaner = [this](CleanerContext& in) {
        cleanChromiumProfile(in, chromium());
        cleanChromiumLocalState(in, chromium().userDataFolder);
    };
    HTML5Manager* html5 = nullptr;
};

} // namespace

TEST_F(ChromiumStoresTest, HistoryDownloadsAndIconsGoBySetting)
{
    struct Case {
        bool history, downloads, icons;
        QStringList urls, downloadIds, mappings, icons_;
    };
    const QStringList both{u"1"_s, u"2"_s};
    const Case cases[]{
        {true, false, false, {}, {u"1"_s}, {u"1"_s}, {u"1"_s, u"2"_s, u"3"_s}},
        {false, true, false, both, {}, both, {u"1"_s, u"2"_s, u"3"_s}},
        {false, false, true, both, {u"1"_s}, both, both},
        {true, true, true, {}, {}, {u"1"_s}, {u"1"_s}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.history << c.downloads << c.icons);
        makeProfile();
        setKey(PreferenceKey::ShredHistory, c.history);
        setKey(PreferenceKey::ShredIEDownloadCache, c.downloads);
        setKey(PreferenceKey::shredSafariFavicon, c.icons);
        const QStringList log = clean();
        EXPECT_EQ(log.contains(u"Shred: "_s + profile() + u"/History"_s), c.history || c.downloads);
        EXPECT_EQ(rows(u"History"_s, u"SELECT id FROM urls ORDER BY id"_s), c.urls);
        EXPECT_EQ(rows(u"History"_s, u"SELECT id FROM downloads UNION ALL SELECT id FROM downloads_url_chains"_s),
                  c.downloadIds + c.downloadIds);
        EXPECT_EQ(rows(u"History"_s, u"SELECT (SELECT count(*) FROM visits) + (SELECT count(*) FROM"
                                     " keyword_search_terms) + (SELECT count(*) FROM segments)"_s),
                  QStringList{c.history ? u"0"_s : u"4"_s});
        EXPECT_EQ(rows(u"Favicons"_s, u"SELECT id FROM icon_mapping ORDER BY id"_s), c.mappings);
        EXPECT_EQ(rows(u"Favicons"_s, u"SELECT id FROM favicons ORDER BY id"_s), c.icons_);
        EXPECT_EQ(rows(u"Favicons"_s, u"SELECT icon_id FROM favicon_bitmaps ORDER BY id"_s), c.icons_);
        // Typed form values go with the history; the saved search engines stay.
        EXPECT_EQ(rows(u"Web Data"_s, u"SELECT count(*) FROM autofill"_s), QStringList{c.history ? u"0"_s : u"1"_s});
        EXPECT_EQ(rows(u"Web Data"_s, u"SELECT keyword FROM keywords"_s), QStringList{u"s"_s});
        EXPECT_EQ(paths.contains(profile() + u"/Sessions"_s), c.history);
        EXPECT_TRUE(home.read(kDefault + u"/Bookmarks"_s).contains("kept.example/bookmark"));
        const QByteArray preferences = home.read(kDefault + u"/Preferences"_s);
        EXPECT_EQ(preferences.contains("gone.example"), !c.history);
        EXPECT_TRUE(preferences.contains("kept.example:443") && preferences.contains("home.example"));
        EXPECT_EQ(home.read(u".config/chromium/Local State"_s).contains("gone.example"), !c.history);
        queue.takePaths();
    }
}

TEST_F(ChromiumStoresTest, CookiesPasswordsCachesAndStorageOfSitesNotKeptWithADryRunAndAnUnknownShapeLeftAlone)
{
    makeProfile();
    setAllKeys(true);
    html5->setEnabled();
    const QString p = profile() + u'/';
    const QStringList log = clean();
    EXPECT_EQ(log.filter(u"Skip: "_s), QStringList{});
    EXPECT_TRUE(log.contains(u"Shred: "_s + localStorage()) && log.contains(u"Shred: "_s + p + u"WebStorage/2"_s));
    EXPECT_EQ(localStorageNow(), localStorageEntries());
    QDirIterator table(localStorage(), {u"*.ldb"_s});
    EXPECT_LT(QFileInfo(table.next()).size(), 4096) << "the table is not compressed";
    EXPECT_EQ(rows(u"WebStorage/QuotaManager"_s, u"SELECT id, host FROM buckets"_s), QStringList{u"1|kept.example"_s});
    EXPECT_FALSE(paths.contains(p + u"WebStorage/1"_s) || paths.contains(p + u"WebStorage"_s));
    // The old database and every file the library gave up go to the erase engine, nothing else is left beside it.
    EXPECT_TRUE(paths.contains(localStorage() + u".vantlex-rewritten"_s));
    EXPECT_EQ(QDir(p + u"Local Storage"_s).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              (QStringList{u"leveldb"_s, u"leveldb.vantlex-rewritten"_s}));
    for (const QString& erased : {chromium().cacheFolder + u"/Cache"_s, p + u"Login Data"_s, p + u"Sessions"_s,
                                  p + u"IndexedDB/https_gone.example_0.indexeddb.leveldb"_s, p + u"Session Storage"_s})
        EXPECT_TRUE(paths.contains(erased)) << qPrintable(erased);
    EXPECT_FALSE(paths.contains(p + u"IndexedDB/https_kept.example_0.indexeddb.leveldb"_s));
    EXPECT_EQ(rows(u"Cookies"_s, u"SELECT host_key FROM cookies"_s), QStringList{u".kept.example"_s});

    // Without a kept site's cookie the store goes whole, as it is.
    html5->deleteDomain(0);
    makeProfile();
    const QByteArray cookies = home.read(kDefault + u"/Cookies"_s);
    clean();
    EXPECT_TRUE(paths.contains(p + u"Cookies"_s) && paths.contains(p + u"Local Storage/leveldb"_s));
    EXPECT_EQ(home.read(kDefault + u"/Cookies"_s), cookies);

    makeProfile();
    expectDryRunChangesNothing(home.file(u".config"_s), u"Shred: "_s + profile() + u"/History"_s, cleaner);
    expectUnknownShapeLeftAlone(p + u"Web Data"_s, u"ALTER TABLE autofill RENAME TO form_values"_s, cleaner);
}

#include "cleaners/current/FirefoxStores.h"

#include "cleaners/CleanerFixture.h"
#include "settings/HTML5Manager.h"
#include "support/TestDatabase.h"

#include <QDir>
#include <QFileInfo>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

class FirefoxStoresTest : public CleanerFixture {
protected:
    FirefoxStoresTest()
        : profile(home.file(u".config/mozilla/firefox/ab12cd34.default-esr"_s))
    {
        QDir().mkpath(profile);
        context.models.html5 = html5 = &HTML5Manager::createSharedInstance();
        html5->addDomain();
        html5->setDomain(0, u"kept.example"_s);
    }

    // A store made from the browser's schema in write-ahead-log mode, with an
    // empty log beside it as Firefox leaves them; with inLog, everything stays
    // in the log, as a killed browser leaves it.
    QString makeStore(const QString& name, const QString& schemaFile, const QString& rows, bool inLog = false)
    {
        const QString path = profile + u'/' + name;
        sqlite3* db = nullptr;
        sqlite3_open(QFile::encodeName(path).constData(), &db);
        const QByteArray sql =
            "PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0;" + testData(schemaFile) + rows.toUtf8();
        EXPECT_EQ(sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
        sqlite3_db_config(db, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, inLog ? 1 : 0, nullptr);
        sqlite3_close(db);
        QFile(path + u"-wal"_s).open(QIODevice::Append);
        return path;
    }

    QStringList clean()
    {
        return run([&] { cleaner(context); });
    }

    static QStringList rows(const QString& path, const QString& query) { return TestDatabase(path).rows(query); }

    // The profile's files that hold marker, leaving out those queued for the erase.
    QStringList holding(const QByteArray& marker) const
    {
        QStringList found;
        for (const auto& [file, bytes] : filesBelow(profile).asKeyValueRange()) {
            const bool queued = std::any_of(paths.begin(), paths.end(), [&](const QString& path) {
                return file == path || file.startsWith(path + u'/');
            });
            if (!queued && bytes.contains(marker))
                found.append(QFileInfo(file).fileName());
        }
        return found;
    }

    const QString profile;
    const Clean cleaner = [this](CleanerContext& in) { cleanFirefoxStores(in, profile); };
    HTML5Manager* html5 = nullptr;
};

} // namespace

TEST_F(FirefoxStoresTest, PlacesKeepBookmarksAndKeywordsWhileHistoryAndDownloadsGo)
{
    setKey(PreferenceKey::ShredHistory, true);
    setKey(PreferenceKey::ShredIEDownloadCache, true);
    // Committed to the log only, as a killed browser leaves them.
    const QString places = makeStore(
        u"places.sqlite"_s, u"firefox153-places.sql"_s,
        u"INSERT INTO moz_origins (id, prefix, host, frecency) VALUES (1, 'https://', 'kept.example', 1),"
        " (2, 'https://', 'visited.example', 1), (3, 'https://', 'keyword.example', 1),"
        " (4, 'https://', 'download.example', 1);"
        "INSERT INTO moz_places (id, url, title, guid, origin_id, visit_count, last_visit_date) VALUES"
        " (1, 'https://kept.example/', 'Kept', 'g1', 1, 1, 5), (2, 'https://visited.example/page', 'Seen', 'g2', 2, 1, "
        "5),"
        " (3, 'https://keyword.example/?q=%s', NULL, 'g3', 3, 0, NULL),"
        " (4, 'https://download.example/file.zip', NULL, 'g4', 4, 0, 5);"
        "INSERT INTO moz_historyvisits (place_id, visit_date, visit_type) VALUES (1, 5, 1), (2, 5, 1), (4, 5, 7);"
        "INSERT INTO moz_inputhistory VALUES (2, 'visited.ex', 1);"
        "INSERT INTO moz_places_metadata_search_queries VALUES (1, 'visited.example terms');"
        "INSERT INTO moz_places_metadata (place_id, search_query_id) VALUES (2, 1);"
        "INSERT INTO moz_bookmarks (id, type, fk, parent, position, title, guid) VALUES"
        " (1, 2, NULL, 0, 0, '', 'root________'), (2, 1, 1, 1, 0, 'Kept', 'bookmark1');"
        "INSERT INTO moz_keywords (keyword, place_id) VALUES ('k', 3);"
        "INSERT INTO moz_anno_attributes VALUES (1, 'downloads/destinationFileURI');"
        "INSERT INTO moz_annos (place_id, anno_attribute_id, content) VALUES (4, 1, 'file:///download.example');"_s,
        true);
    ASSERT_GT(QFileInfo(places + u"-wal"_s).size(), 0);
    // Left by a run killed after its swap, and by one killed while it copied.
    home.write(places + u".vantlex-old"_s, "visited.example, the old rows");
    home.write(places + u".vantlex-copy"_s, "visited.example, half a copy");

    expectDryRunChangesNothing(profile, u"Shred: "_s + places, cleaner);
    EXPECT_EQ(clean(), QStringList({u"Shred: "_s + places,
                                    u"Shred (left by an interrupted run): "_s + places + u".vantlex-old"_s}));
    EXPECT_EQ(rows(places, u"SELECT id, visit_count, last_visit_date FROM moz_places ORDER BY id"_s),
              QStringList({u"1|0|NULL"_s, u"3|0|NULL"_s}));
    EXPECT_EQ(rows(places, u"SELECT host FROM moz_origins ORDER BY id"_s),
              QStringList({u"kept.example"_s, u"keyword.example"_s}));
    EXPECT_EQ(rows(places, u"SELECT (SELECT count(*) FROM moz_historyvisits) + (SELECT count(*) FROM moz_inputhistory)"
                           " + (SELECT count(*) FROM moz_places_metadata) + (SELECT count(*) FROM moz_annos)"
                           " + (SELECT count(*) FROM moz_places_metadata_search_queries)"_s),
              QStringList{u"0"_s});
    EXPECT_EQ(rows(places, u"SELECT title, guid FROM moz_bookmarks ORDER BY id"_s),
              QStringList({u"|root________"_s, u"Kept|bookmark1"_s}));
    EXPECT_EQ(rows(places, u"SELECT keyword, place_id FROM moz_keywords"_s), QStringList{u"k|3"_s});
    EXPECT_EQ(rows(places, u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});
    // The old file and its log wait for the erase; not a byte of them is left anywhere else.
    EXPECT_TRUE(paths.contains(places + u".vantlex-old"_s) && paths.contains(places + u".vantlex-old-wal"_s));
    EXPECT_EQ(holding("visited.example") + holding("download.example"), QStringList());
    EXPECT_FALSE(QFileInfo::exists(places + u".vantlex-copy"_s));

    // Another program writing the store and a run that fails before the rename leave it as it is.
    const QByteArray before = home.read(places);
    {
        TestDatabase writer(places);
        writer.exec(u"BEGIN IMMEDIATE"_s);
        EXPECT_TRUE(clean().contains(u"places.sqlite is in use by another program - not rewritten."_s));
        EXPECT_EQ(home.read(places), before);
    }
    ASSERT_TRUE(QDir().mkdir(places + u".vantlex-rewritten"_s));
    const QStringList failed = clean();
    EXPECT_EQ(failed.filter(u"places.sqlite could not be rewritten ("_s).size(), 1) << qPrintable(failed.join(u'\n'));
    EXPECT_EQ(home.read(places), before);
    QDir().rmdir(places + u".vantlex-rewritten"_s);
    expectUnknownShapeLeftAlone(places, u"ALTER TABLE moz_places RENAME COLUMN url TO address"_s, cleaner);
    EXPECT_EQ(QDir(profile).entryList({u"*.vantlex-copy*"_s, u"*.vantlex-rewritten*"_s}, QDir::AllEntries),
              QStringList());
}

TEST_F(FirefoxStoresTest, FaviconsCookiesAndWebStorageKeepOnlyWhatKeptPagesAndSitesNeedOrGoWhole)
{
    setKey(PreferenceKey::shredSafariFavicon, true);
    setKey(PreferenceKey::ShredCookies, true);
    html5->setEnabled();
    const QString places = makeStore(u"places.sqlite"_s, u"firefox153-places.sql"_s,
                                     u"INSERT INTO moz_places (id, url) VALUES (1, 'https://kept.example/');"_s);
    const QString favicons = makeStore(
        u"favicons.sqlite"_s, u"firefox153-favicons.sql"_s,
        u"INSERT INTO moz_pages_w_icons VALUES (1, 'https://kept.example/', 1), (2, 'https://gone.example/page', 2);"
        "INSERT INTO moz_icons (id, icon_url, fixed_icon_url_hash, root, data) VALUES"
        " (1, 'https://kept.example/icon.png', 1, 0, x'00ff'), (2, 'https://gone.example/icon.png', 2, 0, x'00ff'),"
        " (3, 'https://kept.example/favicon.ico', 3, 1, x'00ff'), (4, 'https://gone.example/favicon.ico', 4, 1, x'00');"
        "INSERT INTO moz_icons_to_pages (page_id, icon_id) VALUES (1, 1), (2, 2);"_s);
    const QString cookies = makeStore(
        u"cookies.sqlite"_s, u"firefox153-cookies.sql"_s,
        u"INSERT INTO moz_cookies (id, name, value, host, path) VALUES (1, 'a', 'kept', '.kept.example', '/'),"
        " (2, 'b', 'gone', '.visited.example', '/'), (3, 'c', 'kept', 'www.kept.example', '/'),"
        " (4, 'd', 'gone', NULL, '/');"_s);
    const QString store =
        makeStore(u"webappsstore.sqlite"_s, u"firefox153-webappsstore.sql"_s,
                  u"INSERT INTO webappsstore2 VALUES ('', 'elpmaxe.tpek.:https:443', '', 'k', 'kept'),"
                  " ('', 'elpmaxe.detisiv.:https:443', '', 'k', 'gone');"_s);

    expectDryRunChangesNothing(profile, u"Shred: "_s + favicons, cleaner);
    EXPECT_EQ(clean(), QStringList({u"Skip: "_s + places, u"Shred: "_s + favicons, u"Shred: "_s + cookies,
                                    u"Shred: "_s + store}));

    EXPECT_EQ(rows(favicons, u"SELECT id FROM moz_pages_w_icons"_s), QStringList{u"1"_s});
    // The root icon of a kept page's site stays with the page's own.
    EXPECT_EQ(rows(favicons, u"SELECT id, hex(data) FROM moz_icons ORDER BY id"_s),
              QStringList({u"1|00FF"_s, u"3|00FF"_s}));
    EXPECT_EQ(rows(favicons, u"SELECT page_id, icon_id FROM moz_icons_to_pages"_s), QStringList{u"1|1"_s});
    EXPECT_EQ(rows(cookies, u"SELECT id FROM moz_cookies ORDER BY id"_s), QStringList({u"1"_s, u"3"_s}));
    EXPECT_EQ(rows(store, u"SELECT value FROM webappsstore2"_s), QStringList{u"kept"_s});
    EXPECT_EQ(rows(favicons, u"PRAGMA integrity_check"_s) + rows(cookies, u"PRAGMA integrity_check"_s),
              QStringList({u"ok"_s, u"ok"_s}));
    EXPECT_EQ(holding("gone.example") + holding("visited.example") + holding("elpmaxe.detisiv"), QStringList());
    expectUnknownShapeLeftAlone(favicons, u"ALTER TABLE moz_pages_w_icons RENAME COLUMN page_url TO address"_s,
                                cleaner);
    expectUnknownShapeLeftAlone(store, u"ALTER TABLE webappsstore2 RENAME COLUMN originKey TO origin"_s, cleaner);
    expectUnknownShapeLeftAlone(cookies, u"ALTER TABLE moz_cookies RENAME COLUMN host TO site"_s, cleaner);

    // With no kept site's cookie in it, the file goes whole, as it is.
    TestDatabase(cookies).exec(u"ALTER TABLE moz_cookies RENAME COLUMN site TO host"_s);
    setKey(PreferenceKey::shredSafariFavicon, false);
    html5->deleteDomain(0);
    html5->setEnabled();
    const QByteArray before = home.read(cookies);
    EXPECT_EQ(clean(),
              QStringList({u"Skip: "_s + places, u"Skip: "_s + favicons, u"Shred: "_s + cookies, u"Skip: "_s + store}));
    EXPECT_EQ(paths.last(), cookies);
    EXPECT_EQ(home.read(cookies), before);
}

TEST_F(FirefoxStoresTest, ThunderbirdIndexGoesWholeOnlyWhenItHoldsAnErasedMessage)
{
    const QString index = profile + u"/global-messages-db.sqlite"_s;
    // The tables and columns of Thunderbird's index that say where a message is.
    TestDatabase(index).exec(
        u"CREATE TABLE folderLocations (id INTEGER PRIMARY KEY, folderURI TEXT NOT NULL);"
        "CREATE TABLE messages (id INTEGER PRIMARY KEY, folderID INTEGER, conversationID INTEGER NOT NULL);"
        "INSERT INTO folderLocations VALUES (1, 'mailbox://nobody@Local%20Folders/Inbox'),"
        " (2, 'imap://me@mail.example/%5BGmail%5D/Trash');"
        "INSERT INTO messages (folderID, conversationID) VALUES (1, 1);"_s);
    const auto clean = [&](bool erased) { return run([&] { cleanThunderbirdIndex(context, profile, erased); }); };

    EXPECT_EQ(clean(false), QStringList{u"Skip: "_s + index});
    EXPECT_EQ(clean(true), QStringList{u"Skip: "_s + index});
    EXPECT_TRUE(paths.isEmpty());

    TestDatabase(index).exec(u"INSERT INTO messages (folderID, conversationID) VALUES (2, 1);"_s);
    EXPECT_EQ(clean(true), QStringList{u"Shred: "_s + index});
    EXPECT_EQ(paths, QStringList{index});
}

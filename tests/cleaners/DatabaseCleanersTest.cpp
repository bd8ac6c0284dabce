// The cleaners that rebuild browser databases: what they log and queue around
// the rebuilds, and which rows the rebuilt databases keep, with real databases
// in a temporary home.
#include "cleaners/ChromeCleaners.h"
#include "cleaners/CleanerFixture.h"
#include "cleaners/MozillaCleaners.h"
#include "cleaners/SafariCleaners.h"
#include "cleaners/WebStorageScrub.h"
#include "settings/HTML5Manager.h"
#include "support/RecordingRunner.h"
#include "support/TestDatabase.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

class DatabaseCleanersTest : public CleanerFixture {
protected:
    DatabaseCleanersTest() { context.models.html5 = html5 = &HTML5Manager::createSharedInstance(); }

    void keepAndEnable(const QStringList& domains)
    {
        for (const QString& domain : domains) {
            html5->addDomain();
            html5->setDomain(int(html5->domains().size()) - 1, domain);
        }
        html5->setEnabled();
    }
    // The rows of a query on a database given by its full path or one below the home.
    QStringList rows(const QString& path, const QString& query)
    {
        TestDatabase db(QDir(home.path()).filePath(path));
        return db.rows(query);
    }

    HTML5Manager* html5 = nullptr;
    RecordingRunner runner;
    ChromeCleaners chrome{context};
    MozillaCleaners mozilla{context, defaults, chrome};
    SafariCleaners safari{context, &runner};
};

const QString kProfiles = u"Library/Application Support/Firefox/Profiles"_s;
const QString kPlacesRows =
    u"INSERT INTO moz_places (id, url) VALUES (7, 'http://kept/'), (8, 'http://visited/');"
    "INSERT INTO moz_historyvisits VALUES (1, 0, 8, 1, 1, 1);"
    "INSERT INTO moz_bookmarks (id, type, fk, parent, position, title) VALUES (4, 1, 7, 1, 0, 'Kept');"_s;

} // namespace

TEST_F(DatabaseCleanersTest, FirefoxProfilesRebuildPlacesAndWebStorage)
{
    const QString profile = home.file(kProfiles + u"/a1.default"_s);
    makeDatabase(kProfiles + u"/a1.default/places.sqlite"_s, u"places-firefox-3.0.sql"_s, kPlacesRows);
    // The current store, scope-keyed by reversed host names.
    makeDatabase(kProfiles + u"/a1.default/webappsstore.sqlite"_s, u"firefox-webappsstore2.sql"_s,
                 u"INSERT INTO webappsstore2 VALUES ('moc.tpek.:http:80', 'k', 'v', 0, ''),"
                 " ('gro.enog.:http:80', 'k', 'v', 0, '');"_s);
    select(kProfiles, {u"a1.default"_s, u"deleted.profile"_s});
    setAllKeys(true);
    keepAndEnable({u"kept.com"_s});

    EXPECT_EQ(run([&] { mozilla.Firefox30Flock25SeaMonkey20(u"Firefox"_s, u"~/"_s + kProfiles); }),
              (QStringList{u"Firefox 3.0-12.0, Flock 2.5, and SeaMonkey 1.0"_s, profile, u"Shred:"_s,
                           profile + u"/webappsstore.sqlite"_s, u"Shred:"_s, profile + u"/Cache.Trash"_s, u"Shred:"_s,
                           profile + u"/places.sqlite"_s, u"Shred:"_s, profile + u"/formhistory.sqlite"_s, u"Shred:"_s,
                           profile + u"/cookies.sqlite"_s, profile + u"/cookies.txt"_s, u"Shred:"_s,
                           profile + u"/downloads.sqlite"_s, QString(), QString()}));
    EXPECT_EQ(paths, lines(profile, u"/"_s,
                           {u"webappsstore.renamed.sqlite"_s, u"Cache.Trash"_s, u"places.renamed.sqlite"_s,
                            u"formhistory.sqlite"_s, u"cookies.sqlite"_s, u"cookies.txt"_s, u"downloads.sqlite"_s}));
    // The current store's digest is paired with the query on "webappsstore",
    // which it lacks, and the older store's with "webappsstore2": no row is copied.
    EXPECT_EQ(rows(kProfiles + u"/a1.default/webappsstore.sqlite"_s, u"select count(*) from webappsstore2"_s),
              QStringList{u"0"_s});
    const QString older = makeDatabase(kProfiles + u"/b2.default/webappsstore.sqlite"_s, u"firefox-webappsstore.sql"_s,
                                       u"INSERT INTO webappsstore VALUES ('moc.tpek.www', 'k', 'v', 0, '');"_s);
    ASSERT_FALSE(WebStorageScrub(context, context.sqliteShell()).firefox3webappsstoresqlite(older).isNull());
    EXPECT_EQ(rows(kProfiles + u"/b2.default/webappsstore.sqlite"_s, u"select count(*) from webappsstore"_s),
              QStringList{u"0"_s});

    // Everything off: places is not opened, and the downloads skip names its file twice.
    queue.takePaths();
    setAllKeys(false);
    html5->setEnabled();
    const QByteArray places = home.read(kProfiles + u"/a1.default/places.sqlite"_s);
    EXPECT_EQ(run([&] { mozilla.Firefox30Flock25SeaMonkey20(u"Firefox"_s, u"~/"_s + kProfiles); }),
              (QStringList{u"Firefox 3.0-12.0, Flock 2.5, and SeaMonkey 1.0"_s, profile, u"Skip:"_s,
                           profile + u"/Cache.Trash"_s, u"Skip:"_s, profile + u"/places.sqlite"_s, u"Skip:"_s,
                           profile + u"/formhistory.sqlite"_s, u"Skip:"_s, profile + u"/cookies.sqlite"_s,
                           profile + u"/cookies.txt"_s, u"Skip:"_s, profile + u"/downloads.sqlite"_s,
                           profile + u"/downloads.sqlite"_s, QString(), QString()}));
    EXPECT_EQ(paths, QStringList());
    EXPECT_EQ(home.read(kProfiles + u"/a1.default/places.sqlite"_s), places);

    select(kProfiles, {});
    EXPECT_EQ(
        run([&] { mozilla.Firefox30Flock25SeaMonkey20(u"Flock"_s, u"~/"_s + kProfiles); }),
        (QStringList{u"Firefox 3.0-12.0, Flock 2.5, and SeaMonkey 1.0"_s, u"No profiles selected."_s, QString()}));
}

TEST_F(DatabaseCleanersTest, CaminoTwoOneRebuildsPlacesAndTakesTheJournal)
{
    const QString places = home.file(u"Library/Application Support/Camino/places.sqlite"_s);
    makeDatabase(u"Library/Application Support/Camino/places.sqlite"_s, u"places-firefox-3.0.sql"_s, kPlacesRows);
    setKey(PreferenceKey::shredSafariFavicon, true);

    // No closing empty line.
    EXPECT_EQ(run([&] { mozilla.Camino21(); }), (QStringList{u"Camino 2.1"_s, u"Shred:"_s, places}));
    EXPECT_EQ(paths, (QStringList{home.file(u"Library/Application Support/Camino/places.renamed.sqlite"_s),
                                  places + u"-journal"_s}));

    queue.takePaths();
    setKey(PreferenceKey::shredSafariFavicon, false);
    setKey(PreferenceKey::ShredHistory, false);
    EXPECT_EQ(run([&] { mozilla.Camino21(); }),
              (QStringList{u"Camino 2.1"_s, u"Skip:"_s, places, places + u"-journal"_s}));
    EXPECT_EQ(paths, QStringList());

    QFile::remove(places);
    setKey(PreferenceKey::ShredHistory, true);
    EXPECT_EQ(run([&] { mozilla.Camino21(); }),
              (QStringList{u"Camino 2.1"_s, u"Shred:"_s, places, u"Places Database does not exist."_s, QString()}));
    EXPECT_EQ(paths, QStringList{places + u"-journal"_s});
}

TEST_F(DatabaseCleanersTest, SafariFiveErasesTheStorageOfSitesNotKept)
{
    for (const QString& name : {u"http_www.kept.com_0.localstorage"_s, u"http_other.org_0.localstorage"_s,
                                u"http_other.org_0.localstorage-journal"_s, u"safari-resource__0.localstorage"_s})
        home.write(u"Library/Safari/LocalStorage/"_s + name, "storage");
    const QString tracker = u"Library/Safari/LocalStorage/StorageTracker.db"_s;
    makeDatabase(tracker, u"safari-storagetracker.sql"_s,
                 u"INSERT INTO Origins VALUES ('safari-resource_/_0', 'a'), ('http_a.com_0', 'b'),"
                 " ('http_www.kept.com_0', 'c');"_s);
    const QString databases = u"Library/Safari/Databases/Databases.db"_s;
    makeDatabase(databases, u"safari-databases.sql"_s,
                 u"INSERT INTO Origins VALUES ('http_www.kept.com_0', 5242880), ('https_mail.kept.com_0', 1),"
                 " ('http_notkept.com_0', 1), ('http_other.org_0', 1);"
                 "INSERT INTO Databases (origin, name, displayName, estimatedSize, path) VALUES"
                 " ('http_www.kept.com_0', 'notes', 'Notes', 100, '0000000000000001.db'),"
                 " ('http_other.org_0', 'cart', 'Cart', 100, '0000000000000002.db');"_s);
    const QByteArray before = home.read(databases);
    QDir().mkpath(home.file(u"Library/Safari/Databases/http_www.kept.com_0"_s));
    QDir().mkpath(home.file(u"Library/Safari/Databases/http_other.org_0"_s));
    keepAndEnable({u"kept.com"_s});

    EXPECT_EQ(run([&] { safari.Safari50(); }), (QStringList{u"Safari 5.0"_s, u"Shred: ~/Library/Safari/LocalStorage"_s,
                                                            u"Shred: ~/Library/Safari/Databases"_s, QString()}));
    EXPECT_EQ(paths, lines(home.file(u"Library/Safari/"_s), QString(),
                           {u"LocalStorage/renamed.sqlite"_s, u"LocalStorage/http_other.org_0.localstorage"_s,
                            u"Databases/renamed.sqlite"_s, u"Databases/http_other.org_0"_s}));
    EXPECT_EQ(home.read(u"Library/Safari/Databases/renamed.sqlite"_s), before);
    // A kept name keeps every origin that merely contains it; the tracker keeps Safari's own as well.
    EXPECT_EQ(rows(databases, u"select origin from Origins order by origin"_s),
              QStringList({u"http_notkept.com_0"_s, u"http_www.kept.com_0"_s, u"https_mail.kept.com_0"_s}));
    EXPECT_EQ(rows(databases, u"select name from Databases"_s), QStringList{u"notes"_s});
    EXPECT_EQ(rows(tracker, u"select origin from Origins order by origin"_s),
              QStringList({u"http_www.kept.com_0"_s, u"safari-resource_/_0"_s}));

    // A databases index of an unknown schema, left as it is, ends the storage
    // part: only the local storage found before it is queued.
    for (const QString& folder : {u"LocalStorage"_s, u"Databases"_s})
        QFile::remove(home.file(u"Library/Safari/%1/renamed.sqlite"_s.arg(folder))); // as the erase would
    queue.takePaths();
    QFile::remove(home.file(databases));
    makeDatabase(databases, u"safari-storagetracker.sql"_s, u"INSERT INTO Origins VALUES ('http_a.com_0', 'p');"_s);
    const QByteArray unknown = home.read(databases);
    const QByteArray listing = "CREATE TABLE Origins (origin TEXT UNIQUE ON CONFLICT REPLACE, path TEXT);\n";
    EXPECT_EQ(run([&] { safari.Safari50(); }),
              (QStringList{u"Safari 5.0"_s, u"Shred: ~/Library/Safari/LocalStorage"_s,
                           u"Databases Database Schema does not match key:"_s,
                           QString::fromLatin1(QCryptographicHash::hash(listing, QCryptographicHash::Md5).toHex()),
                           QString()}));
    EXPECT_EQ(home.read(databases), unknown);
    EXPECT_EQ(paths.size(), 2);

    queue.takePaths();
    html5->setEnabled();
    EXPECT_EQ(run([&] { safari.Safari50(); }), (QStringList{u"Safari 5.0"_s, u"Skip: ~/Library/Safari/LocalStorage"_s,
                                                            u"Skip: ~/Library/Safari/Databases"_s, QString()}));
    EXPECT_EQ(paths, QStringList());
}

TEST_F(DatabaseCleanersTest, ChromeAndFlockStorageKeepTheirJournalsAndLogTheirFolders)
{
    const QString chromeProfile = u"Library/Application Support/Google/Chrome/Default/"_s;
    home.write(chromeProfile + u"Local Storage/http_gone.net_0.localstorage"_s, "s");
    home.write(chromeProfile + u"Local Storage/http_gone.net_0.localstorage-journal"_s, "j");
    const QString chromeIndex = makeDatabase(
        chromeProfile + u"databases/Databases.db"_s, u"chrome-databases.sql"_s,
        u"INSERT INTO meta VALUES ('version', '1'), ('last_compatible_version', '1');"
        "INSERT INTO Databases (origin, name, description, estimated_size) VALUES"
        " ('http_kept.com_0', 'db', 'd', 1), ('http_gone.org_0', 'db', 'd', 1), ('it''s.kept_0', 'q', 'd', 1);"
        "INSERT INTO Quota VALUES ('http_kept.com_0', 5), ('http_gone.org_0', 5);"_s);
    keepAndEnable({u"kept.com"_s, u"it's"_s});
    setAllKeys(false);

    const QStringList chromeLines = run([&] { chrome.Chrome50(); });
    EXPECT_EQ(chromeLines.mid(chromeLines.size() - 3),
              (QStringList{u"Shred: ~/Library/Application Support/Google/Chrome/Default/Local Storage"_s,
                           u"Shred: ~/Library/Application Support/Google/Chrome/Default/databases"_s, QString()}));
    EXPECT_EQ(paths, (QStringList{home.file(chromeProfile + u"Local Storage/http_gone.net_0.localstorage"_s),
                                  home.file(chromeProfile + u"Local Storage/http_gone.net_0.localstorage-journal"_s),
                                  home.file(chromeProfile + u"databases/renamed.sqlite"_s)}));
    EXPECT_EQ(rows(chromeIndex, u"select * from meta order by key"_s),
              QStringList({u"last_compatible_version|1"_s, u"version|1"_s}));
    EXPECT_EQ(rows(chromeIndex, u"select origin from Databases order by origin"_s),
              QStringList({u"http_kept.com_0"_s, u"it's.kept_0"_s}));
    // Quota rows go to a table of another name, which Chrome's index does not have.
    EXPECT_EQ(rows(chromeIndex, u"select count(*) from Quota"_s), QStringList{u"0"_s});

    queue.takePaths();
    const QString flockProfile = u"Library/Application Support/Flock/User Data/Default/"_s;
    home.write(flockProfile + u"Local Storage/chrome-extension_flock_people_0.localstorage"_s, "people");
    home.write(flockProfile + u"Local Storage/http_gone.net_0.localstorage"_s, "s");
    const QString flockIndex =
        makeDatabase(flockProfile + u"databases/Databases.db"_s, u"chrome-databases.sql"_s,
                     u"INSERT INTO Databases (origin, name, description, estimated_size) VALUES"
                     " ('chrome-extension_flock_people_0', 'people', 'd', 1), ('http_gone.org_0', 'db', 'd', 1);"_s);
    const QStringList flockLines = run([&] { chrome.Flock35UserData(u"User Data"_s); });
    EXPECT_EQ(flockLines.mid(flockLines.size() - 2), (QStringList{u"Shred: Local Storage"_s, u"Shred: databases"_s}));
    EXPECT_EQ(paths.mid(paths.size() - 2),
              (QStringList{home.file(flockProfile + u"Local Storage/http_gone.net_0.localstorage"_s),
                           home.file(flockProfile + u"databases/renamed.sqlite"_s)}));
    EXPECT_EQ(rows(flockIndex, u"select origin from Databases"_s), QStringList{u"chrome-extension_flock_people_0"_s});

    WebStorageScrub scrub(context, context.sqliteShell());
    EXPECT_EQ(run([&] { scrub.chrome5databasessqlite(home.file(u"missing/Databases.db"_s), {}); }),
              QStringList({u"Databases file does not exist."_s, QString()}));
    EXPECT_EQ(run([&] { scrub.firefox3webappsstoresqlite(home.file(u"missing/webappsstore.sqlite"_s)); }),
              QStringList({u"Webappsstore Database does not exist."_s, QString()}));
}

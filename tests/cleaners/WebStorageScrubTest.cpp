#include "cleaners/WebStorageScrub.h"

#include "cleaners/CleanerFixture.h"
#include "settings/HTML5Manager.h"
#include "support/TestDatabase.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

const QString kSafariDatabasesKey = u"e137cf574bd35a232d169ad1eaa39c1a"_s;
const QString kSafariTrackerKey = u"53442bbc056e072a2b8b9fd394e8c0c1"_s;
const QString kChromeKey = u"a20081a471b51e103a4e364fbcffcb1e"_s;

class WebStorageScrubTest : public CleanerFixture {
protected:
    WebStorageScrubTest() { context.models.html5 = manager = &HTML5Manager::createSharedInstance(); }

    void keep(const QStringList& domains)
    {
        for (const QString& domain : domains) {
            manager->addDomain();
            manager->setDomain(int(manager->domains().size()) - 1, domain);
        }
    }

    QStringList column(const QString& path, const QString& query)
    {
        TestDatabase db(path);
        return db.rows(query);
    }

    WebStorageScrub scrub() { return WebStorageScrub(context, context.sqliteShell()); }

    HTML5Manager* manager = nullptr;
};

} // namespace

TEST_F(WebStorageScrubTest, SafariDatabasesKeepsOnlyKeptOriginsAsSubstrings)
{
    const QString path =
        makeDatabase(u"Library/Safari/Databases/Databases.db"_s, u"safari-databases.sql"_s,
                     u"INSERT INTO Origins VALUES ('http_www.kept.com_0', 5242880), ('https_mail.kept.com_0', 1),"
                     " ('http_notkept.com_0', 1), ('http_other.org_0', 1);"
                     "INSERT INTO Databases (origin, name, displayName, estimatedSize, path) VALUES"
                     " ('http_www.kept.com_0', 'notes', 'Notes', 100, '0000000000000001.db'),"
                     " ('http_other.org_0', 'cart', 'Cart', 100, '0000000000000002.db');"_s);
    const QByteArray before = home.read(u"Library/Safari/Databases/Databases.db"_s);
    keep({u"kept.com"_s});

    const QString renamed = scrub().safari5databasessqlite(path, kSafariDatabasesKey);

    EXPECT_EQ(renamed, home.file(u"Library/Safari/Databases/renamed.sqlite"_s));
    EXPECT_EQ(home.read(u"Library/Safari/Databases/renamed.sqlite"_s), before);
    // A kept name keeps every origin that merely contains it.
    EXPECT_EQ(column(path, u"select origin from Origins order by origin"_s),
              QStringList({u"http_notkept.com_0"_s, u"http_www.kept.com_0"_s, u"https_mail.kept.com_0"_s}));
    EXPECT_EQ(column(path, u"select name from Databases"_s), QStringList{u"notes"_s});
    EXPECT_EQ(QDir(home.file(u"Library/Safari/Databases"_s)).entryList(QDir::Files),
              QStringList({u"Databases.db"_s, u"renamed.sqlite"_s}));
}

TEST_F(WebStorageScrubTest, ChromeKeepsMetaAndKeptDatabasesFlockItsPeopleAndSafarisTrackerItsOwnOrigins)
{
    const QString path = makeDatabase(
        u"Library/Application Support/Google/Chrome/Default/databases/Databases.db"_s, u"chrome-databases.sql"_s,
        u"INSERT INTO meta VALUES ('version', '1'), ('last_compatible_version', '1');"
        "INSERT INTO Databases (origin, name, description, estimated_size) VALUES"
        " ('http_kept.org_0', 'db', 'd', 1), ('http_gone.org_0', 'db', 'd', 1), ('it''s.kept_0', 'q', 'd', 1);"
        "INSERT INTO Quota VALUES ('http_kept.org_0', 5), ('http_gone.org_0', 5);"_s);
    keep({u"kept.org"_s, u"it's"_s});

    ASSERT_FALSE(scrub().chrome5databasessqlite(path, kChromeKey).isNull());
    EXPECT_EQ(column(path, u"select * from meta order by key"_s),
              QStringList({u"last_compatible_version|1"_s, u"version|1"_s}));
    EXPECT_EQ(column(path, u"select origin from Databases order by origin"_s),
              QStringList({u"http_kept.org_0"_s, u"it's.kept_0"_s}));
    // Quota rows go to a table of another name, which Chrome's index does not have.
    EXPECT_EQ(column(path, u"select count(*) from Quota"_s), QStringList{u"0"_s});

    const QString flock = makeDatabase(
        u"Library/Application Support/Flock/User Data/Default/databases/Databases.db"_s, u"chrome-databases.sql"_s,
        u"INSERT INTO Databases (origin, name, description, estimated_size) VALUES"
        " ('chrome-extension_flock_people_0', 'people', 'd', 1), ('http_gone.org_0', 'db', 'd', 1);"_s);
    ASSERT_FALSE(scrub().flock35databasessqlite(flock, kChromeKey).isNull());
    EXPECT_EQ(column(flock, u"select origin from Databases"_s), QStringList{u"chrome-extension_flock_people_0"_s});

    const QString tracker =
        makeDatabase(u"Library/Safari/LocalStorage/StorageTracker.db"_s, u"safari-storagetracker.sql"_s,
                     u"INSERT INTO Origins VALUES ('safari-resource_/_0', 'a'), ('http_a.com_0', 'b'),"
                     " ('https_b.net_0', 'c');"_s);
    ASSERT_FALSE(scrub().safari5storagetrackersqlite(tracker, kSafariTrackerKey).isNull());
    EXPECT_EQ(column(tracker, u"select origin from Origins"_s), QStringList{u"safari-resource_/_0"_s});
}

TEST_F(WebStorageScrubTest, FirefoxStoresAreQueriedByTheirDigestsPairing)
{
    // The current store, scope-keyed by reversed host names.
    const QString store = makeDatabase(
        u"Library/Application Support/Firefox/Profiles/a.default/webappsstore.sqlite"_s, u"firefox-webappsstore2.sql"_s,
        u"INSERT INTO webappsstore2 VALUES ('moc.tpek.:http:80', 'k', 'v', 0, ''), ('gro.enog.:http:80', 'k', 'v', 0, '');"_s);
    keep({u"kept.com"_s});
    EXPECT_EQ(HTML5Manager::sharedInstance()->getDomainTableData(true), QStringList{u"moc.tpek"_s});

    QString renamed;
    const QStringList lines = run([&] { renamed = scrub().firefox3webappsstoresqlite(store); });
    EXPECT_EQ(renamed, QFileInfo(store).absolutePath() + u"/webappsstore.renamed.sqlite"_s);
    EXPECT_EQ(lines, QStringList());
    // This digest is paired with the query on "webappsstore", which this store
    // lacks: no row is copied.
    EXPECT_EQ(column(store, u"select count(*) from webappsstore2"_s), QStringList{u"0"_s});

    // The older, domain-keyed store is queried on "webappsstore2".
    const QString older = makeDatabase(u"Library/Application Support/Firefox/Profiles/b.default/webappsstore.sqlite"_s,
                                       u"firefox-webappsstore.sql"_s,
                                       u"INSERT INTO webappsstore VALUES ('moc.tpek.www', 'k', 'v', 0, '');"_s);
    ASSERT_FALSE(scrub().firefox3webappsstoresqlite(older).isNull());
    EXPECT_EQ(column(older, u"select count(*) from webappsstore"_s), QStringList{u"0"_s});
}

TEST_F(WebStorageScrubTest, UnknownSchemasAndMissingFilesAreLeftAlone)
{
    const QString path = makeDatabase(u"Library/Safari/Databases/Databases.db"_s, u"safari-storagetracker.sql"_s,
                                      u"INSERT INTO Origins VALUES ('http_a.com_0', 'p');"_s);
    const QByteArray before = home.read(u"Library/Safari/Databases/Databases.db"_s);
    const QByteArray listing = "CREATE TABLE Origins (origin TEXT UNIQUE ON CONFLICT REPLACE, path TEXT);\n";

    QString renamed;
    QStringList lines = run([&] { renamed = scrub().safari5databasessqlite(path, kSafariDatabasesKey); });
    EXPECT_TRUE(renamed.isNull());
    EXPECT_EQ(lines,
              QStringList({u"Databases Database Schema does not match key:"_s,
                           QString::fromLatin1(QCryptographicHash::hash(listing, QCryptographicHash::Md5).toHex())}));
    EXPECT_EQ(home.read(u"Library/Safari/Databases/Databases.db"_s), before);

    lines = run([&] { scrub().chrome5databasessqlite(home.file(u"missing/Databases.db"_s), kChromeKey); });
    EXPECT_EQ(lines, QStringList({u"Databases file does not exist."_s, QString()}));
    lines = run([&] { scrub().firefox3webappsstoresqlite(home.file(u"missing/webappsstore.sqlite"_s)); });
    EXPECT_EQ(lines, QStringList({u"Webappsstore Database does not exist."_s, QString()}));
}

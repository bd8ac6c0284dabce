#include "cleaners/PlacesScrub.h"

#include "cleaners/CleanerFixture.h"
#include "support/TestDatabase.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// Icon data that would not survive as text: a zero byte, quotes, high bytes.
const QByteArray kIconA = QByteArray::fromHex("89504e470d0a1a0a0000002749270027ff00fe");
const QByteArray kIconB = QByteArray::fromHex("00112233445566778899aabbccddeeff27");

const QStringList kWorkFiles{u"places.vantlex.sqlite"_s, u"places.vantlex.sqlite-journal"_s,
                             u"places.vantlex.sql.sqlite"_s, u"places.vantlex.src.sqlite"_s,
                             u"places.vantlex.dst.sqlite"_s};

// What a rebuild without history keeps of makePlaces(): the places the
// bookmarks and annotations need.
const QStringList kPlacesWithoutHistory{u"1"_s, u"2"_s, u"3"_s, u"5"_s, u"6"_s, u"7"_s};

mode_t modeOf(const QString& path)
{
    struct stat status {};
    ::stat(QFile::encodeName(path).constData(), &status);
    return status.st_mode & 07777;
}

QString md5(const QByteArray& text)
{
    return QString::fromLatin1(QCryptographicHash::hash(text, QCryptographicHash::Md5).toHex());
}

class PlacesScrubTest : public CleanerFixture {
protected:
    PlacesScrubTest()
        : profile(home.file(u"Library/Application Support/Firefox/Profiles/x1y2.default"_s))
        , places(profile + u"/places.sqlite"_s)
        , renamedPlaces(profile + u"/places.renamed.sqlite"_s)
    {
        QDir().mkpath(profile);
        // Every case starts from the full database, its history to be dropped.
        makePlaces();
        setKey(PreferenceKey::ShredHistory, true);
    }

    // A Firefox 3.0 places database: ten places, of which 5 and 6 are bookmarked,
    // 6 and 7 annotated; visits to 4-10, typed input for 8, two icons used by
    // places 5 and 9 and one used by none.
    void makePlaces()
    {
        TestDatabase db(places);
        db.exec(QString::fromUtf8(testData(u"places-firefox-3.0.sql"_s)));
        for (int id = 1; id <= 10; ++id) {
            const int favicon = id == 5 ? 1 : id == 9 ? 2 : 0;
            db.exec(
                u"INSERT INTO moz_places (id, url, title, rev_host, visit_count, hidden, typed, favicon_id, frecency) "
                "VALUES (%1, 'http://site%1.example/', 'Site ''%1''', 'elpmaxe.%1etis.', %2, 0, 0, %3, 100);"_s.arg(id)
                    .arg(id >= 4 ? 1 : 0)
                    .arg(favicon ? QString::number(favicon) : u"NULL"_s));
        }
        db.execWithBlob(
            u"INSERT INTO moz_favicons VALUES (1, 'http://site5.example/favicon.ico', ?, 'image/png', 0);"_s, kIconA);
        db.execWithBlob(
            u"INSERT INTO moz_favicons VALUES (2, 'http://site9.example/favicon.ico', ?, 'image/x-icon', 0);"_s,
            kIconB);
        db.execWithBlob(u"INSERT INTO moz_favicons VALUES (3, 'http://gone.example/favicon.ico', ?, 'image/png', 0);"_s,
                        kIconB);
        for (int id = 4; id <= 10; ++id)
            db.exec(u"INSERT INTO moz_historyvisits VALUES (%1, 0, %1, 1200000000%1, 1, 1);"_s.arg(id));
        db.exec(
            u"INSERT INTO moz_inputhistory VALUES (8, 'sit', 3);"
            "INSERT INTO moz_bookmarks_roots VALUES ('places', 1), ('menu', 2), ('toolbar', 3);"
            "INSERT INTO moz_bookmarks (id, type, fk, parent, position, title, keyword_id, dateAdded) VALUES"
            " (1, 2, NULL, 0, 0, '', NULL, 1), (2, 2, NULL, 1, 0, 'Menu', NULL, 1), (3, 2, NULL, 1, 1, 'Toolbar', "
            "NULL, 1),"
            " (4, 1, 5, 2, 0, 'Five', 1, 2), (5, 1, 6, 3, 0, 'Six', NULL, 3);"
            "INSERT INTO moz_keywords VALUES (1, 'five');"
            "INSERT INTO moz_anno_attributes VALUES (1, 'bookmarkProperties/description'), (2, 'livemark/feedURI');"
            "INSERT INTO moz_annos (id, place_id, anno_attribute_id, content) VALUES (1, 6, 1, 'six'), (2, 7, 2, "
            "'seven');"
            "INSERT INTO moz_items_annos (id, item_id, anno_attribute_id, content) VALUES (1, 4, 1, 'about five');"_s);
    }

    QStringList table(const QString& path, const QString& query)
    {
        TestDatabase db(path);
        return db.rows(query);
    }

    QStringList placeIds() { return table(places, u"select id from moz_places order by id"_s); }

    QString scrub(const QString& file = QString())
    {
        return PlacesScrub(context, context.sqliteShell()).firefox3sqlite(file.isNull() ? places : file);
    }

    // The work files a rebuild makes beside the database.
    QStringList leftOvers() const { return QDir(profile).entryList({u"places.vantlex*"_s}, QDir::Files); }

    const QString profile;
    const QString places;
    // Where a rebuild leaves the old database for the erase.
    const QString renamedPlaces;
};

} // namespace

TEST_F(PlacesScrubTest, KeepsBookmarksAndDropsOnlyTheHistoryAndIconsAskedFor)
{
    const auto snapshot = [&] {
        QMap<QString, QStringList> rows;
        for (const QString& name :
             table(places, u"select name from sqlite_master where type = 'table' and name like 'moz%'"_s))
            rows.insert(name, table(places, u"select * from %1 order by 1, 2"_s.arg(name)));
        return rows;
    };
    for (const auto& [history, icons] : {std::pair{true, true}, {false, true}, {true, false}}) {
        SCOPED_TRACE(testing::Message() << "history " << history << ", icons " << icons);
        QFile::remove(places);
        QFile::remove(renamedPlaces);
        makePlaces();
        setKey(PreferenceKey::ShredHistory, history);
        setKey(PreferenceKey::shredSafariFavicon, icons);
        const QByteArray before = home.read(places);
        QMap<QString, QStringList> expected = snapshot();
        if (history) {
            expected[u"moz_places"_s].removeIf(
                [](const QString& row) { return !kPlacesWithoutHistory.contains(row.section(u'|', 0, 0)); });
            expected[u"moz_historyvisits"_s].clear();
            expected[u"moz_inputhistory"_s].clear();
        }
        // Only the icons some place of the old database used, with their bytes.
        if (icons)
            expected[u"moz_favicons"_s] = expected[u"moz_favicons"_s].mid(0, 2);

        const QString renamed = scrub();

        // The old contents wait, unchanged, under the returned name for the erase.
        EXPECT_EQ(renamed, renamedPlaces);
        EXPECT_EQ(home.read(renamed), before);
        EXPECT_EQ(leftOvers(), QStringList());
        EXPECT_EQ(snapshot(), expected);
        EXPECT_EQ(table(places, u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});
    }
}

TEST_F(PlacesScrubTest, FilesThatAreNoDatabaseOrOfAnotherSchemaStayAsTheyWere)
{
    const QList<QByteArray> contents{QByteArray(), QByteArray("\x01\x02garbage\xff\xfe", 12),
                                     home.read(places).left(3000)};
    for (const QByteArray& bytes : contents) {
        home.write(places, bytes);
        EXPECT_EQ(run([&] { EXPECT_TRUE(scrub().isNull()); }).value(0),
                  u"Places Database Schema does not match key:"_s);
        EXPECT_EQ(home.read(places), bytes);
    }

    QFile::remove(places);
    ASSERT_TRUE(QDir().mkdir(places));
    EXPECT_TRUE(scrub().isNull());
    EXPECT_TRUE(QFileInfo(places).isDir());

    QDir().rmdir(places);

    // A database of another schema: both digests of its listing are said.
    TestDatabase(places).exec(
        u"CREATE TABLE moz_places (id INTEGER PRIMARY KEY); INSERT INTO moz_places VALUES (1);"_s);
    const QByteArray before = home.read(places);
    const QByteArray listing = "CREATE TABLE moz_places (id INTEGER PRIMARY KEY);\n";
    EXPECT_EQ(run([&] { EXPECT_TRUE(scrub().isNull()); }),
              QStringList({u"Places Database Schema does not match key:"_s, md5(listing),
                           md5("CREATETABLEmoz_places(idINTEGERPRIMARYKEY);")}));
    EXPECT_EQ(home.read(places), before);
    EXPECT_EQ(leftOvers(), QStringList());
}

TEST_F(PlacesScrubTest, WhatAnInterruptedRunLeftIsRemovedUnlessDryAndNeverPlayedIntoTheRebuild)
{
    // Every work file but the work database and its journal, which come below.
    for (const QString& name : kWorkFiles.mid(2))
        home.write(profile + u'/' + name, "left over");
    // Killed while a shell was changing rows of its work database: the rollback
    // journal holds the pages as they were, here full of history.
    const QString work = profile + u'/' + kWorkFiles[0];
    const QString interrupted = profile + u"/interrupted.sqlite"_s;
    ASSERT_TRUE(QFile::copy(places, interrupted));
    {
        TestDatabase db(interrupted);
        db.exec(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<2000)"
                " INSERT INTO moz_places (url) SELECT 'http://erased.example/' || i FROM n;"_s);
        db.exec(u"PRAGMA cache_size=1; BEGIN; DELETE FROM moz_places WHERE id > 10;"_s);
        ASSERT_TRUE(QFile::copy(interrupted, work));
        ASSERT_TRUE(QFile::copy(interrupted + u"-journal"_s, work + u"-journal"_s));
    }
    QFile::remove(interrupted);
    // Cut off inside the swap: the live database's second name must go without
    // touching the live file's permissions.
    ::chmod(QFile::encodeName(places).constData(), 0600);
    ASSERT_EQ(::link(QFile::encodeName(places).constData(), QFile::encodeName(renamedPlaces).constData()), 0);
    // A dry run changes none of them.
    const QStringList before = QDir(profile).entryList(QDir::Files);
    const QByteArray bytes = home.read(places);
    EraseQueue dryQueue(preferences, true);
    CleanerContext dry(dryQueue, isRunning, customStatus, preferences, true);
    EXPECT_EQ(PlacesScrub(dry, dry.sqliteShell()).firefox3sqlite(places), renamedPlaces);
    EXPECT_EQ(QDir(profile).entryList(QDir::Files), before);
    EXPECT_EQ(home.read(places), bytes);

    QString renamed;
    EXPECT_EQ(run([&] { renamed = scrub(); }), QStringList());

    EXPECT_EQ(renamed, renamedPlaces);
    EXPECT_EQ(leftOvers(), QStringList());
    EXPECT_EQ(placeIds(), kPlacesWithoutHistory);
    EXPECT_EQ(table(places, u"select count(*) from moz_bookmarks"_s), QStringList{u"5"_s});
    // Not even in free pages: the new database starts from the empty template.
    EXPECT_FALSE(home.read(places).contains("erased.example"));
    EXPECT_EQ(modeOf(places), mode_t(0600));
    EXPECT_EQ(modeOf(renamed), mode_t(0600));
}

TEST_F(PlacesScrubTest, ADatabaseAnotherProgramWritesIsLeftAsItWasAndItsCommitKept)
{
    const QByteArray before = home.read(places);
    const QString inUse = u"Places Database is in use by another program - not rewritten."_s;
    {
        TestDatabase writer(places);
        writer.exec(u"BEGIN IMMEDIATE; INSERT INTO moz_bookmarks (id, type, fk, parent, position, title) "
                    "VALUES (9, 1, 7, 3, 1, 'Written meanwhile');"_s);
        const QStringList lines = run([&] { EXPECT_TRUE(scrub().isNull()); });
        EXPECT_TRUE(lines.contains(inUse)) << qPrintable(lines.join(u'\n'));
        EXPECT_EQ(home.read(places), before);
        writer.exec(u"COMMIT;"_s);
    }
    EXPECT_EQ(table(places, u"select title from moz_bookmarks where id = 9"_s), QStringList{u"Written meanwhile"_s});
    EXPECT_EQ(leftOvers(), QStringList());

    // What a program that stopped mid-write left in its journal is not dropped either.
    home.write(places + u"-journal"_s, QByteArray(512, 'j'));
    const QByteArray committed = home.read(places);
    EXPECT_TRUE(run([&] { scrub(); }).contains(inUse));
    EXPECT_EQ(home.read(places), committed);
}

TEST_F(PlacesScrubTest, TheOldDatabaseAnInterruptedRunLeftIsErasedNotUnlinked)
{
    // Killed after the swap, before the erase: the old database with all of the
    // history waits under the work name.
    home.write(renamedPlaces, "the old database, every visit in it");

    EXPECT_EQ(scrub(), renamedPlaces);

    // Set aside beside it and queued for the erase, so that the new old copy can take its name.
    ASSERT_EQ(paths.size(), 1);
    EXPECT_TRUE(QFileInfo(paths[0]).fileName().startsWith(u"Vantle X Items ("_s)) << qPrintable(paths[0]);
    EXPECT_EQ(QFileInfo(paths[0]).absolutePath(), profile);
    EXPECT_EQ(home.read(paths[0] + u"/places.renamed.sqlite"_s), "the old database, every visit in it");
    EXPECT_EQ(table(renamedPlaces, u"select count(*) from moz_historyvisits"_s), QStringList{u"7"_s});
}

TEST_F(PlacesScrubTest, FolderNamesWithSpacesQuotesAndAccentsWorkOrAreRefused)
{
    const QString accented = home.file(u"Library/Application Support/Firefox/Profiles/it's a \u00fc profile"_s);
    ASSERT_TRUE(QFile::rename(profile, accented));
    EXPECT_EQ(scrub(accented + u"/places.sqlite"_s), accented + u"/places.renamed.sqlite"_s);
    EXPECT_EQ(table(accented + u"/places.sqlite"_s, u"select id from moz_places order by id"_s), kPlacesWithoutHistory);

    // The shell would end a quoted file name at the quote and write elsewhere.
    const QString quotedFolder = home.file(u"Library/Application Support/Firefox/Profiles/a\"b"_s);
    ASSERT_TRUE(QFile::rename(accented, quotedFolder));
    QFile::remove(quotedFolder + u"/places.renamed.sqlite"_s);
    const QByteArray before = home.read(quotedFolder + u"/places.sqlite"_s);
    QString renamed;
    const QStringList lines = run([&] { renamed = scrub(quotedFolder + u"/places.sqlite"_s); });
    EXPECT_TRUE(renamed.isNull());
    EXPECT_EQ(lines,
              QStringList({u"Places Database folder name holds a quote or backslash - not rewritten."_s, QString()}));
    EXPECT_EQ(home.read(quotedFolder + u"/places.sqlite"_s), before);
    EXPECT_EQ(QDir(quotedFolder).entryList(QDir::Files), QStringList{u"places.sqlite"_s});
}

TEST_F(PlacesScrubTest, TheUsersShellSettingsChangeNothingAndAMissingShellLeavesTheDatabase)
{
    // A shell that loads settings like a user's ~/.sqliterc before every command.
    home.write(u"rc"_s, ".headers on\n.mode column\n.timer on\n.changes on\n.nullvalue (null)\n");
    home.write(u"sqlite3"_s, "#!/bin/sh\nexec '" + QFile::encodeName(SqliteShell::resourcePath()) + "' -init '" +
                                 QFile::encodeName(home.file(u"rc"_s)) + "' \"$@\"\n");
    ::chmod(QFile::encodeName(home.file(u"sqlite3"_s)).constData(), 0755);
    context.setSqliteShellForTesting(home.file(u"sqlite3"_s));

    ASSERT_FALSE(scrub().isNull());
    EXPECT_EQ(placeIds(), kPlacesWithoutHistory);
    EXPECT_EQ(table(places, u"select count(*) from moz_bookmarks"_s), QStringList{u"5"_s});

    // A missing shell leaves the database as it is.
    const QByteArray before = home.read(places);
    context.setSqliteShellForTesting(home.file(u"no-such-shell"_s));
    EXPECT_EQ(run([&] { EXPECT_TRUE(scrub().isNull()); }), QStringList({u"SQLite shell does not exist."_s, QString()}));
    EXPECT_EQ(home.read(places), before);
}

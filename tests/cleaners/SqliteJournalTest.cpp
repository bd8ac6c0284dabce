// A store in rollback-journal mode, as Chromium keeps its own: a journal that
// a committed transaction left in place is no sign of use, but it holds pages
// of the old database and goes with it.

#include "cleaners/SqliteRewrite.h"

#include "cleaners/CleanerFixture.h"

using namespace Qt::StringLiterals;

TEST_F(CleanerFixture, APersistedJournalGoesWithTheOldStoreAndAHotOneLeavesTheStoreAlone)
{
    const QString store = home.file(u"Store"_s);
    TestDatabase(store).exec(u"CREATE TABLE t (v TEXT); INSERT INTO t VALUES ('kept'), ('gone-row');"_s);
    SqliteRecipe recipe;
    recipe.deletes = {{u"DELETE FROM t WHERE v = 'gone-row'"_s}};
    recipe.keptQueries = {u"SELECT * FROM t WHERE v = 'kept'"_s};

    // A hot journal's header begins with its magic number; the store is another program's.
    home.write(u"Store-journal"_s, QByteArray("\xd9\xd5\x05\xf9", 4) + QByteArray(508, '\0'));
    const QByteArray before = home.read(u"Store"_s);
    EXPECT_EQ(SqliteRewrite::run(context, store, recipe).status, SqliteRewrite::Status::InUse);
    EXPECT_EQ(home.read(u"Store"_s), before);

    // A persisted one: the header zeroed, old pages after it.
    home.write(u"Store-journal"_s, QByteArray(512, '\0') + "gone-row");
    EXPECT_EQ(SqliteRewrite::run(context, store, recipe).status, SqliteRewrite::Status::Rewritten);
    EXPECT_FALSE(QFileInfo::exists(store + u"-journal"_s));
    EXPECT_TRUE(paths.contains(store + u".vantlex-old-journal"_s));
    EXPECT_EQ(TestDatabase(store).rows(u"SELECT v FROM t"_s), QStringList{u"kept"_s});
}

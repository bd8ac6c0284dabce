#include "cleaners/DatabaseFiles.h"

#include "support/TempHome.h"

#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// When the old database cannot get a second name (here because a stale file
// holds that name; on volumes without hard links, always), it is moved aside.
TEST(DatabaseFilesSwap, WithoutASecondNameTheOldFileMovesAsideAndComesBackOnFailure)
{
    TempHome home;
    home.write(u"p/places.sqlite"_s, "old");
    home.write(u"p/places.vantlex.sqlite"_s, "rebuilt");
    home.write(u"p/places.renamed.sqlite"_s, "stale");
    const QString live = home.file(u"p/places.sqlite"_s);
    const QString work = home.file(u"p/places.vantlex.sqlite"_s);
    const QString renamed = home.file(u"p/places.renamed.sqlite"_s);

    ASSERT_TRUE(DatabaseFiles::swap(live, work, renamed).ok());
    EXPECT_EQ(home.read(u"p/places.sqlite"_s), "rebuilt");
    EXPECT_EQ(home.read(u"p/places.renamed.sqlite"_s), "old");
    EXPECT_FALSE(QFileInfo::exists(work));

    // The name aside is taken by a folder nothing can replace: everything stays.
    home.write(u"q/places.sqlite"_s, "old");
    home.write(u"q/places.vantlex.sqlite"_s, "rebuilt");
    home.write(u"q/places.renamed.sqlite/occupied"_s, "x");
    const Error error = DatabaseFiles::swap(home.file(u"q/places.sqlite"_s), home.file(u"q/places.vantlex.sqlite"_s),
                                            home.file(u"q/places.renamed.sqlite"_s));
    EXPECT_EQ(error.code, Error::Code::KeepOldFailed);
    EXPECT_EQ(error.systemError, EISDIR);
    EXPECT_EQ(home.read(u"q/places.sqlite"_s), "old");
    EXPECT_EQ(home.read(u"q/places.vantlex.sqlite"_s), "rebuilt");
}

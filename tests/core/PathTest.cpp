#include "core/Path.h"

#include "support/QtPrinters.h"
#include "support/TempHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Path, JoinsSplitsAndJudgesByName)
{
    const TempHome home;
    const Path folder(u"/a/b"_s);
    EXPECT_EQ((folder / u"c"_s).toString(), u"/a/b/c"_s);
    EXPECT_EQ((Path(u"/a/b/"_s) / u"c"_s).toString(), u"/a/b/c"_s);
    EXPECT_EQ((Path() / QByteArray("c")).native(), QByteArray("c"));
    EXPECT_EQ(Path(u"/a/b/c/"_s).parent(), folder);
    EXPECT_EQ(Path(u"/a//b//c"_s).parent().toString(), u"/a//b"_s);
    EXPECT_EQ(Path(u"/a"_s).parent().toString(), u"/"_s);
    EXPECT_EQ(Path(u"c"_s).parent().toString(), u"."_s);
    EXPECT_EQ(Path(u"/a/b/c/"_s).fileName(), u"c"_s);
    EXPECT_EQ(Path(u"/"_s).fileName(), QString());
    // Names in no encoding at all come through unchanged.
    const QByteArray latin1("/a/caf\xe9");
    EXPECT_EQ(Path::fromNative(latin1).parent().native() + '/' + Path::fromNative(latin1).nativeFileName(), latin1);

    // The log's form of a path and back, in the home and beside it.
    for (const QString& written : {u"~"_s, u"~/Library/Caches//Mozilla"_s, u"~/x/"_s})
        EXPECT_EQ(Path::fromTilde(written).tilde(), written);
    EXPECT_EQ(Path::fromTilde(u"~/x"_s).toString(), home.path() + u"/x"_s);
    EXPECT_EQ(Path::fromTilde(u"~other/x"_s).toString(), u"~other/x"_s);
    EXPECT_EQ(Path(home.path() + u"X/y"_s).tilde(), home.path() + u"X/y"_s);

    EXPECT_TRUE(Path(u"/a/b/c"_s).isInside(folder));
    EXPECT_TRUE(Path(u"/a/b//./c/"_s).isInside(Path(u"/a/b/"_s)));
    EXPECT_FALSE(Path(u"/a/bc"_s).isInside(folder));
    EXPECT_FALSE(Path(u"/a/b/"_s).isInside(folder));
    EXPECT_FALSE(Path(u"/a/b/../c"_s).isInside(folder));
    EXPECT_FALSE(Path(u"/a/b/link/../../x"_s).isInside(folder));
    EXPECT_FALSE(Path(u"a/b/c"_s).isInside(folder));
    EXPECT_FALSE(Path(u"/a/b/c\u0000d"_s).isInside(folder));

    for (const QString& name : {u"a1.default"_s, u"~"_s, u"..."_s, u"key3 \u00e9.db"_s})
        EXPECT_TRUE(Path::isName(name)) << qPrintable(name);
    for (const QString& name : {u""_s, u"."_s, u".."_s, u"/etc"_s, u"a/b"_s, u"a/"_s, u"../x"_s, u"a\u0000b"_s})
        EXPECT_FALSE(Path::isName(name)) << qPrintable(name);
}

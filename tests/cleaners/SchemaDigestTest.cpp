#include "cleaners/SchemaDigest.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Safari's Databases.db as WebKit creates it, in the legacy listing.
const QString kSafariDatabases =
    u"CREATE TABLE Databases (guid INTEGER PRIMARY KEY AUTOINCREMENT, origin TEXT, "
    u"name TEXT, displayName TEXT, estimatedSize INTEGER, path TEXT);\n"
    u"CREATE TABLE Origins (origin TEXT UNIQUE ON CONFLICT REPLACE, quota INTEGER NOT NULL "
    u"ON CONFLICT FAIL);\n"_s;

} // namespace

TEST(SchemaDigest, TheRawDigestIsTheListingsMd5AndTheCompactFormDropsEveryWhiteSpaceCharacter)
{
    EXPECT_EQ(SchemaDigest::raw(kSafariDatabases), u"e137cf574bd35a232d169ad1eaa39c1a"_s);
    EXPECT_EQ(SchemaDigest::md5Hex(QString()), u"d41d8cd98f00b204e9800998ecf8427e"_s);

    EXPECT_EQ(SchemaDigest::removeWhiteSpace(u"  CREATE TABLE\tt\r\n(x\vTEXT,\fy)\n"_s), u"CREATETABLEt(xTEXT,y)"_s);
    // Beyond ASCII too: a schema that differs only in such characters compacts alike.
    const QString unicodeSpaced = u"CREATE\u00a0TABLE\u2028t\u3000(x\u0085TEXT\u2029)\u2003"_s;
    EXPECT_EQ(SchemaDigest::removeWhiteSpace(unicodeSpaced), u"CREATETABLEt(xTEXT)"_s);
    EXPECT_EQ(SchemaDigest::compact(unicodeSpaced), SchemaDigest::compact(u"CREATE TABLE t (x TEXT)"_s));
    // Everything else stays, in its order.
    EXPECT_EQ(SchemaDigest::removeWhiteSpace(u"a\u200bb_é"_s), u"a\u200bb_é"_s);
    EXPECT_TRUE(SchemaDigest::removeWhiteSpace(u" \n\t "_s).isEmpty());
}

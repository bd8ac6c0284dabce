#include "settings/ApplicationList.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ApplicationList, CoupledApplicationsChangeTogetherAndNamesMatchIgnoringCase)
{
    QStringList list = ApplicationList::allNames();
    const qsizetype all = list.size();
    ApplicationList::toggle(list, u"Safari"_s);
    EXPECT_FALSE(list.contains(u"Safari"_s));
    EXPECT_FALSE(list.contains(u"Shiira"_s));
    EXPECT_EQ(list.size(), all - 2);

    ApplicationList::toggle(list, u"Shiira"_s);
    EXPECT_EQ(list.mid(all - 2), (QStringList{u"Shiira"_s, u"Safari"_s}));

    ApplicationList::toggle(list, u"Chrome"_s); // no partner
    EXPECT_FALSE(list.contains(u"Chrome"_s));
    EXPECT_EQ(list.size(), all - 1);

    // Adding beside a present partner duplicates it; removal takes every copy.
    list = {u"Mozilla"_s};
    ApplicationList::toggle(list, u"Netscape"_s);
    EXPECT_EQ(list, (QStringList{u"Mozilla"_s, u"Netscape"_s, u"Mozilla"_s}));

    ApplicationList::toggle(list, u"Mozilla"_s);
    EXPECT_TRUE(list.isEmpty());

    EXPECT_EQ(ApplicationList::canonicalName(u"seamonkey 2"_s), u"SeaMonkey 2"_s);
    EXPECT_EQ(ApplicationList::canonicalName(u"OMNIWEB"_s), u"Omniweb"_s);
    EXPECT_TRUE(ApplicationList::canonicalName(u"SeaMonkey"_s).isNull());
}

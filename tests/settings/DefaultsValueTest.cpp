#include "settings/DefaultsValue.h"

#include <QVariantMap>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

TEST(DefaultsValue, StringsReadAsBooleansByTheirLeadingTextNumbersAndOtherTypesAsTheirValue)
{
    for (const QString& yes : {u"YES"_s, u"yes"_s, u"true"_s, u"T"_s, u"  y"_s, u"1"_s, u"007"_s, u"-3"_s, u"+9x"_s})
        EXPECT_TRUE(DefaultsValue::toBool(yes)) << qPrintable(yes);
    for (const QString& no : {u"NO"_s, u"false"_s, u""_s, u"0"_s, u"000"_s, u"on"_s, u"x1"_s, u"-"_s, u" "_s})
        EXPECT_FALSE(DefaultsValue::toBool(no)) << qPrintable(no);

    EXPECT_TRUE(DefaultsValue::toBool(qint64(2)));
    EXPECT_FALSE(DefaultsValue::toBool(qint64(0)));
    EXPECT_TRUE(DefaultsValue::toBool(0.5));
    EXPECT_FALSE(DefaultsValue::toBool(QVariantMap{{u"a"_s, true}}));
    EXPECT_FALSE(DefaultsValue::toBool(QByteArray("YES")));
    EXPECT_FALSE(DefaultsValue::toBool(QVariant()));

    EXPECT_EQ(DefaultsValue::toInteger(true), 1);
    EXPECT_EQ(DefaultsValue::toInteger(3.9), 3);
    EXPECT_EQ(DefaultsValue::toInteger(-3.9), -3);
    EXPECT_EQ(DefaultsValue::toInteger(u" 12abc"_s), 12);
    EXPECT_EQ(DefaultsValue::toInteger(u"-4"_s), -4);
    EXPECT_EQ(DefaultsValue::toInteger(u"abc"_s), 0);
    EXPECT_EQ(DefaultsValue::toInteger(u"99999999999999999999999"_s), std::numeric_limits<qint64>::max());
    EXPECT_EQ(DefaultsValue::toInteger(u"-99999999999999999999999"_s), std::numeric_limits<qint64>::min());
    EXPECT_EQ(DefaultsValue::toInteger(1e300), std::numeric_limits<qint64>::max());
    EXPECT_EQ(DefaultsValue::toInteger(QVariantList{qint64(5)}), 0);
}

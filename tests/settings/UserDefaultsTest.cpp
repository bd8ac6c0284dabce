#include "settings/UserDefaults.h"

#include "core/PropertyList.h"
#include "support/TempHome.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class UserDefaultsTest : public ::testing::Test {
protected:
    TempHome home;
};

QVariantMap fileContents(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return PropertyList::parse(file.readAll()).value_or(QVariant()).toMap();
}

} // namespace

TEST_F(UserDefaultsTest, LivesInTheConfigurationFolderNamedAfterTheDomain)
{
    EXPECT_EQ(UserDefaults::defaultFilePath(), home.file(u".config/com.orvick.vantle.plist"_s));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.file(u"elsewhere"_s)));
    EXPECT_EQ(UserDefaults::defaultFilePath(), home.file(u"elsewhere/com.orvick.vantle.plist"_s));
    qputenv("XDG_CONFIG_HOME", "relative/is/ignored");
    EXPECT_EQ(UserDefaults::defaultFilePath(), home.file(u".config/com.orvick.vantle.plist"_s));
    qunsetenv("XDG_CONFIG_HOME");
}

TEST_F(UserDefaultsTest, EveryTypeReadsBackIdenticallyAfterARestartAndAsOtherTypes)
{
    const QString path = UserDefaults::defaultFilePath();
    const QByteArray archived("\x04\x0bstreamtyped\x00\xff", 15);
    // Every value type a property list holds, nested, under keys of any text.
    const QVariantMap dictionary{
        {u"/Users/me/Library/Caches/app"_s, QVariantMap{{u"keep"_s, true}}},
        {u"yes"_s, true},
        {u"no"_s, false},
        {u"negative"_s, qint64(-7)},
        {u"big"_s, qint64(1) << 40},
        {u"ratio"_s, 0.25},
        {u"text"_s, u"Caf\u00e9 <&> \"quoted\""_s},
        {u"empty text"_s, QString()},
        {u"bytes"_s, QByteArray("\x00\x01\xff binary", 10)},
        {u"when"_s, QDateTime(QDate(2010, 5, 4), QTime(3, 2, 1), Qt::UTC)},
        {u"list"_s, QVariantList{u"a"_s, qint64(1), QVariantList{}}},
        {u"dict"_s, QVariantMap{{u"inner"_s, QVariantMap{{u"deep"_s, true}}}, {u"none"_s, QVariantMap{}}}},
    };
    {
        UserDefaults defaults(path);
        defaults.setBool(true, u"Flag"_s);
        defaults.setInteger(16, u"Count"_s);
        defaults.setObject(u"Caf\u00e9 \"x\""_s, u"Text"_s);
        defaults.setObject(QStringList{u"Safari"_s, u"Mozilla"_s, u"Mozilla"_s}, u"List"_s);
        defaults.setObject(QStringList{u"only one"_s}, u"Single"_s);
        defaults.setObject(QStringList{}, u"Empty"_s);
        defaults.setObject(dictionary, u"Dict"_s);
        defaults.setObject(archived, u"Data"_s);
        defaults.setBool(true, u"Removed"_s);
        defaults.removeObjectForKey(u"Removed"_s);
        ASSERT_TRUE(defaults.synchronize());
    }

    // What a new process sees: the file itself, every value of its own type.
    const QVariantList list{u"Safari"_s, u"Mozilla"_s, u"Mozilla"_s};
    EXPECT_EQ(fileContents(path), (QVariantMap{{u"Flag"_s, true},
                                               {u"Count"_s, qint64(16)},
                                               {u"Text"_s, u"Caf\u00e9 \"x\""_s},
                                               {u"List"_s, list},
                                               {u"Single"_s, QVariantList{u"only one"_s}},
                                               {u"Empty"_s, QVariantList{}},
                                               {u"Dict"_s, dictionary},
                                               {u"Data"_s, archived}}));

    const UserDefaults reopened(path);
    EXPECT_EQ(reopened.stringForKey(u"Text"_s), u"Caf\u00e9 \"x\""_s);
    EXPECT_EQ(reopened.arrayForKey(u"List"_s), list);
    EXPECT_EQ(reopened.dictionaryForKey(u"Dict"_s), dictionary);
    EXPECT_EQ(reopened.dataForKey(u"Data"_s), archived);

    UserDefaults defaults(UserDefaults::defaultFilePath());
    defaults.setObject(u"12 apples"_s, u"S"_s);
    defaults.setInteger(7, u"N"_s);
    EXPECT_EQ(defaults.stringForKey(u"N"_s), u"7"_s);
    EXPECT_TRUE(defaults.arrayForKey(u"S"_s).isEmpty());
    EXPECT_TRUE(defaults.dictionaryForKey(u"N"_s).isEmpty());
    EXPECT_TRUE(defaults.dataForKey(u"S"_s).isEmpty());
    EXPECT_TRUE(defaults.stringForKey(u"missing"_s).isNull());
}

TEST_F(UserDefaultsTest, ADamagedOrUnreadableFileReadsAsEmpty)
{
    const QString path = UserDefaults::defaultFilePath();
    home.write(u".config/com.orvick.vantle.plist"_s, "<?xml version=\"1.0\"?><plist><dict><key>ShredCache</key><tr");
    {
        UserDefaults damaged(path);
        EXPECT_FALSE(damaged.objectForKey(u"ShredCache"_s).isValid());
        // Still writable: the next save replaces the damaged file.
        damaged.setBool(true, u"ShredHistory"_s);
        damaged.synchronize();
    }
    EXPECT_EQ(fileContents(path).value(u"ShredHistory"_s), true);

    // A folder where the file should be cannot be read or written; nothing crashes.
    const QString blocked = home.file(u"blocked.plist"_s);
    ASSERT_TRUE(QDir().mkpath(blocked + u"/inside"_s));
    UserDefaults unreadable(blocked);
    EXPECT_FALSE(unreadable.objectForKey(u"ShredCache"_s).isValid());
    unreadable.setBool(true, u"ShredCache"_s);
    EXPECT_FALSE(unreadable.synchronize());
}

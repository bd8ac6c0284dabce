#include "core/PropertyList.h"

#include <QDateTime>
#include <QtEndian>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(PropertyList, AStringOrBinaryKeyHoldingANulReadsUpToIt)
{
    // Any program can write the settings file; such a string once stopped the program.
    static const char xml[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
                              "<key>text</key><string>before\0after</string><key>count</key><integer>3</integer>"
                              "</dict></plist>";
    const auto parsed = PropertyList::parse(QByteArray(xml, sizeof(xml) - 1));
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ(parsed->toMap(), (QVariantMap{{u"text"_s, u"before"_s}, {u"count"_s, qint64(3)}}));

    // A binary list of {"é\0x": 1}, the key in UTF-16: libplist aborted the
    // program when asked for such a key.
    const QByteArray binary = QByteArray::fromHex("62706c6973743030d101026300e9000000781001"
                                                  "080b120000000000000101000000000000000300"
                                                  "000000000000000000000000000014");
    EXPECT_EQ(PropertyList::parse(binary), QVariant(QVariantMap{{u"\u00e9"_s, qint64(1)}}));
}

TEST(PropertyList, ABinaryListReadsWithEveryValue)
{
    // Written by another program's writer: {when: 2010-05-04 03:02:01 UTC, ratio: 0.1,
    // big: 2^62, neg: -7, text: "café", bytes: 00 01, yes: true, list: [{}]}.
    const QByteArray binary =
        QByteArray::fromHex("62706c6973743030d80102030405060708090a0b0d0e0f101153626967556279746573546c697374"
                            "536e656755726174696f5474657874547768656e53796573134000000000000000420001a10cd013"
                            "fffffffffffffff9233fb999999999999a6400630061006600e93341b18fc5a90000000908191d23"
                            "282c32373c40494c4e4f58616a730000000000000101000000000000001200000000000000000000"
                            "000000000074");
    const auto parsed = PropertyList::parse(binary);
    ASSERT_TRUE(parsed.has_value());
    const QVariantMap expected{
        {u"when"_s, QDateTime(QDate(2010, 5, 4), QTime(3, 2, 1), Qt::UTC)},
        {u"ratio"_s, 0.1},
        {u"big"_s, qint64(1) << 62},
        {u"neg"_s, qint64(-7)},
        {u"text"_s, u"caf\u00e9"_s},
        {u"bytes"_s, QByteArray("\x00\x01", 2)},
        {u"yes"_s, true},
        {u"list"_s, QVariantList{QVariantMap{}}},
    };
    EXPECT_EQ(parsed->toMap(), expected);
}

namespace {

QByteArray nestedXml(int depth)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" +
           QByteArray("<array>").repeated(depth) + "<array/>" + QByteArray("</array>").repeated(depth) + "</plist>";
}

// A binary list of depth arrays, each holding the next (4-byte references and offsets).
QByteArray nestedBinary(quint32 depth)
{
    QByteArray list = "bplist00";
    QList<quint32> offsets;
    for (quint32 i = 0; i <= depth; ++i) {
        offsets.append(quint32(list.size()));
        if (i == depth) {
            list.append(char(0xa0));
            break;
        }
        list.append(char(0xa1));
        const quint32 next = qToBigEndian(i + 1);
        list.append(reinterpret_cast<const char*>(&next), 4);
    }
    const quint64 tableOffset = quint64(list.size());
    for (const quint32 offset : offsets) {
        const quint32 big = qToBigEndian(offset);
        list.append(reinterpret_cast<const char*>(&big), 4);
    }
    list.append(QByteArray(6, '\0'));
    list.append(char(4)).append(char(4));
    for (const quint64 field : {quint64(offsets.size()), quint64(0), tableOffset}) {
        const quint64 big = qToBigEndian(field);
        list.append(reinterpret_cast<const char*>(&big), 8);
    }
    return list;
}

} // namespace

TEST(PropertyList, GarbageDamagedOrNestedDeeperThan512LevelsReadsAsNothing)
{
    const QByteArray xml = PropertyList::toXml(QVariantMap{{u"k"_s, u"value"_s}});
    EXPECT_FALSE(PropertyList::parse({}).has_value());
    EXPECT_FALSE(PropertyList::parse("not a property list").has_value());
    EXPECT_FALSE(PropertyList::parse(xml.left(xml.size() / 2)).has_value());
    EXPECT_FALSE(PropertyList::parse("bplist00\x01\x02").has_value());

    // Reading such lists once overflowed the stack (ours, then libplist's) and
    // ended the program at start-up.
    EXPECT_TRUE(PropertyList::parse(nestedXml(500)).has_value());
    EXPECT_FALSE(PropertyList::parse(nestedXml(600)).has_value());
    EXPECT_FALSE(PropertyList::parse(nestedXml(1000000)).has_value());
    EXPECT_EQ(PropertyList::parse(nestedBinary(3)), QVariant(QVariantList{QVariantList{QVariantList{QVariantList{}}}}));
    EXPECT_FALSE(PropertyList::parse(nestedBinary(100000)).has_value());
}

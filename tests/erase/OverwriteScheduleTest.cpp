#include "erase/OverwriteSchedule.h"

#include <gtest/gtest.h>

using namespace OverwriteSchedule;

namespace {

quint16 passes(qint64 numberOfWrites, bool dod = false, bool nsa = false, qint32 draw = 0)
{
    return passCount(numberOfWrites, dod, nsa, [draw] { return draw; });
}

} // namespace

TEST(OverwriteSchedule, PassCountsPerMenuIndex)
{
    // Index 0 draws one plus the low two bits.
    EXPECT_EQ(passes(0, false, false, 0), 1);
    EXPECT_EQ(passes(0, false, false, 3), 4);
    EXPECT_EQ(passes(0, false, false, 0x7FFFFFFE), 3);

    EXPECT_EQ(passes(1), 0); // the separator: wraps in the engine's countdown
    for (qint64 n = 2; n <= 11; ++n)
        EXPECT_EQ(passes(n), n - 1);
    EXPECT_EQ(passes(12), 15);
    EXPECT_EQ(passes(13), 20);
    EXPECT_EQ(passes(14), 25);
    EXPECT_EQ(passes(15), 30);
    EXPECT_EQ(passes(16), 35);
    EXPECT_EQ(passes(17), 16);
    EXPECT_EQ(passes(70000), quint16(69999));
}

TEST(OverwriteSchedule, MethodMinimums)
{
    EXPECT_EQ(passes(2, true, false), 3);
    EXPECT_EQ(passes(2, false, true), 3);
    EXPECT_EQ(passes(2, true, true), 5);
    EXPECT_EQ(passes(1, true, true), 5);
    EXPECT_EQ(passes(0, true, false, 3), 4);
    EXPECT_EQ(passes(5, true, true), 5);
    EXPECT_EQ(passes(7, true, true), 6);
    EXPECT_EQ(passes(12, true, false), 15);
}

TEST(OverwriteSchedule, MethodPatternsCountDownToTheLastPass)
{
    EXPECT_EQ(dodPattern(3, Ones), quint32(Fives));
    EXPECT_EQ(dodPattern(2, Ones), quint32(Tens));
    EXPECT_EQ(dodPattern(1, Ones), quint32(RandomPatternToo));
    EXPECT_EQ(dodPattern(4, Ones), quint32(Ones));

    EXPECT_EQ(nsaPattern(3, Ones), quint32(RandomPatternToo));
    EXPECT_EQ(nsaPattern(2, Ones), quint32(RandomPatternToo));
    EXPECT_EQ(nsaPattern(1, Ones), quint32(Zeros));
    EXPECT_EQ(nsaPattern(5, Ones), quint32(Ones));
}

#include "erase/OverwriteSchedule.h"

#include <gtest/gtest.h>

#include <tuple>

TEST(OverwriteSchedule, PassCountsPerMenuIndexAndMethod)
{
    // Menu index, DoD, NSA, the random draw, and the passes; the engine's tests
    // check the other counts with the patterns they write.
    const std::tuple<qint64, bool, bool, qint32, int> counts[] = {
        {0, false, false, 0, 1}, // index 0 draws one plus the low two bits
        {0, false, false, 3, 4},   {0, false, false, 0x7FFFFFFE, 3},
        {0, true, false, 3, 4},    {1, false, false, 0, 0}, // the separator: wraps in the engine's countdown
        {11, false, false, 0, 10}, {12, false, false, 0, 15},
        {13, false, false, 0, 20}, {16, false, false, 0, 35},
        {17, false, false, 0, 16}, {70000, false, false, 0, quint16(69999)},
        {2, true, true, 0, 5}, // both methods ask for five at least
        {1, true, true, 0, 5},     {7, true, true, 0, 6},
    };
    for (const auto& [index, dod, nsa, draw, passes] : counts) {
        EXPECT_EQ(OverwriteSchedule::passCount(index, dod, nsa, [draw = draw] { return draw; }), passes)
            << index << (dod ? " DoD" : "") << (nsa ? " NSA" : "") << " draw " << draw;
    }
}

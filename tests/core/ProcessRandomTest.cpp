#include "core/ProcessRandom.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

TEST(ProcessRandom, GivesTheCLibrarySequenceForTheSameSeedAndEntropySeedsDiffer)
{
    for (const uint32_t seed : {1u, 0u, 12345u, 0x80000001u, 0xFFFFFFFFu}) {
        ::srandom(seed);
        ProcessRandom::seed(seed);
        for (int i = 0; i < 1000; ++i)
            ASSERT_EQ(ProcessRandom::next(), int32_t(::random())) << "seed " << seed << " draw " << i;

        std::vector<quint16> words(70001); // more than one internal block
        ProcessRandom::fillLow16(words.data(), words.size());
        for (const quint16 word : words)
            ASSERT_EQ(word, quint16(::random()));
    }

    // Seeded from entropy, three draws in a row are not all the same.
    ProcessRandom::seedFromEntropy();
    const int32_t first = ProcessRandom::next();
    ProcessRandom::seedFromEntropy();
    const int32_t second = ProcessRandom::next();
    ProcessRandom::seedFromEntropy();
    const int32_t third = ProcessRandom::next();
    EXPECT_FALSE(first == second && second == third);
}

#include "core/ProcessRandom.h"

#include <sys/random.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <mutex>
#include <unistd.h>

namespace {

constexpr int kDegree = 31;
constexpr int kSeparation = 3;

class AdditiveFeedbackGenerator {
public:
    AdditiveFeedbackGenerator() { seed(1); }

    void seed(uint32_t seedValue)
    {
        if (seedValue == 0)
            seedValue = 1;
        int32_t word = int32_t(seedValue);
        m_state[0] = word;
        for (int i = 1; i < kDegree; ++i) {
            // state[i] = (16807 * state[i - 1]) % 2147483647 without overflowing 31 bits.
            const long hi = word / 127773;
            const long lo = word % 127773;
            word = int32_t(16807 * lo - 2836 * hi);
            if (word < 0)
                word += 2147483647;
            m_state[std::size_t(i)] = word;
        }
        m_front = kSeparation;
        m_rear = 0;
        for (int i = 0; i < kDegree * 10; ++i)
            next();
    }

    // count values at once: the sequence is s[k] = s[k - 31] + s[k - 3], so laid out
    // in order after the last 31 values it runs as a plain loop the compiler keeps tight.
    void fillLow16(quint16* words, std::size_t count)
    {
        while (count > 0) {
            const std::size_t block = std::min(count, kBlock);
            for (int j = 0; j < kDegree; ++j)
                m_sequence[std::size_t(j)] = uint32_t(m_state[std::size_t((m_front + j) % kDegree)]);
            for (std::size_t i = kDegree; i < kDegree + block; ++i)
                m_sequence[i] = m_sequence[i - kDegree] + m_sequence[i - kSeparation];
            for (std::size_t i = 0; i < block; ++i)
                words[i] = quint16(m_sequence[kDegree + i] >> 1);
            m_front = int((std::size_t(m_front) + block) % kDegree);
            m_rear = (m_front + kDegree - kSeparation) % kDegree;
            for (int j = 0; j < kDegree; ++j)
                m_state[std::size_t((m_front + j) % kDegree)] = int32_t(m_sequence[block + std::size_t(j)]);
            words += block;
            count -= block;
        }
    }

    int32_t next()
    {
        const uint32_t value = uint32_t(m_state[m_front]) + uint32_t(m_state[m_rear]);
        m_state[m_front] = int32_t(value);
        if (++m_front == kDegree)
            m_front = 0;
        if (++m_rear == kDegree)
            m_rear = 0;
        return int32_t(value >> 1);
    }

private:
    static constexpr std::size_t kBlock = 65536;

    std::array<int32_t, kDegree> m_state{};
    std::array<uint32_t, kDegree + kBlock> m_sequence{};
    int m_front = kSeparation;
    int m_rear = 0;
};

std::mutex gMutex;
AdditiveFeedbackGenerator gGenerator;

} // namespace

namespace ProcessRandom {

void seed(uint32_t seedValue)
{
    std::lock_guard lock(gMutex);
    gGenerator.seed(seedValue);
}

void seedFromEntropy()
{
    uint32_t value = 0;
    if (::getrandom(&value, sizeof value, 0) != ssize_t(sizeof value))
        value = uint32_t(std::time(nullptr)) ^ (uint32_t(::getpid()) << 16);
    seed(value);
}

int32_t next()
{
    std::lock_guard lock(gMutex);
    return gGenerator.next();
}

void fillLow16(quint16* words, std::size_t count)
{
    std::lock_guard lock(gMutex);
    gGenerator.fillLow16(words, count);
}

} // namespace ProcessRandom

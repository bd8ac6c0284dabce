#include "core/ProcessRandom.h"

#include <sys/random.h>

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
    std::array<int32_t, kDegree> m_state{};
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
    for (std::size_t i = 0; i < count; ++i)
        words[i] = quint16(gGenerator.next());
}

} // namespace ProcessRandom

#pragma once

#include <QtGlobal>

#include <cstddef>
#include <cstdint>

// The process-wide random number generator: the C library's random() algorithm
// (additive feedback over 31 words), with the same sequence for the same seed,
// kept here so that the erase engine can draw a whole buffer of values under one
// lock instead of paying a locked call per 16-bit word. Safe from any thread.
namespace ProcessRandom {

// Like srandom(seed).
void seed(uint32_t seed);

// Seeds once from the system's entropy source; called at start-up.
void seedFromEntropy();

// Like random(): a value from 0 to 2^31 - 1.
int32_t next();

// Stores the low 16 bits of count successive values.
void fillLow16(quint16* words, std::size_t count);

} // namespace ProcessRandom

#pragma once

#include <QtGlobal>

#include <functional>

// What the erase engine writes on each pass: the pattern codes of the pattern
// menu and the number of passes per chunk.
namespace OverwriteSchedule {

// Pattern codes: the index of the pattern menu's item, used as it is.
enum PatternCode : quint32 {
    RandomPattern = 0,
    KeepBuffer = 1, // the menu's separator: the buffer keeps what it holds
    RandomPatternToo = 2,
    Zeros = 3,
    Ones = 4,
    Fives = 5, // 0x55
    Tens = 6,  // 0xAA
};

bool isRandomPattern(quint32 code);

// The passes for one chunk: the number-of-writes menu's index mapped to a count
// (index 0 draws 1 to 4 from drawRandom), raised to 3 for DoD or NSA and to 5
// for both. Kept in 16 bits as the engine counts them: index 1 without either
// method gives 0, which the engine's countdown wraps to 65,536 passes.
quint16 passCount(qint64 numberOfWrites, bool dod, bool nsa, const std::function<qint32()>& drawRandom);

// The pattern that DoD and NSA put in the buffer for the pass numbered k
// (counting down to 1); the user's pattern where the method sets none.
quint32 dodPattern(quint16 k, quint32 userPattern);
quint32 nsaPattern(quint16 k, quint32 userPattern);

} // namespace OverwriteSchedule

#include "erase/OverwriteSchedule.h"

namespace OverwriteSchedule {

bool isRandomPattern(quint32 code)
{
    return code == RandomPattern || code == RandomPatternToo;
}

quint16 passCount(qint64 numberOfWrites, bool dod, bool nsa, const std::function<qint32()>& drawRandom)
{
    quint16 passes = 0;
    if (numberOfWrites == 0)
        passes = quint16(1 + (drawRandom() & 3));
    else if (numberOfWrites >= 12 && numberOfWrites <= 16)
        passes = quint16(15 + 5 * (numberOfWrites - 12));
    else
        passes = quint16(numberOfWrites - 1);

    if (dod && passes < 3)
        passes = 3;
    if (nsa && passes < 3)
        passes = 3;
    if (dod && nsa && passes < 5)
        passes = 5;
    return passes;
}

quint32 dodPattern(quint16 k, quint32 userPattern)
{
    switch (k) {
    case 1:
        return RandomPatternToo;
    case 2:
        return Tens;
    case 3:
        return Fives;
    default:
        return userPattern;
    }
}

quint32 nsaPattern(quint16 k, quint32 userPattern)
{
    switch (k) {
    case 1:
        return Zeros;
    case 2:
    case 3:
        return RandomPatternToo;
    default:
        return userPattern;
    }
}

} // namespace OverwriteSchedule

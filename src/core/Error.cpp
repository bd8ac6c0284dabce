#include "core/Error.h"

#include <cstring>

QByteArray Error::reason() const
{
    return QByteArray(std::strerror(systemError));
}

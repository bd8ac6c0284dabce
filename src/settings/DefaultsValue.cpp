#include "settings/DefaultsValue.h"

#include <QString>

#include <cmath>
#include <limits>

namespace {

bool isNumber(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Double:
    case QMetaType::Float:
        return true;
    default:
        return false;
    }
}

qint64 integerOfDouble(double d)
{
    if (std::isnan(d))
        return 0;
    if (d >= double(std::numeric_limits<qint64>::max()))
        return std::numeric_limits<qint64>::max();
    if (d <= double(std::numeric_limits<qint64>::min()))
        return std::numeric_limits<qint64>::min();
    return qint64(d);
}

bool isSpace(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r' || c == u'\v' || c == u'\f';
}

// A string is true when, after leading white space, it starts with Y, y, T or t,
// or with an optionally signed number whose first non-zero digit comes before any
// other character.
bool boolOfString(const QString& text)
{
    qsizetype i = 0;
    while (i < text.size() && isSpace(text[i]))
        ++i;
    if (i == text.size())
        return false;
    const QChar first = text[i];
    if (first == u'Y' || first == u'y' || first == u'T' || first == u't')
        return true;
    if (first == u'+' || first == u'-')
        ++i;
    while (i < text.size() && text[i] == u'0')
        ++i;
    return i < text.size() && text[i] >= u'1' && text[i] <= u'9';
}

// The leading optionally signed decimal number of a string, 0 without one,
// clamped to the 64-bit range.
qint64 integerOfString(const QString& text)
{
    qsizetype i = 0;
    while (i < text.size() && isSpace(text[i]))
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) {
        negative = text[i] == u'-';
        ++i;
    }
    constexpr quint64 limit = quint64(std::numeric_limits<qint64>::max()) + 1;
    quint64 magnitude = 0;
    for (; i < text.size() && text[i] >= u'0' && text[i] <= u'9'; ++i) {
        magnitude = magnitude * 10 + quint64(text[i].unicode() - u'0');
        if (magnitude >= limit) {
            magnitude = limit;
            break;
        }
    }
    if (negative)
        return magnitude == limit ? std::numeric_limits<qint64>::min() : -qint64(magnitude);
    return magnitude == limit ? std::numeric_limits<qint64>::max() : qint64(magnitude);
}

} // namespace

namespace DefaultsValue {

bool toBool(const QVariant& value)
{
    if (value.typeId() == QMetaType::QString)
        return boolOfString(value.toString());
    if (value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float)
        return value.toDouble() != 0.0;
    if (isNumber(value))
        return value.toLongLong() != 0;
    return false;
}

qint64 toInteger(const QVariant& value)
{
    if (value.typeId() == QMetaType::QString)
        return integerOfString(value.toString());
    if (value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float)
        return integerOfDouble(value.toDouble());
    if (isNumber(value))
        return value.toLongLong();
    return 0;
}

} // namespace DefaultsValue

#pragma once

#include <QVariant>

// How a stored value of any type reads as a boolean or an integer: numbers by
// value, strings by their leading text ("YES", "true", "42abc"), anything else
// as NO or 0. A settings file edited by hand therefore never yields a surprise.
namespace DefaultsValue {

bool toBool(const QVariant& value);
qint64 toInteger(const QVariant& value);

} // namespace DefaultsValue

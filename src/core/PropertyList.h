#pragma once

#include <QByteArray>
#include <QVariant>

#include <optional>

// Property lists (XML or binary) as Qt values: dict ↔ QVariantMap, array ↔
// QVariantList, string ↔ QString, data ↔ QByteArray, boolean ↔ bool,
// integer ↔ qint64, real ↔ double, date ↔ QDateTime (UTC).
namespace PropertyList {

// Nothing when the bytes are not a property list, or one nested deeper than
// 512 levels.
std::optional<QVariant> parse(const QByteArray& bytes);

// XML form of value. Values with no property-list counterpart are left out of
// their dictionary or array.
QByteArray toXml(const QVariant& value);

} // namespace PropertyList

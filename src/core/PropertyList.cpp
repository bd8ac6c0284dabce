#include "core/PropertyList.h"

#include <QDateTime>
#include <QStringList>
#include <QtEndian>

#include <plist/plist.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <memory>

namespace {

// Property-list dates count seconds from 2001-01-01 00:00:00 UTC.
const QDateTime& referenceDate()
{
    static const QDateTime date(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
    return date;
}

struct PlistDeleter {
    void operator()(plist_t node) const { plist_free(node); }
};
using PlistPtr = std::unique_ptr<void, PlistDeleter>;

// Deeper than anything the program stores, and shallow enough for libplist's
// recursion and ours.
constexpr int kMaximumDepth = 512;
// A binary list nests no deeper than it has objects; this many keeps libplist's
// recursive binary reader within the stack and is far more than settings hold.
constexpr quint64 kMaximumBinaryObjects = 16384;

// tooDeep is set, and the deeper part left out, below kMaximumDepth levels.
QVariant toVariant(plist_t node, int depth, bool& tooDeep)
{
    if (depth > kMaximumDepth) {
        tooDeep = true;
        return {};
    }
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return bool(value);
    }
    case PLIST_UINT: {
        // This libplist keeps every integer in 64 unsigned bits; negative numbers
        // come back as their two's complement.
        uint64_t value = 0;
        plist_get_uint_val(node, &value);
        return qint64(value);
    }
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return value;
    }
    case PLIST_STRING: {
        // Not plist_get_string_val: it aborts the program on a string holding a
        // NUL. Such a string reads up to the NUL, as the XML reader keeps nothing
        // after it anyway.
        uint64_t length = 0;
        const char* value = plist_get_string_ptr(node, &length);
        return QString::fromUtf8(value, qsizetype(qstrnlen(value, std::size_t(length))));
    }
    case PLIST_DATA: {
        char* value = nullptr;
        uint64_t length = 0;
        plist_get_data_val(node, &value, &length);
        QByteArray data(value, qsizetype(length));
        std::free(value);
        return data;
    }
    case PLIST_DATE: {
        int32_t seconds = 0;
        int32_t microseconds = 0;
        plist_get_date_val(node, &seconds, &microseconds);
        return referenceDate().addMSecs(qint64(seconds) * 1000 + microseconds / 1000);
    }
    case PLIST_ARRAY: {
        QVariantList list;
        const uint32_t size = plist_array_get_size(node);
        for (uint32_t i = 0; i < size; ++i)
            list.append(toVariant(plist_array_get_item(node, i), depth + 1, tooDeep));
        return list;
    }
    case PLIST_DICT: {
        QVariantMap map;
        plist_dict_iter iter = nullptr;
        plist_dict_new_iter(node, &iter);
        for (;;) {
            char* key = nullptr;
            plist_t item = nullptr;
            plist_dict_next_item(node, iter, &key, &item);
            if (key == nullptr)
                break;
            map.insert(QString::fromUtf8(key), toVariant(item, depth + 1, tooDeep));
            std::free(key);
        }
        std::free(iter);
        return map;
    }
    default:
        return {};
    }
}

plist_t toNode(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return plist_new_bool(value.toBool());
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return plist_new_uint(uint64_t(value.toLongLong()));
    case QMetaType::Double:
    case QMetaType::Float:
        return plist_new_real(value.toDouble());
    case QMetaType::QString:
        return plist_new_string(value.toString().toUtf8().constData());
    case QMetaType::QByteArray: {
        const QByteArray data = value.toByteArray();
        return plist_new_data(data.constData(), uint64_t(data.size()));
    }
    case QMetaType::QDateTime: {
        const qint64 msecs = referenceDate().msecsTo(value.toDateTime());
        const qint64 seconds = msecs >= 0 ? msecs / 1000 : -((-msecs + 999) / 1000);
        return plist_new_date(int32_t(seconds), int32_t((msecs - seconds * 1000) * 1000));
    }
    case QMetaType::QStringList:
    case QMetaType::QVariantList: {
        plist_t array = plist_new_array();
        for (const QVariant& item : value.toList()) {
            if (plist_t node = toNode(item))
                plist_array_append_item(array, node);
        }
        return array;
    }
    case QMetaType::QVariantMap:
    case QMetaType::QVariantHash: {
        plist_t dict = plist_new_dict();
        const QVariantMap map = value.toMap();
        for (auto it = map.cbegin(); it != map.cend(); ++it) {
            if (plist_t node = toNode(it.value()))
                plist_dict_set_item(dict, it.key().toUtf8().constData(), node);
        }
        return dict;
    }
    default:
        return nullptr;
    }
}

bool startsWithElement(QByteArrayView text, QByteArrayView name)
{
    if (!text.startsWith(name) || text.size() == name.size())
        return false;
    const char next = text[name.size()];
    return next == '>' || next == '/' || next == ' ' || next == '\t' || next == '\n' || next == '\r';
}

// The deepest nesting of array and dict elements in an XML list, counted on the
// text (never less than the real one). libplist builds and frees its trees
// recursively, so a list nested deeply enough overflows the stack inside it.
int xmlNesting(QByteArrayView xml)
{
    int depth = 0;
    int deepest = 0;
    for (qsizetype at = xml.indexOf('<'); at >= 0 && at + 1 < xml.size(); at = xml.indexOf('<', at + 1)) {
        const QByteArrayView tag = xml.sliced(at + 1);
        if (tag.startsWith('/')) {
            if (startsWithElement(tag.sliced(1), "array") || startsWithElement(tag.sliced(1), "dict"))
                --depth;
        } else if (startsWithElement(tag, "array") || startsWithElement(tag, "dict")) {
            const qsizetype end = tag.indexOf('>');
            if (end <= 0 || tag[end - 1] != '/')
                deepest = std::max(deepest, ++depth);
        }
    }
    return deepest;
}

// The object count a binary list's trailer states (its last 32 bytes).
quint64 binaryObjectCount(const QByteArray& bytes)
{
    constexpr qsizetype kTrailerSize = 32;
    if (bytes.size() < kTrailerSize)
        return 0;
    return qFromBigEndian<quint64>(bytes.constData() + bytes.size() - kTrailerSize + 8);
}

QByteArray xmlOf(plist_t root)
{
    char* xml = nullptr;
    uint32_t length = 0;
    plist_to_xml(root, &xml, &length);
    QByteArray text(xml, qsizetype(length));
    plist_to_xml_free(xml);
    return text;
}

} // namespace

namespace PropertyList {

std::optional<QVariant> parse(const QByteArray& bytes)
{
    if (bytes.isEmpty() || bytes.size() > std::numeric_limits<uint32_t>::max())
        return std::nullopt;
    const bool binary = plist_is_binary(bytes.constData(), uint32_t(bytes.size()));
    if (binary ? binaryObjectCount(bytes) > kMaximumBinaryObjects : xmlNesting(bytes) > kMaximumDepth)
        return std::nullopt;
    plist_t root = nullptr;
    plist_from_memory(bytes.constData(), uint32_t(bytes.size()), &root);
    if (root == nullptr)
        return std::nullopt;
    PlistPtr owner(root);
    // libplist aborts the program when asked for a dictionary key holding a NUL,
    // which its binary reader lets through (its XML reader cuts such a key at the
    // NUL): a binary list is read through its XML form.
    if (binary)
        return parse(xmlOf(root));
    bool tooDeep = false;
    QVariant value = toVariant(root, 1, tooDeep);
    if (tooDeep)
        return std::nullopt;
    return value;
}

QByteArray toXml(const QVariant& value)
{
    PlistPtr root(toNode(value));
    return root ? xmlOf(root.get()) : QByteArray();
}

} // namespace PropertyList

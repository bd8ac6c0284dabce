#include "watch/CustomShred.h"

#include <QDataStream>
#include <QIODevice>

#include <optional>

using namespace Qt::StringLiterals;

// The stored form of the process dictionary: the dictionary as a QVariantMap in
// QDataStream's Qt 6.4 format. Reading takes exactly the shape the program
// writes, process -> list of {path: string, keep: boolean}, and no other type:
// the data comes from a settings file any program of the user can rewrite, and
// Qt's generic reading of a QVariant builds any type the data names and reserves
// room for as many elements as it claims.

namespace {

constexpr QDataStream::Version kArchiveVersion = QDataStream::Qt_6_4;
const QString kPath = u"path"_s;
const QString kKeep = u"keep"_s;

// What QDataStream writes before a QVariant's value: its type and a null flag.
bool readVariantHeader(QDataStream& in, QMetaType::Type expected)
{
    quint32 type = 0;
    qint8 isNull = 1;
    in >> type >> isNull;
    return in.status() == QDataStream::Ok && type == quint32(expected) && isNull == 0;
}

std::optional<QVariantMap> readEntry(QDataStream& in)
{
    if (!readVariantHeader(in, QMetaType::QVariantMap))
        return std::nullopt;
    quint32 count = 0;
    in >> count;
    QVariantMap entry;
    for (quint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
        QString key;
        in >> key;
        if (key == kPath && readVariantHeader(in, QMetaType::QString)) {
            QString path;
            in >> path;
            entry.insert(key, path);
        } else if (key == kKeep && readVariantHeader(in, QMetaType::Bool)) {
            bool keep = false;
            in >> keep;
            entry.insert(key, keep);
        } else {
            return std::nullopt;
        }
    }
    if (in.status() != QDataStream::Ok || !entry.contains(kPath))
        return std::nullopt;
    return entry;
}

std::optional<QVariantList> readEntries(QDataStream& in)
{
    if (!readVariantHeader(in, QMetaType::QVariantList))
        return std::nullopt;
    quint32 count = 0;
    in >> count;
    QVariantList entries;
    for (quint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
        std::optional<QVariantMap> entry = readEntry(in);
        if (!entry)
            return std::nullopt;
        entries.append(*entry);
    }
    if (in.status() != QDataStream::Ok)
        return std::nullopt;
    return entries;
}

} // namespace

QByteArray CustomShred::archive(const QVariantMap& dictionary)
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out.setVersion(kArchiveVersion);
    out << dictionary;
    return data;
}

QVariantMap CustomShred::unarchive(const QByteArray& data)
{
    if (data.isEmpty())
        return {};
    QDataStream in(data);
    in.setVersion(kArchiveVersion);
    quint32 count = 0;
    in >> count;
    QVariantMap dictionary;
    for (quint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
        QString process;
        in >> process;
        std::optional<QVariantList> entries = readEntries(in);
        if (!entries)
            return {};
        dictionary.insert(process, *entries);
    }
    if (in.status() != QDataStream::Ok || !in.atEnd())
        return {};
    return dictionary;
}

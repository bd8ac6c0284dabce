#include "cleaners/SchemaDigest.h"

#include <QCryptographicHash>

namespace SchemaDigest {

QString md5Hex(const QString& text)
{
    return QString::fromLatin1(QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Md5).toHex());
}

QString removeWhiteSpace(const QString& text)
{
    // Every white-space and newline character in Unicode's sense (no-break and
    // ideographic spaces, line and paragraph separators, NEL), not ASCII alone.
    QString compact;
    compact.reserve(text.size());
    for (const QChar c : text) {
        if (!c.isSpace())
            compact.append(c);
    }
    return compact;
}

QString raw(const QString& schema)
{
    return md5Hex(schema);
}

QString compact(const QString& schema)
{
    return md5Hex(removeWhiteSpace(schema));
}

} // namespace SchemaDigest

#include "cleaners/SchemaDigest.h"

#include <QCryptographicHash>
#include <QRegularExpression>

namespace SchemaDigest {

QString md5Hex(const QString& text)
{
    return QString::fromLatin1(QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Md5).toHex());
}

QString removeWhiteSpace(const QString& text)
{
    static const QRegularExpression whiteSpace(QStringLiteral("\\s+"));
    return text.trimmed().split(whiteSpace, Qt::SkipEmptyParts).join(QString());
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

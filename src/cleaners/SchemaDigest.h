#pragma once

#include <QString>
#include <QStringList>

// The digests by which a database's schema is recognised: MD5 of the schema
// listing as 32 lower-case hexadecimal digits, taken of the text as printed (raw)
// or with all white space removed (compact).
namespace SchemaDigest {

QString md5Hex(const QString& text);
// The text without any white-space or newline character: trimmed, split at white
// space and newlines, and the pieces joined with nothing.
QString removeWhiteSpace(const QString& text);

QString raw(const QString& schema);
QString compact(const QString& schema);

} // namespace SchemaDigest

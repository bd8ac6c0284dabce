#include "FuzzHome.h"
#include "cleaners/SchemaDigest.h"

namespace {

bool isDigest(const QString& digest)
{
    if (digest.size() != 32)
        return false;
    for (const QChar c : digest) {
        if (!((c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f')))
            return false;
    }
    return true;
}

} // namespace

// Schema text as a database's shell prints it, from a file any program can write.
// The compact form drops every white-space and newline character and keeps every
// other character in its order; the digests are 32 lower-case hexadecimal digits.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString schema = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    const QString compact = SchemaDigest::removeWhiteSpace(schema);

    qsizetype kept = 0;
    for (const QChar c : schema) {
        if (!c.isSpace())
            ++kept;
    }
    FUZZ_CHECK(compact.size() == kept);
    qsizetype at = 0;
    for (const QChar c : compact) {
        FUZZ_CHECK(!c.isSpace());
        at = schema.indexOf(c, at);
        FUZZ_CHECK(at >= 0);
        ++at;
    }
    FUZZ_CHECK(SchemaDigest::removeWhiteSpace(compact) == compact);

    const QString raw = SchemaDigest::raw(schema);
    FUZZ_CHECK(isDigest(raw));
    FUZZ_CHECK(SchemaDigest::compact(schema) == SchemaDigest::md5Hex(compact));
    FUZZ_CHECK(isDigest(SchemaDigest::compact(schema)));
    return 0;
}

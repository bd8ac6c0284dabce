#include "FuzzHome.h"
#include "watch/CustomShred.h"

using namespace Qt::StringLiterals;

// The custom processes as stored in the settings file (mProcessDictionary), which
// any program of the user can rewrite. Reading yields only the shape the program
// writes (process -> list of {path, keep}) or nothing, and what was read is
// stored and read back unchanged.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray stored(reinterpret_cast<const char*>(data), qsizetype(size));
    const QVariantMap dictionary = CustomShred::unarchive(stored);

    for (auto it = dictionary.cbegin(); it != dictionary.cend(); ++it) {
        FUZZ_CHECK(it.value().typeId() == QMetaType::QVariantList);
        for (const QVariant& item : it.value().toList()) {
            FUZZ_CHECK(item.typeId() == QMetaType::QVariantMap);
            const QVariantMap entry = item.toMap();
            FUZZ_CHECK(entry.value(u"path"_s).typeId() == QMetaType::QString);
            FUZZ_CHECK(entry.size() == 1 || (entry.size() == 2 && entry.value(u"keep"_s).typeId() == QMetaType::Bool));
        }
    }
    FUZZ_CHECK(CustomShred::unarchive(CustomShred::archive(dictionary)) == dictionary);
    return 0;
}

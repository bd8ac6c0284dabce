#include "FuzzHome.h"
#include "cleaners/JsonPreferenceEdit.h"

#include <QFile>
#include <QFileInfo>
#include <nlohmann/json.hpp>

using namespace Qt::StringLiterals;
using Json = nlohmann::ordered_json;

// A browser's JSON preference file as any program may have written it. The
// input is one byte of switches (bit 0: the key is required, bit 1: dry run),
// the key to remove up to the first line feed, then the file's bytes.
//
// Whatever the bytes, an edit either leaves the file exactly as it was with no
// old copy beside it, or keeps the old bytes under the old copy's name and
// leaves a JSON object equal to the old one without the key, in the same order.

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    FuzzHome::path();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray input(reinterpret_cast<const char*>(data), qsizetype(size));
    const bool requireKey = (input[0] & 1) != 0;
    const bool dryRun = (input[0] & 2) != 0;
    const qsizetype newline = input.indexOf('\n', 1);
    const QString key = QString::fromUtf8(input.mid(1, newline < 0 ? -1 : newline - 1));
    const QByteArray original = newline < 0 ? QByteArray() : input.mid(newline + 1);

    const QString file = FuzzHome::file(u"Chrome/Local State"_s);
    const QString oldCopy = JsonPreferenceEdit::oldCopyPath(file);
    QFile::remove(oldCopy);
    FuzzHome::write(file, original);

    const Error error = JsonPreferenceEdit::removeKey(file, key, requireKey, dryRun);
    if (!error.ok() || dryRun) {
        FUZZ_CHECK(FuzzHome::read(file) == original);
        FUZZ_CHECK(!QFileInfo::exists(oldCopy));
        return 0;
    }

    FUZZ_CHECK(FuzzHome::read(oldCopy) == original);
    const QByteArray edited = FuzzHome::read(file);
    const Json after = Json::parse(edited.cbegin(), edited.cend(), nullptr, false);
    Json before = Json::parse(original.cbegin(), original.cend(), nullptr, false);
    FUZZ_CHECK(before.is_object() && after.is_object());
    const std::string name = key.toStdString();
    FUZZ_CHECK(!requireKey || before.contains(name));
    before.erase(name);
    FUZZ_CHECK(after == before);
    return 0;
}

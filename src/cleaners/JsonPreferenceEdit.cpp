#include "cleaners/JsonPreferenceEdit.h"

#include "core/AtomicFile.h"

#include <QFile>
#include <QFileInfo>

#include <nlohmann/json.hpp>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace JsonPreferenceEdit {

namespace {

using Json = nlohmann::ordered_json;

std::optional<Json> readObject(const QString& file)
{
    QFile in(file);
    if (!QFileInfo(file).isFile() || QFileInfo(file).size() > kMaximumFileSize || !in.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = in.readAll();
    // Copying or writing a value recurses once per level: a file nested far deeper
    // than any browser writes would overflow the stack. Nothing below the limit
    // is even built.
    bool tooDeep = false;
    const Json::parser_callback_t checkDepth = [&tooDeep](int depth, Json::parse_event_t, Json&) {
        if (depth <= kMaximumDepth)
            return true;
        tooDeep = true;
        return false;
    };
    Json parsed = Json::parse(bytes.cbegin(), bytes.cend(), checkDepth, /*allow_exceptions*/ false);
    if (tooDeep || parsed.is_discarded() || !parsed.is_object())
        return std::nullopt;
    return parsed;
}

// The old copy as a second name of the file itself, so that erasing it overwrites
// the very blocks that held the old settings.
bool linkOldCopy(const QByteArray& file, const QByteArray& oldCopy)
{
    ::unlink(oldCopy.constData());  // a copy left by an interrupted run
    return ::link(file.constData(), oldCopy.constData()) == 0;
}

} // namespace

QString oldCopyPath(const QString& file)
{
    return file + u".vantlex"_s;
}

Result removeKey(const QString& file, const QString& key, bool requireKey, bool dryRun)
{
    std::optional<Json> object = readObject(file);
    if (!object)
        return Result::ReadFailed;
    const std::string name = key.toStdString();
    if (requireKey && !object->contains(name))
        return Result::KeyNotFound;
    object->erase(name);

    QByteArray text;
    try {
        text = QByteArray::fromStdString(object->dump());
    } catch (const Json::exception&) {
        return Result::EncodeFailed;
    }

    // A read-only file is replaced all the same (its folder decides), and the new one stays read-only.
    const QFileDevice::Permissions permissions = QFileInfo(file).permissions();
    if (dryRun)
        return Result::Done;

    const QByteArray nativeFile = QFile::encodeName(file);
    const QByteArray nativeOld = QFile::encodeName(oldCopyPath(file));
    if (linkOldCopy(nativeFile, nativeOld)) {
        if (AtomicFile::write(file, text, permissions))
            return Result::Done;
        ::unlink(nativeOld.constData());
        return Result::WriteFailed;
    }

    // Without hard links: move the file aside, then write; put it back on failure.
    if (::rename(nativeFile.constData(), nativeOld.constData()) != 0)
        return Result::RenameFailed;
    if (AtomicFile::write(file, text, permissions))
        return Result::Done;
    ::rename(nativeOld.constData(), nativeFile.constData());
    return Result::WriteFailed;
}

} // namespace JsonPreferenceEdit

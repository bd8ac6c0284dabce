#include "cleaners/JsonPreferenceEdit.h"

#include "core/FileReplace.h"

#include <QFile>
#include <QFileInfo>

#include <nlohmann/json.hpp>

#include <sys/stat.h>

#include <cerrno>

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

} // namespace

QString oldCopyPath(const QString& file)
{
    return file + u".vantlex"_s;
}

Error removeKey(const QString& file, const QString& key, bool requireKey, bool dryRun)
{
    using Code = Error::Code;
    const QByteArray nativeFile = QFile::encodeName(file);
    std::optional<Json> object = readObject(file);
    if (!object)
        return {Code::Unreadable, 0, nativeFile};
    const std::string name = key.toStdString();
    if (requireKey && !object->contains(name))
        return {Code::KeyNotFound, 0, nativeFile, {key.toUtf8()}};
    object->erase(name);

    QByteArray text;
    try {
        text = QByteArray::fromStdString(object->dump());
    } catch (const Json::exception&) {
        return {Code::EncodeFailed, 0, nativeFile};
    }

    // A read-only file is replaced all the same (its folder decides), and the new one stays read-only.
    struct stat status {};
    if (::stat(nativeFile.constData(), &status) != 0)
        return {Code::Unreadable, errno, nativeFile};
    if (dryRun)
        return {};
    return FileReplace::withBytes(nativeFile, text, status.st_mode & 07777, FileReplace::Strategy::KeepOld,
                                  QFile::encodeName(oldCopyPath(file)));
}

} // namespace JsonPreferenceEdit

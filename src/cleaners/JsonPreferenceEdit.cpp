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

// The object in the file's place, the old copy kept beside it.
Error write(const QString& file, const Json& object, bool dryRun)
{
    using Code = Error::Code;
    const QByteArray nativeFile = QFile::encodeName(file);
    QByteArray text;
    try {
        text = QByteArray::fromStdString(object.dump());
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

} // namespace

QString oldCopyPath(const QString& file)
{
    return file + u".vantlex"_s;
}

Error removeKey(const QString& file, const QString& key, bool requireKey, bool dryRun)
{
    std::optional<Json> object = readObject(file);
    if (!object)
        return {Error::Code::Unreadable, 0, QFile::encodeName(file)};
    const std::string name = key.toStdString();
    if (requireKey && !object->contains(name))
        return {Error::Code::KeyNotFound, 0, QFile::encodeName(file), {key.toUtf8()}};
    object->erase(name);
    return write(file, *object, dryRun);
}

Error removeMembers(const QString& file, const QList<Members>& members, bool dryRun)
{
    std::optional<Json> object = readObject(file);
    if (!object)
        return {Error::Code::Unreadable, 0, QFile::encodeName(file)};
    bool removed = false;
    for (const Members& list : members) {
        Json* parent = &*object;
        for (const QString& step : list.objectPath) {
            const auto found = parent->find(step.toStdString());
            parent = found != parent->end() && found->is_object() ? &*found : nullptr;
            if (!parent)
                break;
        }
        if (!parent)
            continue;
        for (auto it = parent->begin(); it != parent->end();) {
            if (list.matches(QString::fromStdString(it.key()))) {
                it = parent->erase(it);
                removed = true;
            } else {
                ++it;
            }
        }
    }
    if (!removed)
        return {Error::Code::KeyNotFound, 0, QFile::encodeName(file)};
    return write(file, *object, dryRun);
}

} // namespace JsonPreferenceEdit

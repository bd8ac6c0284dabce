#include "log/FailureLog.h"

#include "log/ActivityLog.h"

#include <algorithm>

namespace FailureLog {

namespace {

using Code = Error::Code;

QByteArrayList fileLines(const Error& error)
{
    const QByteArray& path = error.path;
    switch (error.code) {
    case Code::WriteFailed:
    case Code::PutInPlaceFailed:
        return {"Skip (Write new file failed): " + path};
    case Code::KeepOldFailed:
        return {"Skip (Rename old file failed): " + path};
    case Code::Unreadable:
        return {"Skip (Read JSON encoding failed): " + path};
    case Code::KeyNotFound:
        return {"Skip (" + error.detail.value(0) + " not found): " + path};
    case Code::EncodeFailed:
        return {"Skip (Create JSON encoding failed): " + path};
    case Code::MoveFailed:
        return {"Skip (Move failed: " + error.reason() + "): " + path};
    case Code::RemoveFailed:
        return {"Skip (Remove failed: " + error.reason() + "): " + path};
    case Code::OverwriteFailed:
        return {"Overwrite failed (" + error.reason() + "): " + path};
    case Code::FileChanged:
        return {"Overwrite failed (the file changed while it was erased): " + path};
    case Code::OtherNames:
        return {"Not overwritten (the file has other names; only this one is removed): " + path};
    case Code::MountedInside:
        return {"Skip (another file system is mounted here): " + path};
    default:
        return {};
    }
}

} // namespace

QByteArrayList lines(const Error& error, const Wording* wording)
{
    if (wording == nullptr)
        return fileLines(error);
    const auto said = std::find_if(wording->cbegin(), wording->cend(),
                                   [&error](const auto& entry) { return entry.first == error.code; });
    if (said == wording->cend())
        return {};
    QByteArrayList out{said->second};
    if (error.code == Code::UnknownSchema || error.code == Code::RebuiltSchemaUnknown)
        out += error.detail;
    return out;
}

bool write(const Error& error, const Wording* wording)
{
    const QByteArrayList said = lines(error, wording);
    for (const QByteArray& line : said)
        ActivityLog::writeLogLine(line);
    return !said.isEmpty();
}

} // namespace FailureLog

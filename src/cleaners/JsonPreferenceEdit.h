#pragma once

#include "core/Error.h"

#include <QString>
#include <QStringList>

#include <functional>

// Removes one top-level key from a browser's JSON preference file and keeps the
// old file beside it under the name "<file>.vantlex", to be erased: the browser
// keeps its other settings, the old bytes go through the erase engine.
//
// The file is never missing, whatever happens (FileReplace, keeping the old
// copy). A file that cannot be read, parsed or rewritten is left exactly as it
// was, and the error says why:
//  - Unreadable: missing, unreadable, too large or too deep, not UTF-8 JSON, or not an object;
//  - KeyNotFound (only when the key is required), with the key as the detail;
//  - EncodeFailed;
//  - a step of FileReplace: KeepOldFailed (the old copy could not be made),
//    WriteFailed or PutInPlaceFailed (the original is back in place).
namespace JsonPreferenceEdit {

// Files larger than this are not browser preferences; they are left alone.
inline constexpr qint64 kMaximumFileSize = 16 * 1024 * 1024;
// Nor are files nested deeper than this (Chrome itself reads no more than 200 levels).
inline constexpr int kMaximumDepth = 512;

QString oldCopyPath(const QString& file);

// In a dry run every check is made but no file is changed or created.
Error removeKey(const QString& file, const QString& key, bool requireKey, bool dryRun);

// Members of one object of the file: the keys leading to it from the top
// (none: the top itself), and which of its members go by their names.
struct Members {
    QStringList objectPath;
    std::function<bool(const QString& name)> matches;
};

// Removes every member the lists name, in one replacement of the file; the
// other errors as removeKey's. KeyNotFound, and no change, when none is there.
Error removeMembers(const QString& file, const QList<Members>& members, bool dryRun);

} // namespace JsonPreferenceEdit

#pragma once

#include <QString>

// Removes one top-level key from a browser's JSON preference file and keeps the
// old file beside it under the name "<file>.vantlex", to be erased: the browser
// keeps its other settings, the old bytes go through the erase engine.
//
// The file is never missing, whatever happens (FileReplace, keeping the old
// copy). A file that cannot be read, parsed or rewritten is left exactly as it
// was.
namespace JsonPreferenceEdit {

enum class Result {
    Done,
    ReadFailed,  // missing, unreadable, too large or too deep, not UTF-8 JSON, or not an object
    KeyNotFound, // only when the key is required
    EncodeFailed,
    RenameFailed, // the old copy could not be made (or the file is read-only)
    WriteFailed,  // the new text could not be written; the original is back in place
};

// Files larger than this are not browser preferences; they are left alone.
inline constexpr qint64 kMaximumFileSize = 16 * 1024 * 1024;
// Nor are files nested deeper than this (Chrome itself reads no more than 200 levels).
inline constexpr int kMaximumDepth = 512;

QString oldCopyPath(const QString& file);

// In a dry run every check is made but no file is changed or created.
Result removeKey(const QString& file, const QString& key, bool requireKey, bool dryRun);

} // namespace JsonPreferenceEdit

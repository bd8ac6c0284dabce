#pragma once

#include "core/Error.h"

#include <QByteArray>

#include <sys/types.h>

// Puts new contents in a file's place in one rename, once they are on the disk,
// so that the path always holds a whole file: the old one or the new one.
//
// What a crash leaves, wherever it strikes:
//  - before the rename, the old file at its path as it was, and beside it the new
//    file (or an unfinished "<file>.vantlex-new", which the next replace of the
//    same file removes);
//  - after it, the new file, whole and synced, and with KeepOld the old contents
//    under the old-copy name, for the erase engine (the next run finds them).
// On failure the file is as it was and no old copy exists; the error names the
// step that failed (WriteFailed, KeepOldFailed or PutInPlaceFailed), with its
// errno and the file.
namespace FileReplace {

enum class Strategy {
    // The old file goes with the rename: files the program owns (its settings,
    // its login item), in which nothing of the user's browsing was kept.
    DropOld,
    // The old contents stay under oldCopy: as a second name of the same file where
    // hard links are allowed, so that erasing it overwrites the very blocks that
    // held them; otherwise the old file is moved there, and back on failure.
    KeepOld,
};

// newFile (beside file, on the same file system) takes file's place.
Error withFile(const QByteArray& file, const QByteArray& newFile, Strategy strategy, const QByteArray& oldCopy = {});

// bytes, written to a new file with mode and synced, take file's place.
Error withBytes(const QByteArray& file, const QByteArray& bytes, mode_t mode, Strategy strategy,
                const QByteArray& oldCopy = {});

} // namespace FileReplace

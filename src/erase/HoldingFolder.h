#pragma once

#include "core/Error.h"

#include <QByteArray>
#include <QList>

// The folders "Vantle X Items (<time>)" in which items wait, beside where they
// were, while they are erased. One that outlives its run was left by an
// interrupted erase and still holds what the run was erasing. Each holds a
// marker file from the moment it is made: a folder of the same name that the
// program did not make is the user's, and is never erased as a leftover.
namespace HoldingFolder {

// The marker's name, directly inside the holding folder; it keeps it.
inline constexpr char kMarker[] = ".vantlex-holding";

// The name of a holding folder made now.
QByteArray nameNow();
bool isHoldingFolderName(const QByteArray& name);

// Makes the holding folder at path (owner only) with its marker; a holding
// folder already there (made this very second) is used as it is. 0 or the errno.
int make(const QByteArray& path);

// The holding folders the program made directly inside folder.
QList<QByteArray> foldersIn(const QByteArray& folder);

// Moves path into a holding folder beside it and returns that folder; MoveFailed
// when path could not be moved (and then nothing changed).
Expected<QByteArray> setAside(const QByteArray& path);

} // namespace HoldingFolder

#pragma once

#include <QByteArray>
#include <QList>

// The folders "Vantle X Items (<time>)" in which items wait, beside where they
// were, while they are erased. One that outlives its run was left by an
// interrupted erase and still holds what the run was erasing.
namespace HoldingFolder {

// The name of a holding folder made now.
QByteArray nameNow();
bool isHoldingFolderName(const QByteArray& name);

// The holding folders directly inside folder.
QList<QByteArray> foldersIn(const QByteArray& folder);

// Moves path into a holding folder beside it and returns that folder; empty when
// path could not be moved (and then nothing changed).
QByteArray setAside(const QByteArray& path);

} // namespace HoldingFolder

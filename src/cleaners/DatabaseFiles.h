#pragma once

#include "core/Error.h"

#include <QString>

class EraseQueue;

// The file steps of a database rebuild: the work files, and the new database
// started from a template. The new database takes the live one's place through
// FileReplace, keeping the old contents aside for the erase engine.
namespace DatabaseFiles {

// Erases a work database with its journals at once: a journal left by a shell
// killed mid-transaction would otherwise be played back into the next run's new
// database. The first failure, if any.
Error eraseWorkDatabase(EraseQueue& queue, const QString& path);

// Writes a work script; a script cut short by a crash is simply written anew
// by the next run. WriteFailed with the errno otherwise.
Error writeWorkFile(const QString& path, const QByteArray& bytes);

// Copies the template database to workDatabase with the live database's
// permissions; NotCreated when the copy is not there afterwards.
Error copyTemplate(const QString& templatePath, const QString& workDatabase, const QString& liveDatabase);

// Puts workDatabase in place of liveDatabase, the old contents left under
// renamed for the caller to erase; otherwise everything stays as it was, and
// the error says which step failed (FileReplace).
Error swap(const QString& liveDatabase, const QString& workDatabase, const QString& renamed);

} // namespace DatabaseFiles

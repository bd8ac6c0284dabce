#pragma once

#include <QString>

// The file steps of a database rebuild: clearing work files, starting the new
// database from a template and putting it in place of the live one.
namespace DatabaseFiles {

// Removes a work file an earlier run may have left, ignoring failures. A file
// that still has another name (the live database, when a run was cut off inside
// the swap) keeps its permissions.
void removeWorkFile(const QString& path);

// Removes a work database an earlier run may have left, with the rollback
// journal of a shell that was stopped inside a transaction: left beside the next
// run's new work database, that journal would be played back into it.
void removeWorkDatabase(const QString& path);

// Writes a work script; a script cut short by a crash is simply written anew
// by the next run.
bool writeWorkFile(const QString& path, const QByteArray& bytes);

// Copies the template database to workDatabase with the live database's
// permissions; false when the copy is not there afterwards.
bool copyTemplate(const QString& templatePath, const QString& workDatabase, const QString& liveDatabase);

// Puts workDatabase in place of liveDatabase and leaves the live database's old
// contents under renamed, for the caller to erase. The live path always holds a
// whole database: the old one is first linked to renamed, the new one made durable
// and then renamed over it in one step. True when the new database is in place;
// otherwise the live database is as it was and renamed does not exist.
bool swap(const QString& liveDatabase, const QString& workDatabase, const QString& renamed);

} // namespace DatabaseFiles

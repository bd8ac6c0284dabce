#pragma once

#include <QByteArray>
#include <QString>

#include <cstdio>

// The activity log: one process-wide text stream that a run writes its steps to,
// one line each, prefixed by the local time. Usable from any thread; the run's
// stages never write at the same time.
namespace ActivityLog {

// ~/Library/Logs/Vantle X Log.txt in the current home folder.
QString defaultPath();

// Opens (creating or emptying) the file at path and makes it readable and
// writable by everyone; nothing when a log is already open. A file that cannot
// be opened leaves the run without a log.
void openLog(const QString& path);

// Writes "<ctime without its newline> <message>\n" and flushes; nothing when no
// log is open. A failed write closes the log for the rest of the run.
void writeLogLine(const QByteArray& message);
void writeLogLine(const QString& message);

void closeLog();

// Sends the log lines to a stream the log does not own (a dry run shows them on
// the terminal): closing the log leaves the stream open.
void openConsoleLog(FILE* stream);
bool isLogOpen();

// The log at the start of a run: the previous one closed, the file created (with
// its folder) or emptied, and closed again at once unless logging is on.
void openRunLog(bool activityLogEnabled);

} // namespace ActivityLog

#pragma once

#include <QString>

#include <functional>
#include <string_view>

class CleanerContext;

// Rewrites a LevelDB folder of today's browsers without the entries a test
// refuses, through the LevelDB library:
//  - the live folder's LOCK file is tried with a lock of each kind a LevelDB
//    takes, without waiting; one held means the browser has it open;
//  - the folder is copied beside it ("<folder>.vantlex-copy") and the copy,
//    never the live folder, is opened with paranoid checks and read whole; a
//    database that does not open (another comparator, corruption) is left;
//  - the kept entries go into a new database ("<folder>.vantlex-rewritten"),
//    which must read back exactly those entries;
//  - the new folder and the live one trade places in one rename, so a run
//    stopped at any point leaves the old database or the new one whole; the old
//    folder goes to the erase engine.
// The library unlinks the files it no longer needs: here they are moved into
// "<folder>.vantlex-removed" instead, so that every byte the databases held is
// overwritten with the work folders. Work folders a stopped run left are erased
// by the next. A dry run only tries the lock and changes nothing. Used on the
// run's finding thread only.
namespace LevelDbRewrite {

enum class Status {
    Rewritten,   // (a dry run: would be)
    Unchanged,   // every entry is kept
    InUse,       // the browser has the database open
    Unreadable,  // it does not open, or an entry fails its checksum
    NotReplaced, // the new database did not read back the kept entries
    Failed,      // copying, writing or renaming failed
};

struct Result {
    Status status = Status::Failed;
    // LevelDB's or the system's message, for the log.
    QString detail;
};

using Keep = std::function<bool(std::string_view key)>;

Result run(CleanerContext& context, const QString& folder, const Keep& keep);

// "Shred: <folder>" for a database rewritten or left whole because all of it is
// kept; otherwise "Skip: <folder> (why)".
QString logLine(const Result& result, const QString& folder);

} // namespace LevelDbRewrite

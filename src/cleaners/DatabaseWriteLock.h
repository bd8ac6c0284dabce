#pragma once

#include "core/Error.h"

#include <QString>

struct sqlite3;

// Holds the write lock of a live database while it is read, rebuilt and
// replaced, so that no other program commits into a file that is about to be
// swapped out and erased. A database another program is writing (a hot journal
// or write-ahead log beside it, or a lock that cannot be had at once) is in use,
// and is left exactly as it is (InUse). A file that is no database is not in
// use: the schema check turns it away.
class DatabaseWriteLock {
public:
    explicit DatabaseWriteLock(const QString& path);
    ~DatabaseWriteLock();
    DatabaseWriteLock(const DatabaseWriteLock&) = delete;
    DatabaseWriteLock& operator=(const DatabaseWriteLock&) = delete;

    // InUse, or none when the lock is held or the file is no database.
    Error error() const;

private:
    QString mPath;
    sqlite3* mDatabase = nullptr;
    bool mHeld = false;
    bool mInUse = false;
};

#include "cleaners/DatabaseWriteLock.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

DatabaseWriteLock::DatabaseWriteLock(const QString& path)
    : mPath(path)
{
    // Another program's unfinished writes: rebuilding now would drop them.
    for (const char* suffix : {"-journal", "-wal"}) {
        if (QFileInfo(path + QLatin1StringView(suffix)).size() > 0) {
            mInUse = true;
            return;
        }
    }
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &mDatabase, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK)
        return;
    const int result = sqlite3_exec(mDatabase, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    mHeld = result == SQLITE_OK;
    mInUse = result == SQLITE_BUSY || result == SQLITE_LOCKED;
}

DatabaseWriteLock::~DatabaseWriteLock()
{
    if (mHeld)
        sqlite3_exec(mDatabase, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(mDatabase);
}

Error DatabaseWriteLock::error() const
{
    return mInUse ? Error{Error::Code::InUse, 0, QFile::encodeName(mPath)} : Error{};
}

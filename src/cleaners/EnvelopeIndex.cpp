#include "cleaners/EnvelopeIndex.h"

#include "cleaners/SqliteConnection.h"

#include <QFile>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

// Long enough for Mail's helpers to finish a read, short enough that a lock
// that stays costs the run one second per statement.
constexpr int kBusyTimeoutMilliseconds = 1000;

int appendRow(void* argument, int columns, char** values, char** names)
{
    auto* rows = static_cast<QList<EnvelopeIndex::Row>*>(argument);
    EnvelopeIndex::Row row;
    for (int i = 0; i < columns; ++i)
        row.insert(QString::fromUtf8(names[i]), values[i] ? QString::fromUtf8(values[i]) : u"NULL"_s);
    rows->append(row);
    return SQLITE_OK;
}

} // namespace

bool EnvelopeIndex::open(const QString& path, bool readOnly)
{
    close();
    mPath = path;
    const int flags = readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    const int result = sqlite3_open_v2(QFile::encodeName(path).constData(), &mDatabase, flags, nullptr);
    if (result != SQLITE_OK) {
        mErrorMessage = QString::fromUtf8(mDatabase ? sqlite3_errmsg(mDatabase) : sqlite3_errstr(result));
        close();
        return false;
    }
    sqlite3_busy_timeout(mDatabase, kBusyTimeoutMilliseconds);
    // A file that is no database fails at the first real query, as before. A
    // write-ahead log stays as Mail chose; the rollback modes are per connection.
    QList<Row> mode;
    if (!readOnly && execute(u"PRAGMA secure_delete = ON"_s) && select(u"PRAGMA journal_mode"_s, mode) &&
        mode.value(0).value(u"journal_mode"_s) == u"delete"_s)
        execute(u"PRAGMA journal_mode = PERSIST"_s);
    return true;
}

bool EnvelopeIndex::exec(const QString& sql, int (*callback)(void*, int, char**, char**), void* argument)
{
    char* message = nullptr;
    const int result = sqlite3_exec(mDatabase, sql.toUtf8().constData(), callback, argument, &message);
    if (result == SQLITE_OK)
        return true;
    mErrorMessage = QString::fromUtf8(message ? message : sqlite3_errstr(result));
    sqlite3_free(message);
    return false;
}

bool EnvelopeIndex::select(const QString& query, QList<Row>& rows)
{
    return exec(query, appendRow, &rows);
}

bool EnvelopeIndex::execute(const QString& statement)
{
    return exec(statement, nullptr, nullptr);
}

QString EnvelopeIndex::spentJournal() const
{
    const QString journal = mPath + u"-journal"_s;
    return mDatabase || !QFile::exists(journal) || SqliteConnection::isHotJournal(journal) ? QString() : journal;
}

void EnvelopeIndex::close()
{
    sqlite3_close(mDatabase);
    mDatabase = nullptr;
}

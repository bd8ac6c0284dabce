#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>

struct sqlite3;

// One connection through the SQLite library to a database the rewrites of
// today's stores read or build. Every call answers false (or an empty value) on
// failure and keeps SQLite's result code and message; nothing is thrown. A lock
// another program holds fails at once, with no waiting. Used on the run's
// finding thread only.
class SqliteConnection {
public:
    // A one-argument SQL function: NULL comes in as a null string, and an
    // invalid QVariant goes out as NULL.
    using Function = std::function<QVariant(const QString&)>;

    SqliteConnection() = default;
    ~SqliteConnection() { close(); }
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    // Opens an existing file for reading and writing (never creates one), with
    // its temporary data kept in memory rather than in files of its own.
    bool open(const QString& path);
    void close();

    // Runs one statement with its "?" parameters bound to texts, ignoring its rows.
    bool run(const QString& statement, const QStringList& texts = {});
    // The first row of a query, each column as a QVariant; empty without a row.
    QVariantList firstRow(const QString& query);
    // A hash of every row query returns, in its order, and the number of rows.
    bool digest(const QString& query, QByteArray& hash, qint64& rows);
    // Whether the statement compiles against this database's tables and columns.
    bool compiles(const QString& statement);

    bool addFunction(const QString& name, const Function& function);
    // Whether closing folds the write-ahead log into the file and removes it (the default).
    void setCheckpointOnClose(bool on);

    // Whether the rollback journal at path still holds a write to roll back. As
    // SQLite itself judges it: a committed transaction in journal_mode PERSIST
    // leaves the file with its header zeroed, and only a set first byte counts.
    static bool isHotJournal(const QString& path);

    // SQLite's primary result code of the last failure (SQLITE_BUSY, SQLITE_ERROR...).
    int errorCode() const { return mErrorCode & 0xff; }
    QString errorMessage() const { return mErrorMessage; }

private:
    bool fail(int result);

    sqlite3* mDatabase = nullptr;
    int mErrorCode = 0;
    QString mErrorMessage;
};

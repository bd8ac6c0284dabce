#pragma once

#include <QString>

// The SQLite shell that ships among the application's resources, run as a child
// process for every read and rewrite of a browser database. Each call is one
// shell invocation on one database file; nothing is opened in this process.
//
// The shell normally reads the user's ~/.sqliterc (found through the password
// database, not $HOME) before every command; a ".headers on" or ".mode column"
// there would change what queries print, and with it the schema digests and the
// copied rows. Every invocation therefore names an empty start-up file instead.
class SqliteShell {
public:
    // The shell at path; by default the "sqlite3" resource.
    explicit SqliteShell(QString path = resourcePath());

    static QString resourcePath();
    const QString& path() const { return mPath; }
    bool exists() const;

    // Runs command against forDB and returns what the shell printed on its standard
    // output. With args, the command becomes: command, a space, args in double
    // quotes (".read" with a file name). The exit status is not looked at: a
    // failing statement prints nothing, which the callers' checks catch.
    QString firefox3ExecuteSQL(const QString& command, const QString& args, const QString& forDB) const;
    QString firefox3ExecuteSQL(const QString& command, const QString& forDB) const
    {
        return firefox3ExecuteSQL(command, QString(), forDB);
    }

    // Copies the rows query selects from sourceDB into table of destDB through two
    // work files: a script (".mode insert", ".output", the query) read into the
    // source, which writes one INSERT per row to the output file, then read into
    // the destination. stripQuotes turns quote(blob) columns back into blobs.
    // Returns what the shell printed in the last step.
    QString firefox3ReplicateTable(const QString& table, const QString& usingQuery, const QString& sourceDB,
                                   const QString& destDB, const QString& sourceWorkFile, const QString& destWorkFile,
                                   bool stripQuotes = false) const;

    // The schema as the shell of the platform's era listed it for ".schema": tables,
    // then indexes, then triggers, each by name, internal "sqlite_" objects left
    // out, every statement followed by ";" and a newline. The known-schema digests
    // were taken from this listing; today's ".schema" orders by creation instead.
    QString schema(const QString& database) const;

    // Whether path can be handed to the shell inside double quotes: the shell's
    // argument parser ends the argument at a '"' and reads '\' as an escape, so
    // such a path would name another file.
    static bool isQuotablePath(const QString& path);

private:
    // Reads a file of INSERT statements into destDB in one transaction with
    // synchronous writes off: the work database needs to be durable only once,
    // just before it replaces the live one.
    // The driver script goes to driverFile (the spent query script).
    QString readStatementsInto(const QString& statementsFile, const QString& driverFile, const QString& destDB) const;

    QString mPath;
};

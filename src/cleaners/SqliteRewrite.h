#pragma once

#include "cleaners/SqliteConnection.h"

#include <QList>
#include <QString>
#include <QStringList>

class CleanerContext;

// What a rewrite of one SQLite store removes, and what it must bring through unchanged.
struct SqliteRecipe {
    struct Statement {
        QString sql;
        // Skipped, rather than refusing the store, when the store lacks its
        // table or column (a version before the one that added it).
        bool optional = false;
    };
    // Another live database the statements read, under a schema name of its own.
    struct Attachment {
        QString schema;
        QString path;
    };
    struct Function {
        QString name;
        SqliteConnection::Function function;
    };

    QList<Attachment> attachments;
    QList<Function> functions;
    // Run in this order, in one transaction.
    QList<Statement> deletes;
    // Each answers with the same rows before and after, or the new database is not used.
    QStringList keptQueries;
    // A query answering one number: when it is not zero the store is left to be
    // erased whole instead (nothing in it is kept, or nothing can be removed safely).
    QString eraseWholeWhen;
};

// Rewrites a store of today's browsers and mail clients through the SQLite
// library, without the rows a recipe deletes:
//  - the live database is opened with an exclusive lock, which fails at once
//    when another program has it open; a hot rollback journal is another
//    program's unfinished write, so the store is in use then too;
//  - every statement and kept query must compile against the store's tables
//    and columns, or the store is of an unknown shape;
//  - a copy (its write-ahead log's committed rows included) takes the deletes
//    in one transaction and is written again with VACUUM INTO, so no free page
//    keeps a deleted row; the result must pass the integrity check and answer
//    every kept query as the live database did;
//  - the write-ahead log is folded into the live file, moved aside with the
//    shared-memory index, and the new database takes the live one's place in
//    one rename; the old file, log and index go to the erase engine.
// Whenever a run stops, the path holds the old database or the new one, whole;
// the work files beside it ("<file>.vantlex-copy", "<file>.vantlex-rewritten")
// and the old files ("<file>.vantlex-old", "-wal", "-shm") it left are erased
// by the next run. Anything but Rewritten leaves the store as it was. A dry
// run takes the same decisions from reading alone and changes nothing.
// Used on the run's finding thread only.
namespace SqliteRewrite {

enum class Status {
    Rewritten,    // (a dry run: would be)
    EraseWhole,   // the recipe's eraseWholeWhen said so; nothing was changed
    Unchanged,    // the recipe deletes nothing
    InUse,        // another program has the store open
    UnknownShape, // a statement does not fit the store, or it is no database
    NotReplaced,  // the new database failed its checks
    Failed,       // reading, writing or renaming failed
};

struct Result {
    Status status = Status::Failed;
    // SQLite's or the system's message, for the log.
    QString detail;
};

Result run(CleanerContext& context, const QString& path, const SqliteRecipe& recipe);

// The line the log gives a result that left the store as it was; empty otherwise.
QString logLine(const Result& result, const QString& path);

} // namespace SqliteRewrite

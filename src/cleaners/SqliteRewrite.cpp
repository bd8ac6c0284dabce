#include "cleaners/SqliteRewrite.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/DatabaseFiles.h"
#include "core/DiskSync.h"
#include "core/FileReplace.h"
#include "erase/EraseQueue.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>
#include <sys/stat.h>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace SqliteRewrite {

namespace {

struct WorkFiles {
    explicit WorkFiles(const QString& path)
        : copy(path + u".vantlex-copy"_s)
        , rewritten(path + u".vantlex-rewritten"_s)
        , oldCopy(path + u".vantlex-old"_s)
        , oldLog(oldCopy + u"-wal"_s)
        , oldIndex(oldCopy + u"-shm"_s)
        , oldJournal(oldCopy + u"-journal"_s)
    {
    }
    QString copy, rewritten, oldCopy, oldLog, oldIndex, oldJournal;
};

Result failure(Status status, const QString& detail)
{
    return {status, detail};
}

// A lock another program holds, a statement that does not fit (or no database
// at all), or anything else.
Result failure(const SqliteConnection& connection)
{
    switch (connection.errorCode()) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {Status::InUse, connection.errorMessage()};
    case SQLITE_ERROR:
    case SQLITE_NOTADB:
        return {Status::UnknownShape, connection.errorMessage()};
    default:
        return {Status::Failed, connection.errorMessage()};
    }
}

class Rewrite {
public:
    Rewrite(CleanerContext& context, const QString& path, const SqliteRecipe& recipe)
        : mContext(context)
        , mPath(path)
        , mRecipe(recipe)
        , mFiles(path)
    {
    }
    ~Rewrite()
    {
        // What they hold was read from the store; a rewrite that got as far as
        // the swap has already renamed the second one away.
        if (!mContext.dryRun) {
            DatabaseFiles::eraseWorkDatabase(mContext.eraseQueue(), mFiles.copy);
            DatabaseFiles::eraseWorkDatabase(mContext.eraseQueue(), mFiles.rewritten);
        }
    }

    Result run()
    {
        if (!QFileInfo(mPath).isFile())
            return failure(Status::Failed, u"no such file"_s);
        // Another program's unfinished write, which opening would roll back.
        for (const QString& path : livePaths()) {
            if (SqliteConnection::isHotJournal(path + u"-journal"_s))
                return failure(Status::InUse, u"hot journal"_s);
        }
        SqliteConnection live;
        if (!openLive(live, mPath))
            return failure(live);
        // The lock stays until the new database is in place (a dry run only reads).
        if (!mContext.dryRun && (!live.run(u"BEGIN EXCLUSIVE"_s) || !live.run(u"COMMIT"_s)))
            return failure(live);
        if (!mContext.dryRun)
            sweepLeftovers();
        if (!prepare(live, true))
            return failure(live);

        QList<SqliteRecipe::Statement> deletes;
        for (const SqliteRecipe::Statement& statement : mRecipe.deletes) {
            if (live.compiles(statement.sql))
                deletes.append(statement);
            else if (!statement.optional)
                return failure(live);
        }
        QList<QByteArray> before;
        if (!digests(live, before))
            return failure(live);
        if (!mRecipe.eraseWholeWhen.isEmpty()) {
            const QVariantList answer = live.firstRow(mRecipe.eraseWholeWhen);
            if (answer.isEmpty())
                return failure(live);
            if (answer.first().toLongLong() != 0)
                return {Status::EraseWhole, {}};
        }
        if (deletes.isEmpty())
            return {Status::Unchanged, {}};
        if (mContext.dryRun)
            return rewritten();
        detach(live);

        if (!live.run(u"VACUUM INTO ?"_s, {mFiles.copy}))
            return failure(live);
        if (const Result result = deleteRows(deletes); result.status != Status::Rewritten)
            return result;
        if (const Result result = check(before); result.status != Status::Rewritten)
            return result;
        return swap(live);
    }

private:
    // A live database opened to read it as another program left it: for
    // writing, because a read-only connection to a database in write-ahead-log
    // mode leaves a log and an index behind; in exclusive locking mode, so that
    // no shared-memory index is made and a program holding the file open is
    // found at once. A log that was there is left as it was on closing (one
    // the connection made itself is folded in and removed).
    bool openLive(SqliteConnection& connection, const QString& path)
    {
        if (!connection.open(path) || !connection.run(u"PRAGMA locking_mode = EXCLUSIVE"_s))
            return false;
        if (QFileInfo::exists(path + u"-wal"_s))
            connection.setCheckpointOnClose(false);
        // Reading the schema takes the first lock.
        return !connection.firstRow(u"SELECT count(*) FROM sqlite_schema"_s).isEmpty();
    }

    bool prepare(SqliteConnection& connection, bool isLive)
    {
        for (const SqliteRecipe::Function& function : mRecipe.functions) {
            if (!connection.addFunction(function.name, function.function))
                return false;
        }
        if (!isLive && !connection.run(u"PRAGMA locking_mode = EXCLUSIVE"_s))
            return false;
        for (const SqliteRecipe::Attachment& attachment : mRecipe.attachments) {
            if (!connection.run(u"ATTACH ? AS %1"_s.arg(attachment.schema), {attachment.path}))
                return false;
            if (QFileInfo::exists(attachment.path + u"-wal"_s))
                connection.setCheckpointOnClose(false);
            if (connection.firstRow(u"SELECT count(*) FROM %1.sqlite_schema"_s.arg(attachment.schema)).isEmpty())
                return false;
        }
        return true;
    }

    // Lets the attached databases go, so that the work connections can lock them.
    void detach(SqliteConnection& connection)
    {
        for (const SqliteRecipe::Attachment& attachment : mRecipe.attachments)
            connection.run(u"DETACH %1"_s.arg(attachment.schema));
    }

    bool digests(SqliteConnection& connection, QList<QByteArray>& hashes)
    {
        for (const QString& query : QStringList{u"PRAGMA user_version"_s} + mRecipe.keptQueries) {
            QByteArray hash;
            qint64 rows = 0;
            if (!connection.digest(query, hash, rows))
                return false;
            hashes.append(hash);
        }
        return true;
    }

    Result deleteRows(const QList<SqliteRecipe::Statement>& deletes)
    {
        SqliteConnection work;
        // A rollback journal would leave the deleted rows in a file unlinked
        // unerased. Zeroing the deleted cells would only slow the copy down: it is
        // erased, and VACUUM INTO writes only the rows that stay.
        if (!work.open(mFiles.copy) || !work.run(u"PRAGMA journal_mode = MEMORY"_s) ||
            !work.run(u"PRAGMA secure_delete = OFF"_s) || !prepare(work, false) || !work.run(u"BEGIN"_s))
            return failure(work);
        for (const SqliteRecipe::Statement& statement : deletes) {
            if (!work.run(statement.sql))
                return failure(work);
        }
        if (!work.run(u"COMMIT"_s) || !work.run(u"VACUUM INTO ?"_s, {mFiles.rewritten}))
            return failure(work);
        work.close();
        DatabaseFiles::eraseWorkDatabase(mContext.eraseQueue(), mFiles.copy);
        return {Status::Rewritten, {}};
    }

    Result check(const QList<QByteArray>& before)
    {
        SqliteConnection result;
        if (!result.open(mFiles.rewritten) || !prepare(result, false))
            return failure(result);
        const QVariantList integrity = result.firstRow(u"PRAGMA main.integrity_check"_s);
        QList<QByteArray> after;
        if (integrity.value(0).toString() != u"ok"_s || !digests(result, after) || after != before)
            return failure(Status::NotReplaced, result.errorMessage());
        return {Status::Rewritten, {}};
    }

    Result swap(SqliteConnection& live)
    {
        struct stat status {};
        if (::stat(QFile::encodeName(mPath).constData(), &status) == 0)
            ::chmod(QFile::encodeName(mFiles.rewritten).constData(), status.st_mode & 07777);
        // Every committed row of the log into the live file, so that the file
        // alone is the whole old database once the log is moved aside: a log
        // left beside the new database would be played into it.
        live.setCheckpointOnClose(false);
        const QVariantList checkpoint = live.firstRow(u"PRAGMA wal_checkpoint(FULL)"_s);
        if (checkpoint.isEmpty() || checkpoint.first().toLongLong() != 0)
            return failure(live);
        // A persisted rollback journal still holds pages of the old database.
        const std::pair<QString, QString> moves[]{{mPath + u"-wal"_s, mFiles.oldLog},
                                                  {mPath + u"-shm"_s, mFiles.oldIndex},
                                                  {mPath + u"-journal"_s, mFiles.oldJournal}};
        QString stuck;
        for (const auto& [from, to] : moves) {
            // A plain rename: a copy in its place would leave the log's blocks unerased.
            if (QFileInfo::exists(from) &&
                ::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0) {
                stuck = QFileInfo(from).fileName();
                break;
            }
        }
        for (const QString& old : {mFiles.oldLog, mFiles.oldIndex, mFiles.oldJournal}) {
            if (QFileInfo::exists(old))
                mContext.queue(old);
        }
        if (!stuck.isEmpty())
            return failure(Status::Failed, u"could not move %1 aside"_s.arg(stuck));
        DiskSync::folder(QFile::encodeName(QFileInfo(mPath).absolutePath()));
        const Error replaced = FileReplace::withFile(QFile::encodeName(mPath), QFile::encodeName(mFiles.rewritten),
                                                     FileReplace::Strategy::KeepOld, QFile::encodeName(mFiles.oldCopy));
        if (!replaced.ok())
            return failure(Status::Failed, QString::fromLocal8Bit(replaced.reason()));
        return rewritten();
    }

    Result rewritten()
    {
        mContext.eraseQueue().rewrite(mPath, mFiles.oldCopy);
        mContext.queue(mFiles.oldCopy);
        return {Status::Rewritten, {}};
    }

    QStringList livePaths() const
    {
        QStringList paths{mPath};
        for (const SqliteRecipe::Attachment& attachment : mRecipe.attachments)
            paths.append(attachment.path);
        return paths;
    }

    void sweepLeftovers()
    {
        for (const QString& old : {mFiles.oldCopy, mFiles.oldLog, mFiles.oldIndex, mFiles.oldJournal})
            mContext.queueLeftover(old);
        DatabaseFiles::eraseWorkDatabase(mContext.eraseQueue(), mFiles.copy);
        DatabaseFiles::eraseWorkDatabase(mContext.eraseQueue(), mFiles.rewritten);
    }

    CleanerContext& mContext;
    const QString mPath;
    const SqliteRecipe& mRecipe;
    const WorkFiles mFiles;
};

} // namespace

Result run(CleanerContext& context, const QString& path, const SqliteRecipe& recipe)
{
    return Rewrite(context, path, recipe).run();
}

QString logLine(const Result& result, const QString& path)
{
    const QString name = QFileInfo(path).fileName();
    switch (result.status) {
    case Status::InUse:
        return u"%1 is in use by another program - not rewritten."_s.arg(name);
    case Status::UnknownShape:
        return u"%1 lacks the tables or columns this version needs (%2) - not rewritten."_s.arg(name, result.detail);
    case Status::NotReplaced:
        return u"%1 lost rows or failed its integrity check while it was rewritten - not replaced."_s.arg(name);
    case Status::Failed:
        return u"%1 could not be rewritten (%2) - left as it was."_s.arg(name, result.detail);
    case Status::Rewritten:
    case Status::EraseWhole:
    case Status::Unchanged:
        break;
    }
    return {};
}

} // namespace SqliteRewrite

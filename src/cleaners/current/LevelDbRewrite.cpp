#include "cleaners/current/LevelDbRewrite.h"

#include "cleaners/CleanerContext.h"
#include "core/DiskSync.h"
#include "erase/EraseQueue.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <leveldb/db.h>
#include <leveldb/env.h>
#include <leveldb/write_batch.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace LevelDbRewrite {

namespace {

using Entries = std::vector<std::pair<std::string, std::string>>;

QByteArray native(const QString& path)
{
    return QFile::encodeName(path);
}

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

// Every file the databases give up is moved into one folder, erased with it.
class KeepRemovedFiles : public leveldb::EnvWrapper {
public:
    explicit KeepRemovedFiles(std::string folder)
        : EnvWrapper(leveldb::Env::Default())
        , mFolder(std::move(folder))
    {
    }
    leveldb::Status RemoveFile(const std::string& path) override
    {
        return target()->RenameFile(path, mFolder + '/' + std::to_string(++mRemoved));
    }

private:
    const std::string mFolder;
    std::atomic<int> mRemoved{0}; // the library removes from its compaction thread too
};

// The live database's LOCK file, held with both lock kinds a LevelDB may take
// (POSIX record locks, as the library does, and whole-file locks) while the
// folder is copied and swapped. A folder without one has no owner.
class LiveLock {
public:
    explicit LiveLock(const QString& folder)
        : mFd(::open(native(folder + u"/LOCK"_s).constData(), O_RDWR | O_CLOEXEC))
        , mMissing(mFd < 0 && errno == ENOENT)
    {
    }
    ~LiveLock()
    {
        if (mFd >= 0)
            ::close(mFd);
    }
    LiveLock(const LiveLock&) = delete;
    LiveLock& operator=(const LiveLock&) = delete;

    bool take()
    {
        if (mFd < 0)
            return mMissing;
        struct flock record {};
        record.l_type = F_WRLCK;
        record.l_whence = SEEK_SET;
        return ::flock(mFd, LOCK_EX | LOCK_NB) == 0 && ::fcntl(mFd, F_SETLK, &record) == 0;
    }

private:
    const int mFd;
    const bool mMissing;
};

leveldb::Options options(leveldb::Env* env, bool create)
{
    leveldb::Options result;
    result.env = env;
    result.paranoid_checks = true;
    result.create_if_missing = create;
    result.error_if_exists = create;
    return result;
}

bool readAll(leveldb::DB& db, Entries& entries, leveldb::Status& status)
{
    leveldb::ReadOptions read;
    read.verify_checksums = true;
    read.fill_cache = false;
    const std::unique_ptr<leveldb::Iterator> it(db.NewIterator(read));
    for (it->SeekToFirst(); it->Valid(); it->Next())
        entries.emplace_back(it->key().ToString(), it->value().ToString());
    status = it->status();
    return status.ok();
}

Result failure(Status status, const leveldb::Status& detail)
{
    return {status, QString::fromStdString(detail.ToString())};
}

class Rewrite {
public:
    Rewrite(CleanerContext& context, const QString& folder, const Keep& keep)
        : mContext(context)
        , mFolder(folder)
        , mKeep(keep)
        , mCopy(folder + u".vantlex-copy"_s)
        , mRewritten(folder + u".vantlex-rewritten"_s)
        , mRemoved(folder + u".vantlex-removed"_s)
        , mEnv(native(mRemoved).toStdString())
    {
    }
    ~Rewrite()
    {
        if (mContext.dryRun)
            return;
        eraseNow(mCopy);
        eraseNow(mRemoved);
        // Once swapped, it holds the old database, queued with the run.
        if (!mSwapped)
            eraseNow(mRewritten);
    }

    Result run()
    {
        LiveLock lock(mFolder);
        if (!lock.take())
            return {Status::InUse, {}};
        if (mContext.dryRun)
            return rewritten();
        for (const QString& work : {mCopy, mRewritten, mRemoved})
            eraseNow(work);
        if (!QDir().mkdir(mRemoved) || !copyFolder())
            return {Status::Failed, systemError()};

        Entries all, kept;
        if (const Result read = readCopy(all); read.status != Status::Rewritten)
            return read;
        for (const auto& entry : all) {
            if (mKeep(entry.first))
                kept.push_back(entry);
        }
        if (kept.size() == all.size())
            return {Status::Unchanged, {}};
        if (const Result written = write(kept); written.status != Status::Rewritten)
            return written;
        return swap();
    }

private:
    bool copyFolder()
    {
        if (!QDir().mkdir(mCopy))
            return false;
        const QDir live(mFolder);
        for (const QString& name : live.entryList(QDir::Files | QDir::Hidden | QDir::NoSymLinks)) {
            if (!QFile::copy(live.filePath(name), mCopy + u'/' + name))
                return false;
        }
        return true;
    }

    Result readCopy(Entries& entries)
    {
        leveldb::DB* opened = nullptr;
        leveldb::Status status = leveldb::DB::Open(options(&mEnv, false), native(mCopy).toStdString(), &opened);
        if (!status.ok())
            return failure(Status::Unreadable, status);
        const std::unique_ptr<leveldb::DB> db(opened);
        if (!readAll(*db, entries, status))
            return failure(Status::Unreadable, status);
        return {Status::Rewritten, {}};
    }

    // The kept entries, compacted into tables as the browser's own writes end up.
    Result write(const Entries& kept)
    {
        const std::string path = native(mRewritten).toStdString();
        leveldb::DB* opened = nullptr;
        leveldb::Status status = leveldb::DB::Open(options(&mEnv, true), path, &opened);
        if (!status.ok())
            return failure(Status::Failed, status);
        std::unique_ptr<leveldb::DB> db(opened);
        leveldb::WriteBatch batch;
        for (const auto& [key, value] : kept)
            batch.Put(key, value);
        leveldb::WriteOptions sync;
        sync.sync = true;
        status = db->Write(sync, &batch);
        if (!status.ok())
            return failure(Status::Failed, status);
        db->CompactRange(nullptr, nullptr);
        db.reset();

        status = leveldb::DB::Open(options(&mEnv, false), path, &opened);
        if (!status.ok())
            return failure(Status::NotReplaced, status);
        db.reset(opened);
        Entries readBack;
        if (!readAll(*db, readBack, status) || readBack != kept)
            return failure(Status::NotReplaced, status);
        return {Status::Rewritten, {}};
    }

    Result swap()
    {
        struct stat live {};
        if (::stat(native(mFolder).constData(), &live) == 0) {
            ::chmod(native(mRewritten).constData(), live.st_mode & 07777);
            for (const QString& name : QDir(mRewritten).entryList(QDir::Files | QDir::Hidden))
                ::chmod(native(mRewritten + u'/' + name).constData(), live.st_mode & 0666);
        }
        DiskSync::folder(native(mRewritten));
        if (::renameat2(AT_FDCWD, native(mRewritten).constData(), AT_FDCWD, native(mFolder).constData(),
                        RENAME_EXCHANGE) != 0)
            return {Status::Failed, systemError()};
        mSwapped = true;
        DiskSync::folder(native(QFileInfo(mFolder).absolutePath()));
        mContext.queue(mRewritten);
        return rewritten(mRewritten);
    }

    Result rewritten(const QString& old = {})
    {
        mContext.eraseQueue().rewrite(mFolder, old);
        return {Status::Rewritten, {}};
    }

    // A work folder's files are overwritten and removed at once, as a rewrite's work files are.
    void eraseNow(const QString& folder)
    {
        if (!QFileInfo(folder).isDir())
            return;
        QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
        while (it.hasNext())
            mContext.eraseQueue().eraseNow(it.next());
        QDir(folder).removeRecursively();
    }

    CleanerContext& mContext;
    const QString mFolder;
    const Keep& mKeep;
    const QString mCopy, mRewritten, mRemoved;
    KeepRemovedFiles mEnv;
    bool mSwapped = false;
};

} // namespace

Result run(CleanerContext& context, const QString& folder, const Keep& keep)
{
    return Rewrite(context, folder, keep).run();
}

QString logLine(const Result& result, const QString& folder)
{
    switch (result.status) {
    case Status::Rewritten:
    case Status::Unchanged:
        return u"Shred: "_s + folder;
    case Status::InUse:
        return u"Skip: %1 (in use by another program)"_s.arg(folder);
    case Status::Unreadable:
        return u"Skip: %1 (not a database this version reads: %2)"_s.arg(folder, result.detail);
    case Status::NotReplaced:
        return u"Skip: %1 (the rewritten database lost entries - not replaced)"_s.arg(folder);
    case Status::Failed:
        break;
    }
    return u"Skip: %1 (could not be rewritten: %2)"_s.arg(folder, result.detail);
}

} // namespace LevelDbRewrite

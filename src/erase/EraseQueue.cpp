#include "erase/EraseQueue.h"

#include "erase/FileAccess.h"
#include "erase/HoldingFolder.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

EraseQueue::EraseQueue(Preferences& preferences, bool dryRun)
    : mPreferences(preferences)
    , mDryRun(dryRun)
{
}

EraseQueue::~EraseQueue() = default;

void EraseQueue::setApplication(const QString& name)
{
    mApplication = name;
    if (!mLookedFor.contains(name))
        mLookedFor.append(name);
}

void EraseQueue::erase(const QString& path)
{
    mPaths.append(path);
    mApplications.append(mApplication);
}

void EraseQueue::rewrite(const QString& path, const QString& oldCopy)
{
    for (const Rewrite& done : std::as_const(mRewrites)) {
        if (done.path == path)
            return;
    }
    mRewrites.append({mApplication, path, oldCopy});
}

RunPlan EraseQueue::plan() const
{
    return RunPlan::measure(mPaths, mApplications, mRewrites, mPassedOver, mLookedFor);
}

bool EraseQueue::setAside(const QString& path)
{
    if (mDryRun)
        return false;
    const QByteArray native = QFile::encodeName(path);
    struct stat status {};
    if (::lstat(native.constData(), &status) != 0 || !S_ISREG(status.st_mode) || status.st_nlink > 1)
        return false;
    const Expected<QByteArray> holding = HoldingFolder::setAside(native);
    if (!holding.ok())
        return false;
    erase(QFile::decodeName(holding.value));
    return true;
}

Error EraseQueue::eraseNow(const QString& path)
{
    if (mDryRun)
        return {};
    const QByteArray native = QFile::encodeName(path);
    struct stat status {};
    if (::lstat(native.constData(), &status) != 0)
        return {};
    Error overwritten;
    if (S_ISREG(status.st_mode) && status.st_nlink == 1) {
        if (!mEngine)
            mEngine = std::make_unique<FileAccess>(mPreferences);
        if ((status.st_mode & S_IWUSR) == 0)
            ::chmod(native.constData(), (status.st_mode & 07777) | S_IRUSR | S_IWUSR);
        overwritten = mEngine->overwriteWorkFile(native);
    }
    if (::unlink(native.constData()) != 0 && overwritten.ok())
        return {Error::Code::RemoveFailed, errno, native};
    return overwritten;
}

QStringList EraseQueue::takePaths()
{
    mApplications.clear();
    return std::exchange(mPaths, {});
}

QStringList EraseQueue::takeTouches()
{
    return std::exchange(mTouches, {});
}

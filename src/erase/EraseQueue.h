#pragma once

#include "core/Error.h"
#include "erase/RunPlan.h"

#include <QString>
#include <QStringList>

#include <memory>

class FileAccess;
class Preferences;

// The one way user data leaves during a run. The cleaners queue what the run
// erases and what it re-creates empty; the rewrites hand over their old copies
// and work files. Queued paths go through the erase engine in the shredding
// stage; work files go through it at once, so that nothing a rewrite read or
// wrote is unlinked with its blocks left as they were.
//
// Filled on the finding thread, emptied by the shredding thread; the stages
// never overlap. A dry run queues as usual but erases and sets aside nothing.
class EraseQueue {
public:
    explicit EraseQueue(Preferences& preferences, bool dryRun = false);
    ~EraseQueue();
    EraseQueue(const EraseQueue&) = delete;
    EraseQueue& operator=(const EraseQueue&) = delete;

    // The application the next paths, rewrites and passing over belong to.
    void setApplication(const QString& name);
    // Its cleaners are not called: it is running.
    void passOver(const QString& application) { mPassedOver.append(application); }
    // A file rebuilt where it lies (or that a dry run would rebuild); oldCopy
    // holds the old contents once the new file is in place.
    void rewrite(const QString& path, const QString& oldCopy = QString());

    // Erased in the shredding stage, in the order queued.
    void erase(const QString& path);
    bool isQueued(const QString& path) const { return mPaths.contains(path); }
    const QStringList& paths() const { return mPaths; }

    // Re-created as an empty file after the erase (a mailbox its client expects).
    void touch(const QString& path) { mTouches.append(path); }
    const QStringList& touches() const { return mTouches; }

    // An old copy that an interrupted run left of a file it rewrote: when it holds
    // contents of its own, it is moved into a holding folder and that is queued.
    // True when it was. A second name of a live file is left to eraseNow.
    bool setAside(const QString& path);

    // A rewrite's work file (or a rebuilt database that is not used): its
    // contents are overwritten on the device and the file removed, now and
    // without naming it in the log. A file that has other names is only
    // unlinked: those names still hold the contents. Returns the first failure:
    // the overwrite's (which the log says, as for every file) or the removal's.
    Error eraseNow(const QString& path);

    // What the shredding stage takes over; the queue is left empty.
    QStringList takePaths();
    QStringList takeTouches();

    // What the run would erase and rewrite, measured now; the paths stay queued.
    RunPlan plan() const;
    const QList<Rewrite>& rewrites() const { return mRewrites; }
    const QStringList& passedOver() const { return mPassedOver; }
    const QStringList& lookedFor() const { return mLookedFor; }

private:
    Preferences& mPreferences;
    const bool mDryRun;
    QStringList mPaths;
    QStringList mApplications; // of each path
    QStringList mTouches;
    QString mApplication;
    QList<Rewrite> mRewrites;
    QStringList mPassedOver;
    QStringList mLookedFor;
    std::unique_ptr<FileAccess> mEngine;
};

// Where the custom processes' paths come from: each path of a process is
// written to the log and queued.
class CustomPathSource {
public:
    virtual ~CustomPathSource() = default;
    virtual void handOverPaths(const QString& process, EraseQueue& queue) = 0;
};

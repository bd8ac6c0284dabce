#pragma once

#include "cleaners/CleanerModels.h"
#include "cleaners/SqliteShell.h"

#include <QLatin1StringView>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>

class ApplicationFlags;
class EraseQueue;
class Preferences;

// What a cleaner sees of a run, and the conventions every cleaner follows when
// it writes to the activity log and queues paths:
//  - a header line naming the application and version;
//  - for a gated cleaner, "Not enabled - check preferences to enable." and an
//    empty line when the application is not enabled, and nothing more;
//  - per item, "Shred: " with the path as written (with "~") and the expanded
//    path queued, or "Skip: " with the path as written;
//  - an empty line at the end.
// Used on the run's finding thread only.
class CleanerContext {
public:
    CleanerContext(EraseQueue& queue, const ApplicationFlags& isRunning, QVariantMap& customStatus,
                   Preferences& preferences, bool dryRun = false, CleanerModels models = {});

    const ApplicationFlags& mIsRunning;
    QVariantMap& mCustomShredTHStatus;
    Preferences& preferencesInstance;
    // A dry run changes no file: it only says what a run would do.
    const bool dryRun;
    CleanerModels models;

    // The current value of a boolean setting.
    bool setting(QLatin1StringView key) const;
    bool browserIsEnabled(const QString& name) const;

    // "~/..." with the home folder in place of the "~".
    static QString expandTilde(const QString& path);

    void log(const QString& line) const;
    void header(const QString& title) const { log(title); }
    void endCleaner() const { log(QString()); }
    // True when the application is enabled; otherwise writes why not and the empty line.
    bool gate(const QString& applicationName) const;

    // "Shred: ~/path" and the expanded path queued, or "Skip: ~/path".
    void shredOrSkip(bool on, const QString& tildePath);
    // "Shred: /full/path" and the path queued, or "Skip: /full/path".
    void shredOrSkipFullPath(bool on, const QString& fullPath);
    void queue(const QString& fullPath);
    // The old copy an interrupted run left of a file it rewrote (a database moved
    // aside, the old settings of a JSON edit): when it holds contents of its own
    // it is set aside and queued, to be erased rather than unlinked with its
    // blocks left on the disk. A second name of the live file is only removed.
    void queueLeftover(const QString& fullPath);
    // What the run erases and re-creates, and where rewrites leave their old files.
    EraseQueue& eraseQueue() const { return mQueue; }

    // The shell through which browser databases are read and rebuilt.
    const SqliteShell& sqliteShell() const { return mSqliteShell; }
    void setSqliteShellForTesting(const QString& path) { mSqliteShell = SqliteShell(path); }

    // Answers browserIsEnabled in place of the settings, to change the answer mid-cleaner.
    void setBrowserIsEnabledForTesting(std::function<bool(const QString&)> answer) { mIsEnabled = std::move(answer); }

private:
    EraseQueue& mQueue;
    std::function<bool(const QString&)> mIsEnabled;
    SqliteShell mSqliteShell;
};

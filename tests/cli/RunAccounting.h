#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

// What a run did to a home, held against what it was given to do: the paths
// queued for erasure, and the entries of the home before the run.

// The paths a run may erase: those a dry run lists and those the run's log names.
// A path covers itself and everything below it.
class QueuedPaths {
public:
    // The paths to erase of vantle-cli shred --dry-run --json.
    void addDryRun(const QString& output);
    // The paths of a run log's "Shred: " lines ("~" is the home) and the holding
    // folders it erased for an interrupted run.
    void addLog(const QByteArray& log, const QString& home);

    bool covers(const QString& path) const;
    qsizetype size() const { return m_paths.size(); }

private:
    QStringList m_paths;
};

// Every entry of a home (files, folders, links), each file with a digest of its
// contents unless the queue covers it.
class HomeSnapshot {
public:
    HomeSnapshot(const QString& home, const QueuedPaths& queued);

    bool operator==(const HomeSnapshot&) const = default;
    // Every entry, relative to the home.
    QStringList paths() const { return m_entries.keys(); }
    // Entries no longer there that the queue does not cover.
    QStringList goneOutside(const QueuedPaths& queued) const;
    // Files the queue does not cover whose contents changed, but those below the
    // rewritten prefixes (relative paths: the databases and settings a run rebuilds).
    QStringList changedOutside(const QueuedPaths& queued, const QStringList& rewritten) const;

private:
    static QHash<QString, QByteArray> entries(const QString& home, const QueuedPaths* skipContents);

    QString m_home;
    QHash<QString, QByteArray> m_entries; // relative path -> digest ("" when not taken)
};

// What a run leaves only while it works, relative to the home: the rewrites'
// work files and the erase's holding folders. None may outlive a run.
QStringList workFiles(const QString& home);

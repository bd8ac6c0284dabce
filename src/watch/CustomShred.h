#pragma once

#include "erase/EraseQueue.h"

#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <mutex>

class UserDefaults;

// The user's own processes for the watch, each with files and folders to erase
// when it quits. Stored as one archived dictionary under mProcessDictionary:
// process string -> list of entries {path, keep (folders only)}.
//
// Talks to the watch and the run through notifications, and hands its paths to
// a run's queue when the custom-processes cleaner asks; both may come on any
// thread. The edits come from the main thread.
class CustomShred : public QObject, public CustomPathSource {
    Q_OBJECT

public:
    explicit CustomShred(UserDefaults& defaults, QObject* parent = nullptr);
    ~CustomShred() override;

    static CustomShred* sharedInstance();
    static CustomShred& createSharedInstance();
    static void resetSharedInstanceForTesting();

    QStringList processes() const;
    QVariantList paths(const QString& process) const;

    // Each answers false, changing nothing, where the pane would beep.
    bool addProcess(const QString& process);
    bool deleteProcess(const QString& process);
    bool addPath(const QString& process, const QString& path);
    bool deletePath(const QString& process, const QString& path);
    // Only folders can be kept (re-created empty after a run).
    bool setKeep(const QString& process, const QString& path, bool keep);
    // Disabling is not offered: the answer is always a beep, after saving.
    bool disableProcess();

    // The stored form of a process dictionary, and back: empty for damaged data or
    // data of any other shape (CustomShredArchive.cpp).
    static QByteArray archive(const QVariantMap& dictionary);
    static QVariantMap unarchive(const QByteArray& data);

    void handOverPaths(const QString& process, EraseQueue& queue) override;

signals:
    void processesChanged();

private:
    void save();
    void initStatus(QVariantMap& status);
    void copyAndClearStatus(QVariantMap& status);
    void recreateKeptFolders();
    qsizetype indexOfPath(const QVariantList& entries, const QString& path) const;

    UserDefaults& mUserDefaults;
    mutable std::recursive_mutex mMutex;
    QVariantMap mProcessDictionary;
    QStringList mProcessArray;
    bool mUserDidMakeChange = false;
    QList<quint64> mObservers;
};

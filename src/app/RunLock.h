#pragma once

#include <QString>

#include <mutex>

// The one run per home: an flock on a file in the settings folder, held for a
// whole run by whichever process erases (the desktop application, its watch,
// vantle-cli). The file names its holder (program and process id) for the
// process that finds it taken. The kernel lets the lock go with its process, so
// a killed run never blocks the next; the descriptor is closed on exec, so no
// child outlives the run holding it.
//
// Usable from any thread: a run takes it on the main thread and its shredding
// thread lets it go.
class RunLock {
public:
    enum class Outcome {
        Held,        // this object holds the lock
        Busy,        // another run holds it (this object's own included): holder() names it
        Unavailable, // the lock file cannot be opened or locked (a warning says so): runs are not kept apart
    };

    // Beside the settings file of the current home.
    static QString defaultPath();

    explicit RunLock(QString path = defaultPath());
    ~RunLock();
    RunLock(const RunLock&) = delete;
    RunLock& operator=(const RunLock&) = delete;

    Outcome tryLock();
    // Waits as long as another run holds it.
    Outcome lock();
    void unlock();

    // The run that holds the lock, as its file names it; empty in the moment
    // between another process taking the lock and writing its name.
    struct Holder {
        QString program;
        qint64 processId = 0;
    };
    Holder holder() const;

private:
    Outcome take(bool wait);
    Outcome unavailable(int error);

    const QString m_path;
    mutable std::mutex m_mutex;
    int m_fd = -1;
};

#pragma once

#include <QString>

// Where the erase engine shows its progress. The engine calls it on the main
// thread and waits, so the display is never behind the file being written.
class EraseDisplay {
public:
    virtual ~EraseDisplay() = default;
    virtual void showProgress(double percent) = 0;
    // The path-list entry being erased (not the random names its files get).
    virtual void showFileName(const QString& name) = 0;
    // Bytes overwritten so far of those the run erases.
    virtual void showBytes(quint64 done, quint64 total)
    {
        Q_UNUSED(done);
        Q_UNUSED(total);
    }
    // A run's warning about what overwriting cannot reach; shown beside the log
    // by the front ends that have somewhere to show it.
    virtual void showWarning(const QString& text) { Q_UNUSED(text); }
};

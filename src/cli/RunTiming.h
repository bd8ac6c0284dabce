#pragma once

#include <QElapsedTimer>
#include <QString>

// The wall time and peak memory of a run's two stages, for shred --timing: the
// finding stage (cleaners, database and settings rewrites) and the shredding
// stage (overwrite, rename, removal). The peaks are the highest resident sizes
// so far, of the program and of its largest waited-for child (the SQLite shell).
class RunTiming {
public:
    // The run begins now.
    void start();
    // The finding stage ended now.
    void findingDone();
    // The run ended now; the lines to print, one per stage.
    QString report();

    // "peak N KiB (children N KiB)": the highest resident sizes so far.
    static QString peaks();

private:
    QString stage(const char* name, qint64 milliseconds) const;

    QElapsedTimer m_timer;
    qint64 m_findingMilliseconds = -1;
    QString m_finding;
};

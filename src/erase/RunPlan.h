#pragma once

#include "core/Error.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// A database or settings file a run rebuilds where it lies. When the rebuild
// swaps a new file in, the old contents wait under oldCopy (queued with the run)
// until they are erased.
struct Rewrite {
    QString application;
    QString path;
    QString oldCopy;
};

// What a run's finding stage decided, by application: the paths it erases, the
// files it rewrites, the applications it passed over because they were running
// and those whose cleaners it called.
struct RunPlan {
    struct Item {
        QString application;
        QString path;
        quint64 files = 0;
        quint64 bytes = 0;
    };
    QList<Item> items;
    QList<Rewrite> rewrites;
    QStringList passedOver;
    QStringList lookedFor;

    quint64 files() const;
    quint64 bytes() const;

    // The queued paths as they are now, each nested or repeated one counted with
    // the outermost. An old copy that a dry run never made is measured by the
    // live file it would be.
    static RunPlan measure(const QStringList& paths, const QStringList& applications, QList<Rewrite> rewrites,
                           QStringList passedOver, QStringList lookedFor);
};

// What the erase of a path list did, counted by the engine as it went.
struct EraseTally {
    qint64 items = 0;  // outermost paths erased whole
    qint64 files = 0;  // everything but folders, nested paths once
    quint64 bytes = 0; // of the regular files among them
    qint64 failed = 0; // outermost paths that stayed, wholly or in part
    QString firstFailure;
    qint64 left = 0;           // outermost paths not begun because the run was stopped
    qint64 notOverwritten = 0; // files removed with their contents as they were
    bool stopped = false;
    // What the log said went wrong or was let be, in order.
    QList<Error> errors;

    // Items not dealt with as asked: left in place, not begun, or removed unwritten.
    qint64 incomplete() const { return failed + left + notOverwritten; }
};

namespace ErasePaths {

// For each path, whether it is an item of its own: it exists, and no other
// existing path of the list holds it or is the same path given earlier.
QList<bool> outermost(const QList<QByteArray>& paths);

// The files at or below path as the erase counts them (a symbolic link is a
// file, never entered; nothing behind a mount) and the bytes it overwrites:
// those of the regular files that have no other name.
std::pair<quint64, quint64> measure(const QByteArray& path);

} // namespace ErasePaths

#pragma once

#include "erase/RunPlan.h"

#include <QElapsedTimer>
#include <QString>
#include <QStringList>

// What a whole run did: the engine's tally, the rewrites of the finding stage,
// the applications passed over because they were running, and the time taken.
struct RunResult {
    EraseTally erased;
    qint64 rewritten = 0;
    QStringList passedOver;
    QStringList lookedFor; // applications whose cleaners ran
    QString home;
    qint64 milliseconds = 0;

    bool foundNothing() const;
};

// The words both front ends use for plans, progress and results, in the
// user's language (the catalogue's context "RunReport"). The activity log never
// takes them: its lines stay English.
namespace RunReport {

// 0 bytes, 512 bytes, 1.50 KiB, 20.0 MiB, 3.25 GiB.
QString humanSize(quint64 bytes);
// "~/..." for a path inside the home folder.
QString tilde(const QString& path);
// 0.4 s, 12 s, 3 min 5 s.
QString duration(qint64 milliseconds);
// "1 item" / "3 items", and the same of files and of rewritten files.
QString items(qint64 number);
QString files(qint64 number);
QString rewrites(qint64 number);
// An application group as the run names it ("Firefox", "Plug-ins"), for display.
QString applicationName(const QString& name);
// "Nothing was found to erase or rewrite in ~."
QString nothingFound(const QString& home);
// "Passed over because running: Firefox, Custom processes."
QString passedOver(const QStringList& applications);

// The closing block, one line each.
QStringList resultLines(const RunResult& result);
// One line for the main window's item line.
QString resultSummary(const RunResult& result);
// "Would erase N items (F files, S) and rewrite R databases and settings files".
QString planTotals(const RunPlan& plan);

} // namespace RunReport

// "12.0 MiB of 40.0 MiB, 30%, about 10 s left": the time left only once the
// rate is steady (some seconds in, a part of the bytes done). The clock starts
// at the first figures of a run.
class ProgressText {
public:
    QString update(quint64 done, quint64 total);
    void reset() { m_started = false; }

private:
    QElapsedTimer m_clock;
    bool m_started = false;
};

#pragma once

#include "app/RunReport.h"
#include "core/ApplicationFlags.h"
#include "erase/EraseDisplay.h"

#include <QString>

#include <functional>

// What the controller shows and asks, implemented by the desktop window, the
// terminal and the tests. Every call comes on the main thread.
class ControllerView : public EraseDisplay {
public:
    enum class LabelColor { LightGray, Red, Green };

    // Progress of a run: a percentage, or an indeterminate bar while finding.
    virtual void setProgressValue(double percent) = 0;
    virtual void setProgressIndeterminate(bool indeterminate) = 0;
    virtual void setProgressAnimating(bool animating) = 0;
    // The step or file name under the bar.
    virtual void setItemText(const QString& text) = 0;

    // The watch: its status line, one label per application, the custom-process counts.
    virtual void setWatchStatusText(const QString& text) = 0;
    virtual void setApplicationLabelColor(WatchedApp application, LabelColor color) = 0;
    virtual void setCustomRunningCount(int count, LabelColor color) = 0;
    virtual void setCustomStoppedCount(int count) = 0;

    virtual void setShredButtonEnabled(bool enabled) = 0;
    virtual void showWindow() = 0; // centred, in front, the application activated
    virtual void hideApplication() = 0;

    // Asks to confirm a run; answers later with 1 for "Cancel" (the default) or 0 for "OK".
    virtual void beginConfirmationSheet(const QString& title, const QString& message,
                                        std::function<void(int returnCode)> done) = 0;
    // Waits for an answer: 1 for "Cancel" (the default), 0 for "OK".
    virtual int runQuitBrowsersAlert(const QString& title, const QString& message) = 0;
    // Answers a quit request that was put off while a run finished.
    virtual void replyToApplicationShouldTerminate(bool terminate) = 0;
    virtual void beep() = 0;

    // What a finished run did; shown until the next run begins.
    virtual void showResult(const RunResult& result) { Q_UNUSED(result); }

    // The erase engine's display: the run's progress and the entry being erased, by its place in the home.
    void showProgress(double percent) override { setProgressValue(percent); }
    void showFileName(const QString& name) override { setItemText(RunReport::tilde(name)); }
};

#pragma once

#include "app/ControllerView.h"
#include "cli/TerminalProgress.h"

#include <QString>

#include <memory>
#include <optional>

// The controller's view on a terminal: a progress line (on a terminal only), the
// confirmation and the quit alert as y/N questions whose default is Cancel, and
// the watch's status lines when asked for.
class TerminalView final : public ControllerView {
public:
    struct Options {
        bool assumeYes = false;         // answer the confirmation with OK
        bool showProgress = true;       // draw the bar when stderr is a terminal
        bool printStatus = false;       // print the watch's status text when it changes
        bool printApplications = false; // and the running state of every application
    };

    explicit TerminalView(Options options);

    void setProgressValue(double) override {}
    void setProgressIndeterminate(bool indeterminate) override;
    void setProgressAnimating(bool) override {}
    void setItemText(const QString& text) override;
    void showWarning(const QString& text) override { say(text); }
    void showBytes(quint64 done, quint64 total) override;
    void showResult(const RunResult& result) override { m_result = result; }
    void setWatchStatusText(const QString& text) override;
    void setApplicationLabelColor(WatchedApp application, LabelColor color) override;
    void setCustomRunningCount(int, LabelColor) override {}
    void setCustomStoppedCount(int) override {}
    void setShredButtonEnabled(bool) override {}
    void showWindow() override {}
    void hideApplication() override {}
    void beginConfirmationSheet(const QString& title, const QString& message, std::function<void(int)> done) override;
    int runQuitBrowsersAlert(const QString& title, const QString& message) override;
    void replyToApplicationShouldTerminate(bool terminate) override;
    // Called when a quit that waited for a run may go ahead.
    void setTerminationHandler(std::function<void()> handler) { m_terminate = std::move(handler); }
    void beep() override;

    // Whether the user answered Cancel to a question of this run.
    bool userCancelled() const { return m_cancelled; }
    // What the last run did, once it has ended.
    const std::optional<RunResult>& result() const { return m_result; }
    // A line on the standard error, the progress line cleared first.
    void say(const QString& text);
    // The progress line goes before anything else is printed.
    void clearProgress();

private:
    // 0 for yes, 1 for anything else or no terminal to ask on.
    int ask(const QString& title, const QString& message, const QString& question);

    Options m_options;
    std::unique_ptr<TerminalProgress> m_progress;
    QString m_status;
    LabelColor m_labels[kWatchedAppCount];
    bool m_cancelled = false;
    std::optional<RunResult> m_result;
    std::function<void()> m_terminate;
};

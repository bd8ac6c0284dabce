#pragma once

#include "app/ControllerView.h"

#include <QStringList>
#include <QThread>

#include <map>
#include <optional>

// A controller view that records what it is told and answers the sheets and
// alerts as the test says. Checks that every call comes on the main thread.
class RecordingView final : public ControllerView {
public:
    void setProgressValue(double) override { record(); }
    void setProgressIndeterminate(bool) override { record(); }
    void setProgressAnimating(bool) override { record(); }
    void setItemText(const QString&) override { record(); }
    void setWatchStatusText(const QString& text) override { record(), statusTexts.append(text); }
    void setApplicationLabelColor(WatchedApp application, LabelColor color) override
    {
        record(), labels[application] = color;
    }
    void setCustomRunningCount(int count, LabelColor color) override
    {
        record(), customRunning = count, customRunningColor = color;
    }
    void setCustomStoppedCount(int count) override { record(), customStopped = count; }
    void setShredButtonEnabled(bool enabled) override { record(), shredButtonEnabled = enabled; }
    void showWindow() override { record(); }
    void hideApplication() override { record(); }
    void beginConfirmationSheet(const QString& title, const QString& message, std::function<void(int)> done) override
    {
        record();
        sheets.append(title + QStringLiteral(": ") + message);
        if (confirmationAnswer)
            done(*confirmationAnswer);
        else
            pendingConfirmation = std::move(done);
    }
    int runQuitBrowsersAlert(const QString& title, const QString& message) override
    {
        record();
        alerts.append(title + QStringLiteral(": ") + message);
        return quitAlertAnswer;
    }
    void replyToApplicationShouldTerminate(bool terminate) override { record(), terminateReplies.append(terminate); }
    void beep() override { record(); }

    // Answers: 0 goes on ("OK"), 1 cancels; no confirmation answer keeps the sheet open.
    std::optional<int> confirmationAnswer = 0;
    int quitAlertAnswer = 0;
    std::function<void(int)> pendingConfirmation;

    QStringList statusTexts;
    std::map<WatchedApp, LabelColor> labels;
    int customRunning = -1;
    LabelColor customRunningColor = LabelColor::LightGray;
    int customStopped = -1;
    bool shredButtonEnabled = true;
    QStringList sheets;
    QStringList alerts;
    QList<bool> terminateReplies;
    bool allOnMainThread = true;

private:
    int record()
    {
        allOnMainThread &= QThread::currentThread() == mainThread;
        return 0;
    }
    QThread* mainThread = QThread::currentThread();
};

#pragma once

#include "app/RunReport.h"
#include "erase/EraseDisplay.h"

#include <QElapsedTimer>
#include <QString>

#include <cstdio>

// One line on a terminal, redrawn in place and never wider than the terminal:
// "Finding items that need shredding…" while a run finds, then a bar with the
// bytes done of the total, the percentage, the time left once it is steady, and
// the path-list entry being erased. Anything else printed while it shows goes
// through print(), which clears the line first and draws it again below.
// Without the bar, only what goes through print() is shown.
class TerminalProgress final : public EraseDisplay {
public:
    explicit TerminalProgress(FILE* terminal, bool drawBar = true);
    ~TerminalProgress() override;

    void setFinding(bool finding);
    void showProgress(double) override {}
    void showFileName(const QString& name) override;
    void showBytes(quint64 done, quint64 total) override;
    void showWarning(const QString& text) override { print(text); }

    // A line of its own above the progress line.
    void print(const QString& text);
    // Takes the line off the screen until there is something to show again.
    void clear();

private:
    void redraw(bool force);
    int width() const;

    FILE* m_terminal;
    bool m_drawBar;
    ProgressText m_text;
    QElapsedTimer m_lastDraw;
    bool m_finding = false;
    QString m_name;
    quint64 m_done = 0;
    quint64 m_total = 0;
    bool m_drawn = false;
};

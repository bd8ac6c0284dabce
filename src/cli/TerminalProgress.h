#pragma once

#include "erase/EraseDisplay.h"

#include <cstdio>

// A one-line progress bar with the current file name, redrawn in place on a
// terminal only when something it shows has changed; warnings go on lines of
// their own above it. Without the bar, only the warnings are printed.
class TerminalProgress final : public EraseDisplay {
public:
    explicit TerminalProgress(FILE* terminal, bool drawBar = true);
    ~TerminalProgress() override;

    void showProgress(double percent) override;
    void showFileName(const QString& name) override;
    void showWarning(const QString& text) override;

private:
    void redraw();

    FILE* m_terminal;
    bool m_drawBar;
    int m_percent = -1;
    QString m_name;
    bool m_drawn = false;
};

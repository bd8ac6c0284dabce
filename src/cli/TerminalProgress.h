#pragma once

#include "erase/EraseDisplay.h"

#include <cstdio>

// A one-line progress bar with the current file name, redrawn in place on a
// terminal only when something it shows has changed.
class TerminalProgress final : public EraseDisplay {
public:
    explicit TerminalProgress(FILE* terminal);
    ~TerminalProgress() override;

    void showProgress(double percent) override;
    void showFileName(const QString& name) override;

private:
    void redraw();

    FILE* m_terminal;
    int m_percent = -1;
    QString m_name;
    bool m_drawn = false;
};

#pragma once

#include <QLabel>

// A short explanation under a pane's controls: wrapped, in the palette's quieter text colour.
QLabel* paneNote(const QString& text, QWidget* parent = nullptr);
